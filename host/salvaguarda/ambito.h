#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "salvaguarda/comienzo.h"
#include "sqlite/conexion_sqlite.h"

namespace salvaguarda {

/// The keys of the invoices, the concepts of the forecasts, and the keys of the cash entries that a
/// working copy holds.
struct ClavesDeTrabajo {
  struct Factura {
    std::string NConcepto;
    std::string Factura;
    std::string Anio;
  };
  /// Those of an invoice or a due date, which the list shows.
  std::vector<Factura> EnLaLista;
  /// Those of a base and neither, which it doesn't.
  std::vector<Factura> SoloConBases;
  std::vector<std::string> Previsiones;
  struct Apunte {
    std::string idSucursal;
    std::string FechaHora;
    std::string Tipo;
  };
  std::vector<Apunte> Apuntes;

  [[nodiscard]] static ClavesDeTrabajo Leer(sqlite::Conexion& deTrabajo);
  /// Those alone that the picture in the file `foto`, taken at its load, hasn't. It has all the
  /// cash entries: a load brings them, and nothing adds any.
  [[nodiscard]] static ClavesDeTrabajo Nuevas(sqlite::Conexion& deTrabajo, const std::string& foto);

  [[nodiscard]] bool Ninguna() const {
    return EnLaLista.empty() && SoloConBases.empty() && Previsiones.empty();
  }
};

// What fills the attached file `copia`, as SQL. But for the copy of a picture, which needs none of
// them, the keys of what it is about stand in three tables of the connection's own: `temp.Ambito`
// for the invoices, `temp.AmbitoPrevision` and `temp.AmbitoCaja`. For a commit those of what
// it deletes stand in `temp.DelRango` and `temp.PrevisionDelRango`, and what it writes in
// `temp.EnLaLista`, `temp.SoloConBases` and `temp.PrevisionDeTrabajo`.

/// For a commit of `rango`: the stored rows that it deletes, those that the picture holds, and
/// those that bear a key of the working copy.
[[nodiscard]] std::string CopiaDeGrabacion(sqlite::Conexion& base, const Rango& rango,
                                           const ClavesDeTrabajo& claves);
/// The same when nothing stored has changed since the picture and nothing stored bears one of the
/// new keys: the picture itself.
[[nodiscard]] std::string CopiaDeFoto(const ClavesDeTrabajo& nuevas);
/// The stored rows that the attached copy `nombre` is about.
[[nodiscard]] std::string CopiaDeCopia(std::string_view nombre);
/// Whether any stored row bears one of the keys.
[[nodiscard]] bool HayGuardadas(sqlite::Conexion& base, const ClavesDeTrabajo& claves);

}  // namespace salvaguarda
