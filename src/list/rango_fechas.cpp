#include "list/rango_fechas.h"

#include <optional>

#include "services/largos.h"
#include "valores/fecha.h"
#include "valores/texto.h"

namespace list {
namespace {

using services::Diseno;
using services::TextBox;

constexpr auto kLargoCompleto = static_cast<std::size_t>(services::largo::Fecha);

/// Whether a text of ten characters is a date; no value for a text of another length.
std::optional<bool> FechaCompleta(const std::string& texto) {
  if (services::Longitud(texto) != kLargoCompleto) return std::nullopt;
  const auto fecha = services::LeerFecha(texto);
  return fecha && !fecha->EsCero();
}

}  // namespace

RangoFechas::RangoFechas(services::PictureBox& panel, services::Sesion& sesion,
                         const services::Widget& BtnCancelar, AlCambiarRango& pantalla)
    : LblDesde(panel, "LblDesde", "Ver Pagos Desde:", {180, 200, 1500, 285}),
      TxtFPrevisionD(panel, "TxtFPrevisionD", Diseno{1740, 160, 1300, 360}.Tab(0).Cuerpo(10)),
      LblHasta(panel, "LblHasta", "Ver Pagos Hasta:", {3240, 200, 1500, 285}),
      TxtFPrevision(panel, "TxtFPrevision", Diseno{4800, 160, 1300, 360}.Tab(1).Cuerpo(10)),
      sesion_(sesion),
      BtnCancelar_(BtnCancelar),
      pantalla_(pantalla) {
  Conectar(TxtFPrevisionD);
  Conectar(TxtFPrevision);
  TxtFPrevisionD.Change = [this] { TxtFPrevisionD_Change(); };
  TxtFPrevision.Change = [this] { TxtFPrevision_Change(); };
  TxtFPrevisionD.LostFocus = [this] { TxtFPrevisionD_LostFocus(); };
  TxtFPrevision.LostFocus = [this] { TxtFPrevision_LostFocus(); };
}

void RangoFechas::Conectar(TextBox& campo) {
  campo.GotFocus = [this, &campo] { Recibir(campo); };
  campo.MaxLength = services::largo::Fecha;
  campo.KeyPress = [this, &campo](int& tecla) {
    tecla = sesion_.Utiles().TeclaFecha(campo, tecla);
  };
}

std::string MesEnTexto(int anio, int mes) {
  return (mes < 10 ? "0" : "") + std::to_string(mes) + "/" + std::to_string(anio);
}

void RangoFechas::PonerMesActual() {
  const auto hoy = services::Descomponer(sesion_.Ahora());
  const std::string mes = MesEnTexto(hoy.Anio, hoy.Mes);
  TxtFPrevisionD.Text = "01/" + mes;
  // Whatever the month's length: the conversion takes a day past its end for its last one.
  TxtFPrevision.Text = "31/" + mes;
  for (TextBox* campo : {&TxtFPrevisionD, &TxtFPrevision}) {
    campo->Text = sesion_.Utiles().Normalizada(campo->Text);
    campo->Tag = campo->Text();
  }
}

void RangoFechas::Recibir(TextBox& campo) {
  campo.BackColor = services::color::ConFoco;
  campo.Tag = campo.Text();
  campo.SeleccionarTodo();
}

void RangoFechas::TxtFPrevisionD_Change() {
  const auto completa = FechaCompleta(TxtFPrevisionD.Text);
  if (!completa) return;
  (*completa ? TxtFPrevision : TxtFPrevisionD).SetFocus();
}

void RangoFechas::TxtFPrevision_Change() {
  // The focus stays where it is.
  if (FechaCompleta(TxtFPrevision.Text).value_or(false)) TxtFPrevision_LostFocus();
}

void RangoFechas::TxtFPrevisionD_LostFocus() {
  if (Normalizar(TxtFPrevisionD)) Dejar(TxtFPrevisionD);
}

void RangoFechas::TxtFPrevision_LostFocus() {
  if (!Normalizar(TxtFPrevision)) return;
  if (const store::Intervalo rango = Intervalo(); rango.Hasta < rango.Desde) {
    // What is refused is the end before the beginning; the words say it the other way round, and
    // users know them so.
    Rechazar(TxtFPrevision, "Hasta Fecha no puede ser mayor que Desde Fecha");
    return;
  }
  Dejar(TxtFPrevision);
}

bool RangoFechas::Normalizar(TextBox& campo) {
  campo.BackColor = services::color::Blanco;
  if (BtnCancelar_.Tag == "No") return false;
  const std::size_t largo = services::Longitud(campo.Text());
  const bool completa = largo == kLargoCompleto || largo == 8;
  if (completa) campo.Text = sesion_.Utiles().Normalizada(campo.Text);
  // A text as long as a date that is none would stand for the beginning of time.
  if (completa && !sesion_.Utiles().Almacenada(campo.Text).empty()) return true;
  Rechazar(campo, "Fecha incorrecta");
  return false;
}

void RangoFechas::Dejar(TextBox& campo) {
  if (campo.Tag == campo.Text) return;
  pantalla_.RangoCambiado(campo);
}

bool RangoFechas::PorDejar() const {
  const auto cambiada = [](const TextBox& campo) {
    return campo.TieneFoco() && campo.Tag != campo.Text;
  };
  return cambiada(TxtFPrevisionD) || cambiada(TxtFPrevision);
}

void RangoFechas::Rechazar(TextBox& campo, const char* motivo) {
  sesion_.Aviso().Rechazar(motivo);
  campo.SetFocus();
}

void RangoFechas::Poner(const store::Intervalo& rango) {
  const auto poner = [this](TextBox& campo, const std::string& almacenada) {
    campo.Text.PonerEnSilencio(sesion_.Utiles().Mostrada(almacenada));
    campo.Tag = campo.Text();
  };
  poner(TxtFPrevisionD, rango.Desde);
  poner(TxtFPrevision, rango.Hasta);
}

store::Intervalo RangoFechas::Intervalo() const {
  services::Utiles& utiles = sesion_.Utiles();
  return {utiles.Almacenada(TxtFPrevisionD.Text), utiles.Almacenada(TxtFPrevision.Text)};
}

}  // namespace list
