#include "host/muestra/negocio_lleno.h"

// Amounts are compared as whole cents, so that a cent too much or too few shows.

namespace {

class ImportesDeLaMuestra : public testing::Test {
 protected:
  static void SetUpTestSuite() { negocio = new pruebas::NegocioLleno; }
  static void TearDownTestSuite() { delete negocio; }
  static std::int64_t Cuenta(const std::string& sql) { return negocio->Cuenta(sql); }

  static inline pruebas::NegocioLleno* negocio = nullptr;
};

const std::string kCent = "CAST(round(100 * coalesce(";
const std::string kFin = ", 0)) AS INTEGER)";
std::string Cent(const std::string& columna) {
  return kCent + columna + kFin;
}
std::string Suma(const std::string& que, const std::string& tabla) {
  return "(SELECT coalesce(sum(" + que + "), 0) FROM " + tabla +
         " AS t WHERE t.NConcepto = f.NConcepto AND t.NFactura = f.Factura AND t.Año = f.Año)";
}

TEST_F(ImportesDeLaMuestra, BasesIvaYExentoMenosRetencionSonElTotal) {
  const std::string bases = Cent("t.Base") + " + " + Cent("t.Importe") + " + " + Cent("t.Exento");
  EXPECT_EQ(Cuenta("SELECT count(*) FROM ProvFacturas AS f WHERE " + Suma(bases, "ProvBasesIva") +
                   " - " + Cent("f.IRPF") + " <> " + Cent("f.Total")),
            0);
  EXPECT_GT(Cuenta("SELECT min(" + Cent("Total") + ") FROM ProvFacturas"), 0);
}

TEST_F(ImportesDeLaMuestra, LosRecibosSonElTotal) {
  EXPECT_EQ(Cuenta("SELECT count(*) FROM ProvFacturas AS f WHERE " +
                   Suma(Cent("t.Importe"), "ProvVencimientos") + " <> " + Cent("f.Total")),
            0);
  EXPECT_EQ(Cuenta("SELECT count(*) FROM ProvFacturas AS f WHERE " + Suma("1", "ProvVencimientos") +
                   " <> f.NRecibos"),
            0);
  EXPECT_GT(Cuenta("SELECT min(" + Cent("Importe") + ") FROM ProvVencimientos"), 0);
}

TEST_F(ImportesDeLaMuestra, ElIvaEsElPorcentajeDeSuBase) {
  EXPECT_EQ(Cuenta("SELECT count(*) FROM ProvBasesIva WHERE Tipo <> '0' AND " + Cent("Importe") +
                   " <> (" + Cent("Base") +
                   " * CASE Tipo WHEN '1' THEN 16 WHEN '2' THEN 7 ELSE 4 END + 50) / 100"),
            0);
  EXPECT_EQ(Cuenta("SELECT count(*) FROM ProvBasesIva WHERE (Tipo = '0') <> (Exento IS NOT NULL) "
                   "OR (Tipo = '0') <> (Base IS NULL) OR (Tipo = '0') <> (Importe IS NULL)"),
            0);
  EXPECT_EQ(Cuenta("SELECT count(DISTINCT Tipo) FROM ProvBasesIva"), 4);
}

TEST_F(ImportesDeLaMuestra, LaRetencionEsElPorcentajeDeSuBase) {
  EXPECT_EQ(Cuenta("SELECT count(*) FROM ProvFacturas WHERE " + Cent("IRPF") + " <> (" +
                   Cent("BIRPF") + " * TipoIRPF + 50) / 100"),
            0);
  const auto con = Cuenta("SELECT count(*) FROM ProvFacturas WHERE IRPF > 0");
  EXPECT_GT(con, 60);
  EXPECT_LT(con, 400);
}

// The load takes a value of exactly 1 in these columns for none.
TEST_F(ImportesDeLaMuestra, NingunaRetencionEsUno) {
  EXPECT_EQ(Cuenta("SELECT count(*) FROM ProvFacturas WHERE 1 IN (BIRPF, TipoIRPF, IRPF)"), 0);
}

TEST_F(ImportesDeLaMuestra, LoPagadoEnCajaNoPasaDeLaFactura) {
  EXPECT_EQ(Cuenta("SELECT count(*) FROM ProvFacturas AS f JOIN (SELECT Tipo, Factura, Año, sum(" +
                   Cent("Importe") +
                   ") AS s FROM CajaPagos WHERE Factura <> '' GROUP BY Tipo, Factura, Año) AS c "
                   "ON c.Tipo = f.NConcepto AND c.Factura = f.Factura AND c.Año = f.Año WHERE c.s "
                   "<> " +
                   Cent("f.Total")),
            0);
  EXPECT_GT(Cuenta("SELECT min(" + Cent("Importe") + ") FROM CajaPagos"), 0);
}

}  // namespace
