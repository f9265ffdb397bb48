#include "memoria.h"

#include "apoyo/componente_en_marcha.h"
#include "forms/entrada.h"
#include "medida.h"

// The most that a load, the list and "Grabar" take beyond what there was, for each row: of the
// working tables, and of the list. What the engine keeps of each file, 64 MB at most, is among it.

namespace medidas {
namespace {

constexpr int kFilasDeUnaFactura = 6;
constexpr int kLineasDeUnaFactura = 3;

void MemoriaPorFila(benchmark::State& state) {
  const auto facturas = static_cast<int>(state.range(0));
  const apoyo::NegocioDePrueba negocio(apoyo::Tamano{facturas, kApuntes});
  const double filas = facturas * kFilasDeUnaFactura + kApuntes;
  const double lineas = facturas * kLineasDeUnaFactura;
  double carga = 0;
  double lista = 0;
  double grabacion = 0;
  for (auto vuelta : state) {
    (void)vuelta;
    const apoyo::NegocioDePrueba uno(negocio);
    apoyo::ComponenteEnMarcha enMarcha(services::Ref<services::Conexion>(uno.AbrirDatos()),
                                       services::Ref<services::Conexion>(uno.AbrirTemp()),
                                       apoyo::kMarzo);
    carga = MemoriaDe([&] { ExigirBien(state, enMarcha.Cargar()); });
    lista = MemoriaDe([&] { services::entrada::Pulsar(enMarcha.Pantalla().Lista.ChkPrevisiones); });
    grabacion = MemoriaDe([&] { services::entrada::Pulsar(enMarcha.Pantalla().BotonAceptar); });
  }
  state.counters["carga_MB"] = carga / 1024;
  state.counters["carga_bytes_por_fila"] = carga * 1024 / filas;
  state.counters["lista_bytes_por_linea"] = lista * 1024 / lineas;
  state.counters["grabar_bytes_por_fila"] = grabacion * 1024 / filas;
}
BENCHMARK(MemoriaPorFila)
    ->ArgName("facturas")
    ->Arg(10'000)
    ->Arg(50'000)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace medidas
