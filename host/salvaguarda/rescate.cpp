#include "salvaguarda/rescate.h"

#include <algorithm>
#include <string_view>

#include "salvaguarda/adjunta.h"
#include "salvaguarda/consultas.h"
#include "salvaguarda/foto.h"
#include "salvaguarda/sql.h"

namespace salvaguarda {
namespace {

using sql::Juntar;
using sql::Texto;

std::vector<std::string> ContenidoDe(const Tabla& tabla) {
  const auto columnas = tabla.Contenido();
  return {columnas.begin(), columnas.end()};
}

std::string Clave(const Tabla& tabla, std::string_view alias) {
  return sql::Separar(sql::Clave(tabla, alias), ", ");
}

/// Whether the key of a row stands in the table of another file. The keys are gathered once: not
/// every file has an index by them, and the engine may take another that serves for less.
std::string Esta(const Tabla& tabla, std::string_view alias, std::string_view donde) {
  return Juntar({"(", Clave(tabla, alias), ") IN (SELECT ", Clave(tabla, "e"), " FROM ", donde,
                 tabla.Nombre, " e) IS TRUE"});
}

/// The rows of a working table that its stored one hasn't, nor the picture.
std::string Distintas(const Tabla& tabla, bool conFoto) {
  const auto filas = [&](std::string_view de) {
    return Juntar({"SELECT ", sql::ValoresConNombre(tabla, ContenidoDe(tabla), ""), " FROM ", de,
                   tabla.Nombre});
  };
  const std::string motivo = Juntar(
      {"CASE WHEN ", Esta(tabla, "d", "almacen."), " THEN 'se cambió' ELSE 'se añadió' END"});
  return Juntar({"SELECT ", sql::ComoFila(tabla, "d", motivo), " FROM (", filas("main.Temp"),
                 " EXCEPT ", filas("almacen."), conFoto ? " EXCEPT " + filas("foto.") : "", ") d"});
}

/// The stored rows `t` of a query that the working copy hasn't any more, though it could have
/// loaded them and they were there then.
std::string Borradas(const Tabla& tabla, const std::string& desde, bool conFoto) {
  return Juntar({"SELECT DISTINCT ", sql::ComoFila(tabla, "t", "'se borró'"), desde,
                 " AND EXISTS (SELECT 1 FROM almacen.ProvConceptos c WHERE c.NConcepto = "
                 "t.NConcepto) AND NOT ",
                 Esta(tabla, "t", "main.Temp"),
                 conFoto ? " AND " + Esta(tabla, "t", "foto.") : ""});
}

/// Of the due dates of the range, with those of the same invoices, and of the forecasts.
std::string Borradas(const Rango& rango, bool conFoto) {
  const std::string vencimientos =
      Juntar({" FROM almacen.ProvVencimientos v CROSS JOIN almacen.ProvFacturas f ON f.NConcepto = "
              "v.NConcepto AND f.Factura = v.NFactura CROSS JOIN almacen.ProvVencimientos t ON "
              "t.NConcepto = f.NConcepto AND t.NFactura = f.Factura WHERE v.FechaVto >= ",
              Texto(rango.Desde), " AND v.FechaVto <= ", Texto(rango.Hasta)});
  const std::string previsiones =
      Juntar({" FROM almacen.ProvPrevisionPagos t WHERE t.Fecha1Vto <= ", Texto(rango.Hasta)});
  return Borradas(*BuscarTabla("ProvVencimientos"), vencimientos, conFoto) + " UNION ALL " +
         Borradas(Previsiones(), previsiones, conFoto);
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
  for (const Tabla& tabla : Tablas()) consulta += Distintas(tabla, conFoto) + " UNION ALL ";
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

std::optional<Rescate> BuscarRescate(sqlite::Conexion& deTrabajo, const std::string& almacenados,
                                     const std::string& foto) {
  if (!deTrabajo.TieneTabla(kCopiaAbierta) || Vacias(deTrabajo)) return std::nullopt;
  const auto copia = LeerCopia(deTrabajo);
  if (!copia) return std::nullopt;
  Rescate rescate{*copia, {}, false, copia->Almacenados != almacenados};
  if (rescate.DeOtraEmpresa) return rescate;
  const sql::Adjunta tablas(deTrabajo, almacenados, "almacen");
  const sql::Adjunta retrato(deTrabajo, foto, "foto");
  rescate.ConFoto = !copia->Foto.empty() && SenaDeFoto(deTrabajo) == copia->Foto;
  rescate.Filas = Diferencias(deTrabajo, copia->Rango, rescate.ConFoto);
  if (rescate.Filas.empty()) return std::nullopt;
  return rescate;
}

}  // namespace salvaguarda
