#include "headless/informe_grabado.h"

#include "valores/texto.h"

namespace headless {
namespace {

constexpr double kCentimetrosPorPunto = 2.54 / 72;
/// Height of a line to the size of its letters.
constexpr double kInterlinea = 1.15;

}  // namespace

double InformeGrabado::TextWidth(const std::string& texto) const {
  return static_cast<double>(services::Longitud(texto)) * puntos_ * kCentimetrosPorPunto / 2;
}

double InformeGrabado::TextHeight(const std::string&) const {
  return puntos_ * kCentimetrosPorPunto * kInterlinea;
}

void InformeGrabado::Fuente(const std::string& nombre, double puntos, bool negrita) {
  fuente_ = nombre;
  puntos_ = puntos;
  negrita_ = negrita;
}

void InformeGrabado::Print(const std::string& texto, bool terminaLinea) {
  if (!texto.empty()) {
    trazos_->push_back({Trazo::Clase::Texto, pagina_, x_, y_, 0, 0, texto, fuente_, puntos_,
                        negrita_, color_, false});
  }
  x_ = terminaLinea ? 0 : x_ + TextWidth(texto);
  if (terminaLinea) y_ += TextHeight(texto);
}

void InformeGrabado::Linea(double x1, double y1, double x2, double y2, int color) {
  trazos_->push_back(
      {Trazo::Clase::Linea, pagina_, x1, y1, x2, y2, "", "", 0, false, color, false});
}

void InformeGrabado::Caja(double x1, double y1, double x2, double y2, int color, bool llena) {
  trazos_->push_back({Trazo::Clase::Caja, pagina_, x1, y1, x2, y2, "", "", 0, false, color, llena});
}

void InformeGrabado::Imagen(const std::string& fichero, double x, double y) {
  trazos_->push_back({Trazo::Clase::Imagen, pagina_, x, y, 0, 0, fichero, "", 0, false, 0, false});
}

void InformeGrabado::NewPage() {
  ++pagina_;
  x_ = 0;
  y_ = 0;
}

void InformeGrabado::Cls() {
  std::erase_if(*trazos_, [this](const Trazo& trazo) { return trazo.Pagina == pagina_; });
  x_ = 0;
  y_ = 0;
}

}  // namespace headless
