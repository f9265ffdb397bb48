#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "valores/fecha.h"

namespace services {

struct Nulo {
  bool operator==(const Nulo&) const = default;
};

/// A value of the platform: Null, Boolean, whole number of 32 bits, Double, text, or a date with
/// its time.
class Valor {
 public:
  Valor() = default;
  Valor(Nulo) {}
  Valor(bool logico) : valor_(logico) {}
  Valor(std::int32_t entero) : valor_(entero) {}
  Valor(double numero) : valor_(numero) {}
  Valor(FechaHora momento) : valor_(momento) {}
  Valor(std::string texto) : valor_(std::move(texto)) {}
  Valor(std::string_view texto) : valor_(std::string(texto)) {}
  Valor(const char* texto) : valor_(std::string(texto)) {}

  [[nodiscard]] bool EsNulo() const { return std::holds_alternative<Nulo>(valor_); }
  [[nodiscard]] bool EsTexto() const { return std::holds_alternative<std::string>(valor_); }

  /// Typed views of what is held; null where it is of another kind.
  template <class T>
  [[nodiscard]] const T* Si() const {
    return std::get_if<T>(&valor_);
  }

  /// The value joined to an empty text: Null gives "", a Boolean "Verdadero" or "Falso", a number
  /// its text with the decimal comma, a date its default text.
  [[nodiscard]] std::string Texto() const;
  /// As a Double: a Boolean is -1 or 0, a date its days and the fraction of its day, a text is read
  /// by the locale's rules. Throws 94 for Null, 13 for a text that is no number.
  [[nodiscard]] double Numero() const;
  /// As a Boolean: a number other than 0 is True, also as a text; so is "Verdadero", and "Falso" is
  /// False, without regard to case. Throws 94 for Null, 13 for other texts.
  [[nodiscard]] bool Logico() const;

  /// Same kind and same content; Null equals Null. For containers and tests: the comparison of
  /// the platform, in which Null is equal to nothing, is `Igual`.
  bool operator==(const Valor&) const = default;

 private:
  std::variant<Nulo, bool, std::int32_t, double, FechaHora, std::string> valor_;
};

/// `a = b` as the platform tells it: no value when either is Null; two texts compare without
/// regard to case; a number or Boolean against a text of a number compares as numbers, and any
/// other value against a text as its default text; the rest compare as numbers.
[[nodiscard]] std::optional<bool> Igual(const Valor& a, const Valor& b);

}  // namespace services
