#include <gtest/gtest.h>

#include <string>

#include "jornada/partida.h"

// A working day in which the N-th driver call fails, for every N.

namespace {

using jornada::Partida;

#if defined(TESVARA_SANITIZADO)
constexpr int kPaso = 13;  // each run costs some ten times more under the sanitizers
#else
constexpr int kPaso = 1;
#endif

/// A day of entries leaves two invoices, one of them with three receipts, and a forecast.
const std::string kEntradasHechas = R"(
espera consulta datos "SELECT NConcepto, Factura, NRecibos FROM ProvFacturas WHERE Factura IN ('N1','A1') ORDER BY 1" "20|A1|1" "31|N1|3"
espera consulta datos "SELECT Importe FROM ProvPrevisionPagos WHERE NConcepto = '31'" "40"
)";

/// A day at the till leaves two invoices of cash entries, which are theirs, and one entry free
/// again.
const std::string kCajaHecha = R"(
espera consulta datos "SELECT NConcepto, Factura, Total FROM ProvFacturas WHERE Factura IN ('C1','AUTO','TODAS') ORDER BY 1" "12|TODAS|232" "31|AUTO|20"
espera consulta datos "SELECT Importe, Factura FROM CajaPagos ORDER BY 1" "8.4|" "20|AUTO" "232|TODAS"
)";

/// What a healthy day prints of the stored tables at its end.
std::string TablasDeUnDiaSano(const std::string& dia, const std::string& hecho) {
  Partida partida;
  EXPECT_EQ(partida.Jugar(jornada::kEmpresa + dia).Salida, "");
  EXPECT_EQ(partida.Jugar(hecho).Salida, "");
  return partida.Jugar(jornada::kTablas).Salida;
}

/// After the failure the screen is reloaded and closed, opened, worked in and saved. What is left
/// to fail may fail while the screen is reloaded, closed and opened a few times; the work after
/// that may not.
void ExigirQueSePuedeSeguir(Partida& partida, const std::string& caso, int reposos = 2) {
  // One by one: there may be no screen to reload, and a question ends what is being played.
  // Twice at least, which is more calls than a failure may be asked for past the end of the day.
  bool falla = true;
  for (int i = 0; (falla || i < 2) && i <= reposos; ++i) {
    falla = false;
    for (const char* orden : {"cerrar\n", "cargar\n", "pulsar BotonCancelar\n", "cerrar\n"}) {
      falla |= !partida.Jugar(std::string("responder no\n") + orden).Salida.empty();
    }
  }
  const Partida::Jugada fin = partida.Jugar(
      "responder no no no no\ncargar\ncelda MSFPagos 2 5\npulsar BotonAceptar\ncerrar\n");
  EXPECT_EQ(fin.Estado, 0) << caso << fin.Errores;
  EXPECT_EQ(fin.Salida, "") << caso;
}

/// Plays the day with `fallos` asked for, and tells whether it noticed: an error or a message that
/// a healthy day doesn't show, or other tables at the end.
bool SeNota(const std::string& fallos, const std::string& trabajo, const std::string& sano,
            const std::string& caso) {
  Partida partida;
  EXPECT_EQ(partida.Jugar(jornada::kEmpresa).Estado, 0);
  const Partida::Jugada dia = partida.Jugar(fallos + trabajo);
  // 2 is an answer that ran out, as when a failure leaves more to ask.
  EXPECT_NE(dia.Estado, 1) << caso;
  const std::string avisos = partida.Jugar("avisos\n").Salida;
  const bool otrasTablas = partida.Jugar(jornada::kTablas).Salida != sano;
  ExigirQueSePuedeSeguir(partida, caso);
  return !dia.Salida.empty() || otrasTablas || avisos.find("Nº Error:") != std::string::npos;
}

struct Dia {
  std::string Nombre;
  std::string Base;
  const std::string& Trabajo;
  std::string Hecho;  ///< claims that hold at its end
};
void PrintTo(const Dia& dia, std::ostream* salida) {
  *salida << dia.Nombre;
}

class Fallos : public testing::TestWithParam<Dia> {};

TEST_P(Fallos, CadaLlamadaPuedeFallarUnaVezYSeSigue) {
  const auto& [nombre, base, trabajo, hecho] = GetParam();
  const std::string sano = TablasDeUnDiaSano(trabajo, hecho);
  int notados = 0;
  int ultimo = 0;
  int n = 1;
  // The day is over when a failure asked for never comes.
  for (; n - ultimo < 60 && n < 3000; n += kPaso) {
    const std::string caso = base + " " + std::to_string(n) + ": ";
    const bool nota = SeNota("fallo " + base + " " + std::to_string(n) + "\n", trabajo, sano, caso);
    notados += nota ? 1 : 0;
    if (nota) ultimo = n;
  }
  EXPECT_GT(n, 100);
  EXPECT_GT(notados, 100 / kPaso);
}

TEST_P(Fallos, DesdeCadaLlamadaPuedeFallarTodoYSeSigueDespues) {
  const auto& [nombre, base, trabajo, hecho] = GetParam();
  int n = 1;
  for (; n < 3000; n += 5 * kPaso) {
    std::string fallos;
    for (int i = n; i < n + 600; ++i) fallos += "fallo " + base + " " + std::to_string(i) + "\n";
    Partida partida;
    ASSERT_EQ(partida.Jugar(jornada::kEmpresa).Estado, 0);
    const Partida::Jugada dia = partida.Jugar(fallos + trabajo);
    EXPECT_NE(dia.Estado, 1) << base << " " << n;
    // The day was over before the first failure came.
    if (dia.Salida.empty()) break;
    ExigirQueSePuedeSeguir(partida, base + " " + std::to_string(n) + ": ", 600);
  }
  EXPECT_GT(n, 100);
}

INSTANTIATE_TEST_SUITE_P(
    EnCadaBase, Fallos,
    testing::Values(Dia{"PagosEnDatos", "datos", jornada::kTrabajo, ""},
                    Dia{"PagosEnLocal", "local", jornada::kTrabajo, ""},
                    Dia{"EntradasEnDatos", "datos", jornada::kEntradas, kEntradasHechas},
                    Dia{"EntradasEnLocal", "local", jornada::kEntradas, kEntradasHechas},
                    Dia{"CajaEnDatos", "datos", jornada::kCaja, kCajaHecha},
                    Dia{"CajaEnLocal", "local", jornada::kCaja, kCajaHecha}),
    [](const auto& cual) { return cual.param.Nombre; });

}  // namespace
