#pragma once

#include <string>
#include <string_view>

#include "entry/campos.h"
#include "entry/clave.h"
#include "entry/pantalla_de_caja.h"
#include "entry/vencimientos.h"
#include "services/sesion.h"

namespace entry {

/// The payment terms: one receipt on a date, or a series of them, and what keeps the receipts that
/// are stored already from being lost when the terms change.
class Terminos {
 public:
  Terminos(Campos& campos, services::Sesion& sesion, const list::RejillaPagos& lista,
           Vencimientos& vencimientos, PantallaDeCaja& caja);

  /// The grid anew: the series that the terms tell, blank where they don't tell enough.
  void GenerarAplazado();
  /// The grid anew: the single receipt.
  void GenerarVista();

  /// Switches the form of payment: "Vista", any other text for the deferred one. `Estado` is
  /// whether its fields turn on, `Generar` whether the receipts are made anew.
  void Opt(std::string_view Tipo, bool Estado, bool Generar);
  /// After the user's typing has made the receipts anew: asks before stored ones are given up.
  void ComprobarRecibos();

  /// Makes the series that a first entry of the terms, or a change of their cadence, still lacks.
  void PonerseAlDia();
  /// Enter pressed on `TxtFVista`, as the invoice's date and the acceptance do.
  void IntroEnFVista();
  /// Whether the due date at sight can be one of the invoice: it tells why not, and goes to it.
  [[nodiscard]] bool FechaVistaValida();
  /// Asks whether receipts may be made anew, and keeps the answer in `HayImporte`.
  [[nodiscard]] bool ConsienteRehacer(const char* pregunta);

 private:
  void UnirTeclas();
  /// The terms are filled, and none is "0".
  [[nodiscard]] bool TerminosCompletos() const;
  void TxtFVista_KeyPress(int& tecla);
  void TxtCadencia_KeyPress(int& tecla);
  void TxtCadencia_LostFocus();
  void TxtFVista_LostFocus();
  /// By the form of payment that is on.
  void Generar();
  void RegenerarAlDejar(services::TextBox& campo);
  void RegenerarAplazado(bool comprueba);
  void RegenerarVista();

  void PonerAplazado(bool estado, bool generar);
  void PonerVista(bool estado, bool generar);

  [[nodiscard]] bool HayPagados(const std::string& sentencia) const;
  void ComprobarMismoNumero(const std::string& sentencia, int guardados);
  void ComprobarOtroNumero(int guardados);
  // The terms and the receipts that are stored come back, that many of them.
  void ReponerTerminos(int guardados);
  void ReponerRecibos(int guardados);

  Campos& c_;
  services::Sesion& sesion_;
  const list::RejillaPagos& lista_;
  Vencimientos& vencimientos_;
  PantallaDeCaja& caja_;
  /// True while the stored terms come back after a question: leaving a field asks nothing then.
  bool volviendo_ = false;
};

}  // namespace entry
