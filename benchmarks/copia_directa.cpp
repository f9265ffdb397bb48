#include "copia_directa.h"

namespace medidas {
namespace {

constexpr const char* kVaciar = R"(
DELETE FROM TempProvFacturas;
DELETE FROM TempProvVencimientos;
DELETE FROM TempProvBasesIva;
DELETE FROM TempProvPrevisionPagos;
DELETE FROM TempCajaPagos;
)";

constexpr const char* kCargar = R"(
INSERT INTO TempProvFacturas
SELECT NConcepto, Factura, Año, Fecha, Total, forpago, NRecibos, Dias1Vto,
       iif(BIRPF <> 1, BIRPF, 0), iif(TipoIRPF <> 1, TipoIRPF, 0), iif(IRPF <> 1, IRPF, 0),
       Cadencia, Actualizado, Descripcion
FROM (SELECT DISTINCT ProvFacturas.*, ProvConceptos.Descripcion
      FROM (ProvFacturas INNER JOIN ProvVencimientos
              ON (ProvFacturas.Factura = ProvVencimientos.NFactura)
             AND (ProvFacturas.NConcepto = ProvVencimientos.NConcepto))
      INNER JOIN ProvConceptos ON ProvFacturas.NConcepto = ProvConceptos.NConcepto
      WHERE ProvVencimientos.FechaVto >= '20050301' AND ProvVencimientos.FechaVto <= '20050331'
      ORDER BY ProvFacturas.Fecha);

INSERT INTO TempProvBasesIva
SELECT NConcepto, NFactura, Año, Tipo, Base, Importe, Exento
FROM (SELECT DISTINCT ProvBasesIva.*
      FROM ProvBasesIva INNER JOIN ProvVencimientos
        ON (ProvBasesIva.NConcepto = ProvVencimientos.NConcepto)
       AND (ProvBasesIva.NFactura = ProvVencimientos.NFactura)
      WHERE ProvVencimientos.FechaVto >= '20050301' AND ProvVencimientos.FechaVto <= '20050331');

INSERT INTO TempProvVencimientos
SELECT NConcepto, NFactura, Año, FechaVto, Importe, Pagado, Fechapago, Actualizado, Descripcion,
       FechaVto >= '20050301' AND FechaVto <= '20050331'
FROM (SELECT DISTINCT ProvVencimientos.*, ProvConceptos.Descripcion
      FROM ((ProvVencimientos INNER JOIN ProvFacturas
               ON (ProvVencimientos.NConcepto = ProvFacturas.NConcepto)
              AND (ProvVencimientos.NFactura = ProvFacturas.Factura))
            INNER JOIN ProvVencimientos AS ProvVencimientos_1
               ON (ProvFacturas.NConcepto = ProvVencimientos_1.NConcepto)
              AND (ProvFacturas.Factura = ProvVencimientos_1.NFactura))
      INNER JOIN ProvConceptos ON ProvVencimientos.NConcepto = ProvConceptos.NConcepto
      WHERE ProvVencimientos_1.FechaVto >= '20050301'
        AND ProvVencimientos_1.FechaVto <= '20050331');

INSERT INTO TempProvPrevisionPagos
SELECT DISTINCT ProvPrevisionPagos.NConcepto, ProvPrevisionPagos.Fecha1Vto,
       ProvPrevisionPagos.Cada, ProvPrevisionPagos.Tipo, ProvPrevisionPagos.Importe,
       ProvConceptos.Descripcion
FROM ProvConceptos INNER JOIN ProvPrevisionPagos
  ON ProvConceptos.NConcepto = ProvPrevisionPagos.NConcepto
WHERE ProvPrevisionPagos.Fecha1Vto <= '20050331' ORDER BY ProvPrevisionPagos.Fecha1Vto;

INSERT INTO TempCajaPagos
SELECT c.* FROM TempProvFacturas AS f INNER JOIN CajaPagos AS c
  ON trim(c.Factura) COLLATE ES = trim(f.Factura) AND c.Tipo = f.NConcepto AND c.Año = f.Año;
INSERT INTO TempCajaPagos SELECT * FROM CajaPagos WHERE Factura IS NULL OR Factura = '';
)";

constexpr const char* kGrabar = R"(
CREATE TEMP TABLE Rango AS
SELECT DISTINCT ProvFacturas.NConcepto, ProvFacturas.Factura, ProvFacturas.Año
FROM ProvFacturas INNER JOIN ProvVencimientos
  ON (ProvFacturas.NConcepto = ProvVencimientos.NConcepto)
 AND (ProvFacturas.Factura = ProvVencimientos.NFactura)
WHERE ProvVencimientos.FechaVto >= '20050301' AND ProvVencimientos.FechaVto <= '20050331';

