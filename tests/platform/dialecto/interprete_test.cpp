#include "dialecto/interprete.h"

#include <gmock/gmock.h>

#include "apoyo/errores.h"
#include "catalogo_de_prueba.h"

// What is remembered of a statement for the next of its form, and what isn't.

namespace {

using dialecto::Sentencia;
using services::ModoApertura;
using services::Valor;
using testing::ElementsAre;
namespace error = services::error;

class InterpreteTest : public testing::Test {
 protected:
  Sentencia Leer(std::string_view escrita, ModoApertura modo = ModoApertura::Lectura) {
    return interprete.Leer(escrita, modo);
  }

  pruebas::CatalogoDePrueba catalogo;
  dialecto::Interprete interprete{pruebas::MotorDePrueba, catalogo};
};

TEST_F(InterpreteTest, DeUnaFormaSeTraduceUnaVez) {
  const auto una = Leer("SELECT Caja.* FROM Caja WHERE Factura like 'A1' And Tipo = 2");
  const auto otra = Leer("SELECT Caja.* FROM Caja WHERE Factura like 'B 22' And Tipo = -31");
  EXPECT_EQ(una.Traducida, otra.Traducida);
  EXPECT_THAT(una.Parametros, ElementsAre(Valor("A1"), Valor(2)));
  EXPECT_THAT(otra.Parametros, ElementsAre(Valor("B 22"), Valor(-31)));
}

TEST_F(InterpreteTest, CadaValorTomaElTipoDeSuColumnaAunqueLaFormaSeConozca) {
  const std::string donde = "DELETE FROM Caja WHERE Caja.FechaHora = #";
  const std::string resto = "# And Visible = True And '";
  Leer(donde + "1/2/2005" + resto + "7' = Tipo");
  EXPECT_THAT(Leer(donde + "3/4/2005 9:30:00" + resto + " 8 ' = Tipo").Parametros,
              ElementsAre(Valor(services::HacerFecha(2005, 3, 4, 9, 30)), Valor(true), Valor(8)));
  EXPECT_THAT(Leer(donde + "3/4/2005" + resto + "x' = Tipo").Parametros,
              ElementsAre(Valor(services::HacerFecha(2005, 3, 4)), Valor(true), Valor()));
  EXPECT_EQ(apoyo::NumeroDeError([&] { Leer(donde + "31/31/2005" + resto + "7' = Tipo"); }),
            error::SentenciaRechazada);
}

TEST_F(InterpreteTest, LaQueDejaEscribirEsOtra) {
  const char* const escrita = "SELECT Caja.* FROM Caja";
  const auto escribe = Leer(escrita, ModoApertura::Optimista);
  EXPECT_NE(Leer(escrita).Traducida->Texto, escribe.Traducida->Texto);
  EXPECT_EQ(Leer(escrita, ModoApertura::Pesimista).Traducida, escribe.Traducida);
}

TEST_F(InterpreteTest, UnSignoApartadoNoEsDelValor) {
  const std::string donde = "SELECT Caja.* FROM Caja WHERE Tipo = ";
  EXPECT_THAT(Leer(donde + "- 1").Parametros, ElementsAre(Valor(-1)));
  for (const char* otra : {"- -1", "--1", "- - 1", "-- 1"}) {
    EXPECT_EQ(apoyo::NumeroDeError([&] { Leer(donde + otra); }), error::SentenciaRechazada) << otra;
  }
  EXPECT_THAT(Leer(donde + "-22").Parametros, ElementsAre(Valor(-22)));
  EXPECT_THAT(Leer(donde + "- 22").Parametros, ElementsAre(Valor(-22)));
}

TEST_F(InterpreteTest, UnPatronNoEsLaFormaDeOtroTexto) {
  const std::string donde = "SELECT Conceptos.* FROM Conceptos WHERE Descripcion like '";
  const std::string exacta = Leer(donde + "luz'").Traducida->Texto;
  EXPECT_THAT(exacta, testing::EndsWith(" = ?"));
  EXPECT_THAT(Leer(donde + "lu%'").Traducida->Texto, testing::EndsWith(" LIKE ?"));
  EXPECT_EQ(Leer(donde + "agua'").Traducida->Texto, exacta);
}

TEST_F(InterpreteTest, LoRechazadoNoSeRecuerdaPorOtra) {
  const std::string donde = "DELETE FROM Caja WHERE Factura like 'A' or ";
  Leer(donde + "Tipo = 1");
  for (const char* otra : {"1 = 1", "-1 = 1", "'1' = 1", "Tipo = 1 1", "Tipo = '1"}) {
    EXPECT_EQ(apoyo::NumeroDeError([&] { Leer(donde + otra); }), error::SentenciaRechazada) << otra;
  }
}

class ConFacturas final : public pruebas::CatalogoDePrueba {
 public:
  ConFacturas() { tablas_.push_back({"ProvFacturas", {{"Factura"}}, {"fila"}}); }
};

TEST_F(InterpreteTest, UnaFormaConocidaSeAbreSoloEnSuModo) {
  ConFacturas conFacturas;
  dialecto::Interprete propio(pruebas::MotorDePrueba, conFacturas, dialecto::Formas({}));
  const auto numero = [&](ModoApertura modo) {
    return apoyo::NumeroDeError(
        [&] { std::ignore = propio.Leer("SELECT ProvFacturas.* FROM ProvFacturas", modo); });
  };
  EXPECT_EQ(numero(ModoApertura::Pesimista), error::SentenciaRechazada);
  EXPECT_EQ(numero(ModoApertura::Optimista), 0);
  EXPECT_EQ(numero(ModoApertura::Pesimista), error::SentenciaRechazada);
  EXPECT_EQ(numero(ModoApertura::Lectura), error::SentenciaRechazada);
}

TEST_F(InterpreteTest, LoQueNoSeDejaCorrerNoDesplazaNada) {
  ConFacturas conFacturas;
  dialecto::Interprete propio(pruebas::MotorDePrueba, conFacturas, dialecto::Formas({}));
  const std::string escrita = "SELECT ProvFacturas.* FROM ProvFacturas";
  const auto antes = propio.Leer(escrita, ModoApertura::Optimista);
  for (int i = 0; i < 1'000; ++i) {
    const std::string otra = escrita + " WHERE Factura = '''" + std::to_string(i) + "'";
    EXPECT_THROW(std::ignore = propio.Leer(otra, ModoApertura::Optimista),
                 services::ErrorEjecucion);
  }
  EXPECT_EQ(propio.Leer(escrita, ModoApertura::Optimista).Traducida, antes.Traducida);
}

TEST_F(InterpreteTest, ConOtrasTablasSeTraduceDeNuevo) {
  const char* const escrita = "SELECT Caja.* FROM Caja";
  const auto antes = Leer(escrita);
  interprete.Olvidar();
  const auto luego = Leer(escrita);
  EXPECT_NE(antes.Traducida, luego.Traducida);
  EXPECT_EQ(antes.Traducida->Texto, luego.Traducida->Texto);
}

TEST_F(InterpreteTest, DeFormasSinFinNoSeGuardanTodas) {
  const auto primera = Leer("SELECT Caja.* FROM Caja WHERE Factura = 'a''b'");
  for (int i = 0; i < 2'000; ++i) {
    Leer("SELECT Caja.* FROM Caja WHERE Factura = '''" + std::to_string(i) + "'");
  }
  EXPECT_EQ(primera.Traducida.use_count(), 1);
}

}  // namespace
