#include "dialecto/sentencias.h"

#include <array>

namespace dialecto {

namespace {

using enum services::ModoApertura;

constexpr auto kSentencias = std::to_array<Escrita>({
    // The range of dates, in the stored tables.
    {Lectura,
     "SELECT DISTINCT ProvBasesIva.* FROM ProvBasesIva INNER JOIN ProvVencimientos ON "
     "(ProvBasesIva.NConcepto = ProvVencimientos.NConcepto) AND (ProvBasesIva.NFactura = "
     "ProvVencimientos.NFactura)WHERE ProvVencimientos.FechaVto >= '' And "
     "ProvVencimientos.FechaVto <= ''"},
    {Lectura,
     "SELECT DISTINCT ProvFacturas.* FROM ProvFacturas INNER JOIN ProvVencimientos ON "
     "(ProvFacturas.NConcepto = ProvVencimientos.NConcepto) AND (ProvFacturas.Factura = "
     "ProvVencimientos.NFactura) WHERE ProvVencimientos.FechaVto >= '' And "
     "ProvVencimientos.FechaVto <= '' Order By ProvFacturas.Fecha"},
    {Lectura,
     "SELECT DISTINCT ProvFacturas.*, ProvConceptos.Descripcion FROM (ProvFacturas INNER JOIN "
     "ProvVencimientos ON (ProvFacturas.Factura = ProvVencimientos.NFactura) AND "
     "(ProvFacturas.NConcepto = ProvVencimientos.NConcepto)) INNER JOIN ProvConceptos ON "
     "ProvFacturas.NConcepto = ProvConceptos.NConcepto WHERE ProvVencimientos.FechaVto >= '' And "
     "ProvVencimientos.FechaVto <= ''  Order By ProvFacturas.Fecha"},
    {Lectura,
     "SELECT DISTINCT ProvPrevisionPagos.NConcepto, ProvPrevisionPagos.Fecha1Vto, "
     "ProvPrevisionPagos.Cada, ProvPrevisionPagos.Tipo, ProvPrevisionPagos.Importe, "
     "ProvConceptos.Descripcion FROM ProvConceptos INNER JOIN ProvPrevisionPagos ON "
     "ProvConceptos.NConcepto = ProvPrevisionPagos.NConcepto WHERE ProvPrevisionPagos.Fecha1Vto <= "
     "''  Order By ProvPrevisionPagos.Fecha1Vto"},
    {Lectura,
     "SELECT DISTINCT ProvVencimientos.*, ProvConceptos.Descripcion FROM ((ProvVencimientos INNER "
     "JOIN ProvFacturas ON (ProvVencimientos.NConcepto = ProvFacturas.NConcepto) AND "
     "(ProvVencimientos.NFactura = ProvFacturas.Factura)) INNER JOIN ProvVencimientos AS "
     "ProvVencimientos_1 ON (ProvFacturas.NConcepto = ProvVencimientos_1.NConcepto) AND "
     "(ProvFacturas.Factura = ProvVencimientos_1.NFactura)) INNER JOIN ProvConceptos ON "
     "ProvVencimientos.NConcepto = ProvConceptos.NConcepto WHERE "
     "(((ProvVencimientos_1.FechaVto)>='' And (ProvVencimientos_1.FechaVto)<=''))"},
    // The other statements of the stored tables.
    {Lectura, "SELECT ProvConceptos.* From ProvConceptos WHERE ProvConceptos.NConcepto like ''"},
    {Lectura,
     "SELECT ProvConceptos.* From ProvConceptos WHERE trim(ProvConceptos.NConcepto) like ''"},
    {Lectura,
     "SELECT ProvConceptos.* From ProvConceptos WHERE trim(ProvConceptos.Descripcion) like ''"},
    {Lectura, "SELECT ProvConceptos.NConcepto, ProvConceptos.Descripcion FROM ProvConceptos"},
    {Optimista, "SELECT ProvFacturas.* FROM ProvFacturas"},
    {Pesimista,
     "SELECT ProvFacturas.* FROM ProvFacturas WHERE RTRIM(LTRIM(ProvFacturas.Factura)) like '' And "
     "ProvFacturas.NConcepto like '' and ProvFacturas.Año like ''"},
    {Optimista,
     "DELETE FROM ProvFacturas WHERE RTRIM(LTRIM(ProvFacturas.Factura)) like '' AND "
     "ProvFacturas.NConcepto like '' And ProvFacturas.Año like ''"},
    {Optimista, "SELECT ProvBasesIva.* FROM ProvBasesIva"},
    {Optimista,
     "DELETE From ProvBasesIva WHERE ProvBasesIva.NConcepto like '' and ProvBasesIva.Año like '' "
     "and RTRIM(LTRIM(ProvBasesIva.NFactura)) like ''"},
    {Optimista, "SELECT ProvVencimientos.* FROM ProvVencimientos"},
    {Optimista,
     "DELETE From ProvVencimientos WHERE ProvVencimientos.NConcepto like '' and "
     "ProvVencimientos.Año like '' and RTRIM(LTRIM(ProvVencimientos.NFactura)) like ''"},
    {Optimista,
     "SELECT ProvPrevisionPagos.NConcepto, ProvPrevisionPagos.Fecha1Vto, ProvPrevisionPagos.Cada, "
     "ProvPrevisionPagos.Tipo, ProvPrevisionPagos.Importe, ProvPrevisionPagos.Actualizado FROM "
     "ProvPrevisionPagos"},
    {Optimista, "DELETE FROM ProvPrevisionPagos WHERE ProvPrevisionPagos.Fecha1Vto <= ''"},
    {Lectura,
     "SELECT CajaPagos.* From CajaPagos WHERE CajaPagos.Factura Is Null OR CajaPagos.Factura = ''"},
    {Optimista,
     "SELECT CajaPagos.* FROM CajaPagos WHERE CajaPagos.idSucursal like '' And CajaPagos.FechaHora "
     "like '' And CajaPagos.Tipo like 0"},
    {Lectura,
     "SELECT CajaPagos.* From CajaPagos WHERE RTRIM(LTRIM(CajaPagos.Factura)) like '' And "
     "CajaPagos.Tipo like 0 And CajaPagos.Año like ''"},
    // What the suite notes of each of their deletions.
    {Optimista, "SELECT SorvexBorrados.* FROM SorvexBorrados"},
    // Invoices of the working copy.
    {Lectura, "SELECT TempProvFacturas.* FROM TempProvFacturas"},
    {Lectura, "SELECT TempProvFacturas.* From TempProvFacturas"},
    {Optimista, "SELECT TempProvFacturas.* FROM TempProvFacturas"},
    {Pesimista,
     "SELECT TempProvFacturas.* FROM TempProvFacturas WHERE RTRIM(LTRIM(TempProvFacturas.Factura)) "
     "like '' And TempProvFacturas.NConcepto like '' And TempProvFacturas.Año like ''"},
    {Lectura,
     "SELECT TempProvFacturas.* FROM TempProvFacturas WHERE TempProvFacturas.NConcepto like ''  "
     "And RTRIM(LTRIM(TempProvFacturas.Factura)) like '' And TempProvFacturas.Año like ''"},
    {Optimista, "DELETE TempProvFacturas.* FROM TempProvFacturas"},
    {Optimista,
     "DELETE TempProvFacturas.* FROM TempProvFacturas WHERE RTRIM(LTRIM(TempProvFacturas.Factura)) "
     "like ''And TempProvFacturas.NConcepto like '' and TempProvFacturas.Año like ''"},
    // Their bases.
    {Lectura, "SELECT TempProvBasesIva.* From TempProvBasesIva"},
    {Optimista, "SELECT TempProvBasesIva.* From TempProvBasesIva"},
    {Lectura,
     "SELECT TempProvBasesIva.* FROM TempProvBasesIva WHERE TempProvBasesIva.NConcepto like '' And "
     "Trim(TempProvBasesIva.NFactura) like '' And TempProvBasesIva.Año like ''"},
    {Optimista,
     "SELECT TempProvBasesIva.* FROM TempProvBasesIva WHERE Trim(TempProvBasesIva.NFactura) like "
     "'' And TempProvBasesIva.NConcepto like '' And TempProvBasesIva.Año like ''"},
    {Optimista,
     "SELECT TempProvBasesIva.* FROM TempProvBasesIva WHERE Trim(TempProvBasesIva.NFactura) like "
     "'' And TempProvBasesIva.NConcepto like ''And TempProvBasesIva.Año like ''"},
    {Optimista, "DELETE TempProvBasesIva.* FROM TempProvBasesIva"},
    {Optimista,
     "DELETE TempProvBasesIva.* FROM TempProvBasesIva WHERE Trim(TempProvBasesIva.NFactura) like "
     "'' And TempProvBasesIva.NConcepto like '' And TempProvBasesIva.Año like ''"},
    {Optimista,
     "DELETE TempProvBasesIva.* FROM TempProvBasesIva WHERE Trim(TempProvBasesIva.NFactura) like "
     "''And TempProvBasesIva.NConcepto like '' and TempProvBasesIva.Año like ''"},
    // Their due dates.
    {Lectura, "SELECT TempProvVencimientos.* From TempProvVencimientos"},
    {Optimista, "SELECT TempProvVencimientos.* From TempProvVencimientos"},
    {Lectura,
     "SELECT TempProvVencimientos.* FROM TempProvVencimientos WHERE TempProvVencimientos.NConcepto "
     "like '' AND Trim(TempProvVencimientos.NFactura) like '' AND TempProvVencimientos.Año like "
     "''"},
    {Lectura,
     "SELECT TempProvVencimientos.* FROM TempProvVencimientos WHERE TempProvVencimientos.NConcepto "
     "like '' And Trim(TempProvVencimientos.NFactura) like '' And TempProvVencimientos.Año like "
     "''"},
    {Optimista,
     "SELECT TempProvVencimientos.* FROM TempProvVencimientos WHERE TempProvVencimientos.NConcepto "
     "like '' And Trim(TempProvVencimientos.NFactura) like '' And TempProvVencimientos.Año like "
     "''"},
    {Optimista,
     "SELECT TempProvVencimientos.* FROM TempProvVencimientos WHERE TempProvVencimientos.NConcepto "
     "like '' And trim(TempProvVencimientos.NFactura) like '' And TempProvVencimientos.Año like "
     "''"},
    {Pesimista,
     "SELECT TempProvVencimientos.* FROM TempProvVencimientos WHERE TempProvVencimientos.NConcepto "
     "like '' And Trim(TempProvVencimientos.NFactura) like '' And TempProvVencimientos.Año like '' "
     "ORDER BY TempProvVencimientos.FechaVto"},
    {Lectura,
     "SELECT TempProvVencimientos.* FROM TempProvVencimientos WHERE TempProvVencimientos.NConcepto "
     "like '' And Trim(TempProvVencimientos.NFactura) like '' And TempProvVencimientos.Año like '' "
     "Order by TempProvVencimientos.FechaVto "},
    {Pesimista,
     "SELECT TempProvVencimientos.* FROM TempProvVencimientos WHERE TempProvVencimientos.NConcepto "
     "like '' And Trim(TempProvVencimientos.NFactura) like '' AND TempProvVencimientos.FechaVto "
     "like '' And TempProvVencimientos.Año like ''"},
    {Lectura,
     "SELECT TempProvVencimientos.* FROM TempProvVencimientos WHERE TempProvVencimientos.Visible = "
     "True"},
    {Lectura,
     "SELECT TempProvVencimientos.* FROM TempProvVencimientos WHERE "
     "Trim(TempProvVencimientos.NFactura) like ''And TempProvVencimientos.NConcepto like '' And "
     "TempProvVencimientos.Año like ''"},
    {Optimista, "DELETE TempProvVencimientos.* FROM TempProvVencimientos"},
    {Optimista,
     "DELETE TempProvVencimientos.* FROM TempProvVencimientos WHERE TempProvVencimientos.NConcepto "
     "like '' And Trim(TempProvVencimientos.NFactura) like '' And TempProvVencimientos.Año like "
     "''"},
    {Optimista,
     "DELETE TempProvVencimientos.* FROM TempProvVencimientos WHERE TempProvVencimientos.NConcepto "
     "like '' And trim(TempProvVencimientos.NFactura) like '' And TempProvVencimientos.Año like "
     "''"},
    {Optimista,
     "DELETE TempProvVencimientos.* FROM TempProvVencimientos WHERE "
     "Trim(TempProvVencimientos.NFactura) like ''And TempProvVencimientos.NConcepto like '' and "
     "TempProvVencimientos.Año like ''"},
    {Optimista,
     "DELETE TempProvVencimientos.* FROM TempProvVencimientos WHERE "
     "Trim(TempProvVencimientos.NFactura) like ''And TempProvVencimientos.NConcepto like '' And "
     "TempProvVencimientos.FechaVto like ''And TempProvVencimientos.Año like ''"},
    {Optimista,
     "DELETE TempProvVencimientos.* FROM TempProvVencimientos WHERE "
     "Trim(TempProvVencimientos.NFactura) like ''And TempProvVencimientos.NConcepto like '' And "
     "TempProvVencimientos.FechaVto like ''and TempProvVencimientos.Año like '' "},
    // Forecasts.
    {Lectura, "SELECT TempProvPrevisionPagos.* FROM TempProvPrevisionPagos"},
    {Lectura, "SELECT TempProvPrevisionPagos.* From TempProvPrevisionPagos"},
    {Optimista, "SELECT TempProvPrevisionPagos.* From TempProvPrevisionPagos"},
    {Lectura,
     "SELECT TempProvPrevisionPagos.* FROM TempProvPrevisionPagos WHERE "
     "TempProvPrevisionPagos.NConcepto like ''"},
    {Optimista,
     "SELECT TempProvPrevisionPagos.* FROM TempProvPrevisionPagos WHERE "
     "TempProvPrevisionPagos.NConcepto like ''"},
    {Optimista, "DELETE TempProvPrevisionPagos.* FROM TempProvPrevisionPagos"},
    {Optimista,
     "DELETE TempProvPrevisionPagos.* FROM TempProvPrevisionPagos WHERE "
     "TempProvPrevisionPagos.NConcepto like ''"},
    // Cash entries.
    {Lectura, "SELECT TempCajaPagos.* From TempCajaPagos"},
    {Optimista, "SELECT TempCajaPagos.* From TempCajaPagos"},
    {Lectura,
     "SELECT Sum(TempCajaPagos.Importe) AS Importe, TempCajaPagos.Factura, TempCajaPagos.Año, "
     "TempCajaPagos.Tipo FROM TempCajaPagos WHERE (TempCajaPagos.Factura Is Null OR "
     "TempCajaPagos.Factura = '') And TempCajaPagos.FechaHora >= #1/1/2005# And "
     "TempCajaPagos.FechaHora <= #1/1/2005# GROUP BY TempCajaPagos.Factura, TempCajaPagos.Año, "
     "TempCajaPagos.Tipo"},
    {Lectura,
     "SELECT Sum(TempCajaPagos.Importe) AS Importe, TempCajaPagos.Factura, TempCajaPagos.Año, "
     "TempCajaPagos.Tipo FROM TempCajaPagos WHERE (TempCajaPagos.Factura Is Null OR "
     "TempCajaPagos.Factura = '') GROUP BY TempCajaPagos.Factura, TempCajaPagos.Año, "
     "TempCajaPagos.Tipo"},
    {Lectura,
     "SELECT Sum(TempCajaPagos.Importe) AS Importe, TempCajaPagos.Factura, TempCajaPagos.Año, "
     "TempCajaPagos.Tipo FROM TempCajaPagos WHERE TempCajaPagos.Tipo = 0 AND "
     "(TempCajaPagos.Factura Is Null OR TempCajaPagos.Factura = '') And TempCajaPagos.FechaHora >= "
     "#1/1/2005# And TempCajaPagos.FechaHora <= #1/1/2005# GROUP BY TempCajaPagos.Factura, "
     "TempCajaPagos.Año, TempCajaPagos.Tipo"},
    {Lectura,
     "SELECT Sum(TempCajaPagos.Importe) AS Importe, TempCajaPagos.Factura, TempCajaPagos.Año, "
     "TempCajaPagos.Tipo FROM TempCajaPagos WHERE TempCajaPagos.Tipo = 0 AND "
     "(TempCajaPagos.Factura Is Null OR TempCajaPagos.Factura = '') GROUP BY "
     "TempCajaPagos.Factura, TempCajaPagos.Año, TempCajaPagos.Tipo"},
    {Optimista,
     "SELECT TempCajaPagos.* From TempCajaPagos WHERE TempCajaPagos.Tipo = 0 AND "
     "TempCajaPagos.FechaHora like '' AND (TempCajaPagos.Factura Is Null OR TempCajaPagos.Factura "
     "= '') ORDER BY TempCajaPagos.FechaHora"},
    {Optimista,
     "SELECT TempCajaPagos.* From TempCajaPagos WHERE TempCajaPagos.Tipo = 0 AND "
     "TempCajaPagos.FechaHora like '' AND (Trim(TempCajaPagos.Factura) = '' OR "
     "TempCajaPagos.Factura Is Null OR TempCajaPagos.Factura = '') ORDER BY "
     "TempCajaPagos.FechaHora"},
    {Optimista,
     "SELECT TempCajaPagos.Factura, TempCajaPagos.Año From TempCajaPagos WHERE "
     "Trim(TempCajaPagos.Factura) like '' AND TempCajaPagos.Tipo like 0 AND TempCajaPagos.Año like "
     "''"},
    {Optimista,
     "SELECT TempCajaPagos.Factura, TempCajaPagos.Año, TempCajaPagos.Tipo FROM TempCajaPagos WHERE "
     "(TempCajaPagos.Factura Is Null OR TempCajaPagos.Factura = '')"},
    {Optimista,
     "SELECT TempCajaPagos.Factura, TempCajaPagos.Año, TempCajaPagos.Tipo FROM TempCajaPagos WHERE "
     "(TempCajaPagos.Factura Is Null OR TempCajaPagos.Factura = '') And TempCajaPagos.FechaHora >= "
     "#1/1/2005# And TempCajaPagos.FechaHora <= #1/1/2005#"},
    {Optimista,
     "SELECT TempCajaPagos.Factura, TempCajaPagos.Año, TempCajaPagos.Tipo FROM TempCajaPagos WHERE "
     "TempCajaPagos.Tipo = 0 AND (TempCajaPagos.Factura Is Null OR TempCajaPagos.Factura = '')"},
    {Optimista,
     "SELECT TempCajaPagos.Factura, TempCajaPagos.Año, TempCajaPagos.Tipo FROM TempCajaPagos WHERE "
     "TempCajaPagos.Tipo = 0 AND (TempCajaPagos.Factura Is Null OR TempCajaPagos.Factura = '') And "
     "TempCajaPagos.FechaHora >= #1/1/2005# And TempCajaPagos.FechaHora <= #1/1/2005#"},
    {Lectura,
     "SELECT TempCajaPagos.FechaHora, TempCajaPagos.Tipo, TempCajaPagos.Importe, "
     "TempCajaPagos.Observaciones, TempCajaPagos.Factura, TempCajaPagos.Año From TempCajaPagos "
     "WHERE TempCajaPagos.Tipo = 0 AND (TempCajaPagos.Factura Is Null OR TempCajaPagos.Factura = "
     "'') ORDER BY TempCajaPagos.FechaHora"},
    {Lectura,
     "SELECT TempCajaPagos.FechaHora, TempCajaPagos.Tipo, TempCajaPagos.Importe, "
     "TempCajaPagos.Observaciones, TempCajaPagos.Factura, TempCajaPagos.Año From TempCajaPagos "
     "WHERE TempCajaPagos.Tipo = 0 AND (Trim(TempCajaPagos.Factura) = '' OR TempCajaPagos.Factura "
     "Is Null OR TempCajaPagos.Factura = '') ORDER BY TempCajaPagos.FechaHora"},
    {Optimista, "DELETE TempCajaPagos.* From TempCajaPagos"},
    // The list, and the occurrences that were deleted from it.
    {Optimista, "SELECT TempTesvara.* FROM TempTesvara"},
    {Lectura,
     "SELECT TempTesvara.* FROM TempTesvara Order by TempTesvara.Concepto, TempTesvara.NConcepto, "
     "TempTesvara.FechaVto"},
    {Lectura,
     "SELECT TempTesvara.* FROM TempTesvara Order by TempTesvara.FechaVto, TempTesvara.Concepto, "
     "TempTesvara.NConcepto"},
    {Optimista, "DELETE TempTesvara.* FROM TempTesvara"},
    {Optimista, "SELECT TempTesvaraBorrar.* FROM TempTesvaraBorrar"},
    {Lectura,
     "SELECT TempTesvaraBorrar.* FROM TempTesvaraBorrar WHERE TempTesvaraBorrar.NConcepto like ''"},
    {Optimista,
     "DELETE TempTesvaraBorrar.* FROM TempTesvaraBorrar WHERE TempTesvaraBorrar.NConcepto like ''"},
});

}  // namespace

std::span<const Escrita> Sentencias() {
  return kSentencias;
}

}  // namespace dialecto
