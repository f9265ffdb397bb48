#include "qt/lienzo.h"

#include <QApplication>
#include <QScreen>

#include "forms/controles.h"
#include "forms/escritorio.h"
#include "forms/form.h"
#include "qt/accesibles.h"
#include "qt/colocacion.h"
#include "qt/colores.h"
#include "qt/copia_de_vista.h"
#include "qt/medidas.h"
#include "qt/nombres.h"
#include "qt/textos_qt.h"
#include "qt/vinculo.h"
#include "qt/vinculos.h"

namespace qt {

Lienzo::Lienzo(services::Form& form, const std::function<void(QWidget&)>& disponer) : form_(&form) {
  HacerAccesibles();
  setPalette(Legible(QApplication::palette()));
  disponer(*this);
  AgrandarConLaLetra(*this);
  Unir();
}

void Lienzo::Unir() {
  Turno turno(*this);
  for (QWidget* vista : findChildren<QWidget*>()) {
    if (!vista->objectName().isEmpty()) vistas_.insert(vista->objectName(), vista);
  }
  // All are there before any is joined: some look for others of their place.
  for (services::Widget* modelo : form_->Widgets()) {
    if (modelo->Indice() > 0 && !Vista(NombreDeVista(*modelo))) Copiar(*modelo);
  }
  for (services::Widget* modelo : form_->Widgets()) {
    if (QWidget* vista = Vista(NombreDeVista(*modelo))) Unir(*modelo, *vista);
  }
  for (const auto& [modelo, vinculo] : vinculos_) vinculo->MostrarTodo();
}

Vinculo* Lienzo::Unir(services::Widget& modelo, QWidget& vista) {
  Vinculo* vinculo = CrearVinculo(modelo, vista, *this);
  if (!vinculo) return nullptr;
  vinculos_[&modelo] = vinculo;
  if (vinculo->Espera()) alFinal_.push_back(vinculo);
  return vinculo;
}

void Lienzo::Soltar() {
  form_ = nullptr;
  alFinal_.clear();
  for (const auto& [modelo, vinculo] : vinculos_) vinculo->Soltar();
  vinculos_.clear();
  if (marco_) marco_->removeEventFilter(this);
}

Vinculo* Lienzo::De(const services::Widget& modelo) const {
  const auto donde = vinculos_.find(&modelo);
  return donde == vinculos_.end() ? nullptr : donde->second;
}

void Lienzo::Anadir(services::Widget& modelo) {
  QWidget* nueva = Copiar(modelo);
  if (Vinculo* vinculo = nueva ? Unir(modelo, *nueva) : nullptr) vinculo->MostrarTodo();
}

QWidget* Lienzo::Copiar(const services::Widget& modelo) {
  QWidget* primera = Vista(NombreDeVista(modelo, 0));
  QWidget* anterior = Vista(NombreDeVista(modelo, modelo.Indice() - 1));
  if (!primera || !anterior) return nullptr;
  const QString nombre = NombreDeVista(modelo);
  QWidget* nueva = CopiarVista(*primera, *anterior, nombre);
  if (nueva) vistas_.insert(nombre, nueva);
  return nueva;
}

void Lienzo::Quitar(const services::Widget& modelo) {
  const auto donde = vinculos_.find(&modelo);
  if (donde == vinculos_.end()) return;
  Turno turno(*this);
  Vinculo* vinculo = donde->second;
  vinculos_.erase(donde);
  std::erase(alFinal_, vinculo);
  vinculo->Soltar();
  QWidget& vista = vinculo->Vista();
  vistas_.remove(vista.objectName());
  // One of its own events may be what takes it away; its name is free for the next one.
  vista.setObjectName(QString());
  vista.hide();
  vista.deleteLater();
}

void Lienzo::Encuadrar(QWidget* marco) {
  if (marco_ && marco_ != marco) marco_->removeEventFilter(this);
  if (marco && marco != parentWidget()) setParent(marco);
  if (!marco && !isWindow()) setParent(nullptr);
  if (!marco && !parentWidget() && !isVisible()) HacerVentana();
  if (marco && marco_ != marco) marco->installEventFilter(this);
  marco_ = marco;
  if (marco) setGeometry(marco->rect());
  PonerTitulo();
}

/// One that its title bar doesn't close gets no button for it.
void Lienzo::HacerVentana() {
  const services::Cintilla* barra = services::BarraDe(*form_);
  const bool seCierra = barra && barra->Cerrar;
  setParent(QApplication::activeWindow(),
            seCierra ? Qt::Dialog : Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
}

void Lienzo::AjustarVentana() {
  if (property("pantallaCompleta").toBool()) return setWindowState(Qt::WindowFullScreen);
  // Later it is as large as the user has made it.
  if (std::exchange(ajustada_, true)) return;
  constexpr QSize kBordes(20, 60);
  OlvidarMedidas(*this);
  resize(sizeHint().boundedTo(screen()->availableSize() - kBordes));
}

/// In a window of its own the desktop's title bar takes the place of the screen's, where both say
/// the same.
void Lienzo::PonerTitulo() {
  const services::Cintilla* barra = services::BarraDe(*form_);
  if (!barra) return;
  const QString titulo = Texto(barra->Caption());
  if (windowTitle().isEmpty()) setWindowTitle(titulo);
  Vinculo* vinculo = De(*barra);
  const bool sobra = isWindow() && windowTitle() == titulo;
  if (vinculo) vinculo->Vista().setVisible(!sobra && barra->Visible);
}

void Lienzo::LlevarFoco() {
  if (!form_) return;
  Turno turno(*this);
  const services::Widget* foco = form_->Escritorio().Foco();
  Vinculo* vinculo = foco ? De(*foco) : nullptr;
  if (vinculo) {
    vinculo->Vista().setFocus(motivo_);
    // A line edit selects its text by itself when the Tab key brings the focus.
    vinculo->Mostrar(services::Aspecto::Seleccion);
  } else if (const QWidget* actual = window()->focusWidget(); !actual || isAncestorOf(actual)) {
    setFocus(Qt::OtherFocusReason);
  }
}

void Lienzo::RepararFoco() {
  const QWidget* actual = window()->focusWidget();
  if (!actual || actual == this || isAncestorOf(actual)) LlevarFoco();
}

void Lienzo::FinDeEvento() {
  {
    Turno turno(*this);
    for (Vinculo* vinculo : alFinal_) vinculo->FinDeEvento();
  }
  RepararFoco();
}

void Lienzo::TraerALaVista() {
  Turno turno(*this);
  for (Vinculo* vinculo : alFinal_) {
    if (AlAlcance(vinculo->Vista())) vinculo->TraerALaVista();
  }
}

void Lienzo::EmpezarFoco() {
  if (!form_ || !form_->Visible() || form_->Escritorio().Foco()) return;
  focusNextPrevChild(true);
}

}  // namespace qt
