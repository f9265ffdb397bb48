#pragma once

#include <string>

#include "entry/campos.h"

namespace entry {

/// A row of the cash screen: the key of a cash entry, as texts, and whether it is marked as paid by
/// the invoice on the panel.
struct ApunteDeCaja {
  std::string Tipo;  ///< empty, or no number, for a row that holds no entry
  std::string FechaHora;
  bool Marcado = false;
};

/// Whether a concept can have cash entries: their `Tipo` is a whole number, which stands in the
/// statements bare. A code of another kind would be another word there.
[[nodiscard]] bool PuedeTenerApuntes(const std::string& concepto);

/// The end of a statement over cash entries: those that the invoice on the panel may pay, which are
/// those of no invoice and, for one that is modified, its own; by their moment.
[[nodiscard]] std::string ApuntesAlAlcance(const Campos& campos);

/// The statement that finds the entry of a row. Several of one concept and one moment are one row,
/// of which the first counts.
[[nodiscard]] std::string SentenciaDeApunte(const Campos& campos, const ApunteDeCaja& apunte);

}  // namespace entry
