#include "salvaguarda/cambios.h"

#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "salvaguarda/consultas.h"
#include "salvaguarda/sql.h"

namespace salvaguarda {
namespace {

using sql::Igual;
using sql::Juntar;

/// Whether the copy and the picture have the same rows in the same order, as they do when nothing
/// has changed: a look at each, which is soon done.
bool DicenLoMismo(sqlite::Conexion& base, const Tabla& tabla) {
  const std::vector<std::string> columnas = sql::Contenido(base, tabla);
  const auto hay = base.Consultar(Juntar(
      {"SELECT (SELECT count(*) FROM copia.", tabla.Nombre, ") = (SELECT count(*) FROM foto.",
       tabla.Nombre, ") AND NOT EXISTS (SELECT 1 FROM copia.", tabla.Nombre, " a LEFT JOIN foto.",
       tabla.Nombre, " b ON b.rowid = a.rowid WHERE (", sql::Valores(tabla, columnas, "a"),
       ") IS NOT (", sql::Valores(tabla, columnas, "b"), "))"}));
  return hay.Filas.En(0, 0).Numero() != 0;
}

/// The rows that only one of both has, the key of each in an order in which its case doesn't count.
constexpr const char* kDistintas =
    "DROP TABLE IF EXISTS temp.Distintas; CREATE TEMP TABLE Distintas (Tabla, NConcepto COLLATE "
    "ES, Factura COLLATE ES, Año COLLATE ES, Detalle, EnLaCopia, Importe, Pagado, ModificadoPor, "
    "Actualizado); CREATE INDEX temp.DistintasPorClave ON Distintas (NConcepto, Factura, Año);";

/// The rows of a table of one of both, as they are compared.
std::string Comparables(sqlite::Conexion& base, const Tabla& tabla, std::string_view de) {
  return Juntar({"SELECT ", sql::ValoresConNombre(tabla, sql::Contenido(base, tabla), "t"),
                 " FROM ", de, ".", tabla.Nombre, " t"});
}

/// Puts there those of a table that `una` has and `otra` hasn't. Each is found again by its key as
/// it is compared, of which the engine then makes an index.
std::string Anadir(sqlite::Conexion& base, const Tabla& tabla, std::string_view una,
                   std::string_view otra) {
  std::vector<std::string> claves;
  std::vector<std::string> misma;
  for (const std::string_view clave : tabla.Clave()) {
    const std::string suya = "Clave" + std::to_string(claves.size());
    claves.push_back(sql::Valores(tabla, {std::string(clave)}, "u") + " AS " + suya);
    misma.push_back(Juntar({"t.", suya, " = d.", clave}));
  }
  const bool pagado = tabla.Que == Tabla::Cosa::Vencimiento;
  return Juntar({"INSERT INTO temp.Distintas WITH t AS MATERIALIZED (SELECT u.*, ",
                 sql::Separar(claves, ", "),
                 " FROM ",
                 una,
                 ".",
                 tabla.Nombre,
                 " u) SELECT ",
                 sql::ComoFila(tabla, "t"),
                 ", ",
                 una == "copia" ? "1" : "0",
                 ", t.",
                 tabla.Importe,
                 pagado ? ", t.Pagado" : ", NULL",
                 ", t.ModificadoPor, t.Actualizado FROM (",
                 Comparables(base, tabla, una),
                 " EXCEPT ",
                 Comparables(base, tabla, otra),
                 ") d JOIN t ON ",
                 sql::Separar(misma, " AND "),
                 ";"});
}

/// A value of the row of one key on both sides; Null where it is missing.
std::string EnLosDos(std::string_view columna) {
  return Juntar({"max(CASE WHEN EnLaCopia = 0 THEN ", columna,
                 " END), max(CASE WHEN EnLaCopia = 1 THEN ", columna, " END)"});
}

constexpr std::string_view kDeFactura = "('ProvFacturas', 'ProvBasesIva', 'ProvVencimientos')";

/// Who wrote the last of the rows of the invoice `d` that really differ.
std::string Quien() {
  return Juntar(
      {"(SELECT q.ModificadoPor FROM temp.Distintas q WHERE q.NConcepto = d.NConcepto AND "
       "q.Factura = d.Factura AND q.Año = d.Año AND q.Tabla IN ",
       kDeFactura, " AND q.EnLaCopia = 1 ORDER BY q.Actualizado DESC LIMIT 1)"});
}

std::string MismaFactura(std::string_view a, std::string_view b) {
  return Juntar({Igual(Juntar({a, ".NConcepto"}), Juntar({b, ".NConcepto"})), " AND ",
                 Igual(Juntar({a, ".Factura"}), Juntar({b, ".Factura"})), " AND ",
                 Igual(Juntar({a, ".Año"}), Juntar({b, ".Año"}))});
}

std::string EstaEn(std::string_view claves) {
  return Juntar({"EXISTS (SELECT 1 FROM ", claves, " w WHERE ", MismaFactura("w", "d"), ")"});
}

/// The rows of a table of the copy or the picture, their numbers without blanks.
std::string Recortadas(std::string_view de, const Tabla& tabla, std::string_view columnas) {
  return Juntar({"SELECT NConcepto, ", sql::Numero(tabla, "t"), " AS Factura, Año", columnas,
                 " FROM ", de, ".", tabla.Nombre, " t"});
}

/// The tables that the changed invoices, `d`, are looked up in.
std::string Delante() {
  const auto tablas = TablasDeFactura();
  constexpr std::string_view kDatos = ", Total, ModificadoPor";
  const auto algo = [&](std::string_view de) {
    std::vector<std::string> suyas;
    for (const Tabla& tabla : tablas) suyas.push_back(Recortadas(de, tabla, ""));
    return sql::Separar(suyas, " UNION ");
  };
  return Juntar(
      {"WITH d AS MATERIALIZED (SELECT NConcepto, Factura, Año FROM temp.Distintas WHERE "
       "Tabla IN ",
       kDeFactura,
       " GROUP BY NConcepto, Factura, Año), "
       "antes AS MATERIALIZED (",
       Recortadas("foto", tablas[0], kDatos), "), ahora AS MATERIALIZED (",
       Recortadas("copia", tablas[0], kDatos), "), estaba AS MATERIALIZED (", algo("foto"),
       "), queda AS MATERIALIZED (", algo("copia"), ") "});
}

/// That the invoice is on a side; of one that is on neither, that it has other rows there.
std::string Hay(std::string_view suya, std::string_view otra, std::string_view algo) {
  return Juntar(
      {"(", suya, ".NConcepto IS NOT NULL OR (", otra, ".NConcepto IS NULL AND ", algo, "))"});
}

/// The changed invoices, one for all of their tables, of which this commit has something or
/// something is left.
std::string Facturas() {
  const std::string enLaLista = EstaEn("temp.DeTrabajo");
  const std::string quien = Juntar({"ifnull(", Quien(), ", ahora.ModificadoPor)"});
  const std::string queda = EstaEn("queda");
  return Delante() +
         Juntar({"SELECT 'ProvFacturas', d.NConcepto, d.Factura, d.Año, '', ",
                 Hay("antes", "ahora", EstaEn("estaba")), ", ", Hay("ahora", "antes", queda),
                 ", antes.Total, ahora.Total, ", quien, ", ", enLaLista, ", ",
                 EstaEn("temp.DelRango"), " FROM d LEFT JOIN antes ON ", MismaFactura("antes", "d"),
                 " LEFT JOIN ahora ON ", MismaFactura("ahora", "d"), " WHERE ", enLaLista, " OR ",
                 queda, " GROUP BY d.NConcepto, d.Factura, d.Año"});
}

/// The changed due dates, one for each key, in the order in which they are due.
std::string Vencimientos() {
  return Juntar(
      {"SELECT Tabla, NConcepto, Factura, Año, Detalle, min(EnLaCopia) = 0, "
       "max(EnLaCopia) = 1, ",
       EnLosDos("Importe"), ", ", EnLosDos("Pagado"),
       " FROM temp.Distintas WHERE Tabla = 'ProvVencimientos' GROUP BY NConcepto, "
       "Factura, Año, Detalle ORDER BY Detalle"});
}

/// The changed forecasts, of which a concept has one, unless they are gone on both sides.
std::string PrevisionesCambiadas() {
  constexpr std::string_view kEnLaLista =
      "EXISTS (SELECT 1 FROM temp.PrevisionDeTrabajo w WHERE w.NConcepto = d.NConcepto)";
  return Juntar({"SELECT Tabla, NConcepto, '', '', '', min(EnLaCopia) = 0, max(EnLaCopia) = 1, ",
                 EnLosDos("Importe"), ", max(CASE WHEN EnLaCopia = 1 THEN ModificadoPor END), ",
                 kEnLaLista,
                 ", 1 FROM temp.Distintas d WHERE Tabla = 'ProvPrevisionPagos' GROUP BY NConcepto "
                 "HAVING max(EnLaCopia) = 1 OR ",
                 kEnLaLista});
}

/// The cash entries with another invoice. One that is gone can't be linked any more, and nothing of
/// it is lost.
constexpr std::string_view kApuntes =
    "SELECT Tabla, NConcepto, Factura, Año, Detalle, 1, 1, Importe, Importe, ModificadoPor, 1, 1 "
    "FROM temp.Distintas WHERE Tabla = 'CajaPagos' AND EnLaCopia = 1 ORDER BY Detalle";

/// A row of what those find.
class Leida {
 public:
  Leida(const services::Filas& filas, std::size_t fila) : filas_(filas), fila_(fila) {}

