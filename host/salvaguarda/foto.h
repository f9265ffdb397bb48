#pragma once

#include <string>
#include <vector>

#include "salvaguarda/comienzo.h"
#include "salvaguarda/fila.h"
#include "sqlite/conexion_sqlite.h"

namespace salvaguarda {

/// The stored rows that a commit of a range would touch, as they were at one moment: its invoices
/// with their bases and due dates, the forecasts, and the cash entries that a load brings. Kept in
/// the memory of a connection of its own to the stored file, which sees what is durable, whatever
/// another connection has under way.
class Foto {
 public:
  /// Throws what opening the file throws.
  explicit Foto(const std::string& almacenados);

  /// Takes it now, in place of the one before.
  void Tomar(const Rango& rango);
  /// Takes what the tables of the attached file `copia` tell, in place of the one before.
  void TomarDeCopia();
  /// The range that was taken; none before.
  [[nodiscard]] const std::optional<Rango>& De() const { return rango_; }
  [[nodiscard]] sqlite::Conexion& Conexion() { return *conexion_; }

  /// The rows in it that a load leaves out, and that a commit of the range would therefore delete:
  /// of a concept that isn't there, or written with blanks that the rest of the invoice hasn't.
  [[nodiscard]] std::vector<Fila> Excluidas();

  /// What the tables of the attached file `copia` say otherwise than it: invoices, forecasts and
  /// cash entries that were changed, added or deleted since, each with who did it and what a commit
  /// would do. No difference is who wrote a row when, nor what any commit makes of it; nor is one
  /// that is gone and that this commit doesn't bring back.
  [[nodiscard]] std::vector<Fila> Cambiadas();
  /// Those of the rows of whose invoice or forecast the attached file `copia` still has any there.
  [[nodiscard]] std::vector<Fila> QueSiguen(std::vector<Fila> filas);

 private:
  [[nodiscard]] std::string FacturasCambiadas();
  [[nodiscard]] std::string PrevisionesCambiadas();
  [[nodiscard]] std::string ApuntesCambiados();

  services::Ref<sqlite::Conexion> conexion_;
  std::optional<Rango> rango_;
};

}  // namespace salvaguarda
