#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "datos/conexion.h"
#include "odbc/parametros.h"
#include "odbc/unidad.h"

namespace odbc {

/// What was left to be written later in the unit under way, so that the server is asked once for
/// many rows. Those of one statement are written together, and one by one where they can't be, so
/// that a row fails alone.
class Pendientes {
 public:
  explicit Pendientes(Unidad& unidad) : unidad_(unidad) {}

  /// A statement that writes to a table, and the text of so many of them in one.
  struct Sentencia {
    std::string Tabla;
    std::string Una;
    std::function<std::string(std::size_t cuantas)> Varias;
  };

  /// A DELETE. What refuses it is thrown when it is run.
  void Borrar(const std::string& tabla, const std::string& texto, Parametros parametros);
  /// A row of a table.
  void Insertar(const std::shared_ptr<const Sentencia>& sentencia, Parametros parametros,
                services::AlNoInsertar alNoInsertar);

  /// Writes them, in the order of their statements. Throws the first failure that nobody is told
  /// of, once the rest is written.
  void Escribir();
  /// They are no more.
  void Olvidar() noexcept { grupos_.clear(); }

 private:
  struct Escritura {
    Parametros Suyos;
    services::AlNoInsertar AlNoInsertar;  ///< none for a DELETE
  };
  struct Grupo {
    std::shared_ptr<const Sentencia> Suya;
    std::vector<Escritura> Escrituras;
  };

  [[nodiscard]] Grupo& De(const std::shared_ptr<const Sentencia>& sentencia);
  void Escribir(Grupo& grupo, std::optional<services::ErrorEjecucion>& primero);
  [[nodiscard]] bool EscribirJuntas(Grupo& grupo, std::size_t desde, std::size_t cuantas);
  void EscribirSola(const Grupo& grupo, Escritura& escritura);

  Unidad& unidad_;
  std::vector<Grupo> grupos_;
};

}  // namespace odbc
