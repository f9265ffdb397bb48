#include "qt/disenos.h"

#include <QWidget>

#include "ui_FrmTesvaraGastos.h"

namespace qt {
namespace {

template <class Ui>
void Disponer(QWidget& pantalla) {
  Ui().setupUi(&pantalla);
}

}  // namespace

Disenos DisenosDeTesvara() {
  return {
      {"FrmTesvaraGastos", &Disponer<Ui::FrmTesvaraGastos>},
  };
}

}  // namespace qt
