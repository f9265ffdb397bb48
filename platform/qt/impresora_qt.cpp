#include "qt/impresora_qt.h"

#include <QDir>
#include <QPageLayout>
#include <QPrinterInfo>
#include <QStorageInfo>
#include <algorithm>
#include <utility>

#include "qt/cursor_de_espera.h"
#include "qt/estampa.h"
#include "qt/impresoras_del_sistema.h"
#include "qt/pintor_de_informe.h"
#include "qt/prensa.h"
#include "qt/servidor_de_impresion.h"
#include "qt/textos_qt.h"
#include "valores/error.h"

namespace qt {
namespace {

/// The toolkit's papers are whole points.
constexpr double kHolgura = kTwipsPorPunto;

}  // namespace

QTransform Encajar(const QRectF& hoja, const QRectF& alcance) {
  if (alcance.marginsAdded({kHolgura, kHolgura, kHolgura, kHolgura}).contains(hoja)) return {};
  const double escala =
      std::min({1.0, alcance.width() / hoja.width(), alcance.height() / hoja.height()});
  QTransform encaje = QTransform::fromTranslate(alcance.center().x(), alcance.center().y());
  encaje.scale(escala, escala);
  return encaje.translate(-hoja.center().x(), -hoja.center().y());
}

ImpresoraQt::ImpresoraQt(const QString& nombre, const QString& titulo) : nombre_(nombre) {
  impresora_.setPrinterName(nombre);
  // For a name that isn't there it takes the default printer.
  Exigir(impresora_.isValid() && impresora_.printerName() == nombre,
         QStringLiteral("ya no está instalada"));
  impresora_.setResolution(kTwipsPorPulgada);
  impresora_.setFullPage(true);
  impresora_.setPageSize(QPageSize(QPageSize::A4));
  impresora_.setDocName(titulo);
  ExigirRollo(rollo_.Abrir());
}

void ImpresoraQt::Entregar(const services::LaminaInforme& hoja) {
  for (const services::Trazo& trazo : hoja.Trazos) {
    if (trazo.Que != services::Trazo::Clase::Imagen) continue;
    imagen_ = std::max(imagen_, qint64{EstampaDe(trazo.Texto).Imagen.sizeInBytes()});
  }
  ExigirRollo(rollo_.Guardar(hoja));
}

void ImpresoraQt::EndDoc() {
  if (!std::exchange(abierta_, false)) return;
  PasarHoja();
  ExigirRollo(rollo_.Rebobinar());
  Imprimir();
}

void ImpresoraQt::KillDoc() {
  abierta_ = false;
}

/// The toolkit sends the work when the painting ends, and doesn't tell how that went.
void ImpresoraQt::Imprimir() {
  const CursorDeEspera espera;
  ExigirSitio();
  Prensa prensa;
  Exigir(prensa.Empezar(impresora_, Encaje()), QStringLiteral("no admite trabajos"));
  services::LaminaInforme hoja;
  bool entera = true;
  while (entera && rollo_.Quedan()) entera = rollo_.Sacar(hoja) && prensa.Pintar(hoja);
  entera = prensa.Acabar() && entera;
  const QString reparo = ReparoDelServidor();
  const bool falla = impresora_.printerState() == QPrinter::Error ||
                     impresora_.printerState() == QPrinter::Aborted;
  if (entera && !falla && reparo.isEmpty()) return;
  ExigirRollo(rollo_.Legible());
  // What the server says of one that it doesn't have means nothing to a user.
  Exigir(ImpresorasDelSistema().contains(nombre_),
         QStringLiteral("ya no está instalada, o el servidor de impresión no responde"));
  Exigir(false, reparo.isEmpty()
                    ? QString()
                    : QStringLiteral("el servidor de impresión dice «%1»").arg(reparo));
}

/// The toolkit makes a file for the print server beside the sheets, and sends what there is of it
/// when the disk fills up.
void ImpresoraQt::ExigirSitio() const {
  constexpr qint64 kHolguraDeDisco = 1 << 20;
  const QStorageInfo disco(QDir::tempPath());
  const bool cabe =
      !disco.isValid() || disco.bytesAvailable() > 2 * rollo_.Largo() + imagen_ + kHolguraDeDisco;
  Exigir(cabe, QStringLiteral("no queda sitio en el disco"));
}

QTransform ImpresoraQt::Encaje() const {
  QPageLayout pagina = impresora_.pageLayout();
  pagina.setUnits(QPageLayout::Point);
  const QRectF papel(QPointF(), pagina.fullRectPixels(kTwipsPorPulgada).size());
  return Encajar(HojaEnTwips(), papel.marginsRemoved(pagina.minimumMargins() * kTwipsPorPunto));
}

void ImpresoraQt::ExigirRollo(bool bien) {
  if (!bien) Exigir(false, rollo_.Motivo());
}

void ImpresoraQt::Exigir(bool bien, const QString& motivo) const {
  if (bien) return;
  QString texto = QStringLiteral("No se ha podido imprimir en «%1»").arg(nombre_);
  if (!motivo.isEmpty()) texto += QStringLiteral(": ") + motivo;
  throw services::ErrorEjecucion(services::error::ErrorDeImpresora, Utf8(texto));
}

}  // namespace qt
