#include "platform/qt/frm_prueba.h"

#include "ui_FrmPrueba.h"

namespace pruebas {

using services::Diseno;

FrmPrueba::FrmPrueba(services::Escritorio& escritorio)
    : Form(escritorio, "FrmPrueba", 12000, 9000),
      Barra1(*this, "Barra1", "Prueba & error", {}),
      PicPanel(*this, "PicPanel", {}),
      LblFecha(PicPanel, "LblFecha", "Fecha:", {}),
      TxtFecha(PicPanel, "TxtFecha", {.TabIndex = 0}),
      TxtImporte(PicPanel, "TxtImporte", {.TabIndex = 2}),
      ChkUno(PicPanel, "ChkUno", "Una", {.TabIndex = 1}),
      OptA(PicPanel, "OptA", "A", {.TabIndex = 3}),
      OptB(PicPanel, "OptB", "B", {.TabIndex = 4}),
      Lista(PicPanel, "Lista", {"uno", "dos", "tres"}, {.TabIndex = 5}),
      BotonGrabar(PicPanel, "BotonGrabar", "Grabar & salir", {.TabIndex = 6}),
      BtnCancelar(PicPanel, "BtnCancelar", "Cancelar", {}),
      Desplazar(PicPanel, "Desplazar", {}),
      Rejilla(PicPanel, "Rejilla", 4, {.TabIndex = 7}),
      TxtCelda(PicPanel, "TxtCelda", {.Visible = false}),
      Progreso(PicPanel, "Progreso", {}),
      ImgMarca(PicPanel, "ImgMarca", "check", {}),
      TxtNumero(PicPanel, "TxtNumero") {
  BtnCancelar.TomaFoco = false;
  for (services::Widget* widget : Widgets()) Anotar(*widget);
  TxtFecha.Change = [this] { sucesos.push_back("TxtFecha_Change " + TxtFecha.Text()); };
  Rejilla.LeaveCell = [this] { sucesos.push_back("Rejilla_LeaveCell"); };
  Rejilla.RowColChange = [this] { sucesos.push_back("Rejilla_RowColChange"); };
  Barra1.Cerrar = [this] { Unload(); };
}

void FrmPrueba::Anotar(services::Widget& widget) {
  const auto suceso = [this, nombre = widget.Nombre()](const char* cual) {
    return [this, nombre, cual] { sucesos.push_back(nombre + "_" + cual); };
  };
  widget.Click = suceso("Click");
  widget.DblClick = suceso("DblClick");
  widget.GotFocus = suceso("GotFocus");
  widget.LostFocus = suceso("LostFocus");
}

Escena::Escena() {
  plataforma_ = qt::CrearPlataforma(
      {{"FrmPrueba", [](QWidget& pantalla) { Ui::FrmPrueba().setupUi(&pantalla); }}});
  plataforma_.ErrorNoControlado = [this](const services::ErrorEjecucion& fallo) {
    errores.push_back(fallo);
    if (AlFallar) AlFallar();
  };
  escritorio_ = std::make_unique<services::Escritorio>(plataforma_);
  form = services::Crear<FrmPrueba>(*escritorio_);
  form->Marco = services::Crear<MarcoDePrueba>(marco);
  for (int c = 0; c < form->Rejilla.Cols(); ++c) {
    form->Rejilla.TextMatrix(0, c, "Columna " + std::to_string(c));
  }
  marco.resize(900, 700);
  marco.show();
  form->Show();
}

Escena::~Escena() {
  if (form) form->Unload();
  form = nullptr;
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QString Escena::Enfocada() const {
  return marco.focusWidget() ? marco.focusWidget()->objectName() : QString();
}

void Escena::Llenar(int filas) {
  form->Escritorio().Evento([&] {
    form->Rejilla.Rows = 1;
    for (int f = 1; f <= filas; ++f) {
      form->Rejilla.AnadirFila({"fila " + std::to_string(f), "texto", std::to_string(f) + ",50"});
    }
  });
}

}  // namespace pruebas
