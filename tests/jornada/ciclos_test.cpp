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

TEST(Ciclos, GuardarSinTocarNadaDejaLasMismasFilasSalvoLosSellos) {
  // What a commit writes by rule counts as the same: no withholding is 0, no invoice is empty.
  const std::string filas = R"(
consulta datos SELECT NConcepto, Factura, Año, Fecha, Total, forpago, NRecibos, Dias1Vto, COALESCE(BIRPF, 0), COALESCE(TipoIRPF, 0), COALESCE(IRPF, 0), Cadencia FROM ProvFacturas ORDER BY 1, 2, 3
consulta datos SELECT NConcepto, NFactura, Año, Tipo, Base, Importe, Exento FROM ProvBasesIva ORDER BY 1, 2, 3, 4
consulta datos SELECT NConcepto, NFactura, Año, FechaVto, Importe, Pagado, Fechapago FROM ProvVencimientos ORDER BY 1, 2, 3, 4
consulta datos SELECT NConcepto, Fecha1Vto, Cada, Tipo, Importe FROM ProvPrevisionPagos ORDER BY 1
consulta datos SELECT idSucursal, FechaHora, Tipo, Importe, Observaciones, COALESCE(Factura, ''), COALESCE(Año, ''), Usuario FROM CajaPagos ORDER BY 1, 2, 3
)";
  jornada::Partida partida;
  ASSERT_EQ(partida.Jugar(jornada::kEmpresa).Estado, 0);
  const std::string antes = partida.Jugar(filas).Salida;
  EXPECT_EQ(partida.Jugar("cargar\npulsar BotonAceptar\ncerrar\n").Salida, "");
  EXPECT_EQ(partida.Jugar(filas).Salida, antes);
  EXPECT_NE(antes.find("(7 filas)"), std::string::npos);
}

}  // namespace
