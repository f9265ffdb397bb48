#include <map>
#include <string>
#include <vector>

#include "apoyo/sesion_sin_pantalla.h"
#include "medida.h"

// What a load and a commit take without each of the indexes, beside what they take with all of
// them.

namespace medidas {
namespace {

constexpr int kFacturas = 10'000;
constexpr int kVeces = 3;

/// The indexes of a file, but for those of the keys.
std::vector<std::string> Indices(sqlite::Conexion& base) {
  const auto leidos = base.Consultar(
                              "SELECT name FROM sqlite_schema WHERE type = 'index' AND sql IS NOT "
                              "NULL ORDER BY name")
                          .Filas;
  std::vector<std::string> indices;
  for (std::size_t i = 0; i < leidos.Cuantas(); ++i) indices.push_back(leidos.En(i, 0).Texto());
  return indices;
}

struct Tiempo {
  Tiempos Carga;
  Tiempos Grabacion;
};

void Medir(const apoyo::NegocioDePrueba& negocio, Tiempo& tiempo) {
  apoyo::SesionSinPantalla sesion(services::Ref<services::Conexion>(negocio.AbrirDatos()),
                                  services::Ref<services::Conexion>(negocio.AbrirTemp()),
                                  apoyo::kMarzo, apoyo::kRangoDeMarzo);
  tiempo.Carga.Anadir(Segundos([&] { sesion.Cargar(); }));
  tiempo.Grabacion.Anadir(Segundos([&] { sesion.Grabar(); }));
}

void SinIndice(benchmark::State& state) {
  const apoyo::NegocioDePrueba negocio(apoyo::Tamano{kFacturas, kApuntes});
  std::map<std::string, bool> indices;
  for (const std::string& indice : Indices(*negocio.AbrirDatos())) indices[indice] = true;
  for (const std::string& indice : Indices(*negocio.AbrirTemp())) indices[indice] = false;
  std::map<std::string, Tiempo> sin;
  Tiempo conTodos;
  for (auto vuelta : state) {
    (void)vuelta;
    for (int i = 0; i < kVeces; ++i) {
      Medir(apoyo::NegocioDePrueba(negocio), conTodos);
      for (const auto& [indice, almacenado] : indices) {
        const apoyo::NegocioDePrueba uno(negocio);
        (almacenado ? uno.AbrirDatos() : uno.AbrirTemp())->Ejecutar("DROP INDEX " + indice);
        Medir(uno, sin[indice]);
      }
    }
    state.SetIterationTime(conTodos.Carga.Mediana());
  }
  for (const auto& [indice, tiempo] : sin) {
    state.counters["cargar_sin_" + indice] = tiempo.Carga.Mediana() / conTodos.Carga.Mediana();
    state.counters["grabar_sin_" + indice] =
        tiempo.Grabacion.Mediana() / conTodos.Grabacion.Mediana();
  }
}
BENCHMARK(SinIndice)->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace medidas
