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

/// The rows of a working table that its stored one hasn't, nor the picture.
std::string Distintas(const Comun& comun, bool conFoto) {
  const std::string columnas = ColumnasDe(comun);
  const std::string menos = Juntar({" EXCEPT SELECT ", columnas, " FROM "});
  return Juntar({"SELECT '", comun.Tabla, "', ", comun.Clave,
                 ", CASE WHEN EXISTS (SELECT 1 FROM almacen.", comun.Tabla, " s WHERE ",
                 comun.Misma, ") THEN 'se cambió' ELSE 'se añadió' END FROM (SELECT ", columnas,
                 " FROM main.Temp", comun.Tabla, menos, "almacen.", comun.Tabla,
                 conFoto ? Juntar({menos, "foto.", comun.Tabla}) : "", ") d"});
}

/// That a stored row `t` was there at the load.
std::string Estaba(std::string_view tabla, std::string_view misma, bool conFoto) {
  if (!conFoto) return "";
  return Juntar({" AND EXISTS (SELECT 1 FROM foto.", tabla, " w WHERE ", misma, ")"});
}

/// The stored due dates of the range and the forecasts that the working copy hasn't any more.
std::string Borradas(const Rango& rango, bool conFoto) {
  constexpr std::string_view kMismo =
      "w.NConcepto = t.NConcepto AND w.NFactura = t.NFactura AND w.Año = t.Año AND w.FechaVto = "
      "t.FechaVto";
  constexpr std::string_view kMisma = "w.NConcepto = t.NConcepto";
  constexpr std::string_view kConConcepto =
      " AND EXISTS (SELECT 1 FROM almacen.ProvConceptos c WHERE c.NConcepto = t.NConcepto) AND NOT "
      "EXISTS (SELECT 1 FROM main.Temp";
  return Juntar(
      {"SELECT DISTINCT 'ProvVencimientos', t.NConcepto, t.NFactura, t.Año, t.FechaVto, 'se borró' "
       "FROM almacen.ProvVencimientos v CROSS JOIN almacen.ProvFacturas f ON f.NConcepto = "
       "v.NConcepto AND f.Factura = v.NFactura CROSS JOIN almacen.ProvVencimientos t ON "
       "t.NConcepto = f.NConcepto AND t.NFactura = f.Factura WHERE v.FechaVto >= ",
       Texto(rango.Desde), " AND v.FechaVto <= ", Texto(rango.Hasta), kConConcepto,
       "ProvVencimientos w WHERE ", kMismo, ")", Estaba("ProvVencimientos", kMismo, conFoto),
       " UNION ALL SELECT 'ProvPrevisionPagos', t.NConcepto, '', '', t.Fecha1Vto, 'se borró' FROM "
       "almacen.ProvPrevisionPagos t WHERE t.Fecha1Vto <= ",
       Texto(rango.Hasta), kConConcepto, "ProvPrevisionPagos w WHERE ", kMisma, ")",
       Estaba("ProvPrevisionPagos", kMisma, conFoto)});
}

constexpr std::string_view kTabla = "SorvexCopia";

/// As a screen leaves them when it closes.
bool Vacias(sqlite::Conexion& deTrabajo) {
  return std::ranges::none_of(sql::kTablas, [&](std::string_view tabla) {
    return deTrabajo.Consultar(Juntar({"SELECT 1 FROM Temp", tabla, " LIMIT 1"})).Filas.Cuantas() >
           0;
  });
}

std::optional<CopiaAbierta> LeerCopia(sqlite::Conexion& deTrabajo) {
  const auto anotada =
      deTrabajo
          .Consultar(Juntar(
              {"SELECT Desde, Hasta, Usuario, Momento, Foto, Almacenados, Completa FROM ", kTabla}))
          .Filas;
  if (anotada.Cuantas() == 0) return std::nullopt;
  const auto texto = [&](std::size_t columna) { return anotada.En(0, columna).Texto(); };
  return CopiaAbierta{{texto(0), texto(1)}, texto(2), texto(3), texto(4), texto(5),
                      texto(6) == "1"};
}

std::vector<Fila> Diferencias(sqlite::Conexion& deTrabajo, const Rango& rango, bool conFoto) {
  std::string consulta;
  for (const Comun& comun : kComunes) consulta += Distintas(comun, conFoto) + " UNION ALL ";
  return sql::LeerFilas(deTrabajo, consulta + Borradas(rango, conFoto));
}

}  // namespace

void AnotarCopia(sqlite::Conexion& deTrabajo, const CopiaAbierta& copia) {
  deTrabajo.Ejecutar(
      Juntar({"DROP TABLE IF EXISTS ",
              kTabla,
              "; CREATE TABLE ",
              kTabla,
              " (Desde, Hasta, Usuario, Momento, Foto, Almacenados, Completa); INSERT INTO ",
              kTabla,
              " VALUES (",
              Texto(copia.Rango.Desde),
              ", ",
              Texto(copia.Rango.Hasta),
              ", ",
              Texto(copia.Usuario),
              ", ",
              Texto(copia.Momento),
              ", ",
              Texto(copia.Foto),
              ", ",
              Texto(copia.Almacenados),
              ", ",
              copia.Completa ? "'1'" : "'0'",
              ")"}));
}

void AnotarIncompleta(sqlite::Conexion& deTrabajo) {
  if (deTrabajo.TieneTabla(kTabla)) {
    deTrabajo.Ejecutar(Juntar({"UPDATE ", kTabla, " SET Completa = '0'"}));
  }
}

std::optional<Rescate> BuscarRescate(sqlite::Conexion& deTrabajo, const std::string& almacenados,
                                     const std::string& foto) {
  if (!deTrabajo.TieneTabla(kTabla) || Vacias(deTrabajo)) return std::nullopt;
  const auto copia = LeerCopia(deTrabajo);
  if (!copia) return std::nullopt;
  Rescate rescate{*copia, {}, false, copia->Almacenados != almacenados};
  if (rescate.DeOtraEmpresa) return rescate;
  const sql::Adjunta tablas(deTrabajo, almacenados, "almacen");
  const sql::Adjunta retrato(deTrabajo, foto, "foto");
  rescate.ConFoto = !copia->Foto.empty() && sql::SenaDeFoto(deTrabajo) == copia->Foto;
  rescate.Filas = Diferencias(deTrabajo, copia->Rango, rescate.ConFoto);
  if (rescate.Filas.empty()) return std::nullopt;
  return rescate;
}

}  // namespace salvaguarda
