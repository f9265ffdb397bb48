#include "largo/modelo.h"

#include <algorithm>
#include <array>

#include "esquema/esquema_sqlite.h"
#include "guion/salida.h"
#include "salvaguarda/sql.h"

namespace largo {
namespace {

constexpr std::array kAlmacenadas{"ProvFacturas", "ProvBasesIva", "ProvVencimientos",
                                  "ProvPrevisionPagos", "CajaPagos"};

std::string Literal(const services::Valor& valor) {
  if (valor.EsNulo()) return "NULL";
  if (valor.EsTexto() || valor.Si<services::FechaHora>())
    return salvaguarda::sql::Texto(guion::TextoPlano(valor));
  return guion::TextoPlano(valor);
}

/// The rows of a table, written into the table of the same name of another connection.
void CopiarTabla(sqlite::Conexion& desde, sqlite::Conexion& hasta, const std::string& tabla) {
  const sqlite::Resultado todo = desde.Consultar("SELECT * FROM " + tabla);
  std::string sql;
  for (std::size_t f = 0; f < todo.Filas.Cuantas(); ++f) {
    sql += f == 0 ? "INSERT INTO " + tabla + " VALUES (" : ",(";
    for (std::size_t c = 0; c < todo.Columnas.size(); ++c) {
      sql += (c == 0 ? "" : ",") + Literal(todo.Filas.En(f, c));
    }
    sql += ")";
  }
  if (!sql.empty()) hasta.Ejecutar(sql);
}

std::string DelRango(const salvaguarda::Rango& rango, const std::string& alias) {
  return alias + ".FechaVto >= '" + rango.Desde + "' AND " + alias + ".FechaVto <= '" +
         rango.Hasta + "'";
}

/// Working rows into a stored table; those refused are left out.
std::string Escribir(const std::string& tabla, const std::string& columnas) {
  return "INSERT OR IGNORE INTO " + tabla + " (" + columnas + ") SELECT " + columnas +
         " FROM Temp" + tabla + ";";
}

std::string Borrar(const std::string& tabla, const std::string& numero) {
  return "DELETE FROM " + tabla + " WHERE EXISTS (SELECT 1 FROM Borradas b WHERE b.C = " + tabla +
         ".NConcepto AND b.A = " + tabla + ".Año AND b.F = trim(" + tabla + "." + numero +
         ") COLLATE ES);";
}

}  // namespace

Tablas TrasGrabar(const std::string& almacenados, sqlite::Conexion& local,
                  const salvaguarda::Rango& rango) {
  const auto modelo = sqlite::AbrirConexion(":memory:", {.UnidadDeTrabajo = false, .Crear = true});
  esquema::CrearAlmacenadas(*modelo);
  esquema::CrearDeTrabajo(*modelo);
  const auto grabado = sqlite::AbrirConexion(almacenados);
  for (const std::string tabla : kAlmacenadas) {
    CopiarTabla(*grabado, *modelo, tabla);
    CopiarTabla(local, *modelo, "Temp" + tabla);
  }
  modelo->Ejecutar(
      "CREATE TABLE Borradas (C TEXT COLLATE ES, F TEXT COLLATE ES, A TEXT COLLATE ES);"
      "INSERT INTO Borradas SELECT DISTINCT f.NConcepto, trim(f.Factura), f.Año FROM ProvFacturas "
      "f JOIN ProvVencimientos v ON v.NConcepto = f.NConcepto AND v.NFactura = f.Factura WHERE " +
      DelRango(rango, "v") + ";" + Borrar("ProvBasesIva", "NFactura") +
      Borrar("ProvVencimientos", "NFactura") + Borrar("ProvFacturas", "Factura") +
      Escribir("ProvFacturas",
               "NConcepto, Factura, Año, Fecha, Total, forpago, NRecibos, Dias1Vto, BIRPF, "
               "TipoIRPF, IRPF, Cadencia") +
      Escribir("ProvBasesIva", "NConcepto, NFactura, Año, Tipo, Base, Importe, Exento") +
      Escribir("ProvVencimientos",
               "NConcepto, NFactura, Año, FechaVto, Importe, Pagado, Fechapago") +
      "DELETE FROM ProvPrevisionPagos WHERE Fecha1Vto <= '" + rango.Hasta + "';" +
      Escribir("ProvPrevisionPagos", "NConcepto, Fecha1Vto, Cada, Tipo, Importe") +
      "UPDATE CajaPagos AS c SET Factura = ifnull(t.Factura, ''), Año = ifnull(t.Año, '') FROM "
      "TempCajaPagos t WHERE t.idSucursal = c.idSucursal AND t.FechaHora = c.FechaHora AND t.Tipo "
      "= c.Tipo;");
  return LeerAlmacenadas(*modelo);
}

namespace {

struct Carga {
  const char* Tabla;
  std::string DeTrabajo;
  std::string Debe;
};

std::vector<Carga> Cargas(const salvaguarda::Rango& rango) {
  const std::string factura =
      " EXISTS (SELECT 1 FROM ProvVencimientos v WHERE v.NConcepto = t.NConcepto AND v.NFactura = ";
  const auto en = [&](const char* numero) {
    return factura + "t." + numero + " AND " + DelRango(rango, "v") + ")";
  };
  const std::string concepto =
      " EXISTS (SELECT 1 FROM ProvConceptos c WHERE c.NConcepto = t.NConcepto)";
  const auto retencion = [](const std::string& columna) {
    return ", CASE WHEN " + columna + " IS NULL OR " + columna + " = 1 THEN 0 ELSE " + columna +
           " END";
  };
  const std::string columnas =
      "t.NConcepto, t.Factura, t.Año, t.Fecha, t.Total, t.forpago, "
      "t.NRecibos, t.Dias1Vto, t.Cadencia";
  const std::string debeSer =
      columnas + retencion("t.BIRPF") + retencion("t.TipoIRPF") + retencion("t.IRPF");
  const std::string bases = "t.NConcepto, t.NFactura, t.Año, t.Tipo, t.Base, t.Importe, t.Exento";
  const std::string recibos =
      "t.NConcepto, t.NFactura, t.Año, t.FechaVto, t.Importe, t.Pagado, t.Fechapago, ";
  const std::string previsiones = "t.NConcepto, t.Fecha1Vto, t.Cada, t.Tipo, t.Importe";
  return {
      {"TempProvFacturas",
       "SELECT " + columnas + ", t.BIRPF, t.TipoIRPF, t.IRPF FROM TempProvFacturas t",
       "SELECT " + debeSer + " FROM ProvFacturas t WHERE" + concepto + " AND" + en("Factura")},
      {"TempProvBasesIva", "SELECT " + bases + " FROM TempProvBasesIva t",
       "SELECT " + bases + " FROM ProvBasesIva t WHERE" + en("NFactura")},
      {"TempProvVencimientos",
       "SELECT " + recibos + "CASE WHEN Visible THEN 1 ELSE 0 END FROM TempProvVencimientos t",
       "SELECT " + recibos + "CASE WHEN " + DelRango(rango, "t") +
           " THEN 1 ELSE 0 END FROM ProvVencimientos t WHERE" + concepto + " AND" + en("NFactura") +
           " AND EXISTS (SELECT 1 FROM ProvFacturas f WHERE f.NConcepto = t.NConcepto AND "
           "f.Factura = t.NFactura)"},
      {"TempProvPrevisionPagos", "SELECT " + previsiones + " FROM TempProvPrevisionPagos t",
       "SELECT " + previsiones + " FROM ProvPrevisionPagos t WHERE" + concepto +
           " AND t.Fecha1Vto <= '" + rango.Hasta + "'"},
  };
}

}  // namespace

std::string DiferenciaDeCarga(sqlite::Conexion& almacenados, sqlite::Conexion& local,
                              const salvaguarda::Rango& rango) {
  std::string todo;
  for (const Carga& carga : Cargas(rango)) {
    const std::string suya =
        Diferencia(Consultar(almacenados, carga.Debe), Consultar(local, carga.DeTrabajo));
    if (!suya.empty()) todo += std::string(carga.Tabla) + suya;
  }
  return todo;
}

std::vector<Fila> Huerfanas(sqlite::Conexion& almacenados) {
  return Consultar(
      almacenados,
      "SELECT 'base', NConcepto, trim(NFactura), Año, Tipo FROM ProvBasesIva t WHERE NOT EXISTS "
      "(SELECT 1 FROM ProvFacturas f WHERE f.NConcepto = t.NConcepto AND f.Año = t.Año AND "
      "trim(f.Factura) = trim(t.NFactura) COLLATE ES) UNION ALL SELECT 'recibo', NConcepto, "
      "trim(NFactura), Año, FechaVto FROM ProvVencimientos t WHERE NOT EXISTS (SELECT 1 FROM "
      "ProvFacturas f WHERE f.NConcepto = t.NConcepto AND f.Año = t.Año AND trim(f.Factura) = "
      "trim(t.NFactura) COLLATE ES) UNION ALL SELECT 'apunte', CAST(Tipo AS TEXT), trim(Factura), "
      "Año, FechaHora FROM CajaPagos t WHERE Factura <> '' AND NOT EXISTS (SELECT 1 FROM "
      "ProvFacturas f WHERE f.NConcepto = CAST(t.Tipo AS TEXT) AND f.Año = t.Año AND "
      "trim(f.Factura) = trim(t.Factura) COLLATE ES) ORDER BY 1, 2, 3, 4, 5");
}

std::vector<Fila> Descuadradas(sqlite::Conexion& almacenados) {
  std::vector<Fila> filas = Consultar(
      almacenados,
      "SELECT NConcepto, trim(Factura), Año FROM ProvFacturas f WHERE abs(ifnull(Total, 0) - "
      "(SELECT ifnull(sum(Importe), 0) FROM ProvVencimientos v WHERE v.NConcepto = f.NConcepto AND "
      "v.Año = f.Año AND trim(v.NFactura) = trim(f.Factura) COLLATE ES)) > 0.0101");
  std::ranges::sort(filas);
  return filas;
}

}  // namespace largo
