#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "forms/form.h"
#include "forms/ventana.h"
#include "forms/widget.h"
#include "valores/error.h"

namespace services {

/// A control array: widgets of one kind under one name, told apart by their index from 0. Element 0
/// is designed into the screen; the others are made, and taken away, at run time, and the screen's
/// window follows.
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
    W& nuevo = *elementos_.back();
    nuevo.indice_ = UBound();
    if (Ventana* vista = nuevo.Formulario().Vista()) vista->Anadido(nuevo);
    return nuevo;
  }

  /// Takes the last element away. Element 0 stays: throws 381 for it.
  void QuitarUltimo() {
    if (UBound() < 1) throw ErrorEjecucion(error::CeldaNoValida, kNoExiste);
    W& ultimo = *elementos_.back();
    if (Ventana* vista = ultimo.Formulario().Vista()) vista->Quitado(ultimo);
    elementos_.pop_back();
  }

  [[nodiscard]] int Count() const { return static_cast<int>(elementos_.size()); }
  [[nodiscard]] int UBound() const { return Count() - 1; }
  /// Throws 381 for an element that isn't there.
  W& operator()(int indice) { return *elementos_[Lugar(indice)]; }
  const W& operator()(int indice) const { return *elementos_[Lugar(indice)]; }

 private:
  [[nodiscard]] std::size_t Lugar(int indice) const {
    if (indice < 0 || indice > UBound()) throw ErrorEjecucion(error::CeldaNoValida, kNoExiste);
    return static_cast<std::size_t>(indice);
  }

  static constexpr const char* kNoExiste = "No existe el elemento de la matriz de controles";

  std::vector<std::unique_ptr<W>> elementos_;
};

}  // namespace services
