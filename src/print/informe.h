#pragma once

#include <optional>
#include <string>

#include "list/rango_fechas.h"
#include "list/rejilla_pagos.h"
#include "services/destino_informe.h"
#include "services/sesion.h"

namespace print {

class frmListados;

/// The report of the payments list: what `MSFPagos` shows at that moment, row for row. The grid is
/// its only source, with its fonts and colours as the signs of what each row is. Centimetres.
class Informe {
 public:
  /// On the pages of the preview, or on a printer when `listados` is null.
  Informe(services::Sesion& sesion, list::RejillaPagos& rejilla, const list::RangoFechas& rango,
          frmListados* listados)
      : sesion_(sesion), rejilla_(rejilla), rango_(rango), listados_(listados) {}

  /// What the target takes before anything is drawn on it.
  void Preparar(services::DestinoInforme& destino);
  /// Draws every page, the first one on `destino`, which each page of the preview takes the place
  /// of. The grid's current row is the last one printed then. False when the user left it, or its
  /// screen is gone; throws what the target throws. In both cases the report is not whole.
  [[nodiscard]] bool ImprimirInforme(services::DestinoInforme*& destino);

 private:
  [[nodiscard]] bool ImprimirFilas(services::DestinoInforme*& destino);
  void EmpezarPagina(services::DestinoInforme& destino);
  void PasarPagina(services::DestinoInforme*& destino);
  void ImprimirFila(services::DestinoInforme& destino, int fila);
  void ImprimirGrupo(services::DestinoInforme& destino, int fila);
  void ImprimirDetalle(services::DestinoInforme& destino, int fila);

  void ImprimirCabecera(services::DestinoInforme& destino);
  void ImprimirTitulos(services::DestinoInforme& destino);
  void ImprimirPie(services::DestinoInforme& destino);
  void PonerTransparente(services::DestinoInforme& destino);
  void PintarFondo(services::DestinoInforme& destino);
  void Alinear(services::DestinoInforme& destino, double x, const std::string& texto,
               const char* alineacion, bool terminaLinea);

  services::Sesion& sesion_;
  list::RejillaPagos& rejilla_;
  const list::RangoFechas& rango_;
  frmListados* listados_;
  /// Looked for once a report.
  std::optional<bool> hayFondo_;
};

}  // namespace print
