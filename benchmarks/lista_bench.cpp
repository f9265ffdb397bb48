#include "apoyo/componente_en_marcha.h"
#include "copia_directa.h"
#include "lista_directa.h"
#include "medida.h"

// The rebuild of the list, grid and totals included, against its rows written and read back.

namespace medidas {
namespace {

void Lista(benchmark::State& state) {
  const auto facturas = state.range(0);
  const apoyo::NegocioDePrueba negocio(apoyo::Tamano{static_cast<int>(facturas), kApuntes});
  const apoyo::NegocioDePrueba otro(negocio);
  CopiaDirecta(otro).Cargar();
  ListaDirecta lista(otro);
  apoyo::ComponenteEnMarcha enMarcha(services::Ref<services::Conexion>(negocio.AbrirDatos()),
                                     services::Ref<services::Conexion>(negocio.AbrirTemp()),
                                     apoyo::kMarzo);
  ExigirBien(state, enMarcha.Cargar());
  const auto rehacer = [&] {
    enMarcha.Sesion().Escritorio().Operacion([&] { enMarcha.Pantalla().Lista.CargarGrip(); });
  };

  Tiempos componente;
  Tiempos directa;
  std::size_t filas = lista.Rehacer();
  for (auto vuelta : state) {
    (void)vuelta;
    for (int i = 0; i < Repeticiones(facturas); ++i) {
      componente.Anadir(Segundos(rehacer));
      directa.Anadir(Segundos([&] { filas = lista.Rehacer(); }));
    }
    state.SetIterationTime(componente.Mediana());
  }
  const auto enRejilla = static_cast<std::size_t>(enMarcha.Pantalla().Rejilla.MSFPagos.Rows) - 1;
  if (enRejilla != filas) state.SkipWithError("no son las mismas filas");
  state.counters["razon"] = componente.Mediana() / directa.Mediana();
  state.counters["filas"] = static_cast<double>(filas);
  state.counters["sql_ms"] = directa.Mediana() * 1000;
}
BENCHMARK(Lista)->Apply(Tamanos);

}  // namespace
}  // namespace medidas
