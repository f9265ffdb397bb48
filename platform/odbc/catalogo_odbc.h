#pragma once

#include <memory>
#include <string>
#include <vector>

#include "dialecto/catalogo.h"
#include "odbc/enlace.h"

namespace odbc {

/// The tables of the database that a connection is in, each read the first time that a statement
/// names it.
class Catalogo final : public dialecto::Catalogo {
 public:
  explicit Catalogo(Enlace& enlace) : enlace_(enlace) {}

  [[nodiscard]] const dialecto::Tabla* Buscar(std::string_view nombre) override;
  /// Reads the tables anew when they are next asked for.
  void Olvidar();

 private:
  [[nodiscard]] std::string NombreDe(std::string_view nombre);
  void LeerNombres();
  [[nodiscard]] std::unique_ptr<dialecto::Tabla> Leer(const std::string& nombre);
  [[nodiscard]] std::vector<std::string> NombresDeColumnas(const std::string& tabla);
  void LeerRecortadas(dialecto::Tabla& tabla);
  void LeerClave(dialecto::Tabla& tabla);

  Enlace& enlace_;
  /// Where unqualified names are looked for: a database, or a schema in one.
  std::string esquema_;
  std::vector<std::string> nombres_;
  std::vector<std::unique_ptr<dialecto::Tabla>> tablas_;
};

}  // namespace odbc
