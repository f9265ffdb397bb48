#include <string>

#include "como_se_graban.h"
#include "copia_directa.h"

// The commit of a range against all rows replaced blindly by the engine alone, and against those of
// the range looked for by the engine's own joins.

namespace medidas {
namespace {

// Both load what they write back, so that both begin with the same in memory.

Trabajo GrabarPorElComponente(const apoyo::NegocioDePrueba& negocio) {
  const auto datos = negocio.AbrirDatos();
  const auto temp = negocio.AbrirTemp();
  apoyo::SesionSinPantalla sesion(services::Ref<services::Conexion>(datos),
                                  services::Ref<services::Conexion>(temp), apoyo::kMarzo,
                                  apoyo::kRangoDeMarzo);
  sesion.Cargar();
  return MedirTrabajo(*datos, *temp, [&] { sesion.Grabar(); });
}

template <class Copia>
double GrabarPor(const apoyo::NegocioDePrueba& negocio) {
  Copia copia(negocio);
  copia.Cargar();
  return Segundos([&] { copia.Grabar(); });
}

/// Stored rows, what their amounts add up to, and how many bear the commit's stamp.
std::string Resumen(const apoyo::NegocioDePrueba& negocio) {
  const std::string sello = " || ' ' || sum(Actualizado = '2005-03-15 11:00:00') FROM ";
  const auto filas =
      negocio.AbrirDatos()
          ->Consultar(
              "SELECT (SELECT count(*) || ' ' || round(total(Total), 2)" + sello +
              "ProvFacturas) || ', ' || (SELECT count(*) || ' ' || round(total(Base), 2)" + sello +
              "ProvBasesIva) || ', ' || (SELECT count(*) || ' ' || round(total(Pagado), 2)" +
              sello +
              "ProvVencimientos) || ', ' || (SELECT count(*) || ' ' || round(total(Importe), 2)" +
              sello + "CajaPagos)")
          .Filas;
  return filas.En(0, 0).Texto();
}

void Grabacion(benchmark::State& state) {
  const auto facturas = state.range(0);
  const bool comoSeGraban = state.range(1) != 0;
  const Negocio negocio({static_cast<int>(facturas), kApuntes}, comoSeGraban);
  const Negocio referencia(Referencia(facturas), comoSeGraban);
  Tiempos componente;
  Tiempos directa;
  Tiempos ciega;
  Tiempos pequena;
  Trabajo trabajo;
  for (auto vuelta : state) {
    (void)vuelta;
    for (int i = 0; i < Repeticiones(facturas); ++i) {
      const apoyo::NegocioDePrueba una(negocio);
      const apoyo::NegocioDePrueba otra(negocio);
      const apoyo::NegocioDePrueba tercera(negocio);
      trabajo = GrabarPorElComponente(una);
      componente.Anadir(trabajo.Segundos);
      directa.Anadir(GrabarPor<CopiaDirecta>(otra));
      ciega.Anadir(GrabarPor<CopiaEntera>(tercera));
      pequena.Anadir(GrabarPorElComponente(apoyo::NegocioDePrueba(referencia)).Segundos);
      ExigirLoMismo(state, {Resumen(una), Resumen(otra), Resumen(tercera)});
    }
    state.SetIterationTime(componente.Mediana());
  }
  state.counters["razon"] = componente.Mediana() / ciega.Mediana();
  state.counters["razon_con_juntas"] = componente.Mediana() / directa.Mediana();
  state.counters["por_factura_sobre_1000"] = componente.Mediana() * kFacturasDeReferencia /
                                             (pequena.Mediana() * static_cast<double>(facturas));
  state.counters["preparadas"] = static_cast<double>(trabajo.Preparadas);
  state.counters["transacciones"] = static_cast<double>(trabajo.Transacciones);
  state.counters["ciega_ms"] = ciega.Mediana() * 1000;
}
BENCHMARK(Grabacion)->Apply(TamanosYOrdenes);

}  // namespace
}  // namespace medidas
