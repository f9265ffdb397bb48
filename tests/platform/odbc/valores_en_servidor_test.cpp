#include <clocale>
#include <cstdlib>

#include "apoyo/textos_comparados.h"
#include "platform/carpeta_temporal.h"
#include "platform/odbc/en_servidor.h"

// What the tables of a server hold: texts and amounts as a file holds them, or a word about it.

namespace pruebas {
namespace {

namespace error = services::error;
using testing::ElementsAre;
using testing::HasSubstr;

class ValoresEnServidor : public EnServidor {
 protected:
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
};

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(ValoresEnServidor);
INSTANTIATE_TEST_SUITE_P(Servidores, ValoresEnServidor, testing::ValuesIn(Servidores()),
                         NombreDelMotor);

TEST_P(ValoresEnServidor, CadaTablaTieneSuClave) {
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

TEST_P(ValoresEnServidor, LoQueNoCabeSeRehusaYNoSeCorta) {
  const auto rs = Abrir(*conexion, kTodos, Modo::Optimista);
  const auto fallo = Fallo([&] { NuevoVencimiento(*rs, "1", Texto(21, 'x')); });
  EXPECT_EQ(fallo.Numero(), error::RepetidoONoCabe);
  EXPECT_THAT(fallo.Descripcion(), HasSubstr("El valor no cabe en su columna"));
  rs->CancelUpdate();
  NuevoVencimiento(*rs, "1", "ñÑáÜ€ 中 😀 «»");
  EXPECT_THAT(Primeros("SELECT NFactura FROM ProvVencimientos"), ElementsAre("ñÑáÜ€ 中 😀 «»"));
}

TEST_P(ValoresEnServidor, UnaColumnaQueSeAnadeEntretantoSeDiceYNoSeLeeComoOtra) {
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

TEST_P(ValoresEnServidor, UnaColumnaQueCambiaDeTipoEntretantoSeDiceYNoSeCorta) {
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

TEST_P(ValoresEnServidor, LosImportesNoPierdenNingunCentimo) {
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
TEST_P(ValoresEnServidor, LaComaDelUsuarioNoTocaLosImportes) {
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

TEST_P(ValoresEnServidor, LosTextosSonIgualesYSeOrdenanComoAqui) {
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
TEST_P(ValoresEnServidor, LosTextosSonLosMismosQueEnUnFichero) {
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

}  // namespace
}  // namespace pruebas
