#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

// The text of a scenario: lines, and lines split into words.

namespace guion {

/// What makes a text unfit to be run. Its description is the reason alone, in Spanish.
class NoSeEntiende : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The lines of a text without their ends, which may be those of any system.
[[nodiscard]] std::vector<std::string_view> Lineas(std::string_view texto);

/// Walks the words of one line. Words are split by blanks or tabulators; a quoted one holds blanks,
/// with `\"`, `\\` and `\n`; `#` where a word would begin ends the line. Throws `NoSeEntiende` for
/// bad quotes.
class Lector {
 public:
  explicit Lector(std::string_view linea) : linea_(linea) {}

  /// Whether another word follows.
  [[nodiscard]] bool Quedan();
  [[nodiscard]] std::string Siguiente();
  /// The rest of the line as it stands, without the blanks around it, comment marks and quotes
  /// included; nothing is left after it.
  [[nodiscard]] std::string Resto();

 private:
  void SaltarBlancos();
  [[nodiscard]] std::string Entrecomillada();
  [[nodiscard]] std::string Suelta();
  [[nodiscard]] char Escapado();

  std::string_view linea_;
  std::size_t donde_ = 0;
};

/// Whether the bytes are well-formed UTF-8.
[[nodiscard]] bool EsUtf8(std::string_view texto);
/// The characters of a well-formed text.
[[nodiscard]] std::u32string Caracteres(std::string_view texto);

}  // namespace guion
