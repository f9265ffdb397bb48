#include "list/pago.h"

#include <gtest/gtest.h>

#include <ostream>

#include "apoyo/errores.h"
#include "valores/error.h"

namespace {

using list::Devolver;
using list::Entrar;
using list::Pago;
using list::Recibo;
using list::Supera;

struct Caso {
  const char* Que;
  Recibo Antes;
  const char* Tecleado;
  const char* Pagado;
  bool Marca;
  double Pendiente;
};

std::ostream& operator<<(std::ostream& salida, const Caso& caso) {
  return salida << caso.Que;
}

class ImporteTecleado : public testing::TestWithParam<Caso> {};

TEST_P(ImporteTecleado, DaTextoMarcaYPendiente) {
  const Caso& caso = GetParam();
  const Pago pago = Entrar(caso.Antes, caso.Tecleado);
  EXPECT_EQ(pago.Pagado, caso.Pagado);
  EXPECT_EQ(pago.Marca, caso.Marca);
  EXPECT_DOUBLE_EQ(pago.Pendiente, caso.Pendiente);
}

INSTANTIATE_TEST_SUITE_P(
    Entrar, ImporteTecleado,
    testing::Values(
        Caso{"una parte", {"116,00", ""}, "50", "50,00", false, -50},
        Caso{"una parte sobre otra", {"116,00", "50,00"}, "60,5", "60,50", false, -10.5},
        Caso{"menos que antes", {"116,00", "50,00"}, "20", "20,00", false, 30},
        Caso{"el importe exacto", {"116,00", "50,00"}, "116", "116,00", true, -66},
        Caso{"el importe exacto con miles", {"1.234,50", ""}, "1234,5", "1.234,50", true, -1234.5},
        Caso{"el importe exacto una vez redondeado", {"0,01", ""}, "0,005", "0,01", true, -0.01},
        Caso{"uno que se redondea", {"116,00", ""}, "1,005", "1,01", false, -1.01},
        Caso{"nada", {"116,00", "50,00"}, "", "0", false, 50},
        Caso{"cero", {"116,00", "50,00"}, "0", "0,00", false, 50},
        Caso{"una coma sola", {"116,00", "50,00"}, ",", "0,00", false, 50},
        Caso{"una coma al principio", {"116,00", ""}, ",5", "0,50", false, -0.5},
        Caso{"cero de cero", {"0,00", ""}, "0", "0,00", true, 0},
        Caso{"más que el recibo, que se rechaza en otro sitio",
             {"116,00", ""},
             "200",
             "200,00",
             false,
             -200}));

TEST(Pago, LoQueNoEsUnImporteEsErrorDeTipos) {
  for (const char* tecleado : {"-5", "1,2,3", "x", "5 EUR"}) {
    EXPECT_EQ(apoyo::NumeroDeError([&] {
                return Entrar({"116,00", ""}, tecleado);
              }),
              services::error::TiposNoCoinciden)
        << tecleado;
  }
}

TEST(Pago, AlCerrarElEditorLaCeldaQuedaBajoLaMascara) {
  const auto pagado = [](const Recibo& recibo, const char* tecleado) {
    return list::EntrarAlCerrar(recibo, tecleado).Pagado;
  };
  EXPECT_EQ(pagado({"116,00", "50,00"}, ""), "0,00");
  EXPECT_EQ(pagado({"116,00", ""}, "116"), "116,00");
  EXPECT_EQ(pagado({"", ""}, ""), "0,00");
  EXPECT_TRUE(list::EntrarAlCerrar({"", ""}, "").Marca);
}

TEST(Pago, SoloSuperaLoQuePasaDelRecibo) {
  EXPECT_FALSE(Supera({"116,00", "50,00"}, "116"));
  EXPECT_FALSE(Supera({"116,00", "50,00"}, ""));
  EXPECT_TRUE(Supera({"116,00", ""}, "116,004")) << "aún sin redondear";
  EXPECT_TRUE(Supera({"", ""}, "0,01"));
}

TEST(Pago, DevolverDejaLaParteQueHabiaYNadaMas) {
  const Recibo pagado{"116,00", "116,00"};
  const auto comprobar = [&](const Recibo& antes, const char* queda, double pendiente) {
    const Pago pago = Devolver(pagado, antes);
    EXPECT_EQ(pago.Pagado, queda);
    EXPECT_FALSE(pago.Marca);
    EXPECT_DOUBLE_EQ(pago.Pendiente, pendiente);
  };
  comprobar({"116,00", "50,00"}, "50,00", 66);
  comprobar({"116,00", "116,00"}, "0,00", 116);
  comprobar({"116,00", ""}, "0,00", 116);
  comprobar({"", ""}, "0,00", 116);
}

}  // namespace
