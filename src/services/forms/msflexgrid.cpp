#include "forms/msflexgrid.h"

#include <algorithm>
#include <utility>

#include "forms/form.h"
#include "valores/error.h"

namespace services {
namespace {

[[noreturn]] void NoHayCelda(int fila, int columna) {
  throw ErrorEjecucion(error::CeldaNoValida, "La rejilla no tiene la celda (" +
                                                 std::to_string(fila) + ", " +
                                                 std::to_string(columna) + ")");
}

}  // namespace

MSFlexGrid::MSFlexGrid(Sitio sitio, std::string nombre, int columnas, const Diseno& diseno)
    : Widget(sitio, std::move(nombre), diseno),
      columnas_(columnas),
      celdas_(static_cast<std::size_t>(columnas)),
      de_columna_(static_cast<std::size_t>(columnas)) {
  BackColor.PonerEnSilencio(color::Blanco);
  ForeColor.PonerEnSilencio(color::Negro);
}

const MSFlexGrid::Celda& MSFlexGrid::En(int fila, int columna) const {
  if (fila < 0 || fila >= filas_ || columna < 0 || columna >= columnas_) NoHayCelda(fila, columna);
  return celdas_[static_cast<std::size_t>(fila) * static_cast<std::size_t>(columnas_) +
                 static_cast<std::size_t>(columna)];
}

MSFlexGrid::Celda& MSFlexGrid::En(int fila, int columna) {
  return const_cast<Celda&>(std::as_const(*this).En(fila, columna));
}

const MSFlexGrid::Columna& MSFlexGrid::DeColumna(int columna) const {
  if (columna < 0 || columna >= columnas_) NoHayCelda(fila_, columna);
  return de_columna_[static_cast<std::size_t>(columna)];
}

MSFlexGrid::Columna& MSFlexGrid::DeColumna(int columna) {
  return const_cast<Columna&>(std::as_const(*this).DeColumna(columna));
}

void MSFlexGrid::AvisarCelda(int fila, int columna) {
  if (Ventana* vista = Formulario().Vista()) vista->CeldaCambiada(*this, fila, columna);
}

void MSFlexGrid::AvisarFilas() {
  if (Ventana* vista = Formulario().Vista()) vista->FilasCambiadas(*this);
}

void MSFlexGrid::PonerRows(int filas) {
  if (filas < 1) NoHayCelda(filas, 0);
  if (filas == filas_) return;
  celdas_.resize(static_cast<std::size_t>(filas) * static_cast<std::size_t>(columnas_));
  filas_ = filas;
  fila_ = std::min(fila_, filas_ - 1);
  SalirDeLaCabecera();
  AvisarFilas();
}

void MSFlexGrid::SalirDeLaCabecera() {
  if (fila_ == 0 && filas_ > 1) fila_ = 1;
}

void MSFlexGrid::MoverA(int fila, int columna) {
  if (fila < 0 || fila >= filas_ || columna < 0 || columna >= columnas_) NoHayCelda(fila, columna);
  if (fila == fila_ && columna == columna_) return;
  Disparar(LeaveCell);
  // The handler may have dropped rows.
  fila_ = std::min(fila, filas_ - 1);
  columna_ = columna;
  if (Ventana* vista = Formulario().Vista()) vista->CeldaActual(*this);
  Disparar(RowColChange);
}

const std::string& MSFlexGrid::TextMatrix(int fila, int columna) const {
  return En(fila, columna).texto;
}

void MSFlexGrid::TextMatrix(int fila, int columna, std::string texto) {
  Celda& celda = En(fila, columna);
  if (celda.texto == texto) return;
  celda.texto = std::move(texto);
  AvisarCelda(fila, columna);
}

void MSFlexGrid::AnadirFila(std::vector<std::string> celdas, int fondo, int texto) {
  celdas.resize(static_cast<std::size_t>(columnas_));
  for (std::string& celda : celdas) {
    celdas_.push_back({.texto = std::move(celda), .fondo = fondo, .color = texto});
  }
  ++filas_;
  SalirDeLaCabecera();
  AvisarFilas();
}

void MSFlexGrid::RemoveItem(int fila) {
  if (fila < 1 || fila >= filas_) NoHayCelda(fila, 0);
  const auto primera = celdas_.begin() + static_cast<std::ptrdiff_t>(fila) * columnas_;
  celdas_.erase(primera, primera + columnas_);
  --filas_;
  fila_ = std::min(fila_, filas_ - 1);
  AvisarFilas();
}

int MSFlexGrid::ColWidth(int columna) const {
  return DeColumna(columna).ancho;
}

void MSFlexGrid::ColWidth(int columna, int ancho) {
  if (std::exchange(DeColumna(columna).ancho, ancho) != ancho) Cambiada(Aspecto::Geometria);
}

int MSFlexGrid::ColAlignment(int columna) const {
  return DeColumna(columna).alineacion;
}

void MSFlexGrid::ColAlignment(int columna, int valor) {
  if (std::exchange(DeColumna(columna).alineacion, valor) != valor) AvisarFilas();
}

int MSFlexGrid::FixedAlignment(int columna) const {
  return DeColumna(columna).fija;
}

void MSFlexGrid::FixedAlignment(int columna, int valor) {
  if (std::exchange(DeColumna(columna).fija, valor) != valor) AvisarCelda(0, columna);
}

int MSFlexGrid::CellLeft() const {
  int izquierda = 0;
  for (int c = 0; c < columna_; ++c) izquierda += ColWidth(c);
  return izquierda;
}

int MSFlexGrid::CellTop() const {
  return fila_ == 0 ? 0 : (fila_ - TopRow() + 1) * RowHeightMin();
}

int MSFlexGrid::FondoDe(int fila, int columna) const {
  const Celda& celda = En(fila, columna);
  if (celda.fondo != kSinColor) return celda.fondo;
  return fila == 0 ? BackColorFixed() : BackColor();
}

int MSFlexGrid::ColorDe(int fila, int columna) const {
  const Celda& celda = En(fila, columna);
  return celda.color != kSinColor ? celda.color : ForeColor();
}

const std::string& MSFlexGrid::ImagenDe(int fila, int columna) const {
  return imagenes_[En(fila, columna).imagen];
}

int MSFlexGrid::AlineacionDe(int fila, int columna) const {
  const Celda& celda = En(fila, columna);
  if (celda.alineacion != kSinAlineacion) return celda.alineacion;
  return fila == 0 ? FixedAlignment(columna) : ColAlignment(columna);
}

double MSFlexGrid::CuerpoDe(int fila, int columna) const {
  const Celda& celda = En(fila, columna);
  return celda.cuerpo > 0 ? static_cast<double>(celda.cuerpo) : FontSize();
}

bool MSFlexGrid::NegritaDe(int fila, int columna) const {
  const Celda& celda = En(fila, columna);
  return celda.negrita >= 0 ? celda.negrita != 0 : FontBold();
}

void MSFlexGrid::PonerCellBackColor(int valor) {
  if (std::exchange(Actual().fondo, valor) != valor) AvisarCelda(fila_, columna_);
}

void MSFlexGrid::PonerCellForeColor(int valor) {
  if (std::exchange(Actual().color, valor) != valor) AvisarCelda(fila_, columna_);
}

void MSFlexGrid::PintarFila(int fila, int fondo, int texto) {
  for (int c = 0; c < columnas_; ++c) {
    Celda& celda = En(fila, c);
    if (celda.fondo == fondo && celda.color == texto) continue;
    celda.fondo = fondo;
    celda.color = texto;
    AvisarCelda(fila, c);
  }
}

void MSFlexGrid::PonerImagen(int fila, int columna, const std::string& imagen) {
  Celda& celda = En(fila, columna);
  const auto donde = std::find(imagenes_.begin(), imagenes_.end(), imagen);
  const auto cual = static_cast<std::uint8_t>(donde - imagenes_.begin());
  if (donde == imagenes_.end()) imagenes_.push_back(imagen);
  if (std::exchange(celda.imagen, cual) != cual) AvisarCelda(fila, columna);
}

void MSFlexGrid::PonerCellAlignment(int valor) {
  const auto nueva = static_cast<std::int8_t>(valor);
  if (std::exchange(Actual().alineacion, nueva) != nueva) AvisarCelda(fila_, columna_);
}

void MSFlexGrid::PonerCellFontSize(double puntos) {
  const auto nuevo = static_cast<float>(puntos);
  if (std::exchange(Actual().cuerpo, nuevo) != nuevo) AvisarCelda(fila_, columna_);
}

void MSFlexGrid::PonerCellFontBold(bool negrita) {
  const std::int8_t nueva = negrita ? 1 : 0;
  if (std::exchange(Actual().negrita, nueva) != nueva) AvisarCelda(fila_, columna_);
}

}  // namespace services
