#pragma once

#include <vector>

#include "cash/frm_pagos_caja.h"
#include "entry/entrada.h"
#include "entry/pantalla_de_caja.h"
#include "services/sesion.h"

namespace cash {

/// The one `FrmPagosCaja` of a panel, made and let go as the panel asks.
class CajaDelPanel final : public entry::PantallaDeCaja {
 public:
  /// The blocks of the panel may be put together after this; they are asked for when the screen is.
  CajaDelPanel(services::Escritorio& escritorio, services::Sesion& sesion, entry::Campos& campos,
               entry::Entrada& entrada)
      : escritorio_(escritorio), sesion_(sesion), c_(campos), entrada_(entrada) {}

  void Rehacer() override;
  void RehacerSiEsDeOtro() override;
  void Descargar() override;
  void Cargar() override { Cargada(); }
  void MostrarModal() override { Cargada().ShowModal(); }
  [[nodiscard]] std::vector<entry::ApunteDeCaja> Apuntes() override { return Cargada().Apuntes(); }

 private:
  FrmPagosCaja& Cargada();

  services::Escritorio& escritorio_;
  services::Sesion& sesion_;
  entry::Campos& c_;
  entry::Entrada& entrada_;
  services::Instancia<FrmPagosCaja> pantalla_;
};

}  // namespace cash
