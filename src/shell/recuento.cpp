#include "shell/recuento.h"

#include <utility>

namespace shell {

void Recuento::Decir(std::int32_t cuantos, const services::Ref<services::IForm>& principal) {
  if (principal.get() != principal_.get()) {
    Avisar(0);
    principal_ = principal;
  }
  Avisar(cuantos);
}

void Recuento::Avisar(std::int32_t cuantos) {
  if (std::exchange(dicho_, cuantos) == cuantos) return;
  if (auto quienLoQuiere = principal_.Como<services::IPagosSinGrabar>()) {
    quienLoQuiere->Contar(cuantos);
  }
}

}  // namespace shell
