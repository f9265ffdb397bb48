#include "salvaguarda/rescate.h"

#include <algorithm>
#include <filesystem>
#include <string_view>

#include "salvaguarda/adjunta.h"
#include "salvaguarda/consultas.h"
#include "salvaguarda/foto.h"
#include "salvaguarda/sql.h"

namespace salvaguarda {
namespace {

using sql::Juntar;
using sql::Texto;

std::string Clave(const Tabla& tabla, std::string_view alias) {
  return sql::Separar(sql::Clave(tabla, alias), ", ");
}

/// What a row says, case included.
std::string ALaLetra(const Tabla& tabla) {
  std::vector<std::string> valores;
  for (const std::string_view columna : tabla.Contenido()) {
    valores.push_back(Juntar({sql::Valores(tabla, {std::string(columna)}, ""),
                              " COLLATE BINARY AS ", sql::Columna("", columna)}));
  }
  return sql::Separar(valores, ", ");
}

/// The stored rows that may be those of working ones, by what the stored table has an index of.
std::string DeLasMismas(const Tabla& tabla) {
  const auto entre = [&](const std::string& guardada, const std::string& deTrabajo) {
    return Juntar(
        {guardada, " COLLATE ES IN (SELECT ", deTrabajo, " FROM main.Temp", tabla.Nombre, " w)"});
  };
  const std::string desde = Juntar({"(SELECT s.* FROM almacen.", tabla.Nombre, " s WHERE "});
  switch (tabla.Que) {
    case Tabla::Cosa::Prevision:
      return desde + entre("s.NConcepto", "w.NConcepto") + ")";
    case Tabla::Cosa::Apunte:
      return Juntar({desde, entre("s.idSucursal", "w.idSucursal"),
                     " AND MOMENTO(s.FechaHora) IN (SELECT MOMENTO(w.FechaHora) FROM main.Temp",
                     tabla.Nombre, " w))"});
    default:
      return desde + entre(sql::Numero(tabla, "s"), sql::Numero(tabla, "w")) + ")";
  }
}

/// Whether the key of a row stands among others. Their keys are gathered once: not all have an
/// index by them, and the engine may take another that serves for less.
std::string Esta(const Tabla& tabla, std::string_view alias, std::string_view entre) {
  return Juntar({"(", Clave(tabla, alias), ") IN (SELECT ", Clave(tabla, "e"), " FROM ", entre,
                 " e) IS TRUE"});
}

std::string DeTrabajo(const Tabla& tabla) {
  return Juntar({"main.Temp", tabla.Nombre});
}

std::string DeLaFoto(const Tabla& tabla) {
  return Juntar({"foto.", tabla.Nombre});
}

/// The rows of a working table that its stored one hasn't to the letter, nor the picture.
std::string NoGrabadas(const Tabla& tabla, bool conFoto) {
  const auto filas = [&](const std::string& de) {
    return Juntar({"SELECT ", ALaLetra(tabla), " FROM ", de});
  };
  const std::string guardadas = DeLasMismas(tabla);
  const std::string motivo =
      Juntar({"CASE WHEN ", Esta(tabla, "d", guardadas), " THEN 'se cambió' ELSE 'se añadió' END"});
  return Juntar({"SELECT ", sql::ColumnasDeFila(tabla, "d", motivo), " FROM (",
                 filas(DeTrabajo(tabla)), " EXCEPT ", filas(guardadas),
                 conFoto ? " EXCEPT " + filas(DeLaFoto(tabla)) : "", ") d"});
}

/// The stored rows `t` of a query that the working copy hasn't any more, though it could have
/// loaded them and they were there then.
std::string Borradas(const Tabla& tabla, const std::string& desde, bool conFoto) {
  return Juntar({"SELECT DISTINCT ", sql::ColumnasDeFila(tabla, "t", "'se borró'"), desde,
                 " AND EXISTS (SELECT 1 FROM almacen.ProvConceptos c WHERE c.NConcepto = "
                 "t.NConcepto) AND NOT ",
                 Esta(tabla, "t", DeTrabajo(tabla)),
                 conFoto ? " AND " + Esta(tabla, "t", DeLaFoto(tabla)) : ""});
}

/// Of the invoices with due dates in the range, with all that they have, and of the forecasts.
std::string Borradas(const Rango& rango, bool conFoto) {
  const auto de = [&](const Tabla& tabla) {
    const std::string desde = Juntar(
        {" FROM almacen.ProvVencimientos v CROSS JOIN almacen.ProvFacturas f ON f.NConcepto = "
         "v.NConcepto AND f.Factura = v.NFactura CROSS JOIN almacen.",
         tabla.Nombre, " t ON t.NConcepto = f.NConcepto AND t.", tabla.Numero,
         " = f.Factura WHERE v.FechaVto >= ", Texto(rango.Desde),
         " AND v.FechaVto <= ", Texto(rango.Hasta)});
    return Borradas(tabla, desde, conFoto) + " UNION ALL ";
  };
  std::string consulta;
  for (const Tabla& tabla : TablasDeFactura()) consulta += de(tabla);
  return consulta +
         Borradas(Previsiones(),
                  " FROM almacen.ProvPrevisionPagos t WHERE t.Fecha1Vto <= " + Texto(rango.Hasta),
                  conFoto);
}

constexpr std::string_view kColumnas =
    "Desde, Hasta, Usuario, Momento, Foto, Almacenados, Completa";

/// As a screen leaves them when it closes.
bool Vacias(sqlite::Conexion& deTrabajo) {
  return std::ranges::none_of(Tablas(), [&](const Tabla& tabla) {
    const std::string una = Juntar({"SELECT 1 FROM Temp", tabla.Nombre, " LIMIT 1"});
    return deTrabajo.Consultar(una).Filas.Cuantas() > 0;
  });
}

/// Whether it is a date as it is stored.
bool EsDia(const std::string& texto) {
  const bool cifras = std::ranges::all_of(texto, [](char c) { return c >= '0' && c <= '9'; });
  return texto.size() == 8 && cifras;
}

std::optional<CopiaAbierta> LeerCopia(sqlite::Conexion& deTrabajo) {
  const auto anotada =
      deTrabajo.Consultar(Juntar({"SELECT ", kColumnas, " FROM ", kCopiaAbierta})).Filas;
  if (anotada.Cuantas() == 0) return std::nullopt;
  const auto texto = [&](std::size_t columna) { return anotada.En(0, columna).Texto(); };
  const Rango rango{texto(0), texto(1)};
  const bool completa = texto(6) == "1" && EsDia(rango.Desde) && EsDia(rango.Hasta);
  return CopiaAbierta{rango, texto(2), texto(3), texto(4), texto(5), completa};
}

std::vector<Fila> Diferencias(sqlite::Conexion& deTrabajo, const Rango& rango, bool conFoto) {
  std::string consulta;
  for (const Tabla& tabla : Tablas()) consulta += NoGrabadas(tabla, conFoto) + " UNION ALL ";
  return sql::LeerFilas(deTrabajo, consulta + Borradas(rango, conFoto));
}

}  // namespace

void AnotarCopia(sqlite::Conexion& deTrabajo, const CopiaAbierta& copia) {
  std::vector<std::string> valores;
  for (const std::string& valor :
       {copia.Rango.Desde, copia.Rango.Hasta, copia.Usuario, copia.Momento, copia.Foto,
        copia.Almacenados, std::string(copia.Completa ? "1" : "0")}) {
    valores.push_back(Texto(valor));
  }
  deTrabajo.Ejecutar(Juntar({"DROP TABLE IF EXISTS ", kCopiaAbierta, "; CREATE TABLE ",
                             kCopiaAbierta, " (", kColumnas, "); INSERT INTO ", kCopiaAbierta,
                             " VALUES (", sql::Separar(valores, ", "), ")"}));
}

void AnotarIncompleta(sqlite::Conexion& deTrabajo) {
  if (deTrabajo.TieneTabla(kCopiaAbierta)) {
    deTrabajo.Ejecutar(Juntar({"UPDATE ", kCopiaAbierta, " SET Completa = '0'"}));
  }
}

std::optional<Rescate> BuscarRescate(sqlite::Conexion& deTrabajo, Almacen& almacen,
                                     const std::string& foto) {
  if (!deTrabajo.TieneTabla(kCopiaAbierta) || Vacias(deTrabajo)) return std::nullopt;
  const auto copia = LeerCopia(deTrabajo);
  if (!copia) return std::nullopt;
  Rescate rescate{*copia, {}, false, copia->Almacenados != almacen.Nombre()};
  if (rescate.DeOtraEmpresa) return rescate;
  almacen.Traer(copia->Rango, [&] { return Claves::DeTrabajo(deTrabajo); });
  const sql::Adjunta tablas(deTrabajo, almacen.Fichero(), "almacen");
  std::optional<sql::Adjunta> retrato;
  if (std::filesystem::exists(foto)) retrato.emplace(deTrabajo, foto, "foto");
  rescate.ConFoto = retrato && !copia->Foto.empty() && SenaDeFoto(deTrabajo) == copia->Foto;
  rescate.Filas = Diferencias(deTrabajo, copia->Rango, rescate.ConFoto);
  if (rescate.Filas.empty()) return std::nullopt;
  return rescate;
}

}  // namespace salvaguarda
