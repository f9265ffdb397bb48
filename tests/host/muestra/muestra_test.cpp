#include "muestra/muestra.h"

#include <array>
#include <string>

#include "host/muestra/negocio_lleno.h"
#include "valores/error.h"

namespace {

using pruebas::NegocioLleno;
using pruebas::NegocioVacio;

constexpr std::array kTablas = {"ProvConceptos",    "ProvFacturas",       "ProvBasesIva",
                                "ProvVencimientos", "ProvPrevisionPagos", "CajaPagos"};

/// All the rows of a database as text.
std::string Volcado(NegocioVacio& negocio) {
  std::string texto;
  for (const char* tabla : kTablas) {
    const auto filas = negocio.datos->Consultar(std::string("SELECT * FROM ") + tabla).Filas;
    for (std::size_t fila = 0; fila < filas.Cuantas(); ++fila) {
      for (std::size_t i = 0; i < filas.Columnas(); ++i) texto += filas.En(fila, i).Texto() + "|";
      texto += "\n";
    }
  }
  return texto;
}

class Muestra : public testing::Test {
 protected:
  static void SetUpTestSuite() { negocio = new NegocioLleno; }
  static void TearDownTestSuite() { delete negocio; }
  static std::int64_t Cuenta(const std::string& sql) { return negocio->Cuenta(sql); }
  /// How many values of a column aren't the stored form of a day that exists.
  static std::int64_t NoSonFecha(const std::string& columna, const std::string& tabla) {
    return Cuenta("SELECT count(*) FROM " + tabla + " WHERE " + columna +
                  " IS NOT NULL AND strftime('%Y%m%d', substr(" + columna + ", 1, 4) || '-' || " +
                  "substr(" + columna + ", 5, 2) || '-' || substr(" + columna + ", 7)) IS NOT " +
                  columna);
  }

