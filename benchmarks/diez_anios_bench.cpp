#include <string>

#include "apoyo/componente_en_marcha.h"
#include "forms/entrada.h"
#include "medida.h"

// A month of ten years: what is stored besides the range costs nothing.

namespace medidas {
namespace {

constexpr int kFacturasDelMes = 1'000;
constexpr int kMeses = 120;
constexpr int kVeces = 7;

struct Partes {
  double Carga;
  double Lista;
  double Grabacion;
};

/// Everything as the screen does it: a load with its list, the list alone, and "Grabar" with the
/// load after it.
Partes Medir(benchmark::State& state, const apoyo::NegocioDePrueba& negocio) {
  apoyo::ComponenteEnMarcha enMarcha(services::Ref<services::Conexion>(negocio.AbrirDatos()),
                                     services::Ref<services::Conexion>(negocio.AbrirTemp()),
                                     apoyo::kMarzo);
  Partes partes{};
  partes.Carga = Segundos([&] { ExigirBien(state, enMarcha.Cargar()); });
  auto& pantalla = enMarcha.Pantalla();
  partes.Lista = Segundos(
      [&] { enMarcha.Sesion().Escritorio().Operacion([&] { pantalla.Lista.CargarGrip(); }); });
  partes.Grabacion = Segundos([&] { services::entrada::Pulsar(pantalla.BotonAceptar); });
  ExigirLoMismo(state, {std::to_string(3 * kFacturasDelMes) + " líneas",
                        std::to_string(pantalla.Rejilla.MSFPagos.Rows - 1) + " líneas"});
  return partes;
}

void MesDeDiezAnios(benchmark::State& state) {
  const apoyo::NegocioDePrueba mes(apoyo::Tamano{kFacturasDelMes, kFacturasDelMes});
  const apoyo::NegocioDePrueba todo(apoyo::Tamano{kFacturasDelMes, kFacturasDelMes, kMeses});
  Tiempos cargaDelMes, listaDelMes, grabacionDelMes, carga, lista, grabacion;
  for (auto vuelta : state) {
    (void)vuelta;
    for (int i = 0; i < kVeces; ++i) {
      const Partes solo = Medir(state, apoyo::NegocioDePrueba(mes));
      cargaDelMes.Anadir(solo.Carga);
      listaDelMes.Anadir(solo.Lista);
      grabacionDelMes.Anadir(solo.Grabacion);
      const Partes deTodo = Medir(state, apoyo::NegocioDePrueba(todo));
      carga.Anadir(deTodo.Carga);
      lista.Anadir(deTodo.Lista);
      grabacion.Anadir(deTodo.Grabacion);
    }
    state.SetIterationTime(carga.Mediana());
  }
  state.counters["cargar_sobre_el_mes"] = carga.Mediana() / cargaDelMes.Mediana();
  state.counters["lista_sobre_el_mes"] = lista.Mediana() / listaDelMes.Mediana();
  state.counters["grabar_sobre_el_mes"] = grabacion.Mediana() / grabacionDelMes.Mediana();
}
BENCHMARK(MesDeDiezAnios)->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace medidas
