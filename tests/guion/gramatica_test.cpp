#include "guion/gramatica.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "guion/acciones.h"

using guion::Analizar;
using guion::ErrorDeTexto;
using guion::Orden;

namespace {

/// Line and reason of the first fault; line 0 when there is none.
std::pair<int, std::string> Falta(std::string_view texto) {
  try {
    static_cast<void>(Analizar(texto));
    return {0, ""};
  } catch (const ErrorDeTexto& fallo) {
    return {fallo.Linea, fallo.what()};
  }
}

TEST(Gramatica, CadaLineaEsUnaOrdenConSuNumero) {
  const auto ordenes = Analizar("# cabecera\n\ncargar\n  pulsar BotonNuevo # y un comentario\r\n");
  ASSERT_EQ(ordenes.size(), 2U);
  EXPECT_EQ(ordenes[0].Nombre, "cargar");
  EXPECT_EQ(ordenes[0].Linea, 3);
  EXPECT_EQ(ordenes[1].Linea, 4);
  EXPECT_EQ(ordenes[1].Argumentos, std::vector<std::string>{"BotonNuevo"});
}

TEST(Gramatica, LaGuardiaNoLlevaNada) {
  EXPECT_EQ(Analizar("guardia").at(0).Nombre, "guardia");
  EXPECT_EQ(Falta("guardia si"), std::pair(1, std::string("sobran argumentos en guardia")));
}

TEST(Gramatica, LasComillasGuardanBlancosYEscapes) {
  const auto ordenes = Analizar(R"(teclear TxtA "di \"no\" \\ y # sigue\notra")");
  EXPECT_EQ(ordenes.at(0).Texto(1), "di \"no\" \\ y # sigue\notra");
  EXPECT_EQ(Analizar("anadir \"\"").at(0).Texto(0), "");
}

TEST(Gramatica, ElRestoDeLaLineaEsSqlHastaConAlmohadillas) {
  const auto ordenes = Analizar(
      "datos INSERT INTO T VALUES ('a  # \"b\"')  \n"
      "consulta local SELECT 1");
  EXPECT_EQ(ordenes.at(0).Texto(0), "INSERT INTO T VALUES ('a  # \"b\"')");
  EXPECT_EQ(ordenes.at(1).Argumentos, (std::vector<std::string>{"local", "SELECT 1"}));
}

TEST(Gramatica, LasEsperasSeDistinguenPorSuSegundaPalabra) {
  const auto ordenes = Analizar(
      "espera TxtA.Text \"x\"\nespera celda G 1 2 x\nespera sin avisos\nespera foco TxtA\n"
      "espera consulta datos \"SELECT 1\" 1 2 3\nespera error 0x80040E21\n");
  EXPECT_EQ(ordenes.at(0).Nombre, "espera");
  EXPECT_EQ(ordenes.at(1).Nombre, "espera celda");
  EXPECT_EQ(ordenes.at(2).Nombre, "espera sin");
  EXPECT_EQ(ordenes.at(3).Nombre, "espera foco");
  EXPECT_EQ(ordenes.at(4).Argumentos.size(), 5U);
  EXPECT_EQ(ordenes.at(5).NumeroDeError(0), -2147217887);
}

TEST(Gramatica, LaPrimeraFaltaDiceSuLineaYSuMotivo) {
  EXPECT_EQ(Falta("cargar\nbailar\nsaltar"), std::make_pair(2, std::string("orden desconocida: "
                                                                           "bailar")));
  EXPECT_EQ(Falta("cargar ya").second, "sobran argumentos en cargar");
  EXPECT_EQ(Falta("\nteclear TxtA").second, "faltan argumentos en teclear");
  EXPECT_EQ(Falta("\nteclear TxtA").first, 2);
}

TEST(Gramatica, CadaOrdenEsDeSuSesion) {
  const auto ordenes = Analizar(
      "cargar\nsesion 2 cargar # solo esta\navisos\nsesion 3\nespera celda G 1 2 x\n"
      "sesion 1 datos SELECT 1 # 2\navisos");
  std::vector<int> sesiones;
  for (const Orden& orden : ordenes) sesiones.push_back(orden.Sesion);
  EXPECT_EQ(sesiones, (std::vector<int>{1, 2, 1, 3, 1, 3}));
  EXPECT_EQ(ordenes.at(1).Linea, 2);
  EXPECT_EQ(ordenes.at(3).Nombre, "espera celda");
  EXPECT_EQ(ordenes.at(4).Texto(0), "SELECT 1 # 2");
  EXPECT_TRUE(guion::SonDeVarias(ordenes));
  EXPECT_FALSE(guion::SonDeVarias(Analizar("sesion 1\ncargar\nsesion 2")));
}

TEST(Gramatica, MatarPideQueHayaOtraSesion) {
  EXPECT_EQ(Falta("cargar\nsesion 1 matar"), std::make_pair(2, std::string("no hay más sesión que "
                                                                           "esta")));
  EXPECT_EQ(Falta("matar\nsesion 2 cargar").first, 0);
  EXPECT_EQ(Falta("sesion 2\nmatar").first, 0);
  EXPECT_EQ(Falta("sesion 0 cargar").second,
            "se esperaba un número de sesión, de 1 a 9 en lugar de \"0\"");
}

class TextoMalo : public testing::TestWithParam<const char*> {};

TEST_P(TextoMalo, NoSeEntiende) {
  EXPECT_EQ(Falta(GetParam()).first, 1) << GetParam();
}

INSTANTIATE_TEST_SUITE_P(
    Faltas, TextoMalo,
    testing::Values("espera", "espera TxtA.Altura 3", "espera TxtA x", "espera sin nada",
                    "espera celda G 1 x y", "espera celda G -1 0 y", "espera marca G 1 5 2",
                    "espera error mucho", "fallo datos 0", "fallo otra 1", "fallo datos 1 0xG",
                    "fallo datos 1 0x1FFFFFFFF", "unidad", "unidad fila", "tecla F12",
                    "responder quizas", "responder", "pantalla 0 100", "pantalla 100",
                    "reloj 2005-02-30 10:00:00", "reloj 2005-03-15 24:00:00",
                    "reloj 15/03/2005 10:00:00", "reloj 2005-03-15", "texto Titulo x", "datos",
                    "consulta datos", "consulta otra SELECT 1", "valor Barra uno",
                    "valor Barra 99999999999", "celda G 1", "pulsar A.B.C", "pulsar .B",
                    "anadir \"sin cerrar", "anadir \"a\"b", "anadir a\"b\"", "anadir \"\\t\"",
                    "anadir \"\\", "anadir \xC3", "anadir \xED\xA0\x80", "foco? TxtA",
                    "avisos todos", "sesion", "sesion dos", "sesion 10", "sesion 2 sesion 3 cargar",
                    "sesion 2 bailar", "sesion 2 teclear TxtA", "sesion 2 matar ya"));

TEST(Gramatica, LosNombresDeWidgetLlevanPantallaYElemento) {
  EXPECT_EQ(guion::LeerReferencia("TxtA")->Pantalla, "");
  EXPECT_EQ(guion::LeerReferencia("FrmB.TxtA(2)")->Pantalla, "FrmB");
  EXPECT_EQ(guion::LeerReferencia("FrmB.TxtA(2)")->Widget, "TxtA(2)");
  EXPECT_EQ(guion::LeerPropiedad("FrmB.TxtA(2).Tag")->Widget, "FrmB.TxtA(2)");
  EXPECT_EQ(guion::LeerPropiedad("TxtA.BackColor")->Aspecto, services::Aspecto::BackColor);
}

TEST(Gramatica, LosNumerosDeErrorAdmitenSignoYHexadecimal) {
  const auto ordenes =
      Analizar("espera error -2147467259\nfallo local 3 0x80004005\nfallo local 1");
  EXPECT_EQ(ordenes.at(0).NumeroDeError(0), ordenes.at(1).NumeroDeError(2));
  EXPECT_EQ(ordenes.at(2).Argumentos.size(), 2U);
}

TEST(Gramatica, TodaOrdenTieneQuienLaHaga) {
  for (const guion::Firma& firma : guion::Firmas()) {
    EXPECT_NO_THROW(static_cast<void>(guion::AccionDe(firma.Nombre))) << firma.Nombre;
  }
}

}  // namespace
