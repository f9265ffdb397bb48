#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "forms/lamina.h"

namespace services {

/// Face, size and weight of a text.
struct Letra {
  std::string Nombre = "Arial";
  double Puntos = 8.25;
  bool Negrita = false;
  friend bool operator==(const Letra&, const Letra&) = default;
};

/// The room that texts take on a sheet, in centimetres: the same for a page on the screen, a
/// printer and a file, so that what is seen is what is printed.
class MedidasDeLetra {
 public:
  virtual ~MedidasDeLetra() = default;
  [[nodiscard]] virtual double Ancho(const Letra& letra, std::string_view texto) const = 0;
  /// Of a line, whatever is in it.
  [[nodiscard]] virtual double Alto(const Letra& letra) const = 0;
};

/// One thing drawn. Centimetres from the sheet's top left corner; colours are platform integers.
/// What its kind doesn't use keeps its default.
struct Trazo {
  enum class Clase { Texto, Linea, Caja, Imagen };
  Clase Que = Clase::Texto;
  double X1 = 0;  ///< left end of a text, with its line below it
  double Y1 = 0;
  double X2 = 0;
  double Y2 = 0;
  std::string Texto = {};  ///< the text printed, or the picture's file
  services::Letra Letra = {};
  int Color = 0;
  bool Llena = false;  ///< a box painted over, not only its edge
  bool Opaco = false;  ///< a text that hides what is under it
};

/// What a report is drawn on: an A4 sheet after another, on a printer or on the screen. Its
/// coordinates are centimetres from the sheet's top left corner; colours are platform integers. A
/// text is printed at the current point and moves it; so does a line or a box, to its second end.
class DestinoInforme {
 public:
  /// The measures must outlive it.
  explicit DestinoInforme(const MedidasDeLetra& medidas) : medidas_(medidas) {}
  virtual ~DestinoInforme() = default;
  DestinoInforme(const DestinoInforme&) = delete;
  DestinoInforme& operator=(const DestinoInforme&) = delete;

  static constexpr double kAncho = 21;
  static constexpr double kAlto = 29.7;
  /// Of `ScaleMode` and `PaperSize`: what every target is made for.
  static constexpr int kCentimetros = 7;
  static constexpr int kA4 = 9;

  /// Of `SetBkMode`.
  static constexpr int kTransparente = 1;

  // What the report asks of its target, and every target is: nothing goes by them.
  int ScaleMode = kCentimetros;
  int PaperSize = kA4;
  int FillStyle = 0;

  bool FontTransparent = false;
  std::string FontName = Letra{}.Nombre;
  double FontSize = Letra{}.Puntos;  ///< points
  bool FontBold = false;
  int ForeColor = 0;
  double CurrentX = 0;
  double CurrentY = 0;

  [[nodiscard]] double ScaleWidth() const { return kAncho; }
  [[nodiscard]] double ScaleHeight() const { return kAlto; }
  [[nodiscard]] double TextWidth(std::string_view texto) const;
  [[nodiscard]] double TextHeight(std::string_view texto) const;

  /// How texts lie on what is there, 1 transparent; hands back how they did before. They are
  /// transparent when this and `FontTransparent` say so.
  int SetBkMode(int modo);

  /// With `terminaLinea` the point goes to the beginning of the next line. An empty text draws
  /// nothing; a control sign in it is a blank.
  void Print(const std::string& texto, bool terminaLinea);
  void Linea(double x1, double y1, double x2, double y2, int color);
  void Caja(double x1, double y1, double x2, double y2, int color, bool llena);
  /// At its own size; a file that holds no picture draws nothing.
  void PaintPicture(const std::string& fichero, double x, double y);
  /// The current point goes to the corner of the new sheet, fonts and colours stay. Throws 482 when
  /// the sheet that is done can't be kept.
  void NewPage();
  /// The report is whole: it is printed, or kept. Throws 482 when it can't be; nothing of it stays
  /// then either, where that can be had.
  virtual void EndDoc() = 0;
  /// The report is given up, also after a failure: nothing of it stays where that can be had.
  virtual void KillDoc() = 0;
  /// Takes back what was drawn on the current sheet.
  void Cls();

 protected:
  virtual void Trazar(Trazo trazo) = 0;
  virtual void PasarHoja() = 0;
  virtual void BorrarHoja() = 0;

 private:
  [[nodiscard]] Letra LetraActual() const { return {FontName, FontSize, FontBold}; }

  const MedidasDeLetra& medidas_;
  int modoDeFondo_ = 2;  // opaque
};

/// What was drawn on one sheet, to be shown at any size.
struct LaminaInforme : Lamina {
  std::vector<Trazo> Trazos;
};

/// A sheet of the preview, which keeps what is drawn on it.
class HojaInforme : public DestinoInforme {
 public:
  using DestinoInforme::DestinoInforme;
  [[nodiscard]] std::shared_ptr<const Lamina> Image() const { return lamina_; }

  void EndDoc() override {}
  void KillDoc() override {}

 protected:
  void Trazar(Trazo trazo) override { lamina_->Trazos.push_back(std::move(trazo)); }
  /// Another sheet is another element of the preview.
  void PasarHoja() override {}
  void BorrarHoja() override { lamina_->Trazos.clear(); }

 private:
  std::shared_ptr<LaminaInforme> lamina_ = std::make_shared<LaminaInforme>();
};

}  // namespace services
