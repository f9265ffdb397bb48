#include <string>

#include "apoyo/sesion_sin_pantalla.h"
#include "copia_directa.h"
#include "medida.h"

// The commit of a range against the same replacement made by the engine alone.

namespace medidas {
namespace {

// Both load what they write back, so that both begin with the same in memory.

double GrabarPorElComponente(const apoyo::NegocioDePrueba& negocio) {
  apoyo::SesionSinPantalla sesion(services::Ref<services::Conexion>(negocio.AbrirDatos()),
                                  services::Ref<services::Conexion>(negocio.AbrirTemp()),
                                  apoyo::kMarzo, apoyo::kRangoDeMarzo);
  sesion.Cargar();
  return Segundos([&] { sesion.Grabar(); });
}

double GrabarDirecta(const apoyo::NegocioDePrueba& negocio) {
  CopiaDirecta copia(negocio);
  copia.Cargar();
  return Segundos([&] { copia.Grabar(); });
}

/// Stored rows, what their amounts add up to, and how many bear the commit's stamp.
std::string Resumen(const apoyo::NegocioDePrueba& negocio) {
  const std::string sello = " || ' ' || sum(Actualizado = '2005-03-15 11:00:00') FROM ";
  const auto filas =
      negocio.AbrirDatos()
          ->Consultar("SELECT (SELECT count(*) || ' ' || total(Total)" + sello +
                      "ProvFacturas) || ', ' || (SELECT count(*) || ' ' || total(Base)" + sello +
                      "ProvBasesIva) || ', ' || (SELECT count(*) || ' ' || total(Pagado)" + sello +
                      "ProvVencimientos) || ', ' || (SELECT count(*) || ' ' || total(Importe)" +
                      sello + "CajaPagos)")
          .Filas;
  return filas.En(0, 0).Texto();
}

void Grabacion(benchmark::State& state) {
  const auto facturas = state.range(0);
  const apoyo::NegocioDePrueba negocio(apoyo::Tamano{static_cast<int>(facturas), kApuntes});
  const apoyo::NegocioDePrueba referencia(Referencia(facturas));
  Tiempos componente;
  Tiempos directa;
  Tiempos pequena;
  for (auto vuelta : state) {
    (void)vuelta;
    for (int i = 0; i < Repeticiones(facturas); ++i) {
      const apoyo::NegocioDePrueba una(negocio);
      const apoyo::NegocioDePrueba otra(negocio);
      componente.Anadir(GrabarPorElComponente(una));
      directa.Anadir(GrabarDirecta(otra));
      pequena.Anadir(GrabarPorElComponente(apoyo::NegocioDePrueba(referencia)));
      if (Resumen(una) != Resumen(otra)) {
        state.SkipWithError(
            ("no son las mismas filas: " + Resumen(una) + " / " + Resumen(otra)).c_str());
      }
    }
    state.SetIterationTime(componente.Mediana());
  }
  state.counters["razon"] = componente.Mediana() / directa.Mediana();
  state.counters["por_factura_sobre_1000"] = componente.Mediana() * kFacturasDeReferencia /
                                             (pequena.Mediana() * static_cast<double>(facturas));
  state.counters["sql_ms"] = directa.Mediana() * 1000;
}
BENCHMARK(Grabacion)->Apply(Tamanos);

}  // namespace
}  // namespace medidas
