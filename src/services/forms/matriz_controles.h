#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "forms/widget.h"
#include "valores/error.h"

namespace services {

/// A control array: widgets of one kind under one name, told apart by their index from 0. Element 0
/// is designed into the screen; the others are made at run time.
template <class W>
class MatrizControles {
 public:
  template <class... Argumentos>
  explicit MatrizControles(Argumentos&&... argumentos) {
    Anadir(std::forward<Argumentos>(argumentos)...);
  }

  /// Makes the next element, out of the same arguments as its kind takes.
  template <class... Argumentos>
  W& Anadir(Argumentos&&... argumentos) {
    elementos_.push_back(std::make_unique<W>(std::forward<Argumentos>(argumentos)...));
    elementos_.back()->indice_ = UBound();
    return *elementos_.back();
  }

  [[nodiscard]] int Count() const { return static_cast<int>(elementos_.size()); }
  [[nodiscard]] int UBound() const { return Count() - 1; }
  /// Throws 381 for an element that isn't there.
  W& operator()(int indice) {
    if (indice < 0 || indice > UBound()) {
      throw ErrorEjecucion(error::CeldaNoValida, "No existe el elemento de la matriz de controles");
    }
    return *elementos_[static_cast<std::size_t>(indice)];
  }

 private:
  std::vector<std::unique_ptr<W>> elementos_;
};

}  // namespace services
