#pragma once

#include <QString>
#include <QStringList>

class QWidget;

namespace anfitrion {

/// A text of any length, which can be scrolled and copied, and what can be answered.
struct PreguntaConTexto {
  QString Texto;
  QStringList Respuestas;
  /// The one that Enter takes at first, and the one that stands for leaving.
  int PorDefecto = 0;
  int AlDejarla = 0;
};

/// Puts it to the user; which answer was chosen, from 0.
[[nodiscard]] int Preguntar(QWidget& ventana, const PreguntaConTexto& pregunta);

}  // namespace anfitrion