  [[nodiscard]] std::string Texto(std::size_t columna) const {
    return filas_.En(fila_, columna).Texto();
  }
  [[nodiscard]] bool Si(std::size_t columna) const { return Texto(columna) == "1"; }
  [[nodiscard]] AntesYAhora Ambos(std::size_t columna) const {
    return {filas_.En(fila_, columna), filas_.En(fila_, columna + 1)};
  }
  [[nodiscard]] Fila ComoFila() const { return {Texto(0), Texto(1), Texto(2), Texto(3), Texto(4)}; }

 private:
  const services::Filas& filas_;
  std::size_t fila_;
};

using PorFactura = std::map<Fila, std::vector<CambioDeVencimiento>, PorSuClave>;

PorFactura LeerVencimientos(sqlite::Conexion& base) {
  PorFactura porFactura;
  const services::Filas filas = base.Consultar(Vencimientos()).Filas;
  for (std::size_t i = 0; i < filas.Cuantas(); ++i) {
    const Leida leida(filas, i);
    const Fila factura{"ProvFacturas", leida.Texto(1), leida.Texto(2), leida.Texto(3)};
    porFactura[factura].push_back(
        {leida.ComoFila(), leida.Si(5), leida.Si(6), leida.Ambos(7), leida.Ambos(9)});
  }
  return porFactura;
}

void Leer(sqlite::Conexion& base, std::string_view consulta, std::vector<Cambio>& cambios) {
  const services::Filas filas = base.Consultar(consulta).Filas;
  for (std::size_t i = 0; i < filas.Cuantas(); ++i) {
    const Leida leida(filas, i);
    cambios.push_back({leida.ComoFila(), leida.Si(5), leida.Si(6), leida.Ambos(7), leida.Texto(9),
                       leida.Si(10), leida.Si(11)});
  }
}

}  // namespace

std::vector<Cambio> LeerCambios(sqlite::Conexion& base) {
  const auto iguales = [&](const Tabla& tabla) { return DicenLoMismo(base, tabla); };
  if (std::ranges::all_of(Tablas(), iguales)) return {};
  std::string todo = kDistintas;
  for (const Tabla& tabla : Tablas()) {
    todo += Anadir(base, tabla, "foto", "copia") + Anadir(base, tabla, "copia", "foto");
  }
  base.Ejecutar(todo);
  std::vector<Cambio> cambios;
  Leer(base, Facturas(), cambios);
  PorFactura vencimientos = LeerVencimientos(base);
  for (Cambio& cambio : cambios) {
    const auto suyos = vencimientos.find(cambio.Fila);
    if (suyos != vencimientos.end()) cambio.Vencimientos = std::move(suyos->second);
  }
  Leer(base, PrevisionesCambiadas(), cambios);
  Leer(base, kApuntes, cambios);
  return cambios;
}

}  // namespace salvaguarda
