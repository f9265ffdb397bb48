#include "automation/registro_clases.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <string>

#include "apoyo/errores.h"
#include "platform/automation/carpeta_de_datos.h"
#include "platform/automation/contador.h"

namespace {

using apoyo::NumeroDeError;
using automation::Clase;
using automation::Registro;
using pruebas::IContador;

constexpr services::GUID kOtra{0xABCDEF01, 0x2345, 0x6789, {0xA, 0xB, 0xC, 0xD, 0xE, 0xF, 1, 2}};

class RegistroTest : public testing::Test {
 protected:
  static std::vector<std::string> ProgIds() {
    std::vector<std::string> nombres;
    for (const Clase& clase : Registro().Clases()) nombres.push_back(clase.ProgId);
    return nombres;
  }

  static void Escribir(const std::string& texto) {
    std::filesystem::create_directories(automation::FicheroDeClases().parent_path());
    std::ofstream(automation::FicheroDeClases(), std::ios::binary) << texto;
  }
  static std::string Texto() {
    std::ifstream fichero(automation::FicheroDeClases(), std::ios::binary);
    return {std::istreambuf_iterator<char>(fichero), {}};
  }

  pruebas::CarpetaDeDatos datos;
};

const std::string kLineaDeOtra =
    "{ABCDEF01-2345-6789-0A0B-0C0D0E0F0102}\tPruebas.Otra\t/lib/otra.so\tunico";

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
  EXPECT_EQ(Texto(), kLineaDeOtra + "\n");
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
       {Clase{IContador::CLSID, "A\tB", "/a.so"}, Clase{IContador::CLSID, "A", "/a\n.so"},
        Clase{IContador::CLSID, "A", "/a.so\r"}}) {
    EXPECT_EQ(NumeroDeError([&] { Registro().Poner(clase); }), services::hr::Fallo);
  }
  EXPECT_THAT(ProgIds(), testing::ElementsAre("Pruebas.Otra"));
}

TEST_F(RegistroTest, SinIdentificadorNoHayClase) {
  EXPECT_EQ(apoyo::DescripcionDeError([] {
              Registro().Poner({services::GUID{}, "Pruebas.Vacia", "/a.so"});
            }),
            "La clase Pruebas.Vacia no tiene identificador");
  Escribir("{00000000-0000-0000-0000-000000000000}\tPruebas.Vacia\t/a.so\n");
  EXPECT_FALSE(Registro().Buscar("Pruebas.Vacia"));
}

TEST_F(RegistroTest, LoQueNoEsUnaClaseQuedaEnSuSitioAlEscribir) {
  Escribir("# De Ana\n" + kLineaDeOtra + "\n\n{no}\tA\t/b.so\nsin fin de línea");
  Registro().Poner({IContador::CLSID, IContador::ProgId, "/lib/a.so"});
  Registro().Quitar(kOtra);
  EXPECT_EQ(Texto(),
            "# De Ana\n\n{no}\tA\t/b.so\nsin fin de línea\n"
            "{7A1C0B53-44E1-4D7B-8319-6C0EA5923BF0}\tPruebas.Contador\t/lib/a.so\tunico\n");
}

TEST_F(RegistroTest, LosFinesDeLineaYLaMarcaDeOtrosSistemasNoEscondenUnaClase) {
  Escribir("\xEF\xBB\xBF" + kLineaDeOtra + "\r\n# De Ana\r\n");
  ASSERT_TRUE(Registro().Buscar("Pruebas.Otra"));
  EXPECT_EQ(Registro().Buscar("Pruebas.Otra")->Biblioteca, "/lib/otra.so");
  Registro().Poner({kOtra, "Pruebas.Otra", "/lib/otra.so"});
  EXPECT_EQ(Texto(), "# De Ana\n" + kLineaDeOtra + "\n");
}

TEST_F(RegistroTest, LosHilosDeUnaClaseSonUnoSiNoSeDiceOtraCosa) {
  using services::ModeloDeHilos;
  const std::string clase = "{ABCDEF01-2345-6789-0A0B-0C0D0E0F0102}\tPruebas.Otra\t/lib/otra.so";
  for (const char* columna : {"", "\tunico", "\tapartamento"}) {
    Escribir(clase + columna + "\n");
    ASSERT_TRUE(Registro().Buscar("Pruebas.Otra")) << columna;
    EXPECT_EQ(Registro().Buscar("Pruebas.Otra")->Hilos, ModeloDeHilos::Unico) << columna;
    EXPECT_EQ(Registro().Buscar("Pruebas.Otra")->Biblioteca, "/lib/otra.so") << columna;
  }
  Registro().Poner({kOtra, "Pruebas.Otra", "/lib/otra.so", ModeloDeHilos::Libre});
  EXPECT_EQ(Texto(), clase + "\tlibre\n");
  EXPECT_EQ(Registro().Buscar("Pruebas.Otra")->Hilos, ModeloDeHilos::Libre);
}

TEST_F(RegistroTest, DeUnaListaQueEscribenOtrosSeAvisa) {
  Registro().Poner({kOtra, "Pruebas.Otra", "/lib/otra.so"});
  const auto avisos = [](std::filesystem::perms permisos) {
    std::filesystem::permissions(automation::FicheroDeClases(), permisos);
    testing::internal::CaptureStderr();
    EXPECT_TRUE(Registro().Buscar("Pruebas.Otra"));
    return testing::internal::GetCapturedStderr();
  };
  using std::filesystem::perms;
  EXPECT_EQ(avisos(perms::owner_read | perms::owner_write | perms::group_read), "");
  const std::string aviso = "Aviso: otros usuarios pueden escribir la lista de clases " +
                            automation::FicheroDeClases().string() +
                            ", y con ella elegir qué bibliotecas carga este programa\n";
  EXPECT_EQ(avisos(perms::owner_read | perms::owner_write | perms::group_write), aviso);
  EXPECT_EQ(avisos(perms::owner_read | perms::owner_write | perms::others_write), aviso);
}

TEST_F(RegistroTest, CuarentaProgramasALaVezNoPierdenNingunaClase) {
  constexpr int kProgramas = 40;
  std::vector<pid_t> hijos;
  for (int i = 0; i < kProgramas; ++i) {
    const pid_t hijo = fork();
    ASSERT_GE(hijo, 0);
    if (hijo == 0) {
      services::GUID clsid = kOtra;
      clsid.Data1 = static_cast<std::uint32_t>(i + 1);
      const auto poner = [&] { Registro().Poner({clsid, "Clase" + std::to_string(i), "/a.so"}); };
      _exit(NumeroDeError(poner) == 0 ? 0 : 1);
    }
    hijos.push_back(hijo);
  }
  for (const pid_t hijo : hijos) {
    int estado = 0;
    ASSERT_EQ(waitpid(hijo, &estado, 0), hijo);
    EXPECT_EQ(estado, 0);
  }
  EXPECT_EQ(ProgIds().size(), kProgramas);
}

TEST_F(RegistroTest, NoQuedaFicheroTemporal) {
  Registro().Poner({kOtra, "Pruebas.Otra", "/lib/otra.so"});
  std::vector<std::string> ficheros;
  for (const auto& entrada : std::filesystem::directory_iterator(datos.Ruta() / "tesvara")) {
    ficheros.push_back(entrada.path().filename());
  }
  // The lock stays: who waits for it holds that very file.
  EXPECT_THAT(ficheros, testing::UnorderedElementsAre("clases.tsv", "clases.tsv.bloqueo"));
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
