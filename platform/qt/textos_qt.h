#pragma once

#include <QString>
#include <string>
#include <string_view>

// Between the texts of the models, UTF-8 counted in characters, and those of the toolkit, UTF-16.

namespace qt {

[[nodiscard]] inline QString Texto(std::string_view texto) {
  return QString::fromUtf8(texto.data(), static_cast<qsizetype>(texto.size()));
}
[[nodiscard]] inline std::string Utf8(const QString& texto) {
  return texto.toStdString();
}

/// How many UTF-16 units the first `caracteres` of a text take.
[[nodiscard]] int Unidades(const QString& texto, int caracteres);
/// How many characters the first `unidades` of a text are.
[[nodiscard]] int Caracteres(const QString& texto, int unidades);

/// A caption as the toolkit shows it whole: an ampersand would mark a shortcut.
[[nodiscard]] QString Rotulo(std::string_view caption);

}  // namespace qt
