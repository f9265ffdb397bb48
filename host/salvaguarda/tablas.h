#pragma once

#include <span>
#include <string_view>
#include <vector>

namespace salvaguarda {

/// A stored table that a commit touches, as its rows are told, found and compared.
struct Tabla {
  /// What one of its rows is to the user.
  enum class Cosa { Factura, Base, Vencimiento, Prevision, Apunte };

  Cosa Que;
  std::string_view Nombre;
  std::string_view Una;     ///< "factura"
  std::string_view Varias;  ///< "facturas"
  // The columns that a `Fila` is told from; empty for what its rows haven't.
  std::string_view Concepto;
  std::string_view Numero;
  std::string_view Anio;
  std::string_view Detalle;
  /// What it amounts to.
  std::string_view Importe;

  /// The columns of its key.
  [[nodiscard]] std::span<const std::string_view> Clave() const;
  /// Its columns that tell what a row says, its key among them.
  [[nodiscard]] std::vector<std::string_view> Contenido() const;
  /// Whether a column is one of those: not who wrote it when, and of a cash entry its invoice
  /// alone, which is all that a commit writes there.
  [[nodiscard]] bool EsContenido(std::string_view columna) const;
  /// Whether a column holds a text, whose case doesn't count in a key.
  [[nodiscard]] bool EsDeTexto(std::string_view columna) const;
};

/// All that a commit touches, in the order in which it writes them.
[[nodiscard]] std::span<const Tabla> Tablas();
/// Those of an invoice: its own, its bases and its due dates.
[[nodiscard]] std::span<const Tabla> TablasDeFactura();
[[nodiscard]] const Tabla& Previsiones();
[[nodiscard]] const Tabla& Apuntes();
/// The one of that name, or of which that is the working one; null for any other.
[[nodiscard]] const Tabla* BuscarTabla(std::string_view nombre);

}  // namespace salvaguarda
