#pragma once

#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "datos/conexion.h"
#include "dialecto/interprete.h"
#include "odbc/unidad.h"

namespace odbc {

/// The SELECTs that somebody has told to be about to open, one after the other: the server is asked
/// for many of them at once, when the first is opened.
class Anticipadas {
 public:
  Anticipadas(Unidad& unidad, dialecto::Interprete& interprete)
      : unidad_(unidad), interprete_(interprete) {}

  void Poner(std::vector<std::string> sentencias, services::ModoApertura modo);
  void Olvidar() noexcept;
  [[nodiscard]] bool Ninguna() const { return sentencias_.empty(); }
  /// The rows of a statement that is opened now, when it is the next of them; `leida` is what it
  /// was understood as.
  [[nodiscard]] std::optional<services::Filas> Tomar(std::string_view sentencia,
                                                     const dialecto::Sentencia& leida,
                                                     services::ModoApertura modo);

 private:
  [[nodiscard]] std::vector<dialecto::Sentencia> Siguientes(const dialecto::Sentencia& primera);
  void Preguntar(const dialecto::Sentencia& primera);

  Unidad& unidad_;
  dialecto::Interprete& interprete_;
  services::ModoApertura modo_ = services::ModoApertura::Lectura;
  std::deque<std::string> sentencias_;
  /// The rows of the first of them that were asked for.
  std::deque<services::Filas> halladas_;
};

}  // namespace odbc
