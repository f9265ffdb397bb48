#pragma once

#include <string>

#include "forms/controles.h"
#include "list/edicion_pagado.h"
#include "list/rango_fechas.h"
#include "list/rejilla_pagos.h"
#include "print/frm_busco_impresora.h"
#include "print/frm_listados.h"
#include "services/sesion.h"

namespace print {

/// The way from the list to paper: the image that starts it, the choice of where the report goes,
/// and the report drawn there.
class Impresion {
 public:
  Impresion(services::PictureBox& panel, const services::Diseno& diseno, services::Sesion& sesion,
            list::RejillaPagos& rejilla, list::EdicionPagado& edicion,
            const list::RangoFechas& rango, const services::Widget& PicNuevo);

  services::Image ImgImpresora;

  /// Takes its screens away.
  void Descargar();

 private:
  void ImgImpresora_Click();
  void ImprimirEnPantalla();
  [[nodiscard]] bool DibujarEn(frmListados& listados);
  void ImprimirEnPapel(const std::string& elegida);
  [[nodiscard]] bool Dibujar(services::DestinoInforme& primera, frmListados* listados);
  [[nodiscard]] services::TrabajoDeImpresion PrepararTrabajo(const std::string& elegida);
  [[nodiscard]] std::string NombreDeFichero() const;

  services::Sesion& sesion_;
  list::RejillaPagos& rejilla_;
  list::EdicionPagado& edicion_;
  const list::RangoFechas& rango_;
  const services::Widget& PicNuevo_;
  services::Instancia<frmBuscoImpresora> buscoImpresora_;
  services::Instancia<frmListados> listados_;
};

}  // namespace print
