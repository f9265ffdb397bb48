#pragma once

#include <string>
#include <utility>

#include "datos/recordset.h"
#include "services/omision.h"
#include "services/sesion.h"
#include "valores/modo_reanudar.h"

namespace store {

/// The steps of a load or a commit, which from some point on go on after a failure: the session is
/// then told of each, of where it happened, and of what is missing for it.
class Tramo {
 public:
  using Falta = services::Omision::Falta;

  Tramo(services::Sesion& sesion, services::Omision::Tarea tarea)
      : sesion_(sesion), tarea_(tarea), modo_([this](const auto& fallo) { Contar(fallo); }) {}
  Tramo(const Tramo&) = delete;
  Tramo& operator=(const Tramo&) = delete;

  void Activar() noexcept { modo_.Activar(); }
  void Desactivar() noexcept { modo_.Desactivar(); }

  /// The table that the next steps write to, from no row yet.
  void EnTabla(std::string tabla) {
    tabla_ = std::move(tabla);
    fila_ = nullptr;
  }
  /// The next steps are about the current row of `fila`; null for none.
  void ConFila(services::Recordset* fila) { fila_ = fila; }

  /// The next steps may leave rows of this recordset for later: they are written before a failure
  /// is told of, so that failures are told in the rows' order. Null for none.
  void ConPendientes(services::Recordset* pendientes) { pendientes_ = pendientes; }

  /// Runs a step, which leaves `falta` when it fails. Whether it went well; while failures aren't
  /// passed over, throws what it throws.
  template <class Accion>
  bool Paso(Falta falta, Accion&& accion) {
    falta_ = falta;
    return modo_.Paso(std::forward<Accion>(accion));
  }

 private:
  void Contar(const services::ErrorEjecucion& fallo);

  services::Sesion& sesion_;
  services::Omision::Tarea tarea_;
  services::ModoReanudar modo_;
  Falta falta_ = Falta::Nada;
  std::string tabla_;
  services::Recordset* fila_ = nullptr;
  services::Recordset* pendientes_ = nullptr;
};

}  // namespace store
