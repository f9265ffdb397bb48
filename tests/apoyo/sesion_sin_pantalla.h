#pragma once

#include <string>
#include <utility>

#include "apoyo/componente_en_marcha.h"
#include "store/carga.h"
#include "store/grabacion.h"
#include "store/rango_fechas.h"

// The component's session with a range of dates and no main screen: the load and the commit alone.

namespace apoyo {

class FormDelRango final : public services::Form, private store::AlCambiarRango {
 public:
  explicit FormDelRango(shell::DatosComunes& sesion)
      : Form(sesion.Escritorio(), "FormDelRango", 15360, 11520),
        Panel(*this, "Panel", {.Width = 15360, .Height = 11520}),
        BtnCancelar(*this, "BtnCancelar", "Cancelar", {.Contenedor = &Panel}),
        Rango(*this, Panel, sesion, BtnCancelar, *this) {
    BtnCancelar.Tag = "No";
    Rango.PonerMesActual();
  }

  services::PictureBox Panel;
  services::Pulsador BtnCancelar;
  store::RangoFechas Rango;

 private:
  void RangoCambiado(services::TextBox&) override {}
};

/// Its range is the month of `ahora`.
class SesionSinPantalla {
 public:
  SesionSinPantalla(services::Ref<services::Conexion> datos, services::Ref<services::Conexion> temp,
                    services::FechaHora ahora)
      : componente_(std::move(datos), std::move(temp), ahora),
        form_(services::Crear<FormDelRango>(componente_.RecibirSesion())) {}

  /// Each is one operation of the host: its writes are durable at its end.
  void Cargar() {
    Operacion([&] { store::CargarTemporales(Sesion(), form_->Rango); });
  }
  /// Only after a load, whose range it replaces.
  void Grabar() {
    Operacion([&] { store::GrabarTemporales(Sesion(), form_->Rango); });
  }

 private:
  [[nodiscard]] shell::DatosComunes& Sesion() { return componente_.Sesion(); }
  template <class Accion>
  void Operacion(Accion&& accion) {
    Sesion().Escritorio().Operacion(std::forward<Accion>(accion));
  }

  ComponenteEnMarcha componente_;
  services::Ref<FormDelRango> form_;
};

}  // namespace apoyo
