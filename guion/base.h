#pragma once

#include <string>
#include <vector>

#include "datos/conexion.h"

namespace guion {

/// A database of the run: the driver's connection for the component, and a way in for the scenario
/// that takes the engine's own SQL and runs it outside the component's unit of work.
class Base {
 public:
  using Fila = std::vector<std::string>;

  virtual ~Base() = default;
  [[nodiscard]] virtual services::Ref<services::Conexion> Conexion() = 0;
  /// Whether an event of the user is one unit of work there, or each statement stands by itself.
  virtual void Agrupar(bool porEvento) = 0;
  /// One or more statements. Throws `NoSeEntiende` with the engine's words when one is refused.
  virtual void Ejecutar(const std::string& sql) = 0;
  /// The rows of one statement, each value as it is printed; throws alike.
  [[nodiscard]] virtual std::vector<Fila> Consultar(const std::string& sql) = 0;
};

}  // namespace guion
