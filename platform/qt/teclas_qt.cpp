#include "qt/teclas_qt.h"

#include <QKeyEvent>

#include "forms/entrada.h"

namespace qt::teclado {
namespace {

Qt::KeyboardModifiers Modificadores(const QKeyEvent& evento) {
  return evento.modifiers() &
         (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
}

int CodigoSolo(int tecla) {
  switch (tecla) {
    case Qt::Key_Backspace:
      return services::tecla::Borrar;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return services::tecla::Intro;
    case Qt::Key_Escape:
      return services::tecla::Escape;
    case Qt::Key_Space:
      return services::tecla::Espacio;
    case Qt::Key_Left:
      return services::tecla::Izquierda;
    case Qt::Key_Up:
      return services::tecla::Arriba;
    case Qt::Key_Right:
      return services::tecla::Derecha;
    case Qt::Key_Down:
      return services::tecla::Abajo;
    case Qt::Key_Delete:
      return services::tecla::Suprimir;
    default:
      return 0;
  }
}

}  // namespace

int Codigo(const QKeyEvent& evento) {
  const int codigo = CodigoSolo(evento.key());
  const Qt::KeyboardModifiers con = Modificadores(evento);
  // Shift changes nothing in these; in the others it selects.
  const bool indiferente = codigo == services::tecla::Borrar || codigo == services::tecla::Intro ||
                           codigo == services::tecla::Espacio;
  if (con == Qt::NoModifier || (con == Qt::ShiftModifier && indiferente)) return codigo;
  return 0;
}

int CodigoDeLista(const QKeyEvent& evento) {
  if (Modificadores(evento) != Qt::NoModifier) return 0;
  switch (evento.key()) {
    case Qt::Key_PageUp:
      return services::tecla::PaginaArriba;
    case Qt::Key_PageDown:
      return services::tecla::PaginaAbajo;
    case Qt::Key_Home:
      return services::tecla::Inicio;
    case Qt::Key_End:
      return services::tecla::Fin;
    default:
      return 0;
  }
}

/// On most keyboards the plus sign is typed with Shift or without, and is told as an equals sign on
/// others.
int PasosDeZoom(const QKeyEvent& evento) {
  if ((Modificadores(evento) & ~Qt::ShiftModifier) != Qt::ControlModifier) return 0;
  switch (evento.key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      return 1;
    case Qt::Key_Minus:
      return -1;
    default:
      return 0;
  }
}

std::u32string Caracteres(const QKeyEvent& evento) {
  const Qt::KeyboardModifiers con = Modificadores(evento) & ~Qt::ShiftModifier;
  // Control with Alt is the third level of the keyboard, where it is told so.
  if (con != Qt::NoModifier && con != (Qt::ControlModifier | Qt::AltModifier)) return {};
  const QString texto = evento.text();
  if (texto.isEmpty() || !texto.front().isPrint()) {
    if (texto.isEmpty() || !texto.front().isSurrogate()) return {};
  }
  return texto.toStdU32String();
}

bool EsTabulador(const QKeyEvent& evento) {
  return evento.key() == Qt::Key_Tab || evento.key() == Qt::Key_Backtab;
}

bool EsDelWidget(const QKeyEvent& evento) {
  return Codigo(evento) != 0 || !Caracteres(evento).empty();
}

}  // namespace qt::teclado