DELETE FROM ProvBasesIva WHERE (NConcepto, NFactura, Año) IN (SELECT * FROM Rango);
DELETE FROM ProvVencimientos WHERE (NConcepto, NFactura, Año) IN (SELECT * FROM Rango);
DELETE FROM ProvFacturas WHERE (NConcepto, Factura, Año) IN (SELECT * FROM Rango);
DROP TABLE Rango;

INSERT INTO ProvFacturas
SELECT NConcepto, Factura, Año, Fecha, Total, forpago, NRecibos, Dias1Vto, BIRPF, TipoIRPF, IRPF,
       Cadencia, '2005-03-15 11:00:00', 'ANA' FROM TempProvFacturas;
INSERT INTO ProvBasesIva
SELECT NConcepto, NFactura, Año, Tipo, Base, Importe, Exento, '2005-03-15 11:00:00', 'ANA'
FROM TempProvBasesIva;
INSERT INTO ProvVencimientos
SELECT NConcepto, NFactura, Año, FechaVto, Importe, Pagado, Fechapago, '2005-03-15 11:00:00', 'ANA'
FROM TempProvVencimientos;
DELETE FROM ProvPrevisionPagos WHERE Fecha1Vto <= '20050331';
INSERT INTO ProvPrevisionPagos
SELECT NConcepto, Fecha1Vto, Cada, Tipo, Importe, '2005-03-15 11:00:00', NULL
FROM TempProvPrevisionPagos;
UPDATE CajaPagos SET Factura = coalesce(t.Factura, ''), Año = coalesce(t.Año, ''),
                     Actualizado = '2005-03-15 11:00:00', ModificadoPor = 'ANA'
FROM TempCajaPagos AS t WHERE t.idSucursal = CajaPagos.idSucursal
  AND t.FechaHora = CajaPagos.FechaHora AND t.Tipo = CajaPagos.Tipo;
)";

constexpr const char* kCargarEnteras = R"(
INSERT INTO TempProvFacturas
SELECT NConcepto, Factura, Año, Fecha, Total, forpago, NRecibos, Dias1Vto, BIRPF, TipoIRPF, IRPF,
       Cadencia, Actualizado, ModificadoPor FROM ProvFacturas;
INSERT INTO TempProvBasesIva
SELECT NConcepto, NFactura, Año, Tipo, Base, Importe, Exento FROM ProvBasesIva;
INSERT INTO TempProvVencimientos
SELECT NConcepto, NFactura, Año, FechaVto, Importe, Pagado, Fechapago, Actualizado, ModificadoPor, 1
FROM ProvVencimientos;
INSERT INTO TempCajaPagos SELECT * FROM CajaPagos;
)";

constexpr const char* kGrabarEnteras = R"(
DELETE FROM ProvFacturas;
DELETE FROM ProvBasesIva;
DELETE FROM ProvVencimientos;
INSERT INTO ProvFacturas
SELECT NConcepto, Factura, Año, Fecha, Total, forpago, NRecibos, Dias1Vto, BIRPF, TipoIRPF, IRPF,
       Cadencia, '2005-03-15 11:00:00', 'ANA' FROM TempProvFacturas;
INSERT INTO ProvBasesIva
SELECT NConcepto, NFactura, Año, Tipo, Base, Importe, Exento, '2005-03-15 11:00:00', 'ANA'
FROM TempProvBasesIva;
INSERT INTO ProvVencimientos
SELECT NConcepto, NFactura, Año, FechaVto, Importe, Pagado, Fechapago, '2005-03-15 11:00:00', 'ANA'
FROM TempProvVencimientos;
UPDATE CajaPagos SET Factura = coalesce(Factura, ''), Año = coalesce(Año, ''),
                     Actualizado = '2005-03-15 11:00:00', ModificadoPor = 'ANA';
)";

}  // namespace

DosFicheros::DosFicheros(const apoyo::NegocioDePrueba& negocio) : conexion_(negocio.AbrirTemp()) {
  conexion_->Adjuntar(negocio.FicheroDatos(), "datos");
  conexion_->Ejecutar(
      "PRAGMA datos.synchronous = FULL; PRAGMA datos.cache_size = -65536; "
      "SELECT count(*) FROM datos.sqlite_schema");
}

void DosFicheros::Ejecutar(const std::string& sql) {
  conexion_->Ejecutar("BEGIN IMMEDIATE;" + sql + "COMMIT");
}

void CopiaDirecta::Cargar() {
  Ejecutar(std::string(kVaciar) + kCargar);
}

void CopiaDirecta::Grabar() {
  Ejecutar(std::string(kGrabar) + kVaciar);
}

void CopiaEntera::Cargar() {
  Ejecutar(std::string(kVaciar) + kCargarEnteras);
}

void CopiaEntera::Grabar() {
  Ejecutar(std::string(kGrabarEnteras) + kVaciar);
}

}  // namespace medidas
