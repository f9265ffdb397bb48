#pragma once

#include <string>
#include <vector>

#include "salvaguarda/fila.h"
#include "valores/valor.h"

namespace salvaguarda {

/// A value as the picture of the load has it and as it is now; Null where the row is missing.
struct AntesYAhora {
  services::Valor Antes;
  services::Valor Ahora;
};

/// A due date that others have changed.
struct CambioDeVencimiento {
  salvaguarda::Fila Fila;
  bool Estaba = false;
  bool Esta = false;
  AntesYAhora Importe;
  AntesYAhora Pagado;
};

/// An invoice, a forecast or a cash entry that others have changed since the load.
struct Cambio {
  salvaguarda::Fila Fila;
  /// Whether it was there, and whether it is now; of rows without an invoice, whether any was.
  bool Estaba = false;
  bool Esta = false;
  AntesYAhora Importe;
  /// Who did it; empty where nobody says.
  std::string Quien;
  /// Whether the list has it: itself, or a due date of it.
  bool EnLaLista = false;
  /// Whether a commit of the range deletes it; otherwise what is there stays.
  bool DelRango = true;
  /// Whether a commit that doesn't delete it writes again what is gone of it.
  bool SeRepone = false;
  /// Whether one right after the load would have deleted it.
  bool EraDelRango = true;
  /// Those of an invoice.
  std::vector<CambioDeVencimiento> Vencimientos = {};
};

/// What a commit would do about it.
enum class Consecuencia {
  Ninguna,
  Pisa,  ///< write over it
  /// Add rows to one of other dates that the load didn't bring; of a forecast, leave out the
  /// list's.
  Topa,
  Queda,  ///< leave it as it is, whatever the list says of it
};
[[nodiscard]] Consecuencia ConsecuenciaDe(const Cambio& cambio);

/// As it is told: with its amount, who did it, and what a commit would do.
[[nodiscard]] Fila ComoFila(const Cambio& cambio);

/// "121,00", or "121,00, antes 100,00"; nothing for none.
[[nodiscard]] std::string Dicho(const AntesYAhora& importe);

}  // namespace salvaguarda
