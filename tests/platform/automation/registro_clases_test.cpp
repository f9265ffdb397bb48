#include "automation/registro_clases.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "platform/automation/carpeta_de_datos.h"
#include "platform/automation/contador.h"

namespace {

using automation::Clase;
using automation::Registro;
using pruebas::IContador;
using pruebas::NumeroDeError;

constexpr services::GUID kOtra{0xABCDEF01, 0x2345, 0x6789, {0xA, 0xB, 0xC, 0xD, 0xE, 0xF, 1, 2}};

class RegistroTest : public testing::Test {
 protected:
  static std::vector<std::string> ProgIds() {
    std::vector<std::string> nombres;
    for (const Clase& clase : Registro().Clases()) nombres.push_back(clase.ProgId);
    return nombres;
  }

  pruebas::CarpetaDeDatos datos;
};

TEST(GuidTest, ElTextoVuelveASerElMismoGuid) {
  EXPECT_EQ(automation::TextoDeGuid(kOtra), "{ABCDEF01-2345-6789-0A0B-0C0D0E0F0102}");
  EXPECT_EQ(automation::LeerGuid("{ABCDEF01-2345-6789-0A0B-0C0D0E0F0102}"), kOtra);
  EXPECT_EQ(automation::LeerGuid("{abcdef01-2345-6789-0a0b-0c0d0e0f0102}"), kOtra);
}

TEST(GuidTest, OtroTextoNoEsUnGuid) {
  for (const char* texto :
       {"", "{}", "ABCDEF01-2345-6789-0A0B-0C0D0E0F0102", "{ABCDEF01-2345-6789-0A0B-0C0D0E0F010}",
        "{ABCDEF01+2345-6789-0A0B-0C0D0E0F0102}", "{GBCDEF01-2345-6789-0A0B-0C0D0E0F0102}",
        "{ABCDEF0 -2345-6789-0A0B-0C0D0E0F0102}", "{ABCDEF01-2345-6789-0A0B-0C0D0E0F0102 "}) {
    EXPECT_EQ(automation::LeerGuid(texto), std::nullopt) << texto;
  }
}

TEST_F(RegistroTest, SinFicheroNoHayClases) {
  EXPECT_TRUE(Registro().Clases().empty());
  EXPECT_FALSE(Registro().Buscar(IContador::ProgId));
}

TEST_F(RegistroTest, LaCarpetaEsLaDeDatosDelUsuario) {
  EXPECT_EQ(automation::FicheroDeClases(), datos.Ruta() / "tesvara" / "clases.tsv");
  datos.Poner("XDG_DATA_HOME", "");
  datos.Poner("HOME", "/casa/ana");
  EXPECT_EQ(automation::FicheroDeClases(), "/casa/ana/.local/share/tesvara/clases.tsv");
  datos.Poner("XDG_DATA_HOME", "relativa");
  EXPECT_EQ(automation::FicheroDeClases(), "/casa/ana/.local/share/tesvara/clases.tsv");
}

TEST_F(RegistroTest, SinCarpetaDeUsuarioEsUnError) {
  datos.Poner("XDG_DATA_HOME", "");
  datos.Poner("HOME", "");
  EXPECT_EQ(NumeroDeError([] { (void)automation::FicheroDeClases(); }), services::hr::Fallo);
}

TEST_F(RegistroTest, UnaClasePuestaSeEncuentraSinMirarMayusculas) {
  Registro().Poner({IContador::CLSID, IContador::ProgId, "/lib/a b.so"});
  const auto clase = Registro().Buscar("pruebas.CONTADOR");
  ASSERT_TRUE(clase);
  EXPECT_EQ(clase->Clsid, IContador::CLSID);
  EXPECT_EQ(clase->Biblioteca, "/lib/a b.so");
  EXPECT_FALSE(Registro().Buscar("Pruebas.Otra"));
}

TEST_F(RegistroTest, ElFicheroTieneUnaLineaPorClase) {
  Registro().Poner({kOtra, "Pruebas.Otra", "/lib/otra.so"});
  std::ifstream fichero(automation::FicheroDeClases());
  const std::string texto{std::istreambuf_iterator<char>(fichero), {}};
  EXPECT_EQ(texto, "{ABCDEF01-2345-6789-0A0B-0C0D0E0F0102}\tPruebas.Otra\t/lib/otra.so\n");
}

TEST_F(RegistroTest, RegistrarOtraVezCambiaLaBiblioteca) {
  Registro().Poner({IContador::CLSID, IContador::ProgId, "/lib/vieja.so"});
  Registro().Poner({kOtra, "Pruebas.Otra", "/lib/otra.so"});
  Registro().Poner({IContador::CLSID, IContador::ProgId, "/lib/nueva.so"});
  EXPECT_THAT(ProgIds(), testing::ElementsAre("Pruebas.Otra", IContador::ProgId));
  EXPECT_EQ(Registro().Buscar(IContador::ProgId)->Biblioteca, "/lib/nueva.so");
}

TEST_F(RegistroTest, UnNombreEsDeUnaSolaClase) {
  Registro().Poner({IContador::CLSID, IContador::ProgId, "/lib/vieja.so"});
  Registro().Poner({kOtra, "PRUEBAS.Contador", "/lib/otra.so"});
  ASSERT_EQ(Registro().Clases().size(), 1U);
  EXPECT_EQ(Registro().Buscar(IContador::ProgId)->Clsid, kOtra);
}

TEST_F(RegistroTest, QuitarDejaLasDemas) {
  Registro().Poner({IContador::CLSID, IContador::ProgId, "/lib/a.so"});
  Registro().Poner({kOtra, "Pruebas.Otra", "/lib/otra.so"});
  Registro().Quitar(IContador::CLSID);
  Registro().Quitar(IContador::CLSID);
  EXPECT_THAT(ProgIds(), testing::ElementsAre("Pruebas.Otra"));
}

TEST_F(RegistroTest, UnaLineaEstropeadaNoEsUnaClase) {
  Registro().Poner({kOtra, "Pruebas.Otra", "/lib/otra.so"});
  std::ofstream(automation::FicheroDeClases(), std::ios::app)
      << "\nuna\n{no}\tA\t/b.so\n{7A1C0B53-44E1-4D7B-8319-6C0EA5923BF0}\tSinBiblioteca\n";
  EXPECT_THAT(ProgIds(), testing::ElementsAre("Pruebas.Otra"));
}

TEST_F(RegistroTest, LoQueNoCabeEnUnaLineaSeRechaza) {
  Registro().Poner({kOtra, "Pruebas.Otra", "/lib/otra.so"});
  for (const Clase& clase :
       {Clase{IContador::CLSID, "A\tB", "/a.so"}, Clase{IContador::CLSID, "A", "/a\n.so"}}) {
    EXPECT_EQ(NumeroDeError([&] { Registro().Poner(clase); }), services::hr::Fallo);
  }
  EXPECT_THAT(ProgIds(), testing::ElementsAre("Pruebas.Otra"));
}

TEST_F(RegistroTest, NoQuedaFicheroTemporal) {
  Registro().Poner({kOtra, "Pruebas.Otra", "/lib/otra.so"});
  std::vector<std::string> ficheros;
  for (const auto& entrada : std::filesystem::directory_iterator(datos.Ruta() / "tesvara")) {
    ficheros.push_back(entrada.path().filename());
  }
  EXPECT_THAT(ficheros, testing::ElementsAre("clases.tsv"));
}

TEST_F(RegistroTest, UnFicheroQueNoSePuedeEscribirEsUnFallo) {
  std::ofstream(datos.Ruta() / "tesvara") << "no es una carpeta";
  const auto funciones = automation::CrearRegistro("/lib/a.so");
  EXPECT_EQ(funciones.Registrar({kOtra, "Pruebas.Otra"}), services::hr::Fallo);
  EXPECT_EQ(NumeroDeError([] {
              Registro().Poner({kOtra, "Pruebas.Otra", "/a.so"});
            }),
            services::hr::Fallo);
}

TEST_F(RegistroTest, LasFuncionesDeUnaBibliotecaLaPonenYLaQuitan) {
  const auto funciones = automation::CrearRegistro("/lib/a.so");
  EXPECT_EQ(funciones.Registrar({kOtra, "Pruebas.Otra"}), services::hr::Bien);
  EXPECT_EQ(Registro().Buscar("Pruebas.Otra")->Biblioteca, "/lib/a.so");
  EXPECT_EQ(funciones.Anular({kOtra, "Pruebas.Otra"}), services::hr::Bien);
  EXPECT_TRUE(Registro().Clases().empty());
}

TEST_F(RegistroTest, LaRutaDeUnaDireccionEsLaDeSuPrograma) {
  EXPECT_EQ(automation::RutaDeBiblioteca(reinterpret_cast<const void*>(&automation::TextoDeGuid)),
            std::filesystem::canonical("/proc/self/exe"));
  int enLaPila = 0;
  EXPECT_EQ(NumeroDeError([&] { (void)automation::RutaDeBiblioteca(&enLaPila); }),
            services::hr::Fallo);
}

}  // namespace
