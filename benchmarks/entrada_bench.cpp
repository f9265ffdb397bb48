#include <string>

#include "apoyo/componente_en_marcha.h"
#include "forms/entrada.h"
#include "medida.h"

// The acceptance of an entry with a full list behind it, against the rebuild of that list alone.

namespace medidas {
namespace {

namespace entrada = services::entrada;

/// An invoice on the panel, with one rate and one receipt; `numero` tells it apart.
void Teclear(shell::FrmTesvaraGastos& pantalla, int numero) {
  entry::Campos& c = pantalla.Campos;
  const auto poner = [](services::TextBox& campo, const std::string& texto) {
    entrada::Enfocar(campo);
    entrada::CambiarTexto(campo, texto);
  };
  entrada::Pulsar(pantalla.BotonNuevo);
  poner(c.TxtConcepto, "1");
  poner(c.TxtNFra, "NUEVA" + std::to_string(numero));
  poner(c.TxtIFra, "116");
  entrada::Enfocar(c.TxtNFra);
}

void Aceptar(benchmark::State& state) {
  const auto facturas = state.range(0);
  const apoyo::NegocioDePrueba negocio(apoyo::Tamano{static_cast<int>(facturas), kApuntes});
  apoyo::ComponenteEnMarcha enMarcha(services::Ref<services::Conexion>(negocio.AbrirDatos()),
                                     services::Ref<services::Conexion>(negocio.AbrirTemp()),
                                     apoyo::kMarzo);
  if (const auto motivo = enMarcha.Cargar(); !motivo.empty()) {
    return state.SkipWithError(motivo.c_str());
  }
  shell::FrmTesvaraGastos& pantalla = enMarcha.Pantalla();
  const auto rehacer = [&] {
    enMarcha.Sesion().Escritorio().Operacion([&] { pantalla.Lista.CargarGrip(); });
  };

  Tiempos acepta;
  Tiempos rehace;
  Tiempos tecla;
  int numero = 0;
  for (auto vuelta : state) {
    (void)vuelta;
    for (int i = 0; i < Repeticiones(facturas); ++i) {
      rehace.Anadir(Segundos(rehacer));
      tecla.Anadir(Segundos([&] { Teclear(pantalla, ++numero); }));
      acepta.Anadir(Segundos([&] { entrada::Pulsar(pantalla.Campos.BtnAceptar); }));
      if (pantalla.Campos.PicNuevo.Visible) return state.SkipWithError("no se ha aceptado");
    }
    state.SetIterationTime(acepta.Mediana());
  }
  state.counters["razon"] = acepta.Mediana() / rehace.Mediana();
  state.counters["filas"] = static_cast<double>(pantalla.Rejilla.MSFPagos.Rows());
  state.counters["campos_ms"] = tecla.Mediana() * 1000;
}
BENCHMARK(Aceptar)->Apply(Tamanos);

}  // namespace
}  // namespace medidas
