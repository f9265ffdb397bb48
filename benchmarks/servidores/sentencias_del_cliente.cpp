#include "sentencias_del_cliente.h"

namespace medidas {
namespace {

constexpr const char* kFacturas =
    "SELECT DISTINCT ProvFacturas.*, ProvConceptos.Descripcion FROM (ProvFacturas INNER JOIN "
    "ProvVencimientos ON (ProvFacturas.Factura = ProvVencimientos.NFactura) AND "
    "(ProvFacturas.NConcepto = ProvVencimientos.NConcepto)) INNER JOIN ProvConceptos ON "
    "ProvFacturas.NConcepto = ProvConceptos.NConcepto WHERE ProvVencimientos.FechaVto >= "
    "'20050301' "
    "And ProvVencimientos.FechaVto <= '20050331'";
constexpr const char* kBases =
    "SELECT DISTINCT ProvBasesIva.* FROM ProvBasesIva INNER JOIN ProvVencimientos ON "
    "(ProvBasesIva.NConcepto = ProvVencimientos.NConcepto) AND (ProvBasesIva.NFactura = "
    "ProvVencimientos.NFactura) WHERE ProvVencimientos.FechaVto >= '20050301' And "
    "ProvVencimientos.FechaVto <= '20050331'";
constexpr const char* kVencimientos =
    "SELECT DISTINCT ProvVencimientos.*, ProvConceptos.Descripcion FROM ((ProvVencimientos INNER "
    "JOIN ProvFacturas ON (ProvVencimientos.NConcepto = ProvFacturas.NConcepto) AND "
    "(ProvVencimientos.NFactura = ProvFacturas.Factura)) INNER JOIN ProvVencimientos AS "
    "ProvVencimientos_1 ON (ProvFacturas.NConcepto = ProvVencimientos_1.NConcepto) AND "
    "(ProvFacturas.Factura = ProvVencimientos_1.NFactura)) INNER JOIN ProvConceptos ON "
    "ProvVencimientos.NConcepto = ProvConceptos.NConcepto WHERE ProvVencimientos_1.FechaVto >= "
    "'20050301' And ProvVencimientos_1.FechaVto <= '20050331'";
constexpr const char* kClaves =
    "SELECT DISTINCT ProvFacturas.NConcepto, ProvFacturas.Factura, ProvFacturas.Año FROM "
    "ProvFacturas INNER JOIN ProvVencimientos ON (ProvFacturas.NConcepto = "
    "ProvVencimientos.NConcepto) AND (ProvFacturas.Factura = ProvVencimientos.NFactura) WHERE "
    "ProvVencimientos.FechaVto >= '20050301' And ProvVencimientos.FechaVto <= '20050331'";

std::string Apartada(const std::string& tabla, const std::string& filas) {
  return "CREATE TABLE Aparte" + tabla + " AS " + filas + ";\n";
}

std::string Repuesta(const std::string& tabla) {
  return "INSERT INTO " + tabla + " SELECT * FROM Aparte" + tabla + ";\n";
}

}  // namespace

std::string SentenciasDelCliente::Recortado(const std::string& alias,
                                            const std::string& columna) const {
  if (postgres_) return "btrim(" + alias + "." + columna + ")";
  return alias + "." + columna + "SinBlancos";
}

std::string SentenciasDelCliente::Apartar() const {
  std::string sql;
  for (const char* tabla : {"ProvFacturas", "ProvBasesIva", "ProvVencimientos"}) {
    sql += Apartada(tabla, std::string("SELECT * FROM ") + tabla);
  }
  return sql + Apartada("CajaPagos", "SELECT * FROM CajaPagos") +
         (postgres_ ? "ANALYZE;\n"
                    : "ALTER TABLE AparteCajaPagos ADD KEY (idSucursal, FechaHora, "
                      "Tipo);\n");
}

std::string SentenciasDelCliente::Cargar() const {
  return std::string(kFacturas) + " ORDER BY Fecha;\n" + kBases + ";\n" + kVencimientos +
         ";\nSELECT * FROM ProvPrevisionPagos WHERE Fecha1Vto <= '20050331';\nSELECT c.* FROM "
         "CajaPagos c JOIN (" +
         kClaves + ") f ON " + Recortado("c", "Factura") +
         " = f.Factura AND c.Tipo = CAST(f.NConcepto AS " + (postgres_ ? "integer" : "SIGNED") +
         ") AND c.Año = f.Año;\nSELECT * FROM CajaPagos WHERE Factura IS NULL OR Factura = '';\n";
}

std::string SentenciasDelCliente::BorrarDe(const std::string& tabla,
                                           const std::string& numero) const {
  const std::string condicion =
      Recortado("t", numero) + " = k.Factura AND t.NConcepto = k.NConcepto AND t.Año = k.Año";
  if (postgres_) return "DELETE FROM " + tabla + " t USING Claves k WHERE " + condicion + ";\n";
  return "DELETE t FROM " + tabla + " t JOIN Claves k ON " + condicion + ";\n";
}

std::string SentenciasDelCliente::Grabar() const {
  std::string sql = "BEGIN;\nCREATE TEMPORARY TABLE Claves AS " + std::string(kClaves) + ";\n" +
                    BorrarDe("ProvBasesIva", "NFactura") +
                    BorrarDe("ProvVencimientos", "NFactura") + BorrarDe("ProvFacturas", "Factura");
  for (int i = 0; i < 3; ++i) {
    sql +=
        "INSERT INTO SorvexBorrados SELECT 'TESVARA', now(), 'CARMEN', concat('DELETE FROM "
        "ProvBasesIva WHERE ProvBasesIva.NConcepto like ', NConcepto, ' and RTRIM(LTRIM(Factura)) "
        "like ', Factura, ' and ProvBasesIva.Año like ', Año) FROM Claves;\n";
  }
  for (const char* tabla : {"ProvFacturas", "ProvBasesIva", "ProvVencimientos"}) {
    sql += Repuesta(tabla);
  }
  const std::string mismo =
      "c.idSucursal = a.idSucursal AND c.FechaHora = a.FechaHora AND c.Tipo = a.Tipo";
  const std::string nuevo = "Factura = coalesce(a.Factura, ''), ";
  if (postgres_) {
    sql += "UPDATE CajaPagos c SET " + nuevo +
           "Año = coalesce(a.Año, ''), Actualizado = 'x' FROM AparteCajaPagos a WHERE " + mismo +
           ";\n";
  } else {
    sql += "UPDATE CajaPagos c JOIN AparteCajaPagos a ON " + mismo + " SET c." + nuevo +
           "c.Año = coalesce(a.Año, ''), c.Actualizado = 'x';\n";
  }
  return sql + "DROP TABLE Claves;\nCOMMIT;\n";
}

}  // namespace medidas
