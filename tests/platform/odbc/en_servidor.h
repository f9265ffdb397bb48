#pragma once

#include <functional>

#include "odbc/conexion_odbc.h"
#include "platform/banco_odbc.h"
#include "platform/conformidad.h"

namespace pruebas {

/// Several who are connected to one server.
class EnServidor : public Conformidad {
 protected:
  static constexpr const char* kTodos = "SELECT ProvVencimientos.* FROM ProvVencimientos";

  void Nuevo(services::Conexion& con, const Texto& factura) {
    auto rs = Abrir(con, kTodos, Modo::Optimista);
    NuevoVencimiento(*rs, "1", factura);
  }
  services::ErrorEjecucion Fallo(const std::function<void()>& accion) {
    try {
      accion();
    } catch (const services::ErrorEjecucion& fallo) {
      return fallo;
    }
    return {0, ""};
  }

  odbc::Conexion& Suya() { return dynamic_cast<odbc::Conexion&>(*conexion); }
  services::Ref<services::Conexion> otra = banco->Conectar();
};

}  // namespace pruebas
