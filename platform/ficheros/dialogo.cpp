#include "ficheros/dialogo.h"

#include <QCoreApplication>

#include "ficheros/iconos.h"

namespace ficheros {
namespace {

/// While it lives no dialog of a desktop's is made. One that is only told afterwards not to show it
/// has made it by then, in its folder.
class SinElDelEscritorio {
 public:
  SinElDelEscritorio() { QCoreApplication::setAttribute(kSin); }
  ~SinElDelEscritorio() { QCoreApplication::setAttribute(kSin, antes_); }
  SinElDelEscritorio(const SinElDelEscritorio&) = delete;

 private:
  static constexpr Qt::ApplicationAttribute kSin = Qt::AA_DontUseNativeDialogs;
  bool antes_ = QCoreApplication::testAttribute(kSin);
};

}  // namespace

std::unique_ptr<QFileDialog> CrearDialogo(QWidget* ventana, const QString& titulo,
                                          const QString& carpeta, const QString& tipos) {
  const SinElDelEscritorio sinElDelEscritorio;
  auto dialogo = std::make_unique<QFileDialog>(ventana, titulo, carpeta, tipos);
  dialogo->setOption(QFileDialog::DontUseNativeDialog);
  // Before any event is handled: the files come as events. It goes after the dialog's model.
  dialogo->setIconProvider(new Iconos(dialogo.get()));
  return dialogo;
}

}  // namespace ficheros
