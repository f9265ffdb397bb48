#pragma once

#include <memory>
#include <vector>

#include "dialecto/catalogo.h"
#include "sqlite/fichero.h"

namespace sqlite {

/// The tables of a file, each read the first time that a statement names it.
class Catalogo final : public dialecto::Catalogo {
 public:
  explicit Catalogo(Base& base) : base_(base) {}

  [[nodiscard]] const dialecto::Tabla* Buscar(std::string_view nombre) override;
  /// Reads the tables anew when they are next asked for.
  void Olvidar() { tablas_.clear(); }

 private:
  [[nodiscard]] std::unique_ptr<dialecto::Tabla> Leer(std::string_view nombre);
  [[nodiscard]] std::vector<int> LeerClave(const dialecto::Tabla& tabla);

  Base& base_;
  std::vector<std::unique_ptr<dialecto::Tabla>> tablas_;
};

}  // namespace sqlite