  static inline NegocioLleno* negocio = nullptr;
};

TEST_F(Muestra, TieneElTamanoDeUnNegocio) {
  const auto conceptos = Cuenta("SELECT count(*) FROM ProvConceptos");
  EXPECT_GE(conceptos, 55);
  EXPECT_LE(conceptos, 65);
  EXPECT_EQ(Cuenta("SELECT count(*) FROM ProvFacturas"), 1200);
  EXPECT_EQ(Cuenta("SELECT count(*) FROM ProvPrevisionPagos"), 15);
  EXPECT_EQ(Cuenta("SELECT count(DISTINCT Tipo) FROM ProvPrevisionPagos"), 3);
  EXPECT_EQ(Cuenta("SELECT min(NRecibos) FROM ProvFacturas"), 1);
  EXPECT_EQ(Cuenta("SELECT max(NRecibos) FROM ProvFacturas"), 6);
  EXPECT_EQ(Cuenta("SELECT count(DISTINCT forpago) FROM ProvFacturas"), 2);
  EXPECT_EQ(Cuenta("SELECT count(*) FROM ProvFacturas WHERE forpago = '1' AND NRecibos > 1"), 0);
}

TEST_F(Muestra, LosConceptosTienenEnesYAcentosYNingunaComilla) {
  EXPECT_GT(Cuenta("SELECT count(*) FROM ProvConceptos WHERE instr(Descripcion, 'ñ')"), 5);
  EXPECT_GT(Cuenta("SELECT count(*) FROM ProvConceptos WHERE instr(Descripcion, 'í')"), 5);
  EXPECT_EQ(Cuenta("SELECT count(*) FROM ProvConceptos WHERE instr(Descripcion, '''')"), 0);
  EXPECT_EQ(Cuenta("SELECT count(*) FROM ProvFacturas WHERE instr(Factura, '''')"), 0);
}

TEST_F(Muestra, LasFechasVanEnFormaAlmacenada) {
  EXPECT_EQ(NoSonFecha("Fecha", "ProvFacturas"), 0);
  EXPECT_EQ(NoSonFecha("FechaVto", "ProvVencimientos"), 0);
  EXPECT_EQ(NoSonFecha("Fechapago", "ProvVencimientos"), 0);
  EXPECT_EQ(NoSonFecha("Fecha1Vto", "ProvPrevisionPagos"), 0);
  EXPECT_EQ(Cuenta("SELECT count(*) FROM ProvFacturas WHERE substr(Fecha, 1, 4) <> Año"), 0);
  EXPECT_EQ(Cuenta("SELECT min(Fecha) >= '20031201' FROM ProvFacturas"), 1);
  EXPECT_EQ(Cuenta("SELECT max(Fecha) < '20051201' FROM ProvFacturas"), 1);
}

TEST_F(Muestra, HayRecibosSinPagarAMediasYPagados) {
  const std::string recibos = "SELECT count(*) FROM ProvVencimientos WHERE ";
  EXPECT_GT(Cuenta(recibos + "Pagado IS NULL"), 20);
  EXPECT_GT(Cuenta(recibos + "Pagado = 0"), 100);
  EXPECT_GT(Cuenta(recibos + "Pagado > 0 AND Pagado < Importe"), 20);
  EXPECT_GT(Cuenta(recibos + "Pagado = Importe"), 700);
  EXPECT_EQ(Cuenta(recibos + "Pagado > Importe OR Pagado < 0"), 0);
}

TEST_F(Muestra, SePagaEntreLaFacturaYElDia) {
  EXPECT_EQ(Cuenta("SELECT count(*) FROM ProvVencimientos WHERE (coalesce(Pagado, 0) > 0) <> "
                   "(Fechapago IS NOT NULL)"),
            0);
  EXPECT_EQ(Cuenta("SELECT count(*) FROM ProvVencimientos WHERE Fechapago > '20050315'"), 0);
  EXPECT_EQ(
      Cuenta("SELECT count(*) FROM ProvVencimientos AS v JOIN ProvFacturas AS f ON f.NConcepto = "
             "v.NConcepto AND f.Factura = v.NFactura AND f.Año = v.Año WHERE v.Fechapago < f.Fecha "
             "OR v.FechaVto < f.Fecha"),
      0);
}

// The load joins invoices to receipts without the year.
TEST_F(Muestra, NingunProveedorRepiteNumero) {
  EXPECT_EQ(Cuenta("SELECT count(*) FROM (SELECT 1 FROM ProvFacturas GROUP BY NConcepto, Factura "
                   "HAVING count(*) > 1)"),
            0);
}

TEST_F(Muestra, TodoEsDeUnConceptoConocido) {
  for (const char* columna :
       {"NConcepto AS codigo FROM ProvFacturas", "NConcepto AS codigo FROM ProvPrevisionPagos",
        "CAST(Tipo AS TEXT) AS codigo FROM CajaPagos"}) {
    EXPECT_EQ(Cuenta("SELECT count(*) FROM (SELECT " + std::string(columna) +
                     ") AS t WHERE t.codigo NOT IN (SELECT NConcepto FROM ProvConceptos)"),
              0)
        << columna;
  }
}

TEST_F(Muestra, LaCajaEsDeDosSucursalesYEnlazaConFacturasQueHay) {
  EXPECT_EQ(Cuenta("SELECT count(DISTINCT idSucursal) FROM CajaPagos"), 2);
  EXPECT_GT(Cuenta("SELECT count(*) FROM CajaPagos WHERE Factura <> ''"), 100);
  EXPECT_GT(Cuenta("SELECT count(*) FROM CajaPagos WHERE Factura IS NULL"), 10);
  EXPECT_GT(Cuenta("SELECT count(*) FROM CajaPagos WHERE Factura = ''"), 10);
  EXPECT_EQ(Cuenta("SELECT count(*) FROM CajaPagos AS c WHERE c.Factura <> '' AND NOT EXISTS "
                   "(SELECT 1 FROM ProvFacturas AS f WHERE f.NConcepto = CAST(c.Tipo AS TEXT) AND "
                   "f.Factura = c.Factura AND f.Año = c.Año)"),
            0);
  EXPECT_EQ(Cuenta("SELECT count(*) FROM CajaPagos WHERE FechaHora >= '2005-03-16'"), 0);
}

TEST_F(Muestra, SeEscribeEnUnaSolaUnidad) {
  EXPECT_EQ(negocio->datos->Cuenta().Transacciones, 1U);
}

TEST_F(Muestra, LaMismaFechaDaLasMismasFilas) {
  NegocioLleno otro(services::HacerFecha(2005, 3, 15, 18));
  EXPECT_EQ(Volcado(*negocio), Volcado(otro));
  NegocioLleno despues(services::HacerFecha(2005, 3, 16));
  EXPECT_NE(Volcado(*negocio), Volcado(despues));
}

TEST(MuestraVacia, EstaVaciaHastaQueSeLlena) {
  NegocioVacio negocio;
  EXPECT_TRUE(muestra::EstaVacia(*negocio.datos));
  muestra::Llenar(*negocio.datos, pruebas::kHoy);
  EXPECT_FALSE(muestra::EstaVacia(*negocio.datos));
}

TEST(MuestraVacia, UnaFilaDeCualquierTablaLaHaceNoVacia) {
  for (const char* fila :
       {"ProvConceptos (NConcepto) VALUES ('1')",
        "ProvFacturas (NConcepto, Factura, Año) VALUES ('1', '2', '2005')",
        "ProvPrevisionPagos (NConcepto) VALUES ('1')",
        "CajaPagos (idSucursal, FechaHora, Tipo) VALUES ('1', '2005-01-02', 3)"}) {
    NegocioVacio negocio;
    negocio.datos->Ejecutar(std::string("INSERT INTO ") + fila);
    EXPECT_FALSE(muestra::EstaVacia(*negocio.datos)) << fila;
  }
}

TEST(MuestraVacia, UnFalloNoDejaNada) {
  NegocioVacio negocio;
  negocio.datos->Ejecutar("INSERT INTO ProvPrevisionPagos (NConcepto) VALUES ('602')");
  EXPECT_THROW(muestra::Llenar(*negocio.datos, pruebas::kHoy), services::ErrorEjecucion);
  EXPECT_EQ(negocio.Filas("ProvFacturas"), 0);
  EXPECT_EQ(negocio.Filas("ProvPrevisionPagos"), 1);
}

}  // namespace
