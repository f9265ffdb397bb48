#include "anfitrion/datos_en_servidor.h"

#include <gmock/gmock.h>

#include "esquema/esquema_de_servidor.h"
#include "odbc/texto_de_conexion.h"
#include "platform/base_de_prueba.h"
#include "platform/carpeta_temporal.h"
#include "valores/error.h"

// The suite's way to stored tables on a server: what it asks, and what it refuses.

namespace {

using testing::HasSubstr;

class SuiteEnServidor : public testing::TestWithParam<pruebas::ServidorDePrueba> {
 protected:
  std::string Abrir(const anfitrion::AlAbrir& alAbrir, const std::string& texto) {
    try {
      const auto almacen =
          anfitrion::AbrirEnServidor(texto, carpeta.Fichero("espejo.sqlite"), alAbrir);
      return "abierto " + almacen->Nombre();
    } catch (const services::ErrorEjecucion& fallo) {
      numero = fallo.Numero();
      return fallo.Descripcion();
    }
  }
  std::string Abrir(const anfitrion::AlAbrir& alAbrir = {}) { return Abrir(alAbrir, base.Texto()); }
  double Cuantas(const std::string& tabla) {
    return odbc::AbrirConexion(base.Texto())
        ->Consultar("SELECT count(*) FROM " + tabla)
        .Filas.En(0, 0)
        .Numero();
  }

  std::int32_t numero = 0;
  pruebas::CarpetaTemporal carpeta;
  pruebas::BaseDePrueba base{GetParam()};
};

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(SuiteEnServidor);
INSTANTIATE_TEST_SUITE_P(Servidores, SuiteEnServidor,
                         testing::ValuesIn(pruebas::ServidoresDePrueba()),
                         [](const auto& uno) { return uno.param.Nombre; });

TEST_P(SuiteEnServidor, LasTablasSeCreanCuandoSeQuiereYSoloUnaVez) {
  std::vector<std::string> preguntas;
  bool respuesta = false;
  const anfitrion::AlAbrir alguien{.Confirmar = [&](const std::string& pregunta) {
    preguntas.push_back(pregunta);
    return respuesta;
  }};
  EXPECT_THAT(Abrir(), HasSubstr("no tiene las tablas de la empresa")) << "sin nadie";
  EXPECT_EQ(numero, services::error::FalloDeConexion);
  EXPECT_THAT(Abrir(alguien), HasSubstr("no tiene las tablas de la empresa"));
  EXPECT_EQ(numero, services::error::OperacionCancelada) << "no hace falta decírselo";
  EXPECT_FALSE(odbc::AbrirConexion(base.Texto())->TieneTabla("ProvConceptos"));
  respuesta = true;
  EXPECT_THAT(Abrir(alguien), HasSubstr("abierto 127.0.0.1"));
  EXPECT_THAT(preguntas, testing::SizeIs(2));
  EXPECT_THAT(preguntas.at(0), HasSubstr("¿Crearlas, con un negocio de muestra para probar?"));
  EXPECT_GT(Cuantas("ProvFacturas"), 100);
  EXPECT_THAT(Abrir(), HasSubstr("abierto 127.0.0.1"));
}

TEST_P(SuiteEnServidor, LasQueNoSeHanAcabadoDeCrearSeAcabanSiNoTienenNada) {
  std::vector<std::string> preguntas;
  const anfitrion::AlAbrir alguien{.Confirmar = [&](const std::string& pregunta) {
    preguntas.push_back(pregunta);
    return true;
  }};
  const auto conexion = odbc::AbrirConexion(base.Texto());
  esquema::CrearTablas(*conexion);
  conexion->Ejecutar("DROP TABLE CajaPagos");
  conexion->Ejecutar("CREATE TABLE CajaPagos (DeAntes integer)");
  EXPECT_THAT(Abrir(alguien), HasSubstr("abierto"));
  EXPECT_THAT(preguntas, testing::ElementsAre(HasSubstr("¿Quitarlas y crearlas, con")));
  EXPECT_GT(Cuantas("CajaPagos"), 10);
  EXPECT_EQ(Cuantas("SorvexTurno"), 1);
}

TEST_P(SuiteEnServidor, LasQueTienenAlgoYNoTienenTurnoNoSeTocan) {
  const anfitrion::AlAbrir alguien{.Confirmar = [](const std::string&) { return true; }};
  const auto conexion = odbc::AbrirConexion(base.Texto());
  esquema::CrearAlmacenadas(*conexion);
  conexion->Ejecutar("INSERT INTO ProvConceptos (NConcepto) VALUES ('400')");
  for (const char* sinTurno : {"DELETE FROM SorvexTurno", "DROP TABLE SorvexTurno"}) {
    conexion->Ejecutar(sinTurno);
    EXPECT_THAT(Abrir(alguien), HasSubstr("les falta la fila de SorvexTurno"));
    EXPECT_EQ(Cuantas("ProvConceptos"), 1);
  }
}

TEST_P(SuiteEnServidor, UnaCreacionQueFallaSeDiceYSePuedeRepetir) {
  const anfitrion::AlAbrir alguien{.Confirmar = [](const std::string&) { return true; }};
  const auto conexion = odbc::AbrirConexion(base.Texto());
  conexion->Ejecutar("CREATE TABLE Otra (Ajena integer)");
  conexion->Ejecutar("CREATE VIEW CajaPagos AS SELECT Ajena FROM Otra");
  EXPECT_THAT(Abrir(alguien), HasSubstr("no se han podido crear"));
  EXPECT_FALSE(esquema::TieneTurno(*conexion));
  conexion->Ejecutar("DROP VIEW CajaPagos");
  EXPECT_THAT(Abrir(alguien), HasSubstr("abierto"));
  EXPECT_GT(Cuantas("ProvConceptos"), 0);
}

TEST_P(SuiteEnServidor, LaContrasenaSePideHastaQueEntraOSeDeja) {
  esquema::CrearAlmacenadas(*odbc::AbrirConexion(base.Texto()));
  pruebas::UsuarioDePrueba luz(base, "luz", "la de luz");
  luz.DarDerechos();
  odbc::TextoDeConexion suyo = luz.Texto();
  std::vector<std::string> preguntas;
  std::vector<std::optional<std::string>> respuestas = {"otra", "la de luz"};
  const anfitrion::AlAbrir alguien{.Contrasena = [&](const std::string& pregunta) {
    preguntas.push_back(pregunta);
    return respuestas.at(preguntas.size() - 1);
  }};
  EXPECT_THAT(Abrir(alguien, suyo.Texto()), HasSubstr("abierto"));
  ASSERT_THAT(preguntas, testing::SizeIs(2));
  EXPECT_THAT(preguntas[0],
              testing::AllOf(HasSubstr("Para entrar en"), HasSubstr("como " + luz.Nombre())));
  EXPECT_THAT(preguntas[1], HasSubstr("El servidor no admite el usuario o la contraseña"));
  preguntas.clear();
  respuestas = {std::nullopt};
  EXPECT_THAT(Abrir(alguien, suyo.Texto()), HasSubstr("no admite"));
  EXPECT_THAT(Abrir({}, suyo.Texto()), HasSubstr("no admite")) << "sin nadie a quien pedirla";
  suyo.Poner("PWD", "la de luz");
  EXPECT_THAT(Abrir(alguien, suyo.Texto()), HasSubstr("no se escribe en la línea de órdenes"));
}

}  // namespace
