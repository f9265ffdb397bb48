#include "qt/vinculos_de_muestra.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QShortcut>
#include <algorithm>
#include <cmath>
#include <utility>

#include "forms/entrada.h"
#include "qt/lienzo.h"
#include "qt/medidas.h"
#include "qt/nombres.h"
#include "qt/teclas_qt.h"
#include "qt/textos_qt.h"
#include "valores/texto.h"

namespace qt {
namespace {

int Boton(Qt::MouseButtons botones) {
  return (botones & Qt::LeftButton ? services::Raton::Izquierdo : 0) +
         (botones & Qt::RightButton ? services::Raton::Derecho : 0);
}

/// While the mouse moves, `botones` are those that are held; otherwise the one it is about.
services::Raton DelRaton(const QMouseEvent& evento, Qt::MouseButtons botones) {
  const Qt::KeyboardModifiers con = evento.modifiers();
  return {.Boton = Boton(botones),
          .Mayusculas = (con & Qt::ShiftModifier ? 1 : 0) + (con & Qt::ControlModifier ? 2 : 0) +
                        (con & Qt::AltModifier ? 4 : 0),
          .X = Twips(evento.position().x()),
          .Y = Twips(evento.position().y())};
}

}  // namespace

using services::Aspecto;

VinculoEtiqueta::VinculoEtiqueta(services::Label& modelo, QLabel& vista, Lienzo& lienzo)
    : VinculoDe(modelo, vista, lienzo) {
  vista.setTextFormat(Qt::PlainText);
}

void VinculoEtiqueta::MostrarPropio(Aspecto aspecto) {
  if (aspecto == Aspecto::Caption) {
    const std::string& rotulo = Modelo().Caption();
    Vista().setText(Texto(Vista().wordWrap() ? rotulo : services::EnUnaLinea(rotulo)));
    Titular();
  }
  if (aspecto == Aspecto::BackColor) Vista().setAutoFillBackground(Modelo().BackColor >= 0);
}

void VinculoEtiqueta::Titular() {
  const QString panel = Vista().property("titula").toString();
  auto* titulado = panel.isEmpty() ? nullptr : Pantalla().Vista(panel);
  if (titulado) titulado->setAccessibleName(Vista().text());
}

VinculoPulsable::VinculoPulsable(services::Label& modelo, PulsableQt& vista, Lienzo& lienzo)
    : VinculoEtiqueta(modelo, vista, lienzo) {
  vista.Pulsar = [this] { Vinculo::Pulsar(); };
  vista.Enfocar = [this] {
    if (Atento()) services::entrada::Enfocar(Modelo());
  };
}

VinculoSeleccion::VinculoSeleccion(services::Label& modelo, SeleccionQt& vista, Lienzo& lienzo)
    : VinculoPulsable(modelo, vista, lienzo) {
  QList<QLabel*> rotulos;
  for (const QString& nombre : vista.property("rotulos").toString().split(QLatin1Char(' '))) {
    if (auto* rotulo = qobject_cast<QLabel*>(Hermano(nombre))) rotulos.append(rotulo);
  }
  vista.Unir(Hermano(vista.property("marca").toString()), rotulos);
}

VinculoDestino::VinculoDestino(services::Label& modelo, DestinoQt& vista, Lienzo& lienzo)
    : VinculoPulsable(modelo, vista, lienzo) {
  vista.Unir(dynamic_cast<ImagenQt*>(Hermano(vista.property("imagen").toString())));
}

QWidget* VinculoPulsable::Hermano(const QString& nombre) const {
  return Pantalla().Vista(NombreDeVista(nombre, Modelo().Indice()));
}

/// The keys that go through a list, too, which a line of text would have for itself.
bool VinculoPulsable::PulsarTecla(QKeyEvent& evento) {
  const int codigo = teclado::CodigoDeLista(evento);
  if (codigo == 0) return VinculoEtiqueta::PulsarTecla(evento);
  services::entrada::Tecla(Modelo(), codigo);
  return true;
}

void VinculoGrupo::MostrarPropio(Aspecto aspecto) {
  if (aspecto == Aspecto::Caption) Vista().setTitle(Texto(Modelo().Caption()));
}

bool VinculoEtiqueta::eventFilter(QObject* objeto, QEvent* evento) {
  if (evento->type() == QEvent::MouseButtonPress && Atento()) {
    if (static_cast<QMouseEvent*>(evento)->button() == Qt::LeftButton) Pulsar();
  }
  return VinculoDe::eventFilter(objeto, evento);
}

VinculoCintilla::VinculoCintilla(services::Cintilla& modelo, CintillaQt& vista, Lienzo& lienzo)
    : VinculoDe(modelo, vista, lienzo) {
  vista.AlCerrar = [this] {
    if (Atento()) services::entrada::CerrarBarra(Modelo());
  };
}

bool VinculoCintilla::eventFilter(QObject* objeto, QEvent* evento) {
  if (!Atento()) return VinculoDe::eventFilter(objeto, evento);
  const auto raton = [evento] { return static_cast<const QMouseEvent*>(evento); };
  switch (evento->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      services::entrada::PulsarBarra(Modelo(), DelRaton(*raton(), raton()->button()));
      return true;
    case QEvent::MouseMove:
      services::entrada::MoverEnBarra(Modelo(), DelRaton(*raton(), raton()->buttons()));
      return true;
    case QEvent::MouseButtonRelease:
      services::entrada::SoltarBarra(Modelo(), DelRaton(*raton(), raton()->button()));
      return true;
    default:
      return VinculoDe::eventFilter(objeto, evento);
  }
}

void VinculoCintilla::MostrarPropio(Aspecto aspecto) {
  if (aspecto == Aspecto::Caption) Vista().PonerTitulo(Texto(Modelo().Caption()));
}

VinculoImagen::VinculoImagen(services::Image& modelo, ImagenQt& vista, Lienzo& lienzo)
    : VinculoDe(modelo, vista, lienzo) {
  vista.AlPulsar = [this] { Pulsar(); };
  const QVariant atajo = vista.property("atajo");
  if (!atajo.isValid()) return;
  // What takes no focus is reached by a key of its own.
  auto* tecla = new QShortcut(QKeySequence(atajo.toString()), &lienzo, nullptr, nullptr,
                              Qt::WidgetWithChildrenShortcut);
  connect(tecla, &QShortcut::activated, this, [this] { Pulsar(); });
}

void VinculoImagen::MostrarPropio(Aspecto aspecto) {
  if (aspecto == Aspecto::Picture) Vista().PonerDibujo(Texto(Modelo().Picture()));
  if (aspecto == Aspecto::Tag) Vista().PonerElegida(Modelo().Tag == "1");
}

void VinculoListado::MostrarPropio(Aspecto aspecto) {
  if (aspecto == Aspecto::Picture) otras_ = true;
}

void VinculoListado::FinDeEvento() {
  if (!Suelto() && std::exchange(otras_, false)) Vista().Poner(Modelo().Pintadas());
}

/// The bounds are any numbers; the bar on the screen goes in thousandths of the way.
void VinculoProgreso::MostrarPropio(Aspecto aspecto) {
  constexpr int kTodo = 1000;
  if (aspecto != Aspecto::Min && aspecto != Aspecto::Max && aspecto != Aspecto::Value) return;
  const double camino = Modelo().Max - Modelo().Min;
  const double hecho = camino > 0 ? (Modelo().Value - Modelo().Min) / camino : 0;
  Vista().setRange(0, kTodo);
  Vista().setValue(static_cast<int>(std::lround(std::clamp(hecho, 0.0, 1.0) * kTodo)));
  if (aspecto != Aspecto::Value) return;
  // The work that it tells of goes on without coming back to the toolkit.
  if (Vista().isVisible()) Vista().parentWidget()->repaint();
}

}  // namespace qt
