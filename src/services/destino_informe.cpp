#include "services/destino_informe.h"

#include <utility>

#include "valores/texto.h"

namespace services {

namespace {

constexpr int kTransparente = 1;

}  // namespace

double DestinoInforme::TextWidth(std::string_view texto) const {
  return medidas_.Ancho(LetraActual(), EnUnaLinea(texto));
}

double DestinoInforme::TextHeight(std::string_view) const {
  return medidas_.Alto(LetraActual());
}

int DestinoInforme::SetBkMode(int modo) {
  return std::exchange(modoDeFondo_, modo);
}

void DestinoInforme::Print(const std::string& texto, bool terminaLinea) {
  if (!texto.empty()) {
    Trazar({.Que = Trazo::Clase::Texto,
            .X1 = CurrentX,
            .Y1 = CurrentY,
            .Texto = EnUnaLinea(texto),
            .Letra = LetraActual(),
            .Color = ForeColor,
            .Opaco = !FontTransparent || modoDeFondo_ != kTransparente});
  }
  if (terminaLinea) {
    CurrentX = 0;
    CurrentY += TextHeight(texto);
  } else {
    CurrentX += TextWidth(texto);
  }
}

void DestinoInforme::Linea(double x1, double y1, double x2, double y2, int color) {
  Trazar({.Que = Trazo::Clase::Linea, .X1 = x1, .Y1 = y1, .X2 = x2, .Y2 = y2, .Color = color});
  CurrentX = x2;
  CurrentY = y2;
}

void DestinoInforme::Caja(double x1, double y1, double x2, double y2, int color, bool llena) {
  Trazar({.Que = Trazo::Clase::Caja,
          .X1 = x1,
          .Y1 = y1,
          .X2 = x2,
          .Y2 = y2,
          .Color = color,
          .Llena = llena});
  CurrentX = x2;
  CurrentY = y2;
}

void DestinoInforme::PaintPicture(const std::string& fichero, double x, double y) {
  Trazar({.Que = Trazo::Clase::Imagen, .X1 = x, .Y1 = y, .Texto = fichero});
}

void DestinoInforme::NewPage() {
  PasarHoja();
  CurrentX = 0;
  CurrentY = 0;
}

void DestinoInforme::Cls() {
  BorrarHoja();
  CurrentX = 0;
  CurrentY = 0;
}

}  // namespace services
