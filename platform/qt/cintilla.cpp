#include "qt/cintilla.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QToolButton>

namespace qt {
namespace {

constexpr int kMargen = 10;

class BotonDeCierre final : public QToolButton {
 public:
  explicit BotonDeCierre(QWidget* padre) : QToolButton(padre) {
    setObjectName("cerrar");
    setAutoRaise(true);
    setFocusPolicy(Qt::NoFocus);
    setShortcut(QKeySequence(Qt::CTRL | Qt::Key_F4));
    setToolTip("Cerrar (Ctrl+F4)");
    setAccessibleName("Cerrar");
  }

  QSize sizeHint() const override {
    const int lado = fontMetrics().height() + 8;
    return {lado + 8, lado};
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter pintor(this);
    pintor.setRenderHint(QPainter::Antialiasing);
    QColor tinta = palette().color(QPalette::HighlightedText);
    if (underMouse() || isDown()) {
      tinta.setAlpha(isDown() ? 90 : 50);
      pintor.setPen(Qt::NoPen);
      pintor.setBrush(tinta);
      pintor.drawRoundedRect(rect(), 3, 3);
      tinta.setAlpha(255);
    }
    const double brazo = fontMetrics().height() * 0.25;
    const QPointF centro = QRectF(rect()).center();
    pintor.setPen(QPen(tinta, 1.6, Qt::SolidLine, Qt::RoundCap));
    pintor.drawLine(centro + QPointF(-brazo, -brazo), centro + QPointF(brazo, brazo));
    pintor.drawLine(centro + QPointF(-brazo, brazo), centro + QPointF(brazo, -brazo));
  }
};

}  // namespace

CintillaQt::CintillaQt(QWidget* padre) : QFrame(padre), titulo_(new QLabel(this)) {
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::Highlight);
  setMouseTracking(true);
  titulo_->setMouseTracking(true);
  titulo_->setForegroundRole(QPalette::HighlightedText);
  titulo_->setTextFormat(Qt::PlainText);
  auto* cerrar = new BotonDeCierre(this);
  connect(cerrar, &QToolButton::clicked, this, [this] {
    if (AlCerrar) AlCerrar();
  });
  auto* fila = new QHBoxLayout(this);
  fila->setContentsMargins(kMargen, 3, 4, 3);
  fila->addWidget(titulo_, 1);
  fila->addWidget(cerrar);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void CintillaQt::PonerTitulo(const QString& titulo) {
  titulo_->setText(titulo);
  setAccessibleName(titulo);
}

}  // namespace qt
