#pragma once

#include <string>
#include <vector>

#include "forms/msflexgrid.h"
#include "largo/tablas.h"
#include "salvaguarda/comienzo.h"
#include "sqlite/conexion_sqlite.h"

// What must hold, told anew: of a commit and of a load by statements on sets of rows, of the list
// by a query of its own.

namespace largo {

/// The stored tables as a commit of the working copy must leave them, when no row of it is refused.
[[nodiscard]] Tablas TrasGrabar(const std::string& almacenados, sqlite::Conexion& local,
                                const salvaguarda::Rango& rango);

/// How the working copy differs from what a load of the range must bring; empty for not at all.
[[nodiscard]] std::string DiferenciaDeCarga(sqlite::Conexion& almacenados, sqlite::Conexion& local,
                                            const salvaguarda::Rango& rango);

struct Filtros {
  salvaguarda::Rango Rango;
  bool PorFecha = true;
  bool Pagados = true;
  bool Previsiones = true;
};
/// How the list differs from what the working tables hold.
[[nodiscard]] std::string DiferenciaDeLista(const services::MSFlexGrid& lista,
                                            sqlite::Conexion& local, const Filtros& filtros);

/// Bases, receipts and cash links of the stored tables whose invoice isn't there; sorted.
[[nodiscard]] std::vector<Fila> Huerfanas(sqlite::Conexion& almacenados);
/// Stored invoices of which the receipts don't make up the total, to the cent or one off; sorted.
[[nodiscard]] std::vector<Fila> Descuadradas(sqlite::Conexion& almacenados);

}  // namespace largo
