#include <gtest/gtest.h>

#include <string>

#include "jornada/partida.h"

namespace {

TEST(Ciclos, CienVecesAbrirOcultarVolverYCerrarNoDejanNada) {
  jornada::Partida partida;
  ASSERT_EQ(partida.Jugar(jornada::kEmpresa).Estado, 0);
  const std::string antes = partida.Jugar(jornada::kTablas).Salida;
  std::string ciclos;
  for (int i = 0; i < 100; ++i) ciclos += "cargar\nocultar\ncargar\ncerrar\n";
  const auto jugada = partida.Jugar(ciclos + "pantallas\nespera sin avisos\n");
  EXPECT_EQ(jugada.Estado, 0) << jugada.Errores;
  EXPECT_EQ(jugada.Salida, "");
  EXPECT_EQ(partida.Jugar(jornada::kTablas).Salida, antes);
}

TEST(Ciclos, CargarGuardarYCargarDaLasMismasFilas) {
  jornada::Partida partida;
  ASSERT_EQ(partida.Jugar(jornada::kEmpresa).Estado, 0);
  const std::string rejilla = "cargar\nrejilla MSFPagos\n";
  const std::string antes = partida.Jugar(rejilla).Salida;
  const auto despues = partida.Jugar("pulsar BotonAceptar\nrejilla MSFPagos\ncerrar\n" + rejilla);
  EXPECT_EQ(despues.Salida, antes + antes);
}

}  // namespace
