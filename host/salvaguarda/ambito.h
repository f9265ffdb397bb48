#pragma once

#include <string>
#include <string_view>

#include "salvaguarda/claves.h"
#include "salvaguarda/comienzo.h"
#include "sqlite/conexion_sqlite.h"

namespace salvaguarda {

// What fills the attached file `copia`, as SQL. But for the copy of a picture, which needs none of
// them, the keys of what it is about stand in three tables of the connection's own: `temp.Ambito`
// for the invoices, `temp.AmbitoPrevision` and `temp.AmbitoCaja`. For a commit those of what
// it deletes stand in `temp.DelRango` and `temp.PrevisionDelRango`, and what it writes in
// `temp.EnLaLista`, `temp.SoloConBases` and `temp.PrevisionDeTrabajo`.

/// For a commit of `rango`: the stored rows that it deletes, those that the picture holds, and
/// those that bear a key of the working copy.
[[nodiscard]] std::string CopiaDeGrabacion(sqlite::Conexion& base, const Rango& rango,
                                           const Claves& claves);
/// The same when nothing stored has changed since the picture and nothing stored bears one of the
/// new keys: the picture itself.
[[nodiscard]] std::string CopiaDeFoto(const Claves& nuevas);
/// The stored rows that the attached copy `nombre` is about.
[[nodiscard]] std::string CopiaDeCopia(std::string_view nombre);
/// The three tables, of these keys.
[[nodiscard]] std::string AmbitoDe(const Claves& claves);
/// Whether any stored row bears one of the keys.
[[nodiscard]] bool HayGuardadas(sqlite::Conexion& base, const Claves& claves);

}  // namespace salvaguarda
