#include "salvaguarda/excluidas.h"

#include <string_view>
#include <vector>

#include "salvaguarda/consultas.h"
#include "salvaguarda/sql.h"
#include "salvaguarda/tablas.h"

namespace salvaguarda::sql {
namespace {

/// What a row `t` must meet to be loaded, as SQL.
constexpr const char* kConConcepto =
    "EXISTS (SELECT 1 FROM main.ProvConceptos c WHERE c.NConcepto = t.NConcepto)";

std::string ConVencimiento(const Rango& rango, std::string_view de, std::string_view numero) {
  return Juntar({"EXISTS (SELECT 1 FROM main.ProvVencimientos v WHERE v.NConcepto = ", de,
                 ".NConcepto AND v.NFactura = ", de, ".", numero, " AND v.FechaVto >= ",
                 Texto(rango.Desde), " AND v.FechaVto <= ", Texto(rango.Hasta), ")"});
}

std::string ConFactura(const Rango& rango) {
  return Juntar(
      {"EXISTS (SELECT 1 FROM main.ProvFacturas f WHERE f.NConcepto = t.NConcepto AND "
       "f.Factura = t.NFactura AND ",
       ConVencimiento(rango, "f", "Factura"), ")"});
}

std::string LoQueExige(const Tabla& tabla, const Rango& rango) {
  std::string conConcepto = kConConcepto;
  switch (tabla.Que) {
    case Tabla::Cosa::Factura:
      return conConcepto + " AND " + ConVencimiento(rango, "t", tabla.Numero);
    case Tabla::Cosa::Base:
      return ConVencimiento(rango, "t", tabla.Numero);
    case Tabla::Cosa::Vencimiento:
      return conConcepto + " AND " + ConFactura(rango);
    case Tabla::Cosa::Prevision:
      return conConcepto;
    case Tabla::Cosa::Apunte:
      break;
  }
  return "1";
}

/// Why a row doesn't meet it.
std::string PorQueNo(const Tabla& tabla) {
  std::string blancos = "'sus blancos no son los de su factura'";
  if (tabla.Que == Tabla::Cosa::Base) return blancos;
  return Juntar(
      {"CASE WHEN ", kConConcepto, " THEN ", blancos, " ELSE 'su concepto no existe' END"});
}

}  // namespace

std::string Excluidas(const Rango& rango) {
  std::vector<std::string> consultas;
  for (const Tabla& tabla : Tablas()) {
    if (tabla.Que == Tabla::Cosa::Apunte) continue;  // no commit deletes one
    const bool prevision = tabla.Que == Tabla::Cosa::Prevision;
    consultas.push_back(
        Juntar({"SELECT ", ColumnasDeFila(tabla, "t", PorQueNo(tabla)), " FROM foto.", tabla.Nombre,
                " t WHERE NOT (", LoQueExige(tabla, rango), ")",
                prevision ? "" : " AND " + EstaEn("foto.DelRango", tabla, "t")}));
  }
  return Separar(consultas, " UNION ALL ");
}

}  // namespace salvaguarda::sql
