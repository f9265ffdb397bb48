#include <string>

#include "como_se_graban.h"
#include "copia_directa.h"

// The load of a range against the same tables copied whole by the engine alone, and against its
// rows looked for by the engine's own joins.

namespace medidas {
namespace {

Trabajo CargarPorElComponente(const apoyo::NegocioDePrueba& negocio) {
  auto datos = negocio.AbrirDatos();
  auto temp = negocio.AbrirTemp();
  apoyo::SesionSinPantalla sesion(services::Ref<services::Conexion>(datos),
                                  services::Ref<services::Conexion>(temp), apoyo::kMarzo,
                                  apoyo::kRangoDeMarzo);
  return MedirTrabajo(*datos, *temp, [&] { sesion.Cargar(); });
}

/// Rows of the working tables, and what their amounts add up to.
std::string Resumen(const apoyo::NegocioDePrueba& negocio) {
  const auto filas =
      negocio.AbrirTemp()
          ->Consultar(
              "SELECT (SELECT count(*) || ' ' || round(total(Total), 2) FROM TempProvFacturas), "
              "(SELECT count(*) || ' ' || round(total(Base), 2) FROM TempProvBasesIva), "
              "(SELECT count(*) || ' ' || round(total(Pagado), 2) FROM TempProvVencimientos), "
              "(SELECT count(*) || ' ' || round(total(Importe), 2) FROM TempCajaPagos)")
          .Filas;
  return filas.En(0, 0).Texto() + ", " + filas.En(0, 1).Texto() + ", " + filas.En(0, 2).Texto() +
         ", " + filas.En(0, 3).Texto();
}

void Carga(benchmark::State& state) {
  const auto facturas = state.range(0);
  const bool comoSeGraban = state.range(1) != 0;
  const Negocio negocio({static_cast<int>(facturas), kApuntes}, comoSeGraban);
  const Negocio referencia(Referencia(facturas), comoSeGraban);
  Tiempos componente;
  Tiempos directa;
  Tiempos entera;
  Tiempos pequena;
  Trabajo trabajo;
  for (auto vuelta : state) {
    (void)vuelta;
    for (int i = 0; i < Repeticiones(facturas); ++i) {
      const apoyo::NegocioDePrueba una(negocio);
      const apoyo::NegocioDePrueba otra(negocio);
      const apoyo::NegocioDePrueba tercera(negocio);
      trabajo = CargarPorElComponente(una);
      componente.Anadir(trabajo.Segundos);
      {
        CopiaDirecta copia(otra);
        directa.Anadir(Segundos([&] { copia.Cargar(); }));
      }
      {
        CopiaEntera copia(tercera);
        entera.Anadir(Segundos([&] { copia.Cargar(); }));
      }
      pequena.Anadir(CargarPorElComponente(apoyo::NegocioDePrueba(referencia)).Segundos);
      ExigirLoMismo(state, {Resumen(una), Resumen(otra), Resumen(tercera)});
    }
    state.SetIterationTime(componente.Mediana());
  }
  state.counters["razon"] = componente.Mediana() / entera.Mediana();
  state.counters["razon_con_juntas"] = componente.Mediana() / directa.Mediana();
  state.counters["por_factura_sobre_1000"] = componente.Mediana() * kFacturasDeReferencia /
                                             (pequena.Mediana() * static_cast<double>(facturas));
  state.counters["entera_ms"] = entera.Mediana() * 1000;
  state.counters["preparadas"] = static_cast<double>(trabajo.Preparadas);
  state.counters["transacciones"] = static_cast<double>(trabajo.Transacciones);
}
BENCHMARK(Carga)->Apply(TamanosYOrdenes);

}  // namespace
}  // namespace medidas
