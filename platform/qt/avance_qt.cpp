#include "qt/avance_qt.h"

#include <QCoreApplication>
#include <limits>

#include "qt/colocacion.h"
#include "qt/textos_qt.h"
#include "valores/formato.h"

namespace qt {
namespace {

constexpr qint64 kPaciencia = 500;  // ms
constexpr qint64 kRitmo = 50;

QString Cuenta(int numero) {
  return Texto(services::Mascara(numero, services::mascara::Entero));
}

}  // namespace

AvanceQt::AvanceQt(const std::string& titulo)
    : titulo_(Texto(titulo)),
      caja_(new QProgressDialog(QString(), QStringLiteral("Cancelar"), 0, 0, VentanaDelUsuario())) {
  caja_->setWindowTitle(titulo_);
  caja_->setWindowModality(Qt::ApplicationModal);
  // Shown by the clock alone: its own guess needs the event loop.
  caja_->setMinimumDuration(std::numeric_limits<int>::max());
  caja_->setAutoReset(false);
  caja_->setAutoClose(false);
  desdeElPrincipio_.start();
}

bool AvanceQt::Toca() {
  if (!caja_ || caja_->wasCanceled()) return true;
  if (desdeElPrincipio_.elapsed() < kPaciencia) return false;
  return !caja_->isVisible() || desdeLaUltima_.elapsed() >= kRitmo;
}

bool AvanceQt::Seguir(int hechos, int total) {
  if (!caja_ || caja_->wasCanceled()) return false;
  caja_->setMaximum(total);
  caja_->setLabelText(
      QStringLiteral("%1: %2 de %3 líneas").arg(titulo_, Cuenta(hechos), Cuenta(total)));
  // Shown, it lets the event loop run by itself.
  caja_->setValue(hechos);
  if (caja_ && !caja_->isVisible()) caja_->show();
  QCoreApplication::processEvents();
  desdeLaUltima_.start();
  return caja_ && !caja_->wasCanceled();
}

}  // namespace qt
