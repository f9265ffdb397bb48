#include <chrono>
#include <clocale>
#include <cstdlib>

#include "apoyo/textos_comparados.h"
#include "esquema/esquema_de_servidor.h"
#include "odbc/conexion_odbc.h"
#include "platform/banco_odbc.h"
#include "platform/carpeta_temporal.h"
#include "platform/conformidad.h"

// What is of servers alone: several who write at once, rows that lock, and what their texts are.

namespace pruebas {
namespace {

namespace error = services::error;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class EnServidor : public Conformidad {
 protected:
  static constexpr const char* kTodos = "SELECT ProvVencimientos.* FROM ProvVencimientos";

  void Nuevo(services::Conexion& con, const Texto& factura) {
    auto rs = Abrir(con, kTodos, Modo::Optimista);
    NuevoVencimiento(*rs, "1", factura);
  }
  services::ErrorEjecucion Fallo(const std::function<void()>& accion) {
    try {
      accion();
    } catch (const services::ErrorEjecucion& fallo) {
      return fallo;
    }
    return {0, ""};
  }

  odbc::Conexion& Suya() { return dynamic_cast<odbc::Conexion&>(*conexion); }
  static bool EsUtf8(const Texto& texto) {
    return services::Signos(texto).find(U'\uFFFD') == std::u32string::npos;
  }
  bool SonElMismo(const Texto& uno, const Texto& otro) {
    banco->Ejecutar("DELETE FROM ProvVencimientos");
    const auto rs = Abrir(*conexion, kTodos, Modo::Optimista);
    NuevoVencimiento(*rs, "1", uno);
    const int numero = Fallo([&] { NuevoVencimiento(*rs, "1", otro); }).Numero();
    EXPECT_THAT(numero, testing::AnyOf(0, error::RepetidoONoCabe)) << otro;
    rs->CancelUpdate();
    conexion->TerminarUnidad();
    return numero == error::RepetidoONoCabe;
  }

