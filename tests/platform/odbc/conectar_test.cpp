#include <gmock/gmock.h>

#include <thread>

#include "apoyo/errores.h"
#include "datos/recordset.h"
#include "esquema/esquema_de_servidor.h"
#include "odbc/conexion_odbc.h"
#include "odbc/texto_de_conexion.h"
#include "platform/base_de_prueba.h"
#include "valores/error.h"

// How a connection is made, to one server or to one of several, and what it says when it isn't.

namespace pruebas {
namespace {

namespace error = services::error;
using odbc::TextoDeConexion;
using testing::HasSubstr;
using testing::Not;

std::string LoQueDice(const std::function<void()>& accion) {
  try {
    accion();
  } catch (const services::ErrorEjecucion& fallo) {
    return fallo.Descripcion();
  }
  return "";
}

TEST(TextoDeUnaConexion, LoQueNoSeEntiendeSeDiceSinNingunValor) {
  for (const char* texto :
       {"Driver=x;PWD={secreto", "PWD={a}secreto", "PWD=a;secreto", "PWD={a};=secreto"}) {
    const std::string dicho = LoQueDice([&] { TextoDeConexion{texto}; });
    EXPECT_THAT(dicho, HasSubstr("a partir del valor de PWD")) << texto;
    EXPECT_THAT(dicho, Not(HasSubstr("secreto"))) << texto;
  }
  EXPECT_THAT(LoQueDice([] { TextoDeConexion("=1"); }), HasSubstr("desde el principio"));
}

class AlConectar : public testing::TestWithParam<ServidorDePrueba> {
 protected:
  /// To that server and to one that isn't there, in this order.
  [[nodiscard]] std::string ConOtro(const TextoDeConexion& suyo, bool primero) const {
    TextoDeConexion deLosDos = suyo;
    const std::string puerto(suyo.Valor("Port"));
    deLosDos.Poner("Port", primero ? puerto + ",1" : "1," + puerto);
    const char* servidor = suyo.Valor("Servername").empty() ? "Server" : "Servername";
    deLosDos.Poner(servidor, "127.0.0.1,127.0.0.1");
    return deLosDos.Texto();
  }

  TextoDeConexion texto{GetParam().Texto};
};

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(AlConectar);
INSTANTIATE_TEST_SUITE_P(Servidores, AlConectar, testing::ValuesIn(ServidoresDePrueba()),
                         [](const auto& uno) { return uno.param.Nombre; });

TEST_P(AlConectar, SeEntraEnElServidorDeLaListaQueEste) {
  for (const bool primero : {true, false}) {
    const auto conexion = odbc::AbrirConexion(ConOtro(texto, primero));
    EXPECT_EQ(conexion->Consultar("SELECT 1").Filas.En(0, 0).Texto(), "1");
  }
}

TEST_P(AlConectar, DeUnaListaNoValeElQueEsDeSoloLectura) {
  if (GetParam().Nombre != "postgresql") GTEST_SKIP() << "allí lo es para todos, o para nadie";
  const BaseDePrueba base(GetParam());
  odbc::AbrirConexion(texto.Texto())
      ->Ejecutar("ALTER DATABASE " + base.Nombre() + " SET default_transaction_read_only = on");
  const TextoDeConexion suyo(base.Texto());
  EXPECT_NO_THROW((void)odbc::AbrirConexion(suyo.Texto())) << "quien lo nombra a él, lo quiere";
  for (const bool primero : {true, false}) {
    EXPECT_THAT(LoQueDice([&] { (void)odbc::AbrirConexion(ConOtro(suyo, primero)); }),
                HasSubstr(primero ? "No se llega al servidor" : "de solo lectura"));
  }
}

TEST_P(AlConectar, ElQueNoEstaSeDiceComoTal) {
  texto.Poner("Port", "1");
  const std::string dicho = LoQueDice([&] { (void)odbc::AbrirConexion(texto.Texto()); });
  EXPECT_THAT(dicho, HasSubstr("No se puede abrir la base de datos 127.0.0.1:1"));
  EXPECT_THAT(dicho, HasSubstr("No se llega al servidor"));
}

TEST_P(AlConectar, QuienNoTieneDerechoALaBaseLoSabe) {
  const BaseDePrueba base(GetParam());
  const UsuarioDePrueba eva(base, "eva", "la de eva");
  texto = eva.Texto();
  texto.Poner("PWD", "la de eva");
  EXPECT_THAT(LoQueDice([&] { (void)odbc::AbrirConexion(texto.Texto()); }),
              HasSubstr(GetParam().Nombre == "postgresql" ? "no deja entrar" : "no tiene permiso"));
}

TEST_P(AlConectar, LaBaseQueNoEstaNoEsUnServidorQueNoEste) {
  texto.Poner("Database", "no_esta");
  EXPECT_THAT(LoQueDice([&] { (void)odbc::AbrirConexion(texto.Texto()); }),
              HasSubstr("El servidor no deja entrar"));
}

TEST_P(AlConectar, QuienNoEntraLoSabeAunqueFalteOtroServidor) {
  const BaseDePrueba base(GetParam());
  UsuarioDePrueba eva(base, "eva", "la 'de; eva");
  eva.DarDerechos();
  for (const bool primero : {true, false}) {
    TextoDeConexion suyo = eva.Texto();
    EXPECT_THROW((void)odbc::AbrirConexion(ConOtro(suyo, primero)), odbc::SinEntrada);
    suyo.Poner("PWD", "otra");
    EXPECT_THROW((void)odbc::AbrirConexion(ConOtro(suyo, primero)), odbc::SinEntrada);
    suyo.Poner("PWD", "la 'de; eva");
    EXPECT_NO_THROW((void)odbc::AbrirConexion(ConOtro(suyo, primero)));
  }
}

/// Two who begin at the same moment where the server would put them in no order.
TEST_P(AlConectar, ElTurnoQueElServidorDeshaceSePideDeNuevo) {
  if (GetParam().Nombre != "postgresql") GTEST_SKIP() << "espera y no deshace";
  const esquema::EsquemaPropio esquema(texto.Texto(), "turno_" + std::to_string(getpid()));
  const auto abrir = [&] {
    auto conexion = odbc::AbrirConexion(texto.Texto(), {.Esquema = esquema.Nombre()});
    conexion->AlEmpezarUnidad(esquema::kTurno);
    conexion->Ejecutar("SET default_transaction_isolation = 'serializable'");
    return conexion;
  };
  const auto ella = abrir();
  const auto el = abrir();
  esquema::CrearAlmacenadas(*ella);
  ella->EmpezarUnidad();
  std::thread mientras([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    ella->TerminarUnidad();
  });
  EXPECT_NO_THROW(el->EmpezarUnidad());
  mientras.join();
  EXPECT_NO_THROW(el->TerminarUnidad());
  EXPECT_EQ(ella->Consultar("SELECT Vez FROM SorvexTurno").Filas.En(0, 0).Texto(), "2");
}

}  // namespace
}  // namespace pruebas
