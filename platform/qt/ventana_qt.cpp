#include "qt/ventana_qt.h"

#include <QApplication>

#include "forms/escritorio.h"
#include "forms/form.h"
#include "forms/msflexgrid.h"
#include "qt/vinculo.h"
#include "qt/vinculo_rejilla.h"
#include "services/utiles.h"

namespace qt {
namespace {

VinculoRejilla* Rejilla(const QPointer<Lienzo>& lienzo, const services::MSFlexGrid& modelo) {
  return lienzo ? dynamic_cast<VinculoRejilla*>(lienzo->De(modelo)) : nullptr;
}

}  // namespace

VentanaQt::VentanaQt(services::Form& form, const std::function<void(QWidget&)>& disponer,
                     CreaAviso crearAviso)
    : form_(form), crearAviso_(std::move(crearAviso)), lienzo_(new Lienzo(form, disponer)) {}

VentanaQt::~VentanaQt() {
  // The toolkit may have ended before the session.
  if (!qApp) return;
  if (espera_) espera_->quit();
  if (!lienzo_) return;
  lienzo_->Soltar();
  lienzo_->hide();
  // One of its own events may be what ended the screen.
  lienzo_->deleteLater();
}

void VentanaQt::Mostrar(bool modal) {
  if (!lienzo_) return;
  const services::Ref<services::IForm>& marco = form_.Marco;
  lienzo_->Encuadrar(marco ? static_cast<QWidget*>(marco->VentanaNativa()) : nullptr);
  if (lienzo_->isWindow() && !lienzo_->isVisible()) {
    lienzo_->setWindowModality(modal ? Qt::ApplicationModal : Qt::NonModal);
    lienzo_->AjustarVentana();
  }
  lienzo_->show();
  lienzo_->raise();
  if (lienzo_->isWindow()) lienzo_->activateWindow();
  lienzo_->LlevarFoco();
  // A screen that comes back has its own focus again right after this.
  QMetaObject::invokeMethod(lienzo_, &Lienzo::EmpezarFoco, Qt::QueuedConnection);
}

void VentanaQt::Ocultar() {
  if (lienzo_) lienzo_->hide();
  if (!espera_) return;
  espera_->quit();
  // The keyboard goes on in the window behind, whatever the desktop makes of it.
  QWidget* detras = lienzo_ ? lienzo_->parentWidget() : nullptr;
  if (detras) detras->window()->activateWindow();
}

void VentanaQt::EsperarModal() {
  if (!lienzo_ || !lienzo_->isVisible()) return;
  QEventLoop espera;
  espera_ = &espera;
  QObject::connect(lienzo_, &QObject::destroyed, &espera, &QEventLoop::quit);
  // The form, and this with it, may be gone when it returns.
  espera.exec();
}

void VentanaQt::Refrescar() {
  if (lienzo_) lienzo_->update();
}

void* VentanaQt::Nativa() {
  return lienzo_.data();
}

void VentanaQt::Cambiada(services::Widget& widget, services::Aspecto aspecto) {
  if (!lienzo_) return;
  if (Vinculo* vinculo = lienzo_->De(widget)) vinculo->Mostrar(aspecto);
}

void VentanaQt::Anadido(services::Widget& widget) {
  if (lienzo_) lienzo_->Anadir(widget);
}

void VentanaQt::Quitado(services::Widget& widget) {
  if (lienzo_) lienzo_->Quitar(widget);
}

void VentanaQt::CeldaCambiada(services::MSFlexGrid& rejilla, int fila, int) {
  if (VinculoRejilla* vinculo = Rejilla(lienzo_, rejilla)) vinculo->AnotarFila(fila);
}

void VentanaQt::FilasCambiadas(services::MSFlexGrid& rejilla) {
  if (VinculoRejilla* vinculo = Rejilla(lienzo_, rejilla)) vinculo->AnotarFilas();
}

void VentanaQt::CeldaActual(services::MSFlexGrid& rejilla) {
  if (VinculoRejilla* vinculo = Rejilla(lienzo_, rejilla)) vinculo->AnotarCeldaActual();
}

void VentanaQt::Foco(services::Widget*) {
  if (lienzo_) lienzo_->LlevarFoco();
}

bool VentanaQt::Consiente(services::Widget& widget, services::Gesto gesto) {
  services::Precaucion* precaucion = form_.Precaucion();
  std::string pregunta = precaucion ? precaucion->PreguntaAntesDe(widget, gesto) : "";
  if (!pregunta.empty() && precaucion->PreguntaAlDejar()) {
    widget.SetFocus();
    if (!widget.TieneFoco()) return false;
    pregunta = precaucion->PreguntaAntesDe(widget, gesto);
  }
  return pregunta.empty() || Preguntar(pregunta, widget, gesto);
}

/// What is done first is an event of its own. The host may have closed the screen meanwhile.
bool VentanaQt::Preguntar(const std::string& pregunta, services::Widget& widget,
                          services::Gesto gesto) {
  namespace mensaje = services::mensaje;
  // The toolkit has turned a box on by itself, which isn't so yet.
  Cambiada(widget, services::Aspecto::Value);
  bool sigue = false;
  const auto preguntar = [&] {
    const int respuesta = crearAviso_()->Mostrar(pregunta, mensaje::SiNoCancelar, "Atención");
    sigue = respuesta != mensaje::Cancelar;
    if (respuesta != mensaje::Si || !widget.Alcanzable()) return;
    form_.Escritorio().Operacion([&] { sigue = form_.Precaucion()->Prevenir(widget, gesto); });
  };
  form_.Escritorio().Esperar(preguntar, true);
  return sigue && widget.Alcanzable();
}

void VentanaQt::FinDeEvento() {
  if (lienzo_) lienzo_->FinDeEvento();
}

void VentanaQt::AntesDePreguntar() {
  if (lienzo_) lienzo_->TraerALaVista();
}

}  // namespace qt
