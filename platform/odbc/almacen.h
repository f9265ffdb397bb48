#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "odbc/celdas.h"
#include "odbc/enlace.h"
#include "odbc/parametros.h"

namespace odbc {

/// A statement that the server has understood, and may be run with any values. It is run to its end
/// before anybody else runs it.
class Orden {
 public:
  Orden(Enlace& enlace, std::string_view texto);

  /// How many rows it changed.
  std::size_t Ejecutar(Parametros& parametros);
  /// Its rows, with these columns.
  [[nodiscard]] services::Filas Leer(Parametros& parametros,
                                     const std::vector<services::Columna>& columnas);

 private:
  void Correr(Parametros& parametros);
  void ExigirColumnas(std::size_t cuantas);

  Enlace* enlace_;
  ManejoDeOrden orden_;
  /// Kept since the same are asked for again.
  std::unique_ptr<Celdas> celdas_;
};

/// The statements of a connection by their text, each prepared when it is first run, and again
/// after the connection was lost.
class Almacen {
 public:
  explicit Almacen(Enlace& enlace) : enlace_(enlace) {}

  [[nodiscard]] Orden& Tomar(const std::string& texto);
  void Olvidar() { ordenes_.clear(); }
  [[nodiscard]] std::size_t Preparadas() const { return preparadas_; }

 private:
  Enlace& enlace_;
  std::unordered_map<std::string, Orden> ordenes_;
  std::size_t vez_ = 0;
  std::size_t preparadas_ = 0;
};

}  // namespace odbc
