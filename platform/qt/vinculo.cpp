#include "qt/vinculo.h"

#include <QKeyEvent>

#include "forms/entrada.h"
#include "forms/iform.h"
#include "qt/colores.h"
#include "qt/lienzo.h"
#include "qt/medidas.h"
#include "qt/suelo_qt.h"
#include "qt/teclas_qt.h"

namespace qt {

using services::Aspecto;

Vinculo::Vinculo(services::Widget& modelo, QWidget& vista, Lienzo& lienzo)
    : QObject(&vista), modelo_(&modelo), vista_(vista), lienzo_(lienzo) {
  // A click moves the focus by the model's rules, never by the toolkit's.
  vista.setFocusPolicy(modelo.AdmiteFoco() ? Qt::TabFocus : Qt::NoFocus);
}

bool Vinculo::Atento() const {
  return !Suelto() && !lienzo_.Mostrando();
}

void Vinculo::MostrarTodo() {
  for (const Aspecto aspecto :
       {Aspecto::Fuente, Aspecto::Elementos, Aspecto::Caption, Aspecto::Picture, Aspecto::Tag,
        Aspecto::Min, Aspecto::Max, Aspecto::Tecleo, Aspecto::Text, Aspecto::Value,
        Aspecto::ListIndex, Aspecto::BackColor, Aspecto::Enabled, Aspecto::Visible,
        Aspecto::Geometria}) {
    Mostrar(aspecto);
  }
}

void Vinculo::Mostrar(Aspecto aspecto) {
  if (Suelto()) return;
  Lienzo::Turno turno(lienzo_);
  switch (aspecto) {
    case Aspecto::Enabled:
    case Aspecto::Visible:
      MostrarAlcance();
      break;
    case Aspecto::BackColor:
    case Aspecto::ForeColor:
      MostrarColores();
      break;
    case Aspecto::Fuente:
      vista_.setFont(Fuente(modelo_->FontSize, modelo_->FontBold));
      break;
    case Aspecto::Geometria:
      MostrarLugar();
      break;
    default:
      break;
  }
  MostrarPropio(aspecto);
}

void Vinculo::MostrarAlcance() {
  const bool sale = !modelo_->Visible || !modelo_->Enabled;
  const QWidget* foco = vista_.window()->focusWidget();
  // The toolkit would pass the focus on by an order of its own.
  if (sale && foco && (foco == &vista_ || vista_.isAncestorOf(foco))) lienzo_.setFocus();
  // A text that tells what is switched on or off beside it is to be read either way.
  vista_.setEnabled(modelo_->Enabled || vista_.property("legible").toBool());
  auto* suelo = dynamic_cast<SueloQt*>(vista_.parentWidget());
  suelo ? suelo->Mostrar(vista_, modelo_->Visible) : vista_.setVisible(modelo_->Visible);
}

/// Everywhere else a layout of the design has the say.
void Vinculo::MostrarLugar() {
  auto* suelo = dynamic_cast<SueloQt*>(vista_.parentWidget());
  if (!suelo) return;
  suelo->Colocar(vista_, {modelo_->Left, modelo_->Top, modelo_->Width, modelo_->Height});
}

void Vinculo::Medir() {
  if (Suelto() || !vista_.property("medidaReal").toBool()) return;
  modelo_->Top = vista_.mapTo(&lienzo_, QPoint()).y() * services::kTwips;
  modelo_->Height = vista_.height() * services::kTwips;
}

void Vinculo::MostrarColores() {
  PintarCon(QPalette::Window, QPalette::WindowText);
}

void Vinculo::PintarCon(QPalette::ColorRole fondo, QPalette::ColorRole texto) {
  const bool enDesuso =
      modelo_->BackColor == services::color::Inhabilitado && EsOscura(lienzo_.palette());
  if ((enDesuso || EsDelEscritorio(modelo_->BackColor)) && EsDelEscritorio(modelo_->ForeColor)) {
    vista_.setPalette(QPalette());
    return;
  }
  const Pareja pareja = Emparejar(modelo_->BackColor, modelo_->ForeColor, lienzo_.palette());
  QPalette paleta;
  paleta.setColor(fondo, pareja.Fondo);
  paleta.setColor(texto, pareja.Texto);
  vista_.setPalette(paleta);
}

bool Vinculo::eventFilter(QObject* objeto, QEvent* evento) {
  if (Suelto()) return QObject::eventFilter(objeto, evento);
  switch (evento->type()) {
    case QEvent::FocusIn:
      RecibirFoco();
      return false;
    case QEvent::ShortcutOverride:
      // A plain key is for whoever has the focus, not for a shortcut of the host.
      if (teclado::EsDelWidget(static_cast<QKeyEvent&>(*evento))) evento->accept();
      return false;
    case QEvent::KeyPress:
      return PulsarTecla(static_cast<QKeyEvent&>(*evento));
    default:
      return QObject::eventFilter(objeto, evento);
  }
}

bool Vinculo::PulsarTecla(QKeyEvent& evento) {
  if (teclado::EsTabulador(evento)) return false;
  if (const int codigo = teclado::Codigo(evento)) {
    services::entrada::Tecla(*modelo_, codigo);
    return true;
  }
  const auto caracteres = teclado::Caracteres(evento);
  for (const char32_t caracter : caracteres) {
    if (Suelto()) break;
    services::entrada::Escribir(*modelo_, caracter);
  }
  if (caracteres.empty()) evento.ignore();
  return true;
}

void Vinculo::RecibirFoco() {
  if (!Atento() || modelo_->TieneFoco()) return;
  services::entrada::Enfocar(*modelo_);
  if (!Suelto()) lienzo_.LlevarFoco();
}

void Vinculo::Pulsar() {
  if (!Atento()) return;
  services::entrada::Pulsar(*modelo_);
  Mostrar(Aspecto::Value);
}

}  // namespace qt
