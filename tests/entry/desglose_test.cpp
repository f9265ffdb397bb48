#include "entry/desglose.h"

#include <gtest/gtest.h>

#include "apoyo/errores.h"
#include "valores/formato.h"

// How a total splits, and when a sum is a total.

namespace {

using apoyo::NumeroDeError;
using entry::BaseEIva;
using entry::kIva16;
using entry::kIva4;
using entry::kIva7;

TEST(Desglose, UnTotalConUnTipoSeParteEnBaseEIvaQueLoSuman) {
  EXPECT_EQ(entry::SepararTotal(116, kIva16), (BaseEIva{"100,00", "16,00"}));
  EXPECT_EQ(entry::SepararTotal(100, kIva16), (BaseEIva{"86,21", "13,79"}));
  EXPECT_EQ(entry::SepararTotal(107, kIva7), (BaseEIva{"100,00", "7,00"}));
  EXPECT_EQ(entry::SepararTotal(0.01, kIva4), (BaseEIva{"0,01", "0,00"}));
}

TEST(Desglose, LoQueDejanLosOtrosTiposLlevaElIvaDeSuBase) {
  EXPECT_EQ(entry::SepararResto(89.60, kIva16), (BaseEIva{"77,24", "12,36"}));
  EXPECT_EQ(entry::SepararResto(0, kIva16), (BaseEIva{"0,00", "0,00"}));
}

TEST(Desglose, ElIvaDeUnaBaseEscritaAMano) {
  EXPECT_EQ(entry::IvaDe(86.21, kIva16), "13,79");
  EXPECT_EQ(entry::IvaDe(10, kIva4), "0,40");
}

TEST(Desglose, LaRetencionSobreSuBase) {
  EXPECT_EQ(entry::IrpfDe(100, 15), "15,00");
  EXPECT_EQ(entry::IrpfDe(474.15, 10), "47,42");
}

TEST(Desglose, ElLimiteDeUnaBaseAdmiteLoRetenido) {
  EXPECT_EQ(entry::LimiteDeBase(100, 0, kIva16), 86.21);
  EXPECT_EQ(entry::LimiteDeBase(101, 15, kIva16), 100);
  EXPECT_EQ(entry::LimiteDeIrpf(116, 15), 133.4);
}

TEST(Desglose, ElLimiteDeUnTotalNegativoEsErrorDeTipos) {
  EXPECT_EQ(NumeroDeError([] { return entry::LimiteDeBase(-100, 0, kIva16); }), 13);
  EXPECT_EQ(NumeroDeError([] { return entry::LimiteDeIrpf(-100, 15); }), 13);
}

TEST(Desglose, UnCentimoDeMasODeMenosCuadraYDosNo) {
  EXPECT_TRUE(entry::Cuadra(100, 100));
  EXPECT_TRUE(entry::Cuadra(100.01, 100));
  EXPECT_TRUE(entry::Cuadra(99.99, 100));
  EXPECT_FALSE(entry::Cuadra(100.02, 100));
  EXPECT_FALSE(entry::Cuadra(99.98, 100));
}

TEST(Desglose, BaseEIvaDeCadaTotalSonElTotal) {
  for (const auto& tipo : {kIva16, kIva7, kIva4}) {
    for (int centimos = 1; centimos < 20000; centimos += 7) {
      const double total = services::EnCentimos(centimos / 100.0);
      const BaseEIva partidas = entry::SepararTotal(total, tipo);
      const double suma =
          services::EnCentimos(services::Importe(partidas.Base) + services::Importe(partidas.Iva));
      ASSERT_EQ(suma, total) << tipo.Tanto;
    }
  }
}

}  // namespace
