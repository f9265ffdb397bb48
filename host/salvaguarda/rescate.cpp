#include "salvaguarda/rescate.h"

#include <algorithm>
#include <array>

#include "salvaguarda/sql.h"

namespace salvaguarda {
namespace {

using sql::Juntar;
using sql::Texto;

/// A working table, what it has in common with the stored one, and how the user knows its rows.
struct Comun {
  std::string_view Tabla;
  std::string_view Columnas;
  std::string_view Clave;  ///< the columns of a `Fila` from the second to the fifth
  std::string_view Misma;  ///< that row `d` is row `s`
};

constexpr std::array kComunes{
    Comun{"ProvFacturas",
          "NConcepto, Factura, Año, Fecha, Total, forpago, NRecibos, Dias1Vto, BIRPF, TipoIRPF, "
          "IRPF, Cadencia",
          "NConcepto, Factura, Año, ''",
          "s.NConcepto = d.NConcepto AND s.Factura = d.Factura AND s.Año = d.Año"},
    Comun{"ProvBasesIva", "NConcepto, NFactura, Año, Tipo, Base, Importe, Exento",
          "NConcepto, NFactura, Año, Tipo",
          "s.NConcepto = d.NConcepto AND s.NFactura = d.NFactura AND s.Año = d.Año AND s.Tipo = "
          "d.Tipo"},
    Comun{
        "ProvVencimientos", "NConcepto, NFactura, Año, FechaVto, Importe, Pagado, Fechapago",
        "NConcepto, NFactura, Año, FechaVto",
        "s.NConcepto = d.NConcepto AND s.NFactura = d.NFactura AND s.Año = d.Año AND s.FechaVto = "
        "d.FechaVto"},
    Comun{"ProvPrevisionPagos", "NConcepto, Fecha1Vto, Cada, Tipo, Importe",
          "NConcepto, '', '', Fecha1Vto", "s.NConcepto = d.NConcepto"},
    Comun{"CajaPagos", "idSucursal, FechaHora, Tipo, Factura, Año", "Tipo, '', '', FechaHora",
          "s.idSucursal = d.idSucursal AND s.FechaHora = d.FechaHora AND s.Tipo = d.Tipo"},
};

std::string ColumnasDe(const Comun& comun) {
  std::string columnas;
  for (std::string_view quedan = comun.Columnas; !quedan.empty();) {
    const std::size_t coma = std::min(quedan.find(", "), quedan.size());
    columnas +=
        (columnas.empty() ? "" : ", ") + sql::ComoQueda(comun.Tabla, quedan.substr(0, coma), "");
    quedan.remove_prefix(std::min(coma + 2, quedan.size()));
  }
  return columnas;
}

/// The rows of a working table that its stored one hasn't.
std::string Distintas(const Comun& comun) {
  const std::string columnas = ColumnasDe(comun);
  return Juntar({"SELECT '", comun.Tabla, "', ", comun.Clave,
                 ", CASE WHEN EXISTS (SELECT 1 FROM almacen.", comun.Tabla, " s WHERE ",
                 comun.Misma, ") THEN 'se cambió' ELSE 'se añadió' END FROM (SELECT ", columnas,
                 " FROM main.Temp", comun.Tabla, " EXCEPT SELECT ", columnas, " FROM almacen.",
                 comun.Tabla, ") d"});
}

/// The stored invoices of the range that the working copy hasn't any more, or their due dates.
std::string Borradas(const Rango& rango) {
  return Juntar(
      {"SELECT DISTINCT 'ProvVencimientos', t.NConcepto, t.NFactura, t.Año, t.FechaVto, 'se borró' "
       "FROM "
       "almacen.ProvVencimientos v CROSS JOIN almacen.ProvFacturas f ON f.NConcepto = v.NConcepto "
       "AND "
       "f.Factura = v.NFactura CROSS JOIN almacen.ProvVencimientos t ON t.NConcepto = f.NConcepto "
       "AND "
       "t.NFactura = f.Factura WHERE v.FechaVto >= ",
       Texto(rango.Desde), " AND v.FechaVto <= ", Texto(rango.Hasta),
       " AND EXISTS (SELECT 1 FROM almacen.ProvConceptos c WHERE c.NConcepto = t.NConcepto) AND "
       "NOT "
       "EXISTS (SELECT 1 FROM main.TempProvVencimientos w WHERE w.NConcepto = t.NConcepto AND "
       "w.NFactura = t.NFactura AND w.Año = t.Año AND w.FechaVto = t.FechaVto) UNION ALL SELECT "
       "'ProvPrevisionPagos', p.NConcepto, '', '', p.Fecha1Vto, 'se borró' FROM "
       "almacen.ProvPrevisionPagos p WHERE p.Fecha1Vto <= ",
       Texto(rango.Hasta),
       " AND EXISTS (SELECT 1 FROM almacen.ProvConceptos c WHERE c.NConcepto = p.NConcepto) AND "
       "NOT "
       "EXISTS (SELECT 1 FROM main.TempProvPrevisionPagos w WHERE w.NConcepto = p.NConcepto)"});
}

constexpr std::string_view kTabla = "SorvexCopia";

/// As a screen leaves them when it closes.
bool Vacias(sqlite::Conexion& deTrabajo) {
  return std::ranges::none_of(sql::kTablas, [&](std::string_view tabla) {
    return deTrabajo.Consultar(Juntar({"SELECT 1 FROM Temp", tabla, " LIMIT 1"})).Filas.Cuantas() >
           0;
  });
}

}  // namespace

void AnotarCopia(sqlite::Conexion& deTrabajo, const CopiaAbierta& copia) {
  deTrabajo.Ejecutar(Juntar(
      {"CREATE TABLE IF NOT EXISTS ", kTabla, " (Desde, Hasta, Usuario, Momento); DELETE FROM ",
       kTabla, "; INSERT INTO ", kTabla, " VALUES (", Texto(copia.Rango.Desde), ", ",
       Texto(copia.Rango.Hasta), ", ", Texto(copia.Usuario), ", ", Texto(copia.Momento), ")"}));
}

std::optional<Rescate> BuscarRescate(sqlite::Conexion& deTrabajo, const std::string& almacenados) {
  if (!deTrabajo.TieneTabla(kTabla) || Vacias(deTrabajo)) return std::nullopt;
  const auto anotada = deTrabajo.Consultar(Juntar({"SELECT * FROM ", kTabla})).Filas;
  if (anotada.Cuantas() == 0) return std::nullopt;
  const auto texto = [&](std::size_t columna) { return anotada.En(0, columna).Texto(); };
  Rescate rescate{{{texto(0), texto(1)}, texto(2), texto(3)}, {}};
  const sql::Adjunta adjunta(deTrabajo, almacenados, "almacen");
  std::string consulta;
  for (const Comun& comun : kComunes) consulta += Distintas(comun) + " UNION ALL ";
  consulta += Borradas(rescate.Copia.Rango);
  rescate.Filas = sql::LeerFilas(deTrabajo, consulta);
  if (rescate.Filas.empty()) return std::nullopt;
  return rescate;
}

void Descartar(sqlite::Conexion& deTrabajo) {
  std::string todo;
  for (const std::string_view tabla : sql::kTablas) {
    todo += Juntar({"DELETE FROM Temp", tabla, ";"});
  }
  deTrabajo.Ejecutar(Juntar({"BEGIN;", todo, "DELETE FROM ", kTabla, "; COMMIT"}));
}

}  // namespace salvaguarda
