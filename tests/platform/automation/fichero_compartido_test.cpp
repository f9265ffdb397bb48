#include "automation/fichero_compartido.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <string>
#include <thread>

#include "apoyo/errores.h"
#include "platform/automation/carpeta_de_datos.h"

namespace {

namespace fs = std::filesystem;
using apoyo::DescripcionDeError;
using automation::FicheroCompartido;

constexpr uid_t kNadie = 65534;

class FicheroCompartidoTest : public testing::Test {
 protected:
  static void Escribir(const fs::path& ruta, const std::string& texto) {
    std::ofstream(ruta) << texto;
  }
  static std::string Texto(const fs::path& ruta) {
    std::ifstream fichero(ruta);
    return {std::istreambuf_iterator<char>(fichero), {}};
  }
  /// What comes of adding a line.
  [[nodiscard]] std::string Anadir() const {
    return DescripcionDeError(
        [&] { fichero.Cambiar([](const std::string& texto) { return texto + "b\n"; }); });
  }
  [[nodiscard]] std::string Leer() const {
    return DescripcionDeError([&] { (void)fichero.Leer(); });
  }
  [[nodiscard]] std::string Fallo(const char* accion, const char* motivo) const {
    return std::string("No se puede ") + accion + " la lista " + ruta.string() + ": " + motivo;
  }

  pruebas::CarpetaDeDatos datos;
  fs::path ruta = datos.Ruta() / "lista";
  FicheroCompartido fichero{ruta, "la lista"};
};

TEST_F(FicheroCompartidoTest, DondeNoHayFicheroNoHayTextoYElPrimeroLoHace) {
  EXPECT_EQ(fichero.Leer(), "");
  EXPECT_EQ(Anadir(), "");
  EXPECT_EQ(fichero.Leer(), "b\n");
}

TEST_F(FicheroCompartidoTest, AlCambiarGuardaSusPermisos) {
  Escribir(ruta, "a\n");
  fs::permissions(ruta, fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(Anadir(), "");
  EXPECT_EQ(Texto(ruta), "a\nb\n");
  EXPECT_EQ(fs::status(ruta).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(FicheroCompartidoTest, UnEnlaceSigueSiendoloYCambiaLoQueHayDetras) {
  fs::create_directories(datos.Ruta() / "otra");
  Escribir(datos.Ruta() / "otra" / "real", "a\n");
  fs::create_symlink("real", datos.Ruta() / "otra" / "paso");
  fs::create_symlink("otra/paso", ruta);
  EXPECT_EQ(Anadir(), "");
  EXPECT_TRUE(fs::is_symlink(ruta));
  EXPECT_TRUE(fs::is_symlink(datos.Ruta() / "otra" / "paso"));
  EXPECT_EQ(Texto(datos.Ruta() / "otra" / "real"), "a\nb\n");
}

TEST_F(FicheroCompartidoTest, UnEnlaceANadaHaceElFicheroDetras) {
  fs::create_symlink("falta", ruta);
  EXPECT_EQ(fichero.Leer(), "");
  EXPECT_EQ(Anadir(), "");
  EXPECT_TRUE(fs::is_symlink(ruta));
  EXPECT_EQ(Texto(datos.Ruta() / "falta"), "b\n");
}

TEST_F(FicheroCompartidoTest, UnosEnlacesEnCirculoSonUnFallo) {
  fs::create_symlink("lista", ruta);
  EXPECT_EQ(Leer(), Fallo("leer", "sus enlaces no llevan a ningún fichero"));
  EXPECT_EQ(Anadir(), Leer());
  EXPECT_TRUE(fs::is_symlink(ruta));
}

TEST_F(FicheroCompartidoTest, LoQueNoEsUnFicheroNoSeEspera) {
  ASSERT_EQ(mkfifo(ruta.c_str(), 0600), 0);
  EXPECT_EQ(Leer(), Fallo("leer", "no es un fichero corriente"));
  EXPECT_EQ(Anadir(), Leer());
  EXPECT_TRUE(fs::is_fifo(ruta));
  fs::remove(ruta);
  fs::create_directory(ruta);
  EXPECT_EQ(Anadir(), Fallo("leer", "no es un fichero corriente"));
}

TEST_F(FicheroCompartidoTest, UnFalloDelDiscoAlLeerNoEsUnaListaVacia) {
  // Its first page can't be read by anyone.
  fs::create_symlink("/proc/self/mem", ruta);
  EXPECT_EQ(Leer(), Fallo("leer", "error 5 del sistema"));
}

TEST_F(FicheroCompartidoTest, LoQueNoSePuedeLeerNoSeEscribeDeNuevo) {
  Escribir(ruta, "a\n");
  fs::permissions(ruta, fs::perms::none);
  fs::permissions(datos.Ruta(), fs::perms::all);
  // In a program of its own: the system's user may read everything.
  const pid_t hijo = fork();
  ASSERT_GE(hijo, 0);
  if (hijo == 0) {
    if (geteuid() == 0 && seteuid(kNadie) != 0) _exit(2);
    const std::string esperado = Fallo("leer", "no hay permiso");
    _exit(Leer() == esperado && Anadir() == esperado ? 0 : 1);
  }
  int estado = 0;
  ASSERT_EQ(waitpid(hijo, &estado, 0), hijo);
  EXPECT_EQ(estado, 0);
  fs::permissions(ruta, fs::perms::owner_read);
  EXPECT_EQ(Texto(ruta), "a\n");
}

TEST_F(FicheroCompartidoTest, SiElCambioFallaQuedaComoEstaba) {
  Escribir(ruta, "a\n");
  EXPECT_THROW(fichero.Cambiar([](const std::string&) -> std::string { throw 1; }), int);
  EXPECT_EQ(Texto(ruta), "a\n");
  EXPECT_EQ(Anadir(), "");
  EXPECT_EQ(Texto(ruta), "a\nb\n");
}

TEST_F(FicheroCompartidoTest, LoQueDejoUnProgramaMuertoNoEstorba) {
  Escribir(ruta, "a\n");
  Escribir(ruta.string() + ".nuevo", "a medias");
  EXPECT_EQ(Anadir(), "");
  EXPECT_EQ(Texto(ruta), "a\nb\n");
}

TEST_F(FicheroCompartidoTest, OtroQueNoLoSueltaEsUnFalloYNoUnaEsperaSinFin) {
  Escribir(ruta, "a\n");
  const FicheroCompartido impaciente(ruta, "la lista", std::chrono::milliseconds(20));
  std::string fallo;
  fichero.Cambiar([&](const std::string& texto) {
    fallo = DescripcionDeError([&] { impaciente.Cambiar([](const std::string&) { return ""; }); });
    return texto + "b\n";
  });
  EXPECT_EQ(fallo, Fallo("escribir", "otro programa la tiene ocupada"));
  EXPECT_EQ(Texto(ruta), "a\nb\n");
}

TEST_F(FicheroCompartidoTest, LosHilosDeUnProgramaEsperanUnosAOtros) {
  std::vector<std::thread> hilos;
  for (int i = 0; i < 8; ++i) {
    hilos.emplace_back([this] {
      for (int j = 0; j < 5; ++j) EXPECT_EQ(Anadir(), "");
    });
  }
  for (std::thread& hilo : hilos) hilo.join();
  EXPECT_EQ(std::ranges::count(Texto(ruta), 'b'), 40);
}

}  // namespace
