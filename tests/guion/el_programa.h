#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "guion/carpeta_temporal.h"
#include "guion/corrida.h"

namespace pruebas {

inline std::string Leer(const std::filesystem::path& fichero) {
  std::ostringstream texto;
  texto << std::ifstream(fichero).rdbuf();
  return texto.str();
}

/// Runs the program itself, its temporary files in a folder of the test's own.
class ElPrograma : public testing::Test {
 protected:
  guion::CarpetaTemporal carpeta{false};
  std::filesystem::path temporales = carpeta.Ruta() / "tmp";
  void SetUp() override { std::filesystem::create_directory(temporales); }

  pruebas::Corrida Correr(const std::string& opciones, const std::string& texto) {
    std::ofstream(carpeta.Ruta() / "x.guion") << texto;
    const std::string en = carpeta.Ruta().string();
    const std::string orden = "cd " + en + " && TMPDIR=" + temporales.string() + " " +
                              TESVARA_GUION + " " + opciones + " >salida 2>errores <x.guion";
    const int estado = std::system(orden.c_str());
    return {WEXITSTATUS(estado), Leer(carpeta.Ruta() / "salida"), Leer(carpeta.Ruta() / "errores")};
  }
};

}  // namespace pruebas
