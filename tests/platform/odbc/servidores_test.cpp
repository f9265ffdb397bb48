#include <chrono>

#include "esquema/esquema_de_servidor.h"
#include "platform/odbc/en_servidor.h"

// What is of servers alone: several who write at once, rows that lock, and connections that go.

namespace pruebas {
namespace {

namespace error = services::error;
using testing::ElementsAre;
using testing::HasSubstr;

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(EnServidor);
INSTANTIATE_TEST_SUITE_P(Servidores, EnServidor, testing::ValuesIn(Servidores()), NombreDelMotor);

TEST_P(EnServidor, UnaFilaQueOtroEscribeSeEsperaYLuegoSeDice) {
  Nuevo(*conexion, "A");
  conexion->TerminarUnidad();
  auto suya = Abrir(*otra, kTodos, Modo::Optimista);
  suya->Fields("Pagado").Value = 1.0;
  suya->Update();
  auto mia = Abrir(*conexion, kTodos, Modo::Optimista);
  mia->Fields("Pagado").Value = 2.0;
  const auto antes = std::chrono::steady_clock::now();
  const auto fallo = Fallo([&] { mia->Update(); });
  const auto espera = std::chrono::steady_clock::now() - antes;
  EXPECT_EQ(fallo.Numero(), error::FalloDeConexion);
  EXPECT_THAT(fallo.Descripcion(), HasSubstr("está bloqueada por otro programa"));
  EXPECT_GE(espera, std::chrono::seconds(4));
  EXPECT_LE(espera, std::chrono::seconds(15));
  EXPECT_EQ(Fallo([&] { conexion->TerminarUnidad(); }).Numero(), error::FalloDeConexion)
      << "la unidad se ha perdido, se oiga o no";
  otra->TerminarUnidad();
  EXPECT_THAT(Primeros("SELECT Pagado FROM ProvVencimientos"), ElementsAre("1"));
}

TEST_P(EnServidor, UnaFilaQueSeCambiaEnModoPesimistaEsDeUnoSolo) {
  Nuevo(*conexion, "A");
  conexion->TerminarUnidad();
  auto mia = Abrir(*conexion, kTodos, Modo::Pesimista);
  mia->Fields("Pagado").Value = 1.0;
  auto suya = Abrir(*otra, kTodos, Modo::Optimista);
  suya->Fields("Pagado").Value = 2.0;
  EXPECT_THAT(Fallo([&] { suya->Update(); }).Descripcion(),
              HasSubstr("está bloqueada por otro programa"));
  mia->Update();
  conexion->TerminarUnidad();
  EXPECT_THAT(Primeros("SELECT Pagado FROM ProvVencimientos"), ElementsAre("1"));
}

/// Also to other rows, and to other tables.
TEST_P(EnServidor, ConTurnoQuienEscribeEsperaAlQueYaEscribia) {
  for (auto* con : {&conexion, &otra}) {
    dynamic_cast<odbc::Conexion&>(**con).AlEmpezarUnidad(esquema::kTurno);
  }
  Nuevo(*conexion, "A");
  const auto fallo = Fallo([&] { Nuevo(*otra, "B"); });
  EXPECT_THAT(fallo.Descripcion(), HasSubstr("está bloqueada por otro programa"));
  EXPECT_EQ(Fallo([&] { otra->TerminarUnidad(); }).Numero(), error::FalloDeConexion);
  conexion->TerminarUnidad();
  Nuevo(*otra, "C");
  otra->TerminarUnidad();
  EXPECT_THAT(Primeros("SELECT NFactura FROM ProvVencimientos"), ElementsAre("A", "C"));
}

TEST_P(EnServidor, QuienNoTieneTurnoNoEscribe) {
  for (const char* turno : {"UPDATE NoEsta SET Vez = 1", "UPDATE SorvexTurno SET Vez = 1"}) {
    banco->Ejecutar("DELETE FROM SorvexTurno");
    dynamic_cast<odbc::Conexion&>(*conexion).AlEmpezarUnidad(turno);
    EXPECT_NE(Fallo([&] { Nuevo(*conexion, "A"); }).Numero(), 0);
    EXPECT_NE(Fallo([&] { Nuevo(*conexion, "B"); }).Numero(), 0);
    EXPECT_NE(Fallo([&] { conexion->TerminarUnidad(); }).Numero(), 0);
    EXPECT_EQ(Cuantas(*otra, "ProvVencimientos"), 0);
  }
}

/// As a node of a cluster does to one whose rows another has written.
TEST_P(EnServidor, LoQueElServidorDeshaceSinDecirloSeDice) {
  Suya().AlEmpezarUnidad(esquema::kTurno);
  const bool loDice = Suya().NombreDelMotor() == "PostgreSQL";
  Nuevo(*conexion, "A");
  Suya().Ejecutar("ROLLBACK");
  EXPECT_EQ(Fallo([&] { Nuevo(*conexion, "B"); }).Numero() != 0, loDice);
  const auto fallo = Fallo([&] { conexion->TerminarUnidad(); });
  EXPECT_EQ(fallo.Numero(), error::FalloDeConexion);
  EXPECT_THAT(fallo.Descripcion(), HasSubstr("No se ha guardado ninguno de los últimos cambios"));
  if (!loDice) {
    EXPECT_THAT(fallo.Descripcion(), HasSubstr("Otro programa escribía en las mismas filas"));
  }
  EXPECT_EQ(Cuantas(*otra, "ProvVencimientos"), 0);
  Nuevo(*conexion, "C");
  conexion->TerminarUnidad();
  EXPECT_EQ(Cuantas(*otra, "ProvVencimientos"), 1);
}

TEST_P(EnServidor, SinDerechoAAnadirNoSeBorraNada) {
  auto& suya = dynamic_cast<odbc::Conexion&>(*conexion);
  if (suya.NombreDelMotor() != "PostgreSQL") GTEST_SKIP() << "los derechos son de quien entra";
  Nuevo(*conexion, "A");
  conexion->TerminarUnidad();
  const Texto esquema = suya.Consultar("SELECT current_schema()").Filas.En(0, 0).Texto();
  banco->Ejecutar("CREATE ROLE sin_altas");
  banco->Ejecutar("GRANT USAGE ON SCHEMA " + esquema + " TO sin_altas");
  banco->Ejecutar("GRANT SELECT, DELETE ON ProvVencimientos TO sin_altas");
  suya.Ejecutar("SET ROLE sin_altas");
  Abrir(*conexion, "DELETE FROM ProvVencimientos", Modo::Optimista);
  EXPECT_EQ(Fallo([&] { Nuevo(*conexion, "B"); }).Numero(), error::SentenciaRechazada);
  EXPECT_NE(Fallo([&] { conexion->TerminarUnidad(); }).Numero(), 0);
  EXPECT_EQ(Cuantas(*otra, "ProvVencimientos"), 1);
  suya.Ejecutar("RESET ROLE");
  banco->Ejecutar("DROP OWNED BY sin_altas");
  banco->Ejecutar("DROP ROLE sin_altas");
}

TEST_P(EnServidor, UnaLecturaQueFallaNoSeLlevaLoEscritoNiLoQueSeLeeDespues) {
  const Texto previsiones = "SELECT ProvPrevisionPagos.* FROM ProvPrevisionPagos";
  Abrir(*conexion, previsiones);
  banco->Ejecutar("DROP TABLE ProvPrevisionPagos");
  Nuevo(*conexion, "A");
  EXPECT_NE(Fallo([&] { Abrir(*conexion, previsiones); }).Numero(), 0);
  Nuevo(*conexion, "B");
  conexion->TerminarUnidad();
  EXPECT_EQ(Cuantas(*otra, "ProvVencimientos"), 2);

  const services::LecturaFija fija(*conexion);
  EXPECT_EQ(Cuantas(*conexion, "ProvVencimientos"), 2);
  EXPECT_NE(Fallo([&] { Abrir(*conexion, previsiones); }).Numero(), 0);
  EXPECT_EQ(Cuantas(*conexion, "ProvVencimientos"), 2);
}

TEST_P(EnServidor, UnaTablaQueOtroTieneTomadaSeEsperaCincoSegundos) {
  const auto quien = banco->Conectar();
  auto& tomada = dynamic_cast<odbc::Conexion&>(*quien);
  const bool postgres = tomada.NombreDelMotor() == "PostgreSQL";
  if (postgres) tomada.EmpezarUnidad();
  tomada.Ejecutar(postgres ? "LOCK TABLE ProvVencimientos IN SHARE MODE"
                           : "LOCK TABLES ProvVencimientos READ");
  const auto antes = std::chrono::steady_clock::now();
  const auto fallo = Fallo([&] { Nuevo(*conexion, "A"); });
  EXPECT_LT(std::chrono::steady_clock::now() - antes, std::chrono::seconds(20));
  EXPECT_THAT(fallo.Descripcion(), HasSubstr("está bloqueada por otro programa"));
}

TEST_P(EnServidor, UnaClaveQueOtroHaGrabadoEntretantoSeRehusaSola) {
  EXPECT_EQ(Cuantas(*conexion, "ProvVencimientos"), 0);
  Nuevo(*otra, "A");
  otra->TerminarUnidad();
  const auto rs = Abrir(*conexion, kTodos, Modo::Optimista);
  EXPECT_EQ(Fallo([&] { NuevoVencimiento(*rs, "1", "a"); }).Numero(), error::RepetidoONoCabe);
  rs->CancelUpdate();
  NuevoVencimiento(*rs, "1", "B");
  conexion->TerminarUnidad();
  EXPECT_THAT(Primeros("SELECT NFactura FROM ProvVencimientos"), ElementsAre("A", "B"));
}

TEST_P(EnServidor, LoQueUnDesencadenanteRehusaFallaSoloYSeDice) {
  const bool postgres = Suya().NombreDelMotor() == "PostgreSQL";
  const Texto cuando = " ON ProvVencimientos FOR EACH ROW ";
  if (postgres) {
    banco->Ejecutar(
        "CREATE FUNCTION Rehusar() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN RAISE EXCEPTION "
        "'no se admite'; END $$");
    banco->Ejecutar("CREATE TRIGGER NoEntra BEFORE INSERT" + cuando +
                    "WHEN (NEW.NFactura = 'X') EXECUTE FUNCTION Rehusar()");
    banco->Ejecutar("CREATE TRIGGER NoSale BEFORE DELETE" + cuando +
                    "WHEN (OLD.NFactura = 'A') EXECUTE FUNCTION Rehusar()");
  } else {
    const Texto rehusar = " THEN SIGNAL SQLSTATE '45000' SET MESSAGE_TEXT = 'no se admite'; END IF";
    banco->Ejecutar("CREATE TRIGGER NoEntra BEFORE INSERT" + cuando + "IF NEW.NFactura = 'X'" +
                    rehusar);
    banco->Ejecutar("CREATE TRIGGER NoSale BEFORE DELETE" + cuando + "IF OLD.NFactura = 'A'" +
                    rehusar);
  }
  const auto rs = Abrir(*conexion, kTodos, Modo::Optimista);
  NuevoVencimiento(*rs, "1", "A");
  const auto fallo = Fallo([&] { NuevoVencimiento(*rs, "1", "X"); });
  EXPECT_EQ(fallo.Numero(), error::RepetidoONoCabe);
  EXPECT_THAT(fallo.Descripcion(), AllOf(testing::StartsWith("La tabla no admite el valor ("),
                                         HasSubstr("no se admite")));
  rs->CancelUpdate();
  NuevoVencimiento(*rs, "1", "B");
  const auto borrar = [&] { Abrir(*conexion, "DELETE FROM ProvVencimientos", Modo::Optimista); };
  EXPECT_EQ(Fallo(borrar).Numero(), error::RepetidoONoCabe);
  conexion->TerminarUnidad();
  EXPECT_THAT(Primeros(*otra, "SELECT NFactura FROM ProvVencimientos"), ElementsAre("A", "B"));
}

/// However many rows there are.
TEST_P(EnServidor, LoQueVaJuntoVaEnPocosViajes) {
  const auto viajes = [&](const std::function<void()>& accion) {
    const std::size_t antes = Suya().Cuenta().Viajes;
    accion();
    return Suya().Cuenta().Viajes - antes;
  };
  std::vector<Texto> numeros;
  for (int i = 0; i < 640; ++i) numeros.push_back("F" + std::to_string(i));
  const auto de = [](const Texto& numero) {
    return " ProvVencimientos WHERE ProvVencimientos.NConcepto like '1' and ProvVencimientos.Año "
           "like '2005' and RTRIM(LTRIM(ProvVencimientos.NFactura)) like '" +
           numero + "'";
  };
  EXPECT_LE(viajes([&] {
              const auto rs = Abrir(*conexion, kTodos, Modo::Optimista);
              for (const Texto& numero : numeros) {
                rs->AddNew();
                rs->Collect("NConcepto") = "1";
                rs->Collect("NFactura") = numero;
                rs->Collect("Año") = "2005";
                rs->Collect("FechaVto") = "20050315";
                rs->UpdateLuego([](const auto& fallo) { throw services::ErrorEjecucion(fallo); });
              }
              conexion->TerminarUnidad();
            }),
            40U);
  EXPECT_LE(viajes([&] { EXPECT_EQ(Cuantas(*conexion, "ProvVencimientos"), 640); }), 10U);
  EXPECT_LE(viajes([&] {
              const services::BorradosJuntos juntos(*conexion);
              for (const Texto& numero : numeros) {
                Abrir(*conexion, "DELETE From" + de(numero), Modo::Optimista);
              }
            }),
            40U);
  conexion->TerminarUnidad();
  EXPECT_EQ(Cuantas(*otra, "ProvVencimientos"), 0);
}

TEST_P(EnServidor, UnaLecturaFijaNoVeLoQueOtrosGrabanEntretanto) {
  Nuevo(*conexion, "A");
  conexion->TerminarUnidad();
  {
    const services::LecturaFija fija(*conexion);
    EXPECT_EQ(Cuantas(*conexion, "ProvVencimientos"), 1);
    Nuevo(*otra, "B");
    otra->TerminarUnidad();
    EXPECT_EQ(Cuantas(*conexion, "ProvVencimientos"), 1);
  }
  EXPECT_EQ(Cuantas(*conexion, "ProvVencimientos"), 2);
}

TEST_P(EnServidor, UnaConexionPerdidaSeDiceYLaSiguienteOperacionSigue) {
  Nuevo(*conexion, "A");
  conexion->TerminarUnidad();
  Nuevo(*conexion, "B");
  banco->Desconectar(*conexion);
  const auto perdida = Fallo([&] { Nuevo(*conexion, "C"); });
  EXPECT_EQ(perdida.Numero(), error::FalloDeConexion);
  EXPECT_THAT(perdida.Descripcion(),
              testing::StartsWith("No se ha guardado ninguno de los últimos cambios. Se ha perdido "
                                  "la conexión con el servidor ("));
  EXPECT_EQ(Fallo([&] { Nuevo(*conexion, "D"); }).Numero(), error::FalloDeConexion)
      << "en la misma unidad no se escribe nada más";
  EXPECT_EQ(Fallo([&] { conexion->TerminarUnidad(); }).Numero(), error::FalloDeConexion);
  Nuevo(*conexion, "E");
  conexion->TerminarUnidad();
  EXPECT_THAT(Primeros(*otra, "SELECT NFactura FROM ProvVencimientos"), ElementsAre("A", "E"));
}

TEST_P(EnServidor, UnaLecturaTrasPerderLaConexionNoEscribeFueraDeSuUnidad) {
  Nuevo(*conexion, "A");
  banco->Desconectar(*conexion);
  Fallo([&] { (void)conexion->ColumnasDe("ProvBasesIva"); });
  EXPECT_EQ(Fallo([&] { Nuevo(*conexion, "B"); }).Numero(), error::FalloDeConexion);
  conexion->AbandonarUnidad();
  EXPECT_EQ(Cuantas(*otra, "ProvVencimientos"), 0);
}

}  // namespace
}  // namespace pruebas
