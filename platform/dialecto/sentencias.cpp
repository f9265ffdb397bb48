#include "dialecto/sentencias.h"

#include <array>

// By what they are about. Case, blanks, the order of what And joins and the way of trimming don't
// matter here.

namespace dialecto {

namespace {

using namespace std::string_view_literals;

#define PENDIENTE "(TempCajaPagos.Factura Is Null OR TempCajaPagos.Factura = '')"
#define PENDIENTE_O_SUYA                                                \
  "(Trim(TempCajaPagos.Factura) = '' OR TempCajaPagos.Factura Is Null " \
  "OR TempCajaPagos.Factura = '')"
#define ENTRE_FECHAS                            \
  " And TempCajaPagos.FechaHora >= #1/1/2005# " \
  "And TempCajaPagos.FechaHora <= #1/1/2005#"
#define GRUPOS                                                            \
  "SELECT Sum(TempCajaPagos.Importe) AS Importe, TempCajaPagos.Factura, " \
  "TempCajaPagos.Año, TempCajaPagos.Tipo FROM TempCajaPagos WHERE "
#define POR_GRUPO " GROUP BY TempCajaPagos.Factura, TempCajaPagos.Año, TempCajaPagos.Tipo"
#define APUNTES \
  "SELECT TempCajaPagos.Factura, TempCajaPagos.Año, TempCajaPagos.Tipo FROM TempCajaPagos WHERE "
#define LISTA_DE_CAJA                                                           \
  "SELECT TempCajaPagos.FechaHora, TempCajaPagos.Tipo, TempCajaPagos.Importe, " \
  "TempCajaPagos.Observaciones, TempCajaPagos.Factura, TempCajaPagos.Año "     \
  "From TempCajaPagos WHERE TempCajaPagos.Tipo = 0 AND "
#define POR_MOMENTO " ORDER BY TempCajaPagos.FechaHora"
#define UN_APUNTE                                                               \
  "SELECT TempCajaPagos.* From TempCajaPagos WHERE TempCajaPagos.Tipo = 0 AND " \
  "TempCajaPagos.FechaHora like '' AND "
#define VENCIMIENTOS_DE_FACTURA                                             \
  "FROM TempProvVencimientos WHERE TempProvVencimientos.NConcepto like '' " \
  "And Trim(TempProvVencimientos.NFactura) like '' And TempProvVencimientos.Año like ''"
#define FACTURA_DE_TRABAJO                                              \
  "FROM TempProvFacturas WHERE Trim(TempProvFacturas.Factura) like '' " \
  "And TempProvFacturas.NConcepto like '' And TempProvFacturas.Año like ''"
#define BASES_DE_FACTURA                                                 \
  "FROM TempProvBasesIva WHERE Trim(TempProvBasesIva.NFactura) like '' " \
  "And TempProvBasesIva.NConcepto like '' And TempProvBasesIva.Año like ''"

constexpr std::array kSentencias = {
    // The stored tables: load.
    "SELECT DISTINCT ProvFacturas.*, ProvConceptos.Descripcion FROM (ProvFacturas INNER JOIN "
    "ProvVencimientos ON (ProvFacturas.Factura = ProvVencimientos.NFactura) AND "
    "(ProvFacturas.NConcepto = ProvVencimientos.NConcepto)) INNER JOIN ProvConceptos ON "
    "ProvFacturas.NConcepto = ProvConceptos.NConcepto WHERE ProvVencimientos.FechaVto >= '' And "
    "ProvVencimientos.FechaVto <= '' Order By ProvFacturas.Fecha"sv,
    "SELECT DISTINCT ProvBasesIva.* FROM ProvBasesIva INNER JOIN ProvVencimientos ON "
    "(ProvBasesIva.NConcepto = ProvVencimientos.NConcepto) AND (ProvBasesIva.NFactura = "
    "ProvVencimientos.NFactura) WHERE ProvVencimientos.FechaVto >= '' And "
    "ProvVencimientos.FechaVto <= ''"sv,
    "SELECT DISTINCT ProvVencimientos.*, ProvConceptos.Descripcion FROM ((ProvVencimientos INNER "
    "JOIN ProvFacturas ON (ProvVencimientos.NConcepto = ProvFacturas.NConcepto) AND "
    "(ProvVencimientos.NFactura = ProvFacturas.Factura)) INNER JOIN ProvVencimientos AS "
    "ProvVencimientos_1 ON (ProvFacturas.NConcepto = ProvVencimientos_1.NConcepto) AND "
    "(ProvFacturas.Factura = ProvVencimientos_1.NFactura)) INNER JOIN ProvConceptos ON "
    "ProvVencimientos.NConcepto = ProvConceptos.NConcepto WHERE "
    "(((ProvVencimientos_1.FechaVto)>='' "
    "And (ProvVencimientos_1.FechaVto)<=''))"sv,
    "SELECT DISTINCT ProvPrevisionPagos.NConcepto, ProvPrevisionPagos.Fecha1Vto, "
    "ProvPrevisionPagos.Cada, ProvPrevisionPagos.Tipo, ProvPrevisionPagos.Importe, "
    "ProvConceptos.Descripcion FROM ProvConceptos INNER JOIN ProvPrevisionPagos ON "
    "ProvConceptos.NConcepto = ProvPrevisionPagos.NConcepto WHERE ProvPrevisionPagos.Fecha1Vto <= "
    "'' Order By ProvPrevisionPagos.Fecha1Vto"sv,
    "SELECT CajaPagos.* From CajaPagos WHERE Trim(CajaPagos.Factura) like '' And CajaPagos.Tipo "
    "like 0 And CajaPagos.Año like ''"sv,
    "SELECT CajaPagos.* From CajaPagos WHERE CajaPagos.Factura Is Null OR CajaPagos.Factura = ''"sv,
    // Commit.
    "SELECT DISTINCT ProvFacturas.* FROM ProvFacturas INNER JOIN ProvVencimientos ON "
    "(ProvFacturas.NConcepto = ProvVencimientos.NConcepto) AND (ProvFacturas.Factura = "
    "ProvVencimientos.NFactura) WHERE ProvVencimientos.FechaVto >= '' And "
    "ProvVencimientos.FechaVto <= '' Order By ProvFacturas.Fecha"sv,
    "DELETE From ProvBasesIva WHERE ProvBasesIva.NConcepto like '' and ProvBasesIva.Año like '' "
    "and Trim(ProvBasesIva.NFactura) like ''"sv,
    "DELETE From ProvVencimientos WHERE ProvVencimientos.NConcepto like '' and "
    "ProvVencimientos.Año like '' and Trim(ProvVencimientos.NFactura) like ''"sv,
    "DELETE FROM ProvFacturas WHERE Trim(ProvFacturas.Factura) like '' AND ProvFacturas.NConcepto "
    "like '' And ProvFacturas.Año like ''"sv,
    "DELETE FROM ProvPrevisionPagos WHERE ProvPrevisionPagos.Fecha1Vto <= ''"sv,
    "SELECT CajaPagos.* FROM CajaPagos WHERE CajaPagos.idSucursal like '' And CajaPagos.FechaHora "
    "like '' And CajaPagos.Tipo like 0"sv,
    // Concepts, and an invoice that is there already.
    "SELECT ProvConceptos.* From ProvConceptos WHERE ProvConceptos.NConcepto like ''"sv,
    "SELECT ProvConceptos.* From ProvConceptos WHERE trim(ProvConceptos.NConcepto) like ''"sv,
    "SELECT ProvConceptos.* From ProvConceptos WHERE trim(ProvConceptos.Descripcion) like ''"sv,
    "SELECT ProvFacturas.* FROM ProvFacturas WHERE Trim(ProvFacturas.Factura) like '' And "
    "ProvFacturas.NConcepto like '' and ProvFacturas.Año like ''"sv,
    // The working tables: the list and its forecasts.
    "SELECT TempProvVencimientos.* FROM TempProvVencimientos WHERE TempProvVencimientos.Visible = "
    "True"sv,
    "SELECT TempTesvaraBorrar.* FROM TempTesvaraBorrar WHERE TempTesvaraBorrar.NConcepto like ''"sv,
    "DELETE TempTesvaraBorrar.* FROM TempTesvaraBorrar WHERE TempTesvaraBorrar.NConcepto like ''"sv,
    "SELECT TempProvPrevisionPagos.* FROM TempProvPrevisionPagos WHERE "
    "TempProvPrevisionPagos.NConcepto like ''"sv,
    "DELETE TempProvPrevisionPagos.* FROM TempProvPrevisionPagos WHERE "
    "TempProvPrevisionPagos.NConcepto like ''"sv,
    // An invoice, its bases and its due dates.
    "SELECT TempProvFacturas.* " FACTURA_DE_TRABAJO ""sv,
    "DELETE TempProvFacturas.* " FACTURA_DE_TRABAJO ""sv,
    "SELECT TempProvBasesIva.* " BASES_DE_FACTURA ""sv,
    "DELETE TempProvBasesIva.* " BASES_DE_FACTURA ""sv,
    "SELECT TempProvVencimientos.* " VENCIMIENTOS_DE_FACTURA ""sv,
    "SELECT TempProvVencimientos.* " VENCIMIENTOS_DE_FACTURA
    " Order By TempProvVencimientos.FechaVto"sv,
    "DELETE TempProvVencimientos.* " VENCIMIENTOS_DE_FACTURA ""sv,
    "SELECT TempProvVencimientos.* " VENCIMIENTOS_DE_FACTURA
    " AND TempProvVencimientos.FechaVto like ''"sv,
    "DELETE TempProvVencimientos.* " VENCIMIENTOS_DE_FACTURA
    " And TempProvVencimientos.FechaVto like ''"sv,
    // Cash entries: of an invoice; one by its moment; of a concept.
    "SELECT TempCajaPagos.Factura, TempCajaPagos.Año From TempCajaPagos WHERE "
    "Trim(TempCajaPagos.Factura) like '' AND TempCajaPagos.Tipo like 0 AND TempCajaPagos.Año like "
    "''"sv,
    UN_APUNTE PENDIENTE POR_MOMENTO ""sv,
    UN_APUNTE PENDIENTE_O_SUYA POR_MOMENTO ""sv,
    LISTA_DE_CAJA PENDIENTE POR_MOMENTO ""sv,
    LISTA_DE_CAJA PENDIENTE_O_SUYA POR_MOMENTO ""sv,
    // Those that become invoices by themselves: of all concepts or of one, of all time or of some.
    GRUPOS PENDIENTE POR_GRUPO ""sv,
    GRUPOS PENDIENTE ENTRE_FECHAS POR_GRUPO ""sv,
    GRUPOS "TempCajaPagos.Tipo = 0 AND " PENDIENTE POR_GRUPO ""sv,
    GRUPOS "TempCajaPagos.Tipo = 0 AND " PENDIENTE ENTRE_FECHAS POR_GRUPO ""sv,
    APUNTES PENDIENTE ""sv,
    APUNTES PENDIENTE ENTRE_FECHAS ""sv,
    APUNTES "TempCajaPagos.Tipo = 0 AND " PENDIENTE ""sv,
    APUNTES "TempCajaPagos.Tipo = 0 AND " PENDIENTE ENTRE_FECHAS ""sv,
};

}  // namespace

std::span<const std::string_view> Sentencias() {
  return kSentencias;
}

}  // namespace dialecto
