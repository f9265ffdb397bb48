#include "sorvex/teclas.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "forms/entrada.h"
#include "valores/texto.h"

namespace sorvex {
namespace {

constexpr std::size_t kCifrasDeMiles = 3;

bool SiemprePasa(int tecla) {
  return tecla == services::tecla::Borrar || tecla == services::tecla::Intro ||
         tecla == services::tecla::Escape;
}

/// Whether the text ends in a day or a month that has its two figures and no `/` behind it.
bool FaltaBarra(std::string_view texto) {
  if (std::count(texto.begin(), texto.end(), '/') > 1) return false;
  const std::size_t barra = texto.rfind('/');
  const std::string_view parte = barra == std::string_view::npos ? texto : texto.substr(barra + 1);
  return parte.size() == 2 && services::EsCifra(parte[0]) && services::EsCifra(parte[1]);
}

bool EscribeAlFinal(const services::TextBox& caja) {
  return caja.SelLength == 0 && caja.SelStart == static_cast<int>(services::Longitud(caja.Text()));
}

/// Whether what is typed now would be the first character, with no sign behind it.
bool AdmiteSigno(const services::TextBox& caja) {
  if (caja.SelStart != 0) return false;
  const bool tieneSigno = caja.Text().starts_with('-');
  return !tieneSigno || caja.SelLength > 0;
}

/// What stands before and behind what is typed now.
struct Entorno {
  std::string Antes;
  std::string Despues;
};

Entorno EntornoDe(const services::TextBox& caja) {
  const std::string& texto = caja.Text();
  const auto desde = static_cast<std::size_t>(caja.SelStart());
  const auto cuantos = static_cast<std::size_t>(caja.SelLength());
  const std::string hasta = services::Izquierda(texto, desde + cuantos);
  return {services::Izquierda(texto, desde), texto.substr(hasta.size())};
}

/// Whether a comma typed now would be the only one, with no thousands' point behind it.
bool AdmiteComa(const services::TextBox& caja) {
  const Entorno entorno = EntornoDe(caja);
  return entorno.Antes.find(',') == std::string::npos &&
         entorno.Despues.find_first_of(",.") == std::string::npos;
}

/// Behind a comma and just three figures, at the end of the text, that comma turns out to be the
/// thousands' point: makes it one. Whether it was.
bool PasarAMiles(services::TextBox& caja) {
  const Entorno entorno = EntornoDe(caja);
  const std::size_t coma = entorno.Antes.find(',');
  if (coma == std::string::npos || !entorno.Despues.empty()) return false;
  const std::string_view detras = std::string_view(entorno.Antes).substr(coma + 1);
  if (detras.size() != kCifrasDeMiles ||
      !std::all_of(detras.begin(), detras.end(), services::EsCifra)) {
    return false;
  }
  const int desde = caja.SelStart;
  const int cuantos = caja.SelLength;
  std::string texto = caja.Text;
  texto.replace(coma, 1, ".");
  caja.Text = texto;
  caja.SelStart = desde;
  caja.SelLength = cuantos;
  return true;
}

}  // namespace

int TeclaFecha(services::TextBox& caja, int tecla) {
  if (SiemprePasa(tecla) || tecla == '/') return tecla;
  if (!services::EsCifra(tecla)) return 0;
  if (EscribeAlFinal(caja) && FaltaBarra(caja.Text())) {
    caja.Text = caja.Text + "/";
    caja.SelStart = static_cast<int>(services::Longitud(caja.Text()));
  }
  return tecla;
}

int TeclaImporte(services::TextBox& caja, int tecla, bool soloEnteros) {
  if (SiemprePasa(tecla) || services::EsCifra(tecla)) return tecla;
  if (soloEnteros) return tecla == ',' && AdmiteComa(caja) ? tecla : 0;
  if (tecla == ',' || tecla == '.') return AdmiteComa(caja) || PasarAMiles(caja) ? ',' : 0;
  return tecla == '-' && AdmiteSigno(caja) ? tecla : 0;
}

}  // namespace sorvex
