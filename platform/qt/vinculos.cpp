#include "qt/vinculos.h"

#include <QLineEdit>

#include "forms/controles.h"
#include "forms/msflexgrid.h"
#include "qt/rejilla_qt.h"
#include "qt/vinculo_rejilla.h"
#include "qt/vinculo_texto.h"
#include "qt/vinculos_de_eleccion.h"
#include "qt/vinculos_de_muestra.h"

namespace qt {
namespace {

/// The join of one pair of classes; null when either is of another.
template <class V, class MClase, class VClase>
Vinculo* Probar(services::Widget& modelo, QWidget& vista, Lienzo& lienzo) {
  auto* m = dynamic_cast<MClase*>(&modelo);
  auto* v = dynamic_cast<VClase*>(&vista);
  return m && v ? new V(*m, *v, lienzo) : nullptr;
}

}  // namespace

Vinculo* CrearVinculo(services::Widget& modelo, QWidget& vista, Lienzo& lienzo) {
  using Prueba = Vinculo* (*)(services::Widget&, QWidget&, Lienzo&);
  static constexpr Prueba kPruebas[] = {
      &Probar<VinculoTexto, services::TextBox, QLineEdit>,
      &Probar<VinculoRejilla, services::MSFlexGrid, RejillaQt>,
      &Probar<VinculoCasilla, services::CheckBox, QCheckBox>,
      &Probar<VinculoOpcion, services::OptionButton, OpcionQt>,
      &Probar<VinculoLista, services::ComboBox, QComboBox>,
      &Probar<VinculoPulsador, services::Pulsador, QPushButton>,
      &Probar<VinculoBarra, services::VScrollBar, QScrollBar>,
      &Probar<VinculoCintilla, services::Cintilla, CintillaQt>,
      &Probar<VinculoSeleccion, services::Label, SeleccionQt>,
      &Probar<VinculoDestino, services::Label, DestinoQt>,
      &Probar<VinculoEtiqueta, services::Label, QLabel>,
      &Probar<VinculoGrupo, services::Label, QGroupBox>,
      &Probar<VinculoImagen, services::Image, ImagenQt>,
      &Probar<VinculoProgreso, services::ProgressBar, QProgressBar>,
      &Probar<VinculoListado, services::PictureBox, ListadoQt>,
      &Probar<VinculoPanel, services::PictureBox, QFrame>,
      &Probar<VinculoPanel, services::Shape, QFrame>,
      &Probar<VinculoPanel, services::Line, QFrame>,
      // A grid that is never shown needs no table.
      &Probar<VinculoPanel, services::MSFlexGrid, QFrame>,
  };
  for (const Prueba prueba : kPruebas) {
    Vinculo* vinculo = prueba(modelo, vista, lienzo);
    if (!vinculo) continue;
    vista.installEventFilter(vinculo);
    return vinculo;
  }
  return nullptr;
}

}  // namespace qt
