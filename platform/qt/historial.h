#pragma once

#include <QString>
#include <QStringList>

namespace qt {

/// The texts that a field has held since the user came to it, for undoing and redoing.
class Historial {
 public:
  /// From a text on, with nothing to undo.
  void Empezar(const QString& texto);
  /// The field holds another text.
  void Anotar(const QString& texto);

  [[nodiscard]] bool HayAnterior() const { return actual_ > 0; }
  [[nodiscard]] bool HaySiguiente() const { return actual_ + 1 < textos_.size(); }
  /// The text before, or after, the one the field holds, which becomes the one it holds.
  QString Anterior() { return textos_.at(--actual_); }
  QString Siguiente() { return textos_.at(++actual_); }

 private:
  QStringList textos_{QString()};
  qsizetype actual_ = 0;
};

}  // namespace qt
