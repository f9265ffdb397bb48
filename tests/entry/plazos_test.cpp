#include "entry/plazos.h"

#include <gmock/gmock.h>

#include <vector>

#include "apoyo/errores.h"
#include "valores/formato.h"
#include "valores/numero.h"

// How a total is spread over its receipts.

namespace {

using entry::Plazos;
using entry::ReciboNuevo;
using testing::ElementsAre;

std::vector<ReciboNuevo> Repartir(const Plazos& plazos) {
  std::vector<ReciboNuevo> recibos;
  entry::RepartirEnRecibos(plazos, [&](int numero, const ReciboNuevo& recibo) {
    EXPECT_EQ(numero, static_cast<int>(recibos.size()) + 1);
    recibos.push_back(recibo);
  });
  return recibos;
}

std::vector<std::string> Importes(const Plazos& plazos) {
  std::vector<std::string> importes;
  for (const ReciboNuevo& recibo : Repartir(plazos)) importes.push_back(recibo.Importe);
  return importes;
}

std::vector<std::string> Fechas(const Plazos& plazos) {
  std::vector<std::string> fechas;
  for (const ReciboNuevo& recibo : Repartir(plazos)) fechas.push_back(recibo.Fecha);
  return fechas;
}

TEST(Reparto, ElUltimoReciboTomaLoQueFalta) {
  EXPECT_THAT(Importes({3, 30, 30, "31/01/2005", 100}), ElementsAre("33,33", "33,33", "33,34"));
}

TEST(Reparto, ElUltimoReciboPuedeSerElMenor) {
  EXPECT_THAT(Importes({2, 30, 30, "31/01/2005", 100.01}), ElementsAre("50,01", "50,00"));
}

TEST(Reparto, UnSoloReciboEsElTotal) {
  EXPECT_THAT(Importes({1, 30, 30, "31/01/2005", 10}), ElementsAre("10,00"));
}

TEST(Reparto, LosPlazosSonDiasYNoMeses) {
  EXPECT_THAT(Fechas({3, 30, 30, "31/01/2005", 100}),
              ElementsAre("02/03/2005", "01/04/2005", "01/05/2005"));
}

TEST(Reparto, SinDiasNiCadenciaVencenTodosElDiaDeLaFactura) {
  EXPECT_THAT(Fechas({2, 0, 0, "15/03/2005", 100}), ElementsAre("15/03/2005", "15/03/2005"));
}

TEST(Reparto, LoPagadoEnCajaSeReparteSinCorregirElResto) {
  const auto recibos = Repartir({3, 30, 30, "31/01/2005", 300, 100});
  ASSERT_EQ(recibos.size(), 3U);
  for (const ReciboNuevo& recibo : recibos) EXPECT_EQ(recibo.Pagado, "33,33");
}

TEST(Reparto, LosRecibosSumanSiempreElTotal) {
  for (int numero = 1; numero <= 60; ++numero) {
    for (const double total : {0.01, 1.0, 99.99, 1234.56, 98765.43}) {
      double suma = 0;
      for (const std::string& importe : Importes({double(numero), 1, 1, "15/03/2005", total})) {
        suma += services::LeerNumero(importe).value();
      }
      ASSERT_EQ(services::Mascara(suma), services::Mascara(total)) << numero;
    }
  }
}

TEST(Reparto, DondeAcabaElCalendarioQuedanLosDeAntes) {
  std::vector<std::string> fechas;
  const auto repartir = [&] {
    entry::RepartirEnRecibos({3, 0, 1, "30/12/9999", 90}, [&](int, const ReciboNuevo& recibo) {
      fechas.push_back(recibo.Fecha);
    });
  };
  EXPECT_EQ(apoyo::NumeroDeError(repartir), services::error::LlamadaNoValida);
  EXPECT_THAT(fechas, ElementsAre("30/12/9999", "31/12/9999"));
}

TEST(Reparto, SinFechaDeFacturaEsErrorDeTipos) {
  EXPECT_EQ(apoyo::NumeroDeError([] { return Repartir({1, 0, 1, "", 90}); }), 13);
}

TEST(Reparto, CeroRecibosEsUnaDivisionPorCero) {
  EXPECT_EQ(apoyo::NumeroDeError([] {
              return Repartir({0, 0, 1, "15/03/2005", 90});
            }),
            services::error::DivisionPorCero);
}

TEST(Reparto, MasRecibosDeLosQueSeTecleanNoSeReparten) {
  EXPECT_EQ(Repartir({999, 1, 1, "15/03/2005", 9990}).size(), 999U);
  EXPECT_EQ(apoyo::NumeroDeError([] {
              return Repartir({1e9, 0, 0, "15/03/2005", 90});
            }),
            services::error::Desbordamiento);
}

TEST(Reparto, UnosDiasMasAllaDeTodoCalendarioSonUnError) {
  EXPECT_EQ(apoyo::NumeroDeError([] {
              return Repartir({1, 1e30, 0, "15/03/2005", 90});
            }),
            services::error::LlamadaNoValida);
}

TEST(ALaVista, ElReciboLlevaLaFechaTalComoEsta) {
  EXPECT_EQ(entry::ReciboALaVista("15/3/05", "1234,5", 0),
            (ReciboNuevo{"15/3/05", "1.234,50", "0,00"}));
  EXPECT_EQ(entry::ReciboALaVista("15/03/2005", "100", 25.5),
            (ReciboNuevo{"15/03/2005", "100,00", "25,50"}));
}

}  // namespace
