#include "qt/dialogo_guardar.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QHeaderView>
#include <QLibraryInfo>
#include <QLocale>
#include <QScreen>
#include <QTranslator>
#include <QTreeView>

#include "ficheros/dialogo.h"
#include "qt/colocacion.h"

namespace qt {
namespace {

/// The toolkit's own Spanish for what the dialog gives no way to label, such as its columns and
/// hints, while it lives. Where it isn't installed those stay as the desktop has them.
class EnEspanol {
 public:
  EnEspanol() {
    const QString carpeta = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (textos_.load(QStringLiteral("qtbase_es"), carpeta)) {
      QCoreApplication::installTranslator(&textos_);
    }
  }
  ~EnEspanol() { QCoreApplication::removeTranslator(&textos_); }
  EnEspanol(const EnEspanol&) = delete;

 private:
  QTranslator textos_;
};

void Rotular(QFileDialog& dialogo) {
  dialogo.setLabelText(QFileDialog::LookIn, QStringLiteral("Buscar en:"));
  dialogo.setLabelText(QFileDialog::FileName, QStringLiteral("&Nombre:"));
  dialogo.setLabelText(QFileDialog::FileType, QStringLiteral("Tipo:"));
  dialogo.setLabelText(QFileDialog::Accept, QStringLiteral("&Guardar"));
  dialogo.setLabelText(QFileDialog::Reject, QStringLiteral("Cancelar"));
}

/// What can be read without dragging its columns; the kind of all of them is the same.
void Componer(QFileDialog& dialogo) {
  constexpr QSize kMedida(760, 480);
  constexpr int kTipo = 2;
  dialogo.resize(kMedida.boundedTo(dialogo.screen()->availableSize() - QSize(40, 80)));
  auto* lista = dialogo.findChild<QTreeView*>();
  if (!lista) return;
  lista->setColumnHidden(kTipo, true);
  lista->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  lista->header()->setStretchLastSection(false);
  lista->header()->setSectionResizeMode(0, QHeaderView::Stretch);
}

}  // namespace

QString PedirFicheroPdf(const QString& propuesto) {
  const EnEspanol espanol;
  const QFileInfo fichero(propuesto);
  const auto dialogo =
      ficheros::CrearDialogo(VentanaDelUsuario(), QStringLiteral("Guardar como PDF"),
                             fichero.absolutePath(), QStringLiteral("Documentos PDF (*.pdf)"));
  dialogo->setOption(QFileDialog::DontConfirmOverwrite);
  dialogo->setAcceptMode(QFileDialog::AcceptSave);
  dialogo->setLocale(QLocale(QLocale::Spanish, QLocale::Spain));
  Rotular(*dialogo);
  Componer(*dialogo);
  dialogo->selectFile(fichero.fileName());
  if (dialogo->exec() != QDialog::Accepted) return {};
  return dialogo->selectedFiles().value(0);
}

}  // namespace qt
