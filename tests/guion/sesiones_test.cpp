#include "guion/sesiones.h"

#include <gtest/gtest.h>

#include <csignal>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>

#include "guion/carpeta_temporal.h"
#include "guion/corrida.h"

namespace {

/// What a session's process does at a command: its exit status, or none to go on.
using Suceso = std::function<std::optional<int>(const guion::Orden&)>;

/// Sessions that note in a file of all what comes to them, as `session:line`.
class VariasSesiones : public testing::Test {
 protected:
  guion::CarpetaTemporal carpeta{false};

  pruebas::Corrida Correr(const std::string& texto, const Suceso& suceso) {
    const auto ordenes = guion::Analizar(texto);
    std::ostringstream errores;
    const auto papel = [&](int sesion, const guion::Fuente& fuente) {
      return Vivir(std::to_string(sesion), fuente, suceso);
    };
    const int estado = guion::Sesiones(ordenes, papel, errores).Correr();
    std::ostringstream leido;
    leido << std::ifstream(Diario()).rdbuf();
    return {estado, leido.str(), errores.str()};
  }

 private:
  [[nodiscard]] std::string Diario() const { return carpeta.Ruta() / "diario"; }
  void Anotar(const std::string& que) const { std::ofstream(Diario(), std::ios::app) << que; }

  int Vivir(const std::string& sesion, const guion::Fuente& fuente, const Suceso& suceso) const {
    int estado = 0;
    while (const guion::Orden* orden = fuente(estado)) {
      Anotar(sesion + ":" + std::to_string(orden->Linea) + " ");
      if (const std::optional<int> fin = suceso(*orden)) return *fin;
      if (orden->Nombre == "espera sin") estado = 1;
    }
    Anotar(sesion + ":fin ");
    return estado;
  }
};

std::optional<int> Nada(const guion::Orden&) {
  return std::nullopt;
}

TEST_F(VariasSesiones, VanPorTurnoEnElOrdenDelTextoYAcabanPorSuNumero) {
  const pruebas::Corrida corrida =
      Correr("sesion 3 cargar\ncargar\nsesion 2\navisos\nsesion 1 avisos\navisos", Nada);
  EXPECT_EQ(corrida.Estado, 0);
  EXPECT_EQ(corrida.Salida, "3:1 1:2 2:4 1:5 2:6 1:fin 2:fin 3:fin ");
  EXPECT_EQ(corrida.Errores, "");
}

TEST_F(VariasSesiones, ElReclamoFallidoDeCualquieraDaUno) {
  EXPECT_EQ(Correr("cargar\nsesion 2 espera sin avisos\ncargar", Nada).Estado, 1);
}

TEST_F(VariasSesiones, LaQueNoPuedeSeguirAcabaConTodas) {
  const pruebas::Corrida corrida = Correr("cargar\nsesion 2\ncargar\navisos\nsesion 1 avisos",
                                          [](const guion::Orden& orden) -> std::optional<int> {
                                            if (orden.Linea == 3) return 2;
                                            return std::nullopt;
                                          });
  EXPECT_EQ(corrida.Estado, 2);
  EXPECT_EQ(corrida.Salida, "1:1 2:3 1:fin ");
  EXPECT_EQ(corrida.Errores, "");
}

TEST_F(VariasSesiones, LaQueMuereSeDiceConSuLineaYSuSenal) {
  const pruebas::Corrida corrida = Correr("sesion 2 cargar\ncargar\nsesion 2 avisos\navisos",
                                          [](const guion::Orden& orden) -> std::optional<int> {
                                            if (orden.Linea == 3) std::raise(SIGTERM);
                                            return std::nullopt;
                                          });
  EXPECT_EQ(corrida.Estado, 2);
  EXPECT_EQ(corrida.Salida, "2:1 1:2 2:3 1:fin ");
  EXPECT_EQ(corrida.Errores, "línea 3: la sesión 2 ha muerto por la señal 15\n");
}

TEST_F(VariasSesiones, LaQueSeVaAntesDeTiempoSeDiceConSuEstado) {
  const pruebas::Corrida corrida =
      Correr("cargar\nsesion 2 cargar\navisos", [](const guion::Orden& orden) {
        return orden.Sesion == 2 ? std::optional<int>(0) : std::nullopt;
      });
  EXPECT_EQ(corrida.Estado, 2);
  EXPECT_EQ(corrida.Salida, "1:1 2:2 1:fin ");
  EXPECT_EQ(corrida.Errores, "línea 2: la sesión 2 se ha ido con el estado 0\n");
}

TEST_F(VariasSesiones, LaMatadaEmpiezaDeNuevoConSuOrdenSiguienteYLoReclamadoVale) {
  const pruebas::Corrida corrida = Correr(
      "sesion 2 espera sin avisos\nsesion 2 matar\navisos\nsesion 2 cargar\nmatar\nsesion 2 avisos",
      [](const guion::Orden& orden) -> std::optional<int> {
        if (orden.Nombre == "matar") std::raise(SIGKILL);
        return std::nullopt;
      });
  EXPECT_EQ(corrida.Estado, 1);
  EXPECT_EQ(corrida.Salida, "2:1 2:2 1:3 2:4 1:5 2:6 2:fin ");
  EXPECT_EQ(corrida.Errores, "");
}

}  // namespace
