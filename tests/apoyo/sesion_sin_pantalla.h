#pragma once

#include <string>
#include <utility>

#include "apoyo/componente_en_marcha.h"
#include "store/copia_de_trabajo.h"

// The component's session with no main screen: the load and the commit alone.

namespace apoyo {

class SesionSinPantalla {
 public:
  /// `rango` is what its loads bring.
  SesionSinPantalla(services::Ref<services::Conexion> datos, services::Ref<services::Conexion> temp,
                    services::FechaHora ahora, store::Intervalo rango)
      : componente_(std::move(datos), std::move(temp), ahora),
        copia_(componente_.RecibirSesion()),
        rango_(std::move(rango)) {}

  /// Each is one operation of the host: its writes are durable at its end.
  void Cargar() {
    Operacion([&] { copia_.Cargar(rango_); });
  }
  /// Only after a load, whose range it replaces.
  void Grabar() {
    Operacion([&] { copia_.Grabar(); });
  }

 private:
  template <class Accion>
  void Operacion(Accion&& accion) {
    componente_.Sesion().Escritorio().Operacion(std::forward<Accion>(accion));
  }

  ComponenteEnMarcha componente_;
  store::CopiaDeTrabajo copia_;
  const store::Intervalo rango_;
};

}  // namespace apoyo