  services::Ref<services::Conexion> otra = banco->Conectar();
};

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

TEST_P(EnServidor, CadaTablaTieneSuClave) {
  const auto claves = Suya().Consultar(
      "SELECT lower(table_name) FROM information_schema.table_constraints WHERE constraint_type = "
      "'PRIMARY KEY' AND table_schema = " +
      Texto(Suya().NombreDelMotor() == "PostgreSQL" ? "current_schema()" : "database()"));
  std::vector<Texto> suyas;
  for (std::size_t i = 0; i < claves.Filas.Cuantas(); ++i) {
    suyas.push_back(claves.Filas.En(i, 0).Texto());
  }
  EXPECT_THAT(suyas, testing::IsSupersetOf({"provconceptos", "provfacturas", "provbasesiva",
                                            "provvencimientos", "provprevisionpagos", "cajapagos",
                                            "sorvexborrados", "sorvexturno"}));
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

TEST_P(EnServidor, LoQueNoCabeSeRehusaYNoSeCorta) {
  const auto rs = Abrir(*conexion, kTodos, Modo::Optimista);
  const auto fallo = Fallo([&] { NuevoVencimiento(*rs, "1", Texto(21, 'x')); });
  EXPECT_EQ(fallo.Numero(), error::RepetidoONoCabe);
  EXPECT_THAT(fallo.Descripcion(), HasSubstr("El valor no cabe en su columna"));
  rs->CancelUpdate();
  NuevoVencimiento(*rs, "1", "ñÑáÜ€ 中 😀 «»");
  EXPECT_THAT(Primeros("SELECT NFactura FROM ProvVencimientos"), ElementsAre("ñÑáÜ€ 中 😀 «»"));
}

TEST_P(EnServidor, UnaColumnaQueSeAnadeEntretantoSeDiceYNoSeLeeComoOtra) {
  const Texto conOtra =
      "SELECT DISTINCT ProvVencimientos.*, ProvConceptos.Descripcion FROM ProvVencimientos INNER "
      "JOIN ProvConceptos ON ProvVencimientos.NConcepto = ProvConceptos.NConcepto";
  Nuevo(*conexion, "A");
  auto concepto = Abrir(*conexion, "SELECT ProvConceptos.* FROM ProvConceptos", Modo::Optimista);
  concepto->AddNew();
  concepto->Collect("NConcepto") = "1";
  concepto->Collect("Descripcion") = "Luz";
  concepto->Update();
  conexion->TerminarUnidad();
  EXPECT_EQ(Abrir(*conexion, conOtra)->Collect("Descripcion").Texto(), "Luz");
  banco->Ejecutar("ALTER TABLE ProvVencimientos ADD COLUMN Nueva varchar(10) DEFAULT 'otra'");
  EXPECT_EQ(Fallo([&] { Abrir(*conexion, conOtra); }).Numero(), error::FalloDeConexion);
  EXPECT_EQ(Abrir(*conexion, conOtra)->Collect("Nueva").Texto(), "otra") << "al abrirla de nuevo";
  Abrir(*conexion, kTodos);
  banco->Ejecutar("ALTER TABLE ProvVencimientos ADD COLUMN Otra integer");
  EXPECT_EQ(Fallo([&] { Abrir(*conexion, kTodos); }).Numero(), error::FalloDeConexion);
  EXPECT_EQ(Abrir(*conexion, kTodos)->RecordCount(), 1);
}

TEST_P(EnServidor, UnaColumnaQueCambiaDeTipoEntretantoSeDiceYNoSeCorta) {
  const Texto todas = "SELECT ProvFacturas.* FROM ProvFacturas";
  const bool postgres = Suya().NombreDelMotor() == "PostgreSQL";
  const Texto cambiar = "ALTER TABLE ProvFacturas " + Texto(postgres ? "ALTER " : "MODIFY ");
  const Texto tipo = postgres ? " TYPE " : " ";
  banco->Ejecutar(
      "INSERT INTO ProvFacturas (NConcepto, Factura, Año, NRecibos, Cadencia) VALUES ('1', 'F', "
      "'2005', 2, 30)");
  EXPECT_EQ(Abrir(*conexion, todas)->Collect("NRecibos").Texto(), "2");
  banco->Ejecutar(cambiar + "NRecibos" + tipo + "numeric(10,2)");
  banco->Ejecutar("UPDATE ProvFacturas SET NRecibos = 2.75");
  EXPECT_EQ(Fallo([&] { Abrir(*conexion, todas); }).Numero(), error::FalloDeConexion);
  EXPECT_EQ(Abrir(*conexion, todas)->Collect("NRecibos").Texto(), "2,75") << "al abrirla de nuevo";
  banco->Ejecutar(cambiar + "Cadencia" + tipo + "bigint");
  banco->Ejecutar("UPDATE ProvFacturas SET Cadencia = 5000000001");
  const Texto suyas = todas + " WHERE ProvFacturas.NConcepto like '1'";
  EXPECT_EQ(Fallo([&] { Abrir(*conexion, suyas); }).Numero(), error::FalloDeConexion)
      << "también en una sentencia que se prepara ahora";
  EXPECT_EQ(Abrir(*conexion, suyas)->Collect("Cadencia").Texto(), "5000000001");
}

TEST_P(EnServidor, LosImportesNoPierdenNingunCentimo) {
  const auto rs = Abrir(*conexion, kTodos, Modo::Optimista);
  const std::vector<double> importes = {0.01, 0.1, 1.15, 1234.56, -0.07, 9999999999999.99};
  for (std::size_t i = 0; i < importes.size(); ++i) {
    NuevoVencimiento(*rs, "1", std::to_string(i));
    rs->Fields("Importe").Value = importes[i];
    rs->Update();
  }
  conexion->TerminarUnidad();
  auto leido = Abrir(*otra, kTodos);
  for (const double importe : importes) {
    EXPECT_EQ(leido->Fields("Importe").Value.Leer(), services::Valor(importe));
    leido->MoveNext();
  }
}

/// The drivers have regard to the decimal comma of the user's locale.
TEST_P(EnServidor, LaComaDelUsuarioNoTocaLosImportes) {
  const CarpetaTemporal carpeta;
  const Texto crear = "localedef -i es_ES -f UTF-8 " + carpeta.Fichero("es_ES.UTF-8");
  ASSERT_EQ(std::system(crear.c_str()), 0);
  setenv("LOCPATH", carpeta.Fichero("").c_str(), 1);
  ASSERT_NE(std::setlocale(LC_ALL, "es_ES.UTF-8"), nullptr);
  ASSERT_STREQ(std::localeconv()->decimal_point, ",");
  auto mia = banco->Conectar();
  NuevoVencimiento(*Abrir(*mia, kTodos, Modo::Optimista), "1", "Ñ1");
  auto rs = Abrir(*mia, kTodos, Modo::Optimista);
  rs->Fields("Pagado").Value = "1.234,56";
  rs->Update();
  mia->TerminarUnidad();
  rs = Abrir(*mia, "SELECT ProvVencimientos.* FROM ProvVencimientos WHERE Pagado = 1234.56");
  std::setlocale(LC_ALL, "C");
  unsetenv("LOCPATH");
  ASSERT_FALSE(rs->Eof());
  EXPECT_EQ(rs->Fields("Pagado").Value.Leer(), services::Valor(1234.56));
  EXPECT_EQ(rs->Fields("Importe").Value.Leer(), services::Valor(100.5));
  EXPECT_EQ(rs->Fields("NFactura").Value.Texto(), "Ñ1");
}

TEST_P(EnServidor, LosTextosSonIgualesYSeOrdenanComoAqui) {
  const std::vector<Texto> textos = {"a",   "A",   "á",   "Á",     "ä",     "b",     "n",   "ñ",
                                     "Ñ",   "o",   "ç",   "c",     "F1",    "f1",    "F-1", "F 1",
                                     " F1", "F1 ", "F.1", "F/1",   "F_1",   "F%1",   "1",   "01",
                                     "1.0", "10",  "2",   "ünico", "único", "unico", "",    "«F»"};
  const auto rs = Abrir(*conexion, kTodos, Modo::Optimista);
  std::vector<Texto> guardados;
  for (const Texto& texto : textos) {
    const bool repetido = std::ranges::any_of(
        guardados, [&](const Texto& uno) { return services::MismoTexto(uno, texto); });
    const auto fallo = Fallo([&] { NuevoVencimiento(*rs, "1", texto); });
    EXPECT_EQ(fallo.Numero(), repetido ? error::RepetidoONoCabe : 0) << texto;
    rs->CancelUpdate();
    if (!repetido) guardados.push_back(texto);
  }
  for (const Texto& texto : textos) {
    EXPECT_THAT(
        Primeros("SELECT NFactura FROM ProvVencimientos WHERE NFactura like '" + texto + "'"),
        testing::SizeIs(1))
        << texto;
  }
  std::ranges::sort(
      guardados, [](const Texto& a, const Texto& b) { return services::CompararTexto(a, b) < 0; });
  EXPECT_EQ(Primeros("SELECT NFactura FROM ProvVencimientos ORDER BY NFactura"), guardados);
}

/// By the server's own comparison, which is that of its keys.
TEST_P(EnServidor, LosTextosSonLosMismosQueEnUnFichero) {
  for (const auto& iguales : apoyo::TextosIguales()) {
    for (const Texto& uno : iguales) EXPECT_TRUE(SonElMismo(iguales.front(), uno)) << uno;
  }
  for (const auto& [uno, otro] : apoyo::TextosDistintos()) {
    if (!EsUtf8(uno + otro)) continue;
    // What differs in form alone.
    const bool soloDeForma = otro == "ª";
    EXPECT_EQ(SonElMismo(uno, otro), soloDeForma) << uno << " | " << otro;
  }
  banco->Ejecutar("DELETE FROM ProvVencimientos");
  const auto rs = Abrir(*conexion, kTodos, Modo::Optimista);
  std::vector<Texto> enOrden = apoyo::TextosEnOrden();
  // Signs and the letters of other languages stand elsewhere there.
  std::erase_if(enOrden, [](const Texto& texto) { return texto == "×" || texto == "ĸ"; });
  for (const Texto& texto : enOrden) NuevoVencimiento(*rs, "1", texto);
  conexion->TerminarUnidad();
  const auto ordenados =
      Suya().Consultar("SELECT NFactura FROM ProvVencimientos ORDER BY NFactura").Filas;
  std::vector<Texto> suyos;
  for (std::size_t i = 0; i < ordenados.Cuantas(); ++i) suyos.push_back(ordenados.En(i, 0).Texto());
  EXPECT_EQ(suyos, enOrden);
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
