#pragma once

#include <QWidget>
#include <functional>

namespace qt {

/// A drawing that can be clicked.
class ImagenQt final : public QWidget {
 public:
  explicit ImagenQt(QWidget* padre = nullptr);

  void PonerDibujo(const QString& nombre);
  std::function<void()> AlPulsar;

  /// It is the chosen one among several.
  void PonerElegida(bool elegida);
  [[nodiscard]] bool Elegida() const { return elegida_; }
  std::function<void()> AlElegirse;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  bool event(QEvent* evento) override;
  void paintEvent(QPaintEvent* evento) override;
  void mousePressEvent(QMouseEvent* evento) override;
  void mouseReleaseEvent(QMouseEvent* evento) override;

 private:
  QString dibujo_;
  bool apretada_ = false;
  bool elegida_ = false;
};

}  // namespace qt
