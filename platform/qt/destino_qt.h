#pragma once

#include <QPointer>

#include "qt/imagen.h"
#include "qt/pulsable_qt.h"

namespace qt {

/// The name of a destination under its picture, one of several of which one is chosen. However long
/// it is, none of it is cut.
class DestinoQt final : public PulsableQt {
 public:
  explicit DestinoQt(QWidget* padre = nullptr) : PulsableQt(padre) {}

  /// The picture, which tells whether it is the chosen one.
  void Unir(ImagenQt* imagen);

  [[nodiscard]] bool Marcada() const override { return imagen_ && imagen_->Elegida(); }
  [[nodiscard]] QString Nombre() const override { return text(); }
  [[nodiscard]] QAccessible::Role Papel() const override { return QAccessible::RadioButton; }

  /// The letters in which its text goes into its room, smaller ones where it is very long, and the
  /// part of the room that they take.
  struct Rotulo {
    QFont Letra;
    QRectF Lugar;
  };
  [[nodiscard]] Rotulo ComoCabe() const;

 protected:
  void paintEvent(QPaintEvent* evento) override;

 private:
  [[nodiscard]] double AltoDelTexto(const QFont& letra, double ancho) const;

  QPointer<ImagenQt> imagen_;
};

}  // namespace qt
