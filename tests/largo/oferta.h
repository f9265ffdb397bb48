#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "largo/puesto.h"
#include "largo/tablas.h"
#include "muestra/azar.h"
#include "salvaguarda/rescate.h"

namespace largo {

/// What the suite does before it opens the screen: it offers the working copy that was left behind,
/// if there is one, and does what the user answers, which is chance here.
class Oferta {
 public:
  Oferta(const std::filesystem::path& carpeta, Puesto& puesto, muestra::Azar& azar)
      : carpeta_(carpeta), puesto_(puesto), azar_(azar) {}

  /// What there is to be offered now.
  [[nodiscard]] std::optional<salvaguarda::Rescate> Buscar() { return Buscar(puesto_.Local()); }
  /// What was answered; empty when there was nothing to be offered. Throws what the engine throws.
  [[nodiscard]] std::string Hacer();
  /// What isn't as it must be with what was kept aside; empty for nothing.
  [[nodiscard]] const std::string& Reparo() const { return reparo_; }
  /// The one that the screen is now opened with, and its rows; none for a fresh load.
  [[nodiscard]] const std::optional<Tablas>& Retomada() const { return retomada_; }
  /// The screen is open, or could not be opened: it is offered anew the next time.
  void Terminar();

 private:
  [[nodiscard]] std::optional<salvaguarda::Rescate> Buscar(sqlite::Conexion& deTrabajo) const;
  void Apartar(const salvaguarda::Rescate& rescate);

  std::filesystem::path carpeta_;
  Puesto& puesto_;
  muestra::Azar& azar_;
  std::string reparo_;
  std::optional<Tablas> retomada_;
};

}  // namespace largo
