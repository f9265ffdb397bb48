#pragma once

#include <QFrame>

namespace qt {

/// A surface whose widgets lie where their models say, to the twip, instead of in a layout. Its
/// measure is the line of text: the 180 twips that the models give one are as high as a line of the
/// desktop's font, and everything on it grows alike.
///
/// A widget with the property `holguraTwips` is drawn so much higher and lower than its model says.
/// With `medidaTwips` the surface takes that much room itself; `origenTwips` is the place of the
/// model that its corner shows. With `aEscala` its measure is not the font but the desktop's own
/// inch: what lies on it is as large as its model says, and its corner shows the place of the
/// screen that it stands at. The wheel over it moves the scroll bar that `barra` names; with Ctrl
/// it is the screen's.
class SueloQt final : public QFrame {
 public:
  explicit SueloQt(QWidget* padre = nullptr);

  void Colocar(QWidget& vista, const QRect& twips);
  /// Shows a widget on it or not. One that lies out of sight is hidden as well: the toolkit
  /// compares all that it shows in one place with each other.
  void Mostrar(QWidget& vista, bool visible);
  /// Whether it is to be shown, on sight or not.
  [[nodiscard]] static bool SeMuestra(const QWidget& vista);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void wheelEvent(QWheelEvent* evento) override;
  void moveEvent(QMoveEvent* evento) override;
  void resizeEvent(QResizeEvent* evento) override;

 private:
  void MostrarLoQueSeVe();
  void MostrarSiSeVe(QWidget& vista) const;
  [[nodiscard]] bool AEscala() const;
  [[nodiscard]] QPoint Origen() const;
  [[nodiscard]] int Pixeles(int twips) const;

  int linea_;  // pixels
};

}  // namespace qt
