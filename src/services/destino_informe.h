#pragma once

#include <string>

namespace services {

/// What a report is drawn on: a printer or a page on the screen. Coordinates are centimetres from
/// the sheet's top left corner; colours are platform integers.
class DestinoInforme {
 public:
  virtual ~DestinoInforme() = default;

  [[nodiscard]] virtual double ScaleWidth() const = 0;
  [[nodiscard]] virtual double ScaleHeight() const = 0;
  [[nodiscard]] virtual double CurrentX() const = 0;
  virtual void CurrentX(double x) = 0;
  [[nodiscard]] virtual double CurrentY() const = 0;
  virtual void CurrentY(double y) = 0;
  [[nodiscard]] virtual double TextWidth(const std::string& texto) const = 0;
  [[nodiscard]] virtual double TextHeight(const std::string& texto) const = 0;

  virtual void Fuente(const std::string& nombre, double puntos, bool negrita) = 0;
  virtual void ForeColor(int color) = 0;
  /// At the current point; with `terminaLinea` the point goes to the start of the next line.
  virtual void Print(const std::string& texto, bool terminaLinea) = 0;
  virtual void Linea(double x1, double y1, double x2, double y2, int color) = 0;
  virtual void Caja(double x1, double y1, double x2, double y2, int color, bool llena) = 0;
  /// At its own size; a file that can't be read draws nothing.
  virtual void Imagen(const std::string& fichero, double x, double y) = 0;
  virtual void NewPage() = 0;
  virtual void EndDoc() = 0;
  virtual void Cls() = 0;
};

}  // namespace services
