#pragma once

#include <string>

#include "forms/controles.h"
#include "services/sesion.h"
#include "store/intervalo.h"

namespace list {

/// Month and year as dates have them: "02/2005".
[[nodiscard]] std::string MesEnTexto(int anio, int mes);

/// Told to the screen when a date of the range was changed and left: the working copy no longer
/// belongs to what the fields say.
class AlCambiarRango {
 public:
  /// Saves or loads as the user wants, and then copies the field's text to its `Tag`.
  virtual void RangoCambiado(services::TextBox& campo) = 0;

 protected:
  ~AlCambiarRango() = default;
};

/// The range of due dates that the screen works on: `TxtFPrevisionD` (from) and `TxtFPrevision`
/// (to). The `Text` of a field is what the user sees; its `Tag` is what it held when it got the
/// focus, or when the copy was last loaded.
class RangoFechas {
 public:
  /// `BtnCancelar` holds "No" in its `Tag` while the fields must not react.
  RangoFechas(services::PictureBox& panel, services::Sesion& sesion,
              const services::Widget& BtnCancelar, AlCambiarRango& pantalla);

  services::Label LblDesde;
  services::TextBox TxtFPrevisionD;
  services::Label LblHasta;
  services::TextBox TxtFPrevision;

  /// Puts the fields on the whole current month.
  void PonerMesActual();

  /// Whether a changed date has the focus: what it asks for it asks as it is left.
  [[nodiscard]] bool PorDejar() const;

  /// Puts the fields on a range, with no event.
  void Poner(const store::Intervalo& rango);
  /// The range as the fields tell it; empty texts for what is no date.
  [[nodiscard]] store::Intervalo Intervalo() const;

 private:
  void TxtFPrevisionD_Change();
  void TxtFPrevision_Change();
  void TxtFPrevisionD_LostFocus();
  void TxtFPrevision_LostFocus();

  void Conectar(services::TextBox& campo);
  void Recibir(services::TextBox& campo);
  [[nodiscard]] bool Normalizar(services::TextBox& campo);
  void Dejar(services::TextBox& campo);
  void Rechazar(services::TextBox& campo, const char* motivo);

  services::Sesion& sesion_;
  const services::Widget& BtnCancelar_;
  AlCambiarRango& pantalla_;
};

}  // namespace list
