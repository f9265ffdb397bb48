#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "anfitrion/datos.h"
#include "platform/carpeta_temporal.h"

// The example suite started twice on the same files.

namespace {

using testing::HasSubstr;

std::string Leer(const std::string& fichero) {
  std::ostringstream texto;
  texto << std::ifstream(fichero).rdbuf();
  return texto.str();
}

TEST(FicheroEnUso, ElSegundoArranqueLoDiceYTermina) {
  const pruebas::CarpetaTemporal carpeta;
  const std::string errores = carpeta.Fichero("errores");
  anfitrion::Opciones opciones;
  opciones.Carpeta = QString::fromStdString(carpeta.Camino());
  const std::string orden = "XDG_DATA_HOME=" + carpeta.Camino() +
                            " " TESVARA_ANFITRION " --captura " + carpeta.Fichero("imagen") +
                            " --carpeta " + carpeta.Camino() + " >/dev/null 2>" + errores;
  {
    const anfitrion::Datos primero = anfitrion::AbrirDatos(opciones);
    EXPECT_EQ(WEXITSTATUS(std::system(orden.c_str())), EXIT_FAILURE);
    EXPECT_THAT(Leer(errores),
                HasSubstr(carpeta.Fichero("trabajo.sqlite") + " está en uso por otro programa"));
    EXPECT_FALSE(std::filesystem::exists(carpeta.Fichero("imagen")));
  }
  EXPECT_EQ(WEXITSTATUS(std::system(orden.c_str())), EXIT_SUCCESS) << Leer(errores);
}

}  // namespace
