#include "salvaguarda/claves.h"

#include <string_view>

#include "salvaguarda/adjunta.h"
#include "salvaguarda/consultas.h"
#include "salvaguarda/sql.h"

namespace salvaguarda {
namespace {

using sql::Juntar;

/// The keys of the rows of a working table, as `t`, that meet a condition.
std::string DeTrabajo(const Tabla& tabla, std::string_view cuales) {
  return Juntar({"SELECT t.NConcepto, t.", tabla.Numero, ", t.Año FROM main.Temp", tabla.Nombre,
                 " t WHERE ", cuales});
}

/// That a working table has no row of the invoice of the base `t`.
std::string SinNingunaEn(const Tabla& tabla) {
  return Juntar({"NOT EXISTS (SELECT 1 FROM main.Temp", tabla.Nombre,
                 " s WHERE s.NConcepto = t.NConcepto AND s.", tabla.Numero,
                 " = t.NFactura AND s.Año = t.Año)"});
}

std::vector<Claves::Factura> LeerFacturas(sqlite::Conexion& base, const std::string& consulta) {
  std::vector<Claves::Factura> claves;
  const auto filas = base.Consultar(consulta).Filas;
  for (std::size_t i = 0; i < filas.Cuantas(); ++i) {
    claves.push_back({filas.En(i, 0).Texto(), filas.En(i, 1).Texto(), filas.En(i, 2).Texto()});
  }
  return claves;
}

std::vector<std::string> LeerConceptos(sqlite::Conexion& base, std::string_view consulta) {
  std::vector<std::string> conceptos;
  const auto filas = base.Consultar(consulta).Filas;
  for (std::size_t i = 0; i < filas.Cuantas(); ++i) conceptos.push_back(filas.En(i, 0).Texto());
  return conceptos;
}

std::vector<Claves::Apunte> LeerApuntes(sqlite::Conexion& base, std::string_view tabla) {
  std::vector<Claves::Apunte> apuntes;
  const auto filas = base.Consultar(sql::ClavesDeApuntes(tabla)).Filas;
  for (std::size_t i = 0; i < filas.Cuantas(); ++i) {
    apuntes.push_back({filas.En(i, 0).Texto(), filas.En(i, 1).Texto(), filas.En(i, 2).Texto()});
  }
  return apuntes;
}

/// `cuales`: a condition on the rows of each table.
template <class Condicion>
Claves LeerClaves(sqlite::Conexion& deTrabajo, const Condicion& cuales,
                  std::string_view previsiones) {
  const Tabla& facturas = *BuscarTabla("ProvFacturas");
  const Tabla& bases = *BuscarTabla("ProvBasesIva");
  const Tabla& vencimientos = *BuscarTabla("ProvVencimientos");
  Claves claves;
  claves.EnLaLista = LeerFacturas(deTrabajo, DeTrabajo(facturas, cuales(facturas)) + " UNION " +
                                                 DeTrabajo(vencimientos, cuales(vencimientos)));
  claves.SoloConBases = LeerFacturas(
      deTrabajo, DeTrabajo(bases, Juntar({cuales(bases), " AND ", SinNingunaEn(facturas), " AND ",
                                          SinNingunaEn(vencimientos)})));
  claves.Previsiones = LeerConceptos(deTrabajo, previsiones);
  return claves;
}

}  // namespace

Claves Claves::DeTrabajo(sqlite::Conexion& deTrabajo) {
  const auto todas = [](const Tabla&) { return std::string("1"); };
  Claves claves = LeerClaves(deTrabajo, todas, "SELECT NConcepto FROM TempProvPrevisionPagos");
  claves.Apuntes = LeerApuntes(deTrabajo, "TempCajaPagos");
  return claves;
}

Claves Claves::Nuevas(sqlite::Conexion& deTrabajo, const std::string& foto) {
  const sql::Adjunta adjunta(deTrabajo, foto, "foto");
  const auto nuevas = [](const Tabla& tabla) {
    return Juntar(
        {"NOT EXISTS (SELECT 1 FROM foto.Claves c WHERE c.NConcepto = t.NConcepto AND "
         "c.Factura = ",
         sql::Numero(tabla, "t"), " AND c.Año = t.Año)"});
  };
  return LeerClaves(
      deTrabajo, nuevas,
      "SELECT NConcepto FROM main.TempProvPrevisionPagos EXCEPT SELECT NConcepto FROM "
      "foto.ProvPrevisionPagos");
}

Claves Claves::DeFoto(sqlite::Conexion& base) {
  return {LeerFacturas(base, "SELECT * FROM foto.Claves"),
          {},
          LeerConceptos(base, "SELECT NConcepto FROM foto.ProvPrevisionPagos"),
          LeerApuntes(base, "foto.CajaPagos")};
}

Claves Claves::DeCopia(sqlite::Conexion& base, const std::string& fichero) {
  const sql::Adjunta adjunta(base, fichero, "pedida");
  return {LeerFacturas(base, "SELECT * FROM pedida.Claves"),
          {},
          LeerConceptos(base, "SELECT * FROM pedida.ClavesPrevision"),
          LeerApuntes(base, "pedida.CajaPagos")};
}

void Claves::Anadir(const Claves& otras) {
  const auto anadir = [](auto& suyas, const auto& nuevas) {
    suyas.insert(suyas.end(), nuevas.begin(), nuevas.end());
  };
  anadir(EnLaLista, otras.EnLaLista);
  anadir(SoloConBases, otras.SoloConBases);
  anadir(Previsiones, otras.Previsiones);
  anadir(Apuntes, otras.Apuntes);
}

}  // namespace salvaguarda
