#pragma once

#include <memory>
#include <string>
#include <vector>

#include "services/destino_informe.h"

namespace headless {

/// One thing that a report drew. Centimetres from the sheet's top left corner; what its kind
/// doesn't use keeps its default.
struct Trazo {
  enum class Clase { Texto, Linea, Caja, Imagen };
  Clase Que = Clase::Texto;
  int Pagina = 1;  ///< from 1
  double X1 = 0;
  double Y1 = 0;
  double X2 = 0;
  double Y2 = 0;
  std::string Texto;   ///< the text printed, or the picture's file
  std::string Fuente;  ///< face
  double Puntos = 0;
  bool Negrita = false;
  int Color = 0;
  bool Llena = false;
};

using Trazos = std::vector<Trazo>;

/// An A4 sheet that keeps what is drawn instead of drawing it. Its letters are all half as wide as
/// high, so that widths are the same on every machine.
class InformeGrabado final : public services::DestinoInforme {
 public:
  explicit InformeGrabado(std::shared_ptr<Trazos> trazos) : trazos_(std::move(trazos)) {}

  [[nodiscard]] double ScaleWidth() const override { return 21.0; }
  [[nodiscard]] double ScaleHeight() const override { return 29.7; }
  [[nodiscard]] double CurrentX() const override { return x_; }
  void CurrentX(double x) override { x_ = x; }
  [[nodiscard]] double CurrentY() const override { return y_; }
  void CurrentY(double y) override { y_ = y; }
  [[nodiscard]] double TextWidth(const std::string& texto) const override;
  [[nodiscard]] double TextHeight(const std::string& texto) const override;

  void Fuente(const std::string& nombre, double puntos, bool negrita) override;
  void ForeColor(int color) override { color_ = color; }
  /// An empty text draws nothing, but ends its line.
  void Print(const std::string& texto, bool terminaLinea) override;
  void Linea(double x1, double y1, double x2, double y2, int color) override;
  void Caja(double x1, double y1, double x2, double y2, int color, bool llena) override;
  void Imagen(const std::string& fichero, double x, double y) override;
  void NewPage() override;
  void EndDoc() override {}
  /// Takes back what was drawn on the current page.
  void Cls() override;

 private:
  std::shared_ptr<Trazos> trazos_;
  int pagina_ = 1;
  double x_ = 0;
  double y_ = 0;
  std::string fuente_ = "Arial";
  double puntos_ = 8.25;
  bool negrita_ = false;
  int color_ = 0;
};

}  // namespace headless
