#pragma once

#include <cstddef>
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
  /// Those alone that the picture in the file `foto` hasn't.
  [[nodiscard]] static ClavesDeTrabajo Nuevas(sqlite::Conexion& deTrabajo, const std::string& foto);

  [[nodiscard]] bool Ninguna() const { return Facturas.empty() && Previsiones.empty(); }
};

// What fills the attached file `copia`, as SQL. The keys of what it is about stand in three tables
// of the connection's own: `temp.Ambito` for the invoices, `temp.AmbitoPrevision` and
// `temp.AmbitoCaja`; in `temp.DelRango` those of the invoices that a commit deletes; in
// `temp.DeTrabajo` and `temp.PrevisionDeTrabajo` what it writes.

/// For a commit of `rango`: the stored rows that it deletes, those that the picture holds, and
/// those that bear a key of the working copy.
[[nodiscard]] std::string CopiaDeGrabacion(const Rango& rango, const ClavesDeTrabajo& claves);
/// The same when nothing stored has changed since the picture and nothing stored bears one of the
/// new keys: the picture itself.
[[nodiscard]] std::string CopiaDeFoto(const ClavesDeTrabajo& nuevas);
/// The stored rows that the attached copy `nombre` is about.
[[nodiscard]] std::string CopiaDeCopia(std::string_view nombre);
/// How many stored rows bear one of the keys.
[[nodiscard]] std::size_t Guardadas(sqlite::Conexion& base, const ClavesDeTrabajo& claves);

}  // namespace salvaguarda
