#include <algorithm>
#include <map>
#include <optional>
#include <regex>
#include <string>
#include <utility>
#include <vector>

#include "apoyo/sesion_sin_pantalla.h"
#include "dialecto/sentencias.h"
#include "medida.h"

// What a load, a commit and each single look of the system take without each of the indexes, beside
// what they take with all of them.

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
/// A look is one of the system's statements, with nothing in it to find but a concept, that takes
/// no longer than this with all indexes; the others go through whole tables.
constexpr double kUnaMirada = 0.002;

/// With a concept in it that has many invoices, so that it isn't found at once that there is none.
std::string ConConcepto(std::string_view escrita) {
  static const std::regex concepto("(NConcepto\\)*) (like|=) ''");
  return std::regex_replace(std::string(escrita), concepto, "$1 $2 '45'");
}

/// Nothing where the statement is of other tables, or takes longer.
std::optional<double> Mirar(sqlite::Conexion& base, const dialecto::Escrita& escrita) {
  const std::string sentencia = ConConcepto(escrita.Texto);
  Tiempos tiempos;
  for (int i = 0; i < kVeces; ++i) {
    try {
      tiempos.Anadir(Segundos([&] {
        const auto cursor = base.Abrir(sentencia, escrita.Modo);
        if (cursor) static_cast<void>(cursor->Leer());
      }));
    } catch (const services::ErrorEjecucion& fallo) {
      if (fallo.Numero() == services::error::TablaDesconocida) return std::nullopt;
      throw;
    }
    base.AbandonarUnidad();
  }
  return tiempos.Mediana();
}

/// How many times as long that one takes without each index that it saves most.
void MirarSinCadaUno(benchmark::State& state, sqlite::Conexion& base) {
  std::vector<std::pair<dialecto::Escrita, double>> miradas;
  for (const dialecto::Escrita& escrita : dialecto::Sentencias()) {
    const auto tiempo = Mirar(base, escrita);
    if (tiempo && *tiempo < kUnaMirada) miradas.emplace_back(escrita, *tiempo);
  }
  for (const std::string& indice : Indices(base)) {
    const std::string creacion =
        base.Consultar("SELECT sql FROM sqlite_schema WHERE name = '" + indice + "'")
            .Filas.En(0, 0)
            .Texto();
    base.Ejecutar("DROP INDEX " + indice);
    double masLarga = 0;
    for (const auto& [escrita, con] : miradas) {
      masLarga = std::max(masLarga, Mirar(base, escrita).value_or(0) / con);
    }
    base.Ejecutar(creacion);
    state.counters["mirar_sin_" + indice] = masLarga;
  }
}

void MirarSinIndice(benchmark::State& state) {
  const apoyo::NegocioDePrueba negocio(
      apoyo::Tamano{.Facturas = kFacturas, .Apuntes = kApuntes, .Previsiones = 200});
  const auto datos = negocio.AbrirDatos();
  const auto temp = negocio.AbrirTemp();
  apoyo::SesionSinPantalla sesion(services::Ref<services::Conexion>(datos),
                                  services::Ref<services::Conexion>(temp), apoyo::kMarzo,
                                  apoyo::kRangoDeMarzo);
  sesion.Cargar();
  for (auto vuelta : state) {
    (void)vuelta;
    MirarSinCadaUno(state, *datos);
    MirarSinCadaUno(state, *temp);
  }
}
BENCHMARK(MirarSinIndice)->Iterations(1)->Unit(benchmark::kMillisecond);

BENCHMARK(SinIndice)->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace medidas
