#include "anfitrion/captura.h"

#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QTableView>
#include <QWidget>

#include "valores/error.h"

namespace anfitrion {
namespace {

QString FilaDe(const QTableView& tabla, int fila) {
  QStringList textos;
  for (int c = 0; c < tabla.model()->columnCount(); ++c) {
    if (tabla.isColumnHidden(c)) continue;
    const QModelIndex celda = tabla.model()->index(fila, c);
    // A cell with a drawing tells it in words to who can't see it.
    const QVariant dicho = celda.data(Qt::AccessibleTextRole);
    textos << (dicho.isValid() ? dicho : celda.data()).toString();
  }
  return textos.join(QLatin1Char('\t'));
}

QString CabeceraDe(const QTableView& tabla) {
  QStringList titulos;
  for (int c = 0; c < tabla.model()->columnCount(); ++c) {
    if (!tabla.isColumnHidden(c))
      titulos << tabla.model()->headerData(c, Qt::Horizontal).toString();
  }
  return titulos.join(QLatin1Char('\t'));
}

}  // namespace

QString GuardarImagen(QWidget& ventana, const QString& carpeta) {
  QString fichero = QDir(carpeta).filePath("tesvara-de-pagos.png");
  if (!QDir().mkpath(carpeta) || !ventana.grab().save(fichero)) {
    throw services::ErrorEjecucion(services::error::FalloDeConexion,
                                   "No se puede escribir " + fichero.toStdString());
  }
  return fichero;
}

void EscribirLista(const QWidget& ventana, QTextStream& salida) {
  if (const auto* tabla = ventana.findChild<QTableView*>("MSFPagos")) {
    salida << CabeceraDe(*tabla) << Qt::endl;
    for (int fila = 0; fila < tabla->model()->rowCount(); ++fila) {
      // The rows that only fill the screen are all empty.
      if (const QString texto = FilaDe(*tabla, fila); !texto.trimmed().isEmpty()) {
        salida << texto << Qt::endl;
      }
    }
  }
  const auto* pendiente = ventana.findChild<QLabel*>("LblPendiente");
  if (pendiente && pendiente->isVisible()) salida << pendiente->text() << Qt::endl;
  if (const auto* total = ventana.findChild<QLineEdit*>("TxtTotal")) {
    salida << "Total Pagos: " << total->text() << Qt::endl;
  }
}

}  // namespace anfitrion
