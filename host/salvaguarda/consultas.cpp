#include "salvaguarda/consultas.h"

#include "salvaguarda/sql.h"

namespace salvaguarda::sql {
namespace {

/// A column of a row as any load and commit leave it.
std::string ComoQueda(const Tabla& tabla, std::string_view columna, std::string_view alias) {
  std::string valor = Columna(alias, columna);
  if (columna == "BIRPF" || columna == "TipoIRPF" || columna == "IRPF") {
    return "CASE WHEN ifnull(" + valor + ", 1) = 1 THEN 0 ELSE " + valor + " END";
  }
  if (columna == "FechaHora") return "MOMENTO(" + valor + ")";
  if (tabla.Que != Tabla::Cosa::Apunte) return valor;
  const bool enlace = columna == tabla.Numero || columna == tabla.Anio;
  return enlace ? "ifnull(" + valor + ", '')" : valor;
}

/// The rows of a table, as `t`, whose number has a receipt due in the range. Where they have
/// numbers of their own each is found once, by it.
std::string ConVencimientoEn(sqlite::Conexion& base, const Rango& rango, const Tabla& tabla) {
  const std::string filas = Juntar({" CROSS JOIN main.", tabla.Nombre, " t ON "});
  std::string halladas =
      Juntar({" FROM main.ProvVencimientos v", filas, "t.NConcepto = v.NConcepto AND t.",
              tabla.Numero, " = v.NFactura WHERE v.FechaVto >= ", Texto(rango.Desde),
              " AND v.FechaVto <= ", Texto(rango.Hasta)});
  if (!base.NumeraFilas(tabla.Nombre)) return halladas;
  return Juntar({" FROM \"numeros de filas en orden\"((SELECT numerar(t.rowid)", halladas, ")) n",
                 filas, "t.rowid = n.numero"});
}

}  // namespace

// Without types: the indexes by the trimmed number have none, and serve no text column.
std::string CrearClaves(std::string_view esquema, std::string_view tabla) {
  return Juntar({"CREATE TABLE ", esquema, ".", tabla,
                 " (NConcepto COLLATE ES, Factura COLLATE ES, Año COLLATE ES, "
                 "PRIMARY KEY (NConcepto, Factura, Año)) WITHOUT ROWID;"});
}

std::string ClavesDelRango(sqlite::Conexion& base, const Rango& rango) {
  return Juntar({"SELECT t.NConcepto, trim(t.Factura), t.Año",
                 ConVencimientoEn(base, rango, *BuscarTabla("ProvFacturas"))});
}

std::string ClavesQueVienen(sqlite::Conexion& base, const Rango& rango) {
  return Juntar(
      {"SELECT t.NConcepto, trim(t.NFactura), t.Año",
       ConVencimientoEn(base, rango, *BuscarTabla("ProvBasesIva")),
       " UNION ALL SELECT s.NConcepto, trim(s.NFactura), s.Año FROM (SELECT t.NConcepto, t.Factura",
       ConVencimientoEn(base, rango, *BuscarTabla("ProvFacturas")),
       ") f CROSS JOIN main.ProvVencimientos s ON s.NConcepto = f.NConcepto AND s.NFactura = "
       "f.Factura"});
}

std::string EstaEn(std::string_view claves, const Tabla& tabla, std::string_view alias) {
  const auto columna = [&](std::string_view nombre) { return Juntar({alias, ".", nombre}); };
  return Juntar({"EXISTS (SELECT 1 FROM ", claves, " k WHERE ",
                 Igual("k.NConcepto", columna("NConcepto")), " AND ",
                 Igual("k.Factura", Numero(tabla, alias)), " AND ", Igual("k.Año", columna("Año")),
                 ")"});
}

std::string FilasDe(const Tabla& tabla, std::string_view claves, std::string_view columnas) {
  return Juntar({"SELECT ", columnas, " FROM ", claves, " k CROSS JOIN main.", tabla.Nombre,
                 " t ON ", Igual(Numero(tabla, "t"), "k.Factura"), " AND ",
                 Igual("t.NConcepto", "k.NConcepto"), " AND ", Igual("t.Año", "k.Año")});
}

std::string PrevisionesCon(std::string_view claves, std::string_view columnas) {
  return Juntar({"SELECT ", columnas, " FROM ", claves,
                 " k CROSS JOIN main.ProvPrevisionPagos t ON ",
                 Igual("t.NConcepto", "k.NConcepto")});
}

std::string ApuntesCon(std::string_view claves, std::string_view columnas) {
  return Juntar({"SELECT ", columnas, " FROM ", claves, " k CROSS JOIN main.CajaPagos t ON ",
                 MismaFila(Apuntes(), "t", "k")});
}

std::string ClavesDeApuntes(std::string_view tabla) {
  return Juntar({"SELECT idSucursal, MOMENTO(FechaHora), Tipo FROM ", tabla});
}

std::string BorraPrevision(const Rango& rango, std::string_view alias) {
  return Juntar({alias, ".Fecha1Vto <= ", Texto(rango.Hasta)});
}

std::string PrevisionesDe(const Rango& rango) {
  return Juntar({"SELECT p.* FROM main.ProvPrevisionPagos p WHERE ", BorraPrevision(rango, "p"),
                 " ORDER BY p.NConcepto"});
}

std::string Numero(const Tabla& tabla, std::string_view alias) {
  return Juntar({"trim(", alias, ".", tabla.Numero, ")"});
}

std::vector<std::string> Clave(const Tabla& tabla, std::string_view alias) {
  std::vector<std::string> valores;
  for (const std::string_view columna : tabla.Clave()) {
    std::string valor = Juntar({alias, ".", columna});
    if (columna == tabla.Numero) valor = Numero(tabla, alias);
    if (columna == "FechaHora") valor = "MOMENTO(" + valor + ")";
    valores.push_back(tabla.EsDeTexto(columna) ? valor + " COLLATE ES" : valor);
  }
  return valores;
}

// The stored tables and the working ones have an index by these; any other has to be looked through
// for each row.
std::string MismaFila(const Tabla& tabla, std::string_view a, std::string_view b) {
  const std::vector<std::string> suya = Clave(tabla, a);
  const std::vector<std::string> laOtra = Clave(tabla, b);
  std::vector<std::string> condiciones;
  for (std::size_t i = 0; i < suya.size(); ++i) condiciones.push_back(suya[i] + " = " + laOtra[i]);
  return Separar(condiciones, " AND ");
}

std::string Valores(const Tabla& tabla, const std::vector<std::string>& columnas,
                    std::string_view alias) {
  std::vector<std::string> valores;
  valores.reserve(columnas.size());
  for (const std::string& columna : columnas) valores.push_back(ComoQueda(tabla, columna, alias));
  return Separar(valores, ", ");
}

std::string ValoresConNombre(const Tabla& tabla, const std::vector<std::string>& columnas,
                             std::string_view alias) {
  std::vector<std::string> valores;
  valores.reserve(columnas.size());
  for (const std::string& columna : columnas) {
    valores.push_back(ComoQueda(tabla, columna, alias) + " AS " + Columna("", columna));
  }
  return Separar(valores, ", ");
}

std::vector<std::string> Contenido(sqlite::Conexion& base, const Tabla& tabla) {
  std::vector<std::string> columnas;
  for (const services::Columna& columna : base.ColumnasDe(tabla.Nombre)) {
    if (tabla.EsContenido(columna.Nombre)) columnas.push_back(columna.Nombre);
  }
  return columnas;
}

std::string ColumnasDeFila(const Tabla& tabla, std::string_view alias) {
  const auto texto = [&](std::string_view columna) {
    return columna.empty() ? "''" : Juntar({"ifnull(", alias, ".", columna, ", '')"});
  };
  return Juntar({"'", tabla.Nombre, "', ", texto(tabla.Concepto), ", trim(", texto(tabla.Numero),
                 "), ", texto(tabla.Anio), ", ", texto(tabla.Detalle)});
}

std::string ColumnasDeFila(const Tabla& tabla, std::string_view alias, std::string_view motivo) {
  return Juntar({ColumnasDeFila(tabla, alias), ", ", motivo});
}

Fila LeerFila(const services::Filas& leidas, std::size_t fila) {
  const auto texto = [&](std::size_t columna) { return leidas.En(fila, columna).Texto(); };
  return {texto(0), texto(1), texto(2), texto(3), texto(4), texto(5)};
}

std::vector<Fila> TodasLasFilas(sqlite::Conexion& base, const Tabla& tabla,
                                std::string_view antes) {
  return LeerFilas(base, Juntar({"SELECT ", ColumnasDeFila(tabla, "t", "''"), " FROM ", antes,
                                 tabla.Nombre, " t"}));
}

std::vector<Fila> LeerFilas(sqlite::Conexion& base, std::string_view consulta) {
  const services::Filas leidas = base.Consultar(consulta).Filas;
  std::vector<Fila> filas;
  for (std::size_t f = 0; f < leidas.Cuantas(); ++f) filas.push_back(LeerFila(leidas, f));
  return filas;
}

}  // namespace salvaguarda::sql
