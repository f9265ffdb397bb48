#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "salvaguarda/comienzo.h"
#include "sqlite/conexion_sqlite.h"

namespace salvaguarda {

/// The invoice keys, and the concepts of the forecasts, that a working copy holds.
struct ClavesDeTrabajo {
  struct Factura {
    std::string NConcepto;
    std::string Factura;
    std::string Anio;
  };
  std::vector<Factura> Facturas;
  std::vector<std::string> Previsiones;

  [[nodiscard]] static ClavesDeTrabajo Leer(sqlite::Conexion& deTrabajo);
};

// The keys of what a copy is about, in three tables of the connection's own: `temp.Ambito` for the
// invoices, `temp.AmbitoPrevision` and `temp.AmbitoCaja`; in `temp.DelRango` those of the invoices
// that a commit deletes; in `temp.DeTrabajo` and `temp.PrevisionDeTrabajo` what it writes.

/// For a commit of `rango`: what it deletes, what the picture holds, and what bears a key of the
/// working copy.
[[nodiscard]] std::string AmbitoDeGrabacion(const Rango& rango, const ClavesDeTrabajo& claves);
/// What the attached copy `nombre` is about.
[[nodiscard]] std::string AmbitoDeCopia(std::string_view nombre);

}  // namespace salvaguarda
