#pragma once

#include <array>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>

#include "salvaguarda/comienzo.h"
#include "salvaguarda/fila.h"
#include "sqlite/conexion_sqlite.h"

// The engine's own SQL about the rows that a commit touches, in pieces.

namespace salvaguarda::sql {

/// The tables of an invoice: its own, its bases and its due dates, each with the column that holds
/// the number and the one that tells its rows apart, none for the invoice itself.
struct TablaDeFactura {
  std::string_view Nombre;
  std::string_view Numero;
  std::string_view Detalle;
};
inline constexpr std::array kDeFactura{
    TablaDeFactura{"ProvFacturas", "Factura", "''"},
    TablaDeFactura{"ProvBasesIva", "NFactura", "Tipo"},
    TablaDeFactura{"ProvVencimientos", "NFactura", "FechaVto"},
};
/// All that a commit touches.
inline constexpr std::array<std::string_view, 5> kTablas{
    "ProvFacturas", "ProvBasesIva", "ProvVencimientos", "ProvPrevisionPagos", "CajaPagos"};

[[nodiscard]] std::string Texto(std::string_view texto);
[[nodiscard]] std::string Juntar(std::initializer_list<std::string_view> piezas);

/// The definition of a table of invoice keys.
[[nodiscard]] std::string CrearClaves(std::string_view esquema, std::string_view tabla);
/// The keys of the invoices that a commit of the range deletes.
[[nodiscard]] std::string ClavesDelRango(const Rango& rango);
/// The stored rows of the invoices whose keys stand in a table; `columnas` of each, as `t`.
[[nodiscard]] std::string FilasDe(const TablaDeFactura& tabla, std::string_view claves,
                                  std::string_view columnas = "t.*");
/// The stored forecasts whose concepts stand in a table, and the stored cash entries; alike.
[[nodiscard]] std::string PrevisionesCon(std::string_view claves,
                                         std::string_view columnas = "t.*");
[[nodiscard]] std::string ApuntesCon(std::string_view claves, std::string_view columnas = "t.*");
/// The stored forecasts that a commit of the range deletes.
[[nodiscard]] std::string PrevisionesDe(const Rango& rango);

/// A column of a row as any load and commit leave it: a withholding that is missing or exactly 1 is
/// 0, and a cash entry's missing invoice is an empty one. Behind `alias`, unless that is empty.
[[nodiscard]] std::string ComoQueda(std::string_view tabla, std::string_view columna,
                                    std::string_view alias);
/// The columns of a table that tell what it says, not who wrote it when; split by commas, each
/// as it is left, behind `alias`. Those alone that `cuenta`.
[[nodiscard]] std::string Contenido(
    sqlite::Conexion& base, std::string_view tabla, std::string_view alias,
    const std::function<bool(const std::string&)>& cuenta = [](const std::string&) {
      return true;
    });

/// The rows of a query whose columns are those of a `Fila`, in their order.
[[nodiscard]] std::vector<Fila> LeerFilas(sqlite::Conexion& base, std::string_view consulta);

/// The sign of the picture in the attached file `foto`; empty where there is no whole one.
[[nodiscard]] std::string SenaDeFoto(sqlite::Conexion& base);

/// Another file under a name of its own, for as long as it lives.
class Adjunta {
 public:
  Adjunta(sqlite::Conexion& base, const std::string& fichero, std::string_view nombre);
  ~Adjunta();
  Adjunta(const Adjunta&) = delete;
  Adjunta& operator=(const Adjunta&) = delete;

 private:
  sqlite::Conexion& base_;
  std::string nombre_;
};

/// A transaction, undone unless it is finished.
class Transaccion {
 public:
  explicit Transaccion(sqlite::Conexion& base);
  ~Transaccion();
  Transaccion(const Transaccion&) = delete;
  Transaccion& operator=(const Transaccion&) = delete;
  void Terminar();

 private:
  sqlite::Conexion& base_;
  bool enCurso_ = true;
};

}  // namespace salvaguarda::sql
