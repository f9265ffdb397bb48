#include "qt/destino_qt.h"

#include <QPainter>
#include <QTextLayout>
#include <QTextOption>

namespace qt {
namespace {

constexpr int kAire = 6;

QTextOption ComoSeParte() {
  QTextOption opcion(Qt::AlignHCenter | Qt::AlignTop);
  opcion.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  return opcion;
}

}  // namespace

void DestinoQt::Unir(ImagenQt* imagen) {
  imagen_ = imagen;
  Recordar();
  if (imagen) imagen->AlElegirse = [this] { AnunciarMarca(); };
}

double DestinoQt::AltoDelTexto(const QFont& letra, double ancho) const {
  QTextLayout texto(text(), letra);
  texto.setTextOption(ComoSeParte());
  double alto = 0;
  texto.beginLayout();
  for (QTextLine linea = texto.createLine(); linea.isValid(); linea = texto.createLine()) {
    linea.setLineWidth(ancho);
    alto += linea.height();
  }
  texto.endLayout();
  return alto;
}

DestinoQt::Rotulo DestinoQt::ComoCabe() const {
  constexpr double kMinimo = 6;  // points
  const QRectF hueco = QRectF(contentsRect()).adjusted(kAire, kAire, -kAire, -kAire);
  QFont letra = font();
  double alto = AltoDelTexto(letra, hueco.width());
  while (alto > hueco.height() && letra.pointSizeF() > kMinimo) {
    letra.setPointSizeF(letra.pointSizeF() - 0.5);
    alto = AltoDelTexto(letra, hueco.width());
  }
  return {letra, {hueco.topLeft(), QSizeF(hueco.width(), alto)}};
}

/// The name of the chosen one is on its own colour; a second frame inside it is the focus.
void DestinoQt::paintEvent(QPaintEvent*) {
  QPainter pintor(this);
  pintor.setRenderHint(QPainter::Antialiasing);
  const auto [letra, texto] = ComoCabe();
  const QRectF ficha = texto.adjusted(-kAire, -kAire, kAire, kAire);
  const auto color = [this](QPalette::ColorRole papel) {
    return palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, papel);
  };
  if (Marcada()) {
    pintor.setPen(Qt::NoPen);
    pintor.setBrush(color(QPalette::Highlight));
    pintor.drawRoundedRect(ficha, 3, 3);
  }
  pintor.setPen(color(Marcada() ? QPalette::HighlightedText : QPalette::WindowText));
  pintor.setFont(letra);
  pintor.drawText(texto, text(), ComoSeParte());
  if (!hasFocus()) return;
  pintor.setBrush(Qt::NoBrush);
  pintor.drawRoundedRect(ficha.adjusted(2.5, 2.5, -2.5, -2.5), 2, 2);
}

}  // namespace qt
