#include "sorvex/teclas.h"

#include <algorithm>
#include <string_view>

#include "forms/entrada.h"
#include "valores/texto.h"

namespace sorvex {
namespace {

bool SiemprePasa(int tecla) {
  return tecla == services::tecla::Borrar || tecla == services::tecla::Intro ||
         tecla == services::tecla::Escape;
}

bool EsCifra(int tecla) {
  return tecla >= '0' && tecla <= '9';
}

/// Whether the text ends in a day or a month that has its two figures and no `/` behind it.
bool FaltaBarra(std::string_view texto) {
  if (std::count(texto.begin(), texto.end(), '/') > 1) return false;
  const std::size_t barra = texto.rfind('/');
  const std::string_view parte = barra == std::string_view::npos ? texto : texto.substr(barra + 1);
  return parte.size() == 2 && EsCifra(parte[0]) && EsCifra(parte[1]);
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

}  // namespace

int TeclaFecha(services::TextBox& caja, int tecla) {
  if (SiemprePasa(tecla) || tecla == '/') return tecla;
  if (!EsCifra(tecla)) return 0;
  if (EscribeAlFinal(caja) && FaltaBarra(caja.Text())) {
    caja.Text = caja.Text + "/";
    caja.SelStart = static_cast<int>(services::Longitud(caja.Text()));
  }
  return tecla;
}

int TeclaImporte(const services::TextBox& caja, int tecla, bool soloEnteros) {
  if (SiemprePasa(tecla) || EsCifra(tecla)) return tecla;
  if (soloEnteros) return 0;
  if (tecla == ',' || tecla == '.') return ',';
  return tecla == '-' && AdmiteSigno(caja) ? tecla : 0;
}

}  // namespace sorvex
