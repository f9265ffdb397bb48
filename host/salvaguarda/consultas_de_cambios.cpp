#include "salvaguarda/consultas_de_cambios.h"

#include <string_view>
#include <vector>

#include "salvaguarda/consultas.h"
#include "salvaguarda/sql.h"
#include "salvaguarda/tablas.h"

namespace salvaguarda::sql {
namespace {

/// A value of the row of one key on both sides; Null where it is missing.
std::string EnLosDos(std::string_view columna) {
  return Juntar({"max(CASE WHEN EnLaCopia = 0 THEN ", columna,
                 " END), max(CASE WHEN EnLaCopia = 1 THEN ", columna, " END)"});
}

/// That a row of `temp.Distintas` is of an invoice.
std::string EsDeFactura() {
  std::vector<std::string> nombres;
  for (const Tabla& tabla : TablasDeFactura()) nombres.push_back(Texto(tabla.Nombre));
  return Juntar({"Tabla IN (", Separar(nombres, ", "), ")"});
}

/// Who wrote the last of the rows of the invoice `d` that really differ.
std::string Quien() {
  return Juntar(
      {"(SELECT q.ModificadoPor FROM temp.Distintas q WHERE q.NConcepto = d.NConcepto AND "
       "q.Factura = d.Factura AND q.Año = d.Año AND q.",
       EsDeFactura(), " AND q.EnLaCopia = 1 ORDER BY q.Actualizado DESC LIMIT 1)"});
}

std::string MismaFactura(std::string_view a, std::string_view b) {
  return Juntar({Igual(Juntar({a, ".NConcepto"}), Juntar({b, ".NConcepto"})), " AND ",
                 Igual(Juntar({a, ".Factura"}), Juntar({b, ".Factura"})), " AND ",
                 Igual(Juntar({a, ".Año"}), Juntar({b, ".Año"}))});
}

/// That the invoice `d` is among those of a table of keys.
std::string LaFacturaEstaEn(std::string_view claves) {
  return Juntar({"EXISTS (SELECT 1 FROM ", claves, " w WHERE ", MismaFactura("w", "d"), ")"});
}

/// The rows of a table of the copy or the picture, their numbers without blanks.
std::string Recortadas(std::string_view de, const Tabla& tabla, std::string_view columnas) {
  return Juntar({"SELECT NConcepto, ", Numero(tabla, "t"), " AS Factura, Año", columnas, " FROM ",
                 de, ".", tabla.Nombre, " t"});
}

/// Whatever a side has of each invoice.
std::string ConAlgo(std::string_view de) {
  std::vector<std::string> tablas;
  for (const Tabla& tabla : TablasDeFactura()) tablas.push_back(Recortadas(de, tabla, ""));
  return Separar(tablas, " UNION ");
}

/// Whether any row of the invoice `d` was there and isn't, where a commit writes what the working
/// copy has of it and doesn't delete it.
std::string SeRepone(const std::string& delRango, const std::string& deTrabajo) {
  return Juntar({"CASE WHEN ", delRango, " OR NOT ", deTrabajo,
                 " THEN 0 ELSE EXISTS (SELECT 1 FROM temp.Distintas q WHERE ",
                 MismaFactura("q", "d"), " AND q.", EsDeFactura(),
                 " GROUP BY q.Tabla, q.Detalle HAVING max(q.EnLaCopia) = 0) END"});
}

/// The changed invoices as `d`, those that there were as `antes` and of the copy as `ahora`,
/// and those that either has any row of as `estaba` and `queda`.
std::string ConLasFacturas(std::string_view de) {
  const Tabla& facturas = TablasDeFactura()[0];
  constexpr std::string_view kDatos = ", Total, ModificadoPor";
  return Juntar(
      {"WITH d AS MATERIALIZED (SELECT NConcepto, Factura, Año FROM temp.Distintas WHERE ",
       EsDeFactura(), " GROUP BY NConcepto, Factura, Año), antes AS MATERIALIZED (",
       Recortadas(de, facturas, kDatos), "), ahora AS MATERIALIZED (",
       Recortadas("copia", facturas, kDatos), "), estaba AS MATERIALIZED (", ConAlgo(de),
       "), queda AS MATERIALIZED (", ConAlgo("copia"), ") "});
}

/// Beside the invoice `d` itself in one of those, if it is there. The engine makes an index of what
/// it joins; to look whether there is any it would go through all of them.
std::string Junto(std::string_view tabla) {
  return Juntar({" LEFT JOIN ", tabla, " ON ", MismaFactura(tabla, "d")});
}

std::string Hay(std::string_view tabla) {
  return Juntar({tabla, ".NConcepto IS NOT NULL"});
}

/// That a side has the invoice; of one that neither has, that it has any row of it.
std::string EstaEnSuLado(std::string_view suya, std::string_view otra, std::string_view algo) {
  return Juntar({"(", Hay(suya), " OR (NOT ", Hay(otra), " AND ", Hay(algo), "))"});
}

}  // namespace

std::string FacturasCambiadas(std::string_view de) {
  const std::string enLaLista = LaFacturaEstaEn("temp.EnLaLista");
  const std::string delRango = LaFacturaEstaEn("temp.DelRango");
  const std::string deTrabajo =
      Juntar({"(", enLaLista, " OR ", LaFacturaEstaEn("temp.SoloConBases"), ")"});
  return ConLasFacturas(de) + Juntar({"SELECT 'ProvFacturas', d.NConcepto, d.Factura, d.Año, '', ",
                                      EstaEnSuLado("antes", "ahora", "estaba"),
                                      ", ",
                                      EstaEnSuLado("ahora", "antes", "queda"),
                                      ", antes.Total, ahora.Total, ifnull(",
                                      Quien(),
                                      ", ahora.ModificadoPor), ",
                                      enLaLista,
                                      ", ",
                                      delRango,
                                      ", ",
                                      SeRepone(delRango, deTrabajo),
                                      ", ",
                                      LaFacturaEstaEn("foto.DelRango"),
                                      " FROM d",
                                      Junto("antes"),
                                      Junto("ahora"),
                                      Junto("estaba"),
                                      Junto("queda"),
                                      " WHERE ",
                                      deTrabajo,
                                      " OR ",
                                      Hay("queda"),
                                      " GROUP BY d.NConcepto, d.Factura, d.Año"});
}

std::string VencimientosCambiados() {
  return Juntar(
      {"SELECT Tabla, NConcepto, Factura, Año, Detalle, min(EnLaCopia) = 0, "
       "max(EnLaCopia) = 1, ",
       EnLosDos("Importe"), ", ", EnLosDos("Pagado"),
       " FROM temp.Distintas WHERE Tabla = 'ProvVencimientos' GROUP BY NConcepto, "
       "Factura, Año, Detalle ORDER BY Detalle"});
}

std::string PrevisionesCambiadas() {
  constexpr std::string_view kEnLaLista =
      "EXISTS (SELECT 1 FROM temp.PrevisionDeTrabajo w WHERE w.NConcepto = d.NConcepto)";
  constexpr std::string_view kDelRango =
      "EXISTS (SELECT 1 FROM temp.PrevisionDelRango w WHERE w.NConcepto = d.NConcepto)";
  return Juntar(
      {"SELECT Tabla, NConcepto, '', '', '', min(EnLaCopia) = 0, max(EnLaCopia) = 1, ",
       EnLosDos("Importe"), ", max(CASE WHEN EnLaCopia = 1 THEN ModificadoPor END), ", kEnLaLista,
       ", ", kDelRango,
       ", max(EnLaCopia) = 0, 1 FROM temp.Distintas d WHERE Tabla = 'ProvPrevisionPagos' GROUP BY "
       "NConcepto HAVING max(EnLaCopia) = 1 OR ",
       kEnLaLista});
}

std::string ApuntesConOtraFactura() {
  return "SELECT Tabla, NConcepto, Factura, Año, Detalle, 1, 1, Importe, Importe, ModificadoPor, "
         "1, 1, 0, 1 FROM temp.Distintas WHERE Tabla = 'CajaPagos' AND EnLaCopia = 1 ORDER BY "
         "Detalle";
}

}  // namespace salvaguarda::sql
