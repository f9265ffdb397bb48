#include "sentencias_del_cliente.h"

#include <utility>

namespace medidas {
namespace {

// Written as whoever knows the server would, not as the system does: its joins alone take
// PostgreSQL several times as long.
constexpr const char* kEnElRango = "v.FechaVto >= '20050301' AND v.FechaVto <= '20050331'";

std::string Facturas() {
  return std::string(
             "SELECT f.*, c.Descripcion FROM ProvFacturas f JOIN ProvConceptos c ON f.NConcepto = "
             "c.NConcepto WHERE EXISTS (SELECT 1 FROM ProvVencimientos v WHERE v.NConcepto = "
             "f.NConcepto AND v.NFactura = f.Factura AND ") +
         kEnElRango + ")";
}

std::string Bases() {
  return std::string(
             "SELECT b.* FROM ProvBasesIva b WHERE EXISTS (SELECT 1 FROM ProvVencimientos v WHERE "
             "v.NConcepto = b.NConcepto AND v.NFactura = b.NFactura AND ") +
         kEnElRango + ")";
}

std::string Vencimientos() {
  return std::string(
             "SELECT t.*, c.Descripcion FROM ProvVencimientos t JOIN ProvConceptos c ON "
             "t.NConcepto "
             "= c.NConcepto WHERE EXISTS (SELECT 1 FROM ProvFacturas f WHERE f.NConcepto = "
             "t.NConcepto AND f.Factura = t.NFactura) AND EXISTS (SELECT 1 FROM ProvVencimientos v "
             "WHERE v.NConcepto = t.NConcepto AND v.NFactura = t.NFactura AND ") +
         kEnElRango + ")";
}

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
  for (const auto& [tabla, numero] :
       {std::pair("ProvFacturas", "Factura"), std::pair("ProvBasesIva", "NFactura"),
        std::pair("ProvVencimientos", "NFactura")}) {
    sql += Apartada(tabla, std::string("SELECT t.* FROM ") + tabla +
                               " t WHERE EXISTS (SELECT 1 FROM ProvVencimientos v WHERE "
                               "v.NConcepto = t.NConcepto AND v.NFactura = t." +
                               numero + " AND " + kEnElRango + ")");
  }
  return sql + Apartada("CajaPagos", "SELECT * FROM CajaPagos") +
         (postgres_ ? "ANALYZE;\n"
                    : "ALTER TABLE AparteCajaPagos ADD KEY (idSucursal, FechaHora, "
                      "Tipo);\n");
}

std::string SentenciasDelCliente::Cargar() const {
  return Facturas() + " ORDER BY Fecha;\n" + Bases() + ";\n" + Vencimientos() +
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
