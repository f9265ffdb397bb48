#pragma once

#include <string>

#include "entry/campos.h"
#include "list/rejilla_pagos.h"

namespace entry {

/// The key of an invoice, its number without the blanks around it.
struct Clave {
  std::string NConcepto;
  std::string Factura;
  std::string Anio;
};

/// That of the list's current row. An occurrence of a forecast has neither number nor year.
[[nodiscard]] Clave ClaveDeLaLista(const list::RejillaPagos& lista);
/// As the panel's fields tell it. Throws 13 when the invoice's date is none.
[[nodiscard]] Clave ClaveDelPanel(const Campos& campos);

/// The year of a date as shown; throws 13 when it is none.
[[nodiscard]] std::string AnioDe(const std::string& fecha);

}  // namespace entry
