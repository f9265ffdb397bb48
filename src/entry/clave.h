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
/// As the panel's fields tell it.
[[nodiscard]] Clave ClaveDelPanel(const Campos& campos);

/// That of a new entry as the panel tells it, that of a modification as the list does.
[[nodiscard]] Clave ClaveDeLaEntrada(const Campos& campos, const list::RejillaPagos& lista);

/// The statement that looks for an invoice in `tabla`, "And" written as `y` before its year.
[[nodiscard]] std::string FacturaDe(const std::string& tabla, const char* y, const Clave& clave);

/// The year of a date as shown; the empty text, which no invoice has as its year, when it is none.
[[nodiscard]] std::string AnioDe(const std::string& fecha);

}  // namespace entry
