#include "caja_directa.h"

#include <benchmark/benchmark.h>

namespace medidas {
namespace {

constexpr const char* kFacturar = R"(
BEGIN IMMEDIATE;
CREATE TEMP TABLE Grupos AS
SELECT round(sum(a.Importe), 2) AS Total, CAST(a.Tipo AS TEXT) AS NConcepto, c.Descripcion
FROM TempCajaPagos AS a INNER JOIN datos.ProvConceptos AS c ON c.NConcepto = CAST(a.Tipo AS TEXT)
WHERE a.Factura IS NULL OR a.Factura = '' GROUP BY a.Tipo;
INSERT INTO TempProvFacturas (NConcepto, Factura, Año, Fecha, Total, forpago, NRecibos, Dias1Vto,
                              BIRPF, TipoIRPF, IRPF, Cadencia, Descripcion)
SELECT NConcepto, '02/2005', '2005', '20050315', Total, '1', 1, 0, 0, 0, 0, 0, Descripcion
FROM Grupos;
INSERT INTO TempProvBasesIva (NConcepto, NFactura, Año, Tipo, Base, Importe)
SELECT NConcepto, '02/2005', '2005', '1', round(Total / 1.16, 2),
       round(round(Total / 1.16, 2) * 0.16, 2) FROM Grupos;
INSERT INTO TempProvVencimientos (NConcepto, NFactura, Año, FechaVto, Importe, Pagado, Descripcion,
                                  Visible)
SELECT NConcepto, '02/2005', '2005', '20050315', Total, Total, Descripcion, 1 FROM Grupos;
DROP TABLE Grupos;
UPDATE TempCajaPagos SET Factura = '02/2005', Año = '2005' WHERE Factura IS NULL OR Factura = '';
COMMIT;
)";

}  // namespace

std::string SoloApuntes(std::int64_t apuntes, int conceptos) {
  return "BEGIN; DELETE FROM TempProvFacturas; DELETE FROM TempProvBasesIva; DELETE FROM "
         "TempProvVencimientos; DELETE FROM TempCajaPagos; WITH RECURSIVE n(i) AS (SELECT 0 UNION "
         "ALL SELECT i + 1 FROM n WHERE i + 1 < " +
         std::to_string(apuntes) +
         ") INSERT INTO TempCajaPagos (idSucursal, FechaHora, Tipo, Importe, Observaciones) SELECT "
         "printf('%02d', i % 2 + 1), datetime('2005-01-01', '+' || i || ' minutes'), i % " +
         std::to_string(conceptos) + " + 1, 12.35 + i % 40, 'Pagado en mano' FROM n; COMMIT";
}

CajaDirecta::CajaDirecta(const apoyo::NegocioDePrueba& negocio)
    : base_(negocio.FicheroTemp(), {.Durabilidad = sqlite::Sincronizacion::Normal}),
      lectura_(base_.Preparar(
          "SELECT FechaHora, Tipo, Importe, Observaciones, Factura, Año FROM TempCajaPagos WHERE "
          "Tipo = 1 AND (Factura IS NULL OR Factura = '') ORDER BY FechaHora")) {
  base_.Ejecutar("ATTACH '" + negocio.FicheroDatos() + "' AS datos");
}

std::string CajaDirecta::Texto(const char* sql) {
  const sqlite::Preparada consulta = base_.Preparar(sql);
  if (sqlite3_step(consulta.get()) != SQLITE_ROW) sqlite::Lanzar(base_.Motor());
  return reinterpret_cast<const char*>(sqlite3_column_text(consulta.get(), 0));
}

void CajaDirecta::Facturar() {
  base_.Ejecutar(kFacturar);
}

std::size_t CajaDirecta::Leer() {
  std::size_t filas = 0;
  while (sqlite3_step(lectura_.get()) == SQLITE_ROW) {
    ++filas;
    for (int i = 0; i < sqlite3_column_count(lectura_.get()); ++i) {
      benchmark::DoNotOptimize(sqlite3_column_text(lectura_.get(), i));
    }
  }
  sqlite3_reset(lectura_.get());
  return filas;
}

}  // namespace medidas
