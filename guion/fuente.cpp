#include "guion/fuente.h"

#include <cstddef>
#include <utility>

namespace guion {

Fuente Seguidas(std::vector<Orden> ordenes) {
  return [ordenes = std::move(ordenes), siguiente = std::size_t{0}](int) mutable {
    return siguiente < ordenes.size() ? &ordenes[siguiente++] : nullptr;
  };
}

}  // namespace guion
