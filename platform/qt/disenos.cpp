#include "qt/disenos.h"

#include <QWidget>

#include "ui_FrmFraAutomaticas.h"
#include "ui_FrmPagosCaja.h"
#include "ui_FrmTesvaraGastos.h"
#include "ui_frmBuscoImpresora.h"
#include "ui_frmListados.h"

namespace qt {
namespace {

template <class Ui>
void Disponer(QWidget& pantalla) {
  Ui().setupUi(&pantalla);
}

}  // namespace

Disenos DisenosDeTesvara() {
  return {
      {"FrmFraAutomaticas", &Disponer<Ui::FrmFraAutomaticas>},
      {"FrmPagosCaja", &Disponer<Ui::FrmPagosCaja>},
      {"FrmTesvaraGastos", &Disponer<Ui::FrmTesvaraGastos>},
      {"frmBuscoImpresora", &Disponer<Ui::frmBuscoImpresora>},
      {"frmListados", &Disponer<Ui::frmListados>},
  };
}

}  // namespace qt
