#pragma once

#include <map>
#include <string>
#include <utility>

#include "salvaguarda/fila.h"
#include "sqlite/conexion_sqlite.h"

namespace salvaguarda {

/// What the concepts are called, by their codes.
class Conceptos {
 public:
  /// None: each is told by its code.
  Conceptos() = default;
  explicit Conceptos(std::map<std::string, std::string, SinCaso> nombres)
      : nombres_(std::move(nombres)) {}

  /// Those that are stored; none where they can't be read.
  [[nodiscard]] static Conceptos Leer(sqlite::Conexion& base);

  /// "de Luz y Fuerza (400)"; without a name "del concepto 400".
  [[nodiscard]] std::string Llamar(const std::string& codigo) const;

 private:
  std::map<std::string, std::string, SinCaso> nombres_;
};

}  // namespace salvaguarda
