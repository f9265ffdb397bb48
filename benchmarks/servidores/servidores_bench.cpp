#include <cstdlib>
#include <iostream>
#include <string>

#include "apoyo/sesion_sin_pantalla.h"
#include "medida.h"
#include "negocio_en_servidor.h"
#include "sentencias_del_cliente.h"

// A load and a commit of a range with the stored tables on a server, against the same work done by
// the server's own client, set by set; and how often the server is asked for each invoice.

namespace medidas {
namespace {

constexpr int kVeces = 3;

struct Trabajo {
  double Segundos;
  std::size_t Viajes;
};

template <class Accion>
Trabajo Medir(const odbc::Conexion& datos, Accion&& accion) {
  const std::size_t antes = datos.Cuenta().Viajes;
  const double segundos = Segundos(accion);
  return {segundos, datos.Cuenta().Viajes - antes};
}

struct Sesion {
  Sesion(const NegocioEnServidor& negocio, const std::string& texto)
      : Datos(negocio.AbrirEn(texto)),
        Temp(negocio.AbrirTemp()),
        SinPantalla(services::Ref<services::Conexion>(Datos),
                    services::Ref<services::Conexion>(Temp), apoyo::kMarzo, apoyo::kRangoDeMarzo) {}

  Trabajo Cargar() {
    return Medir(*Datos, [this] { SinPantalla.Cargar(); });
  }
  Trabajo Grabar() {
    return Medir(*Datos, [this] { SinPantalla.Grabar(); });
  }

  services::Ref<odbc::Conexion> Datos;
  services::Ref<sqlite::Conexion> Temp;
  apoyo::SesionSinPantalla SinPantalla;
};

void EnUnServidor(benchmark::State& state, const Servidor& servidor, const std::string& lento) {
  const auto facturas = static_cast<int>(state.range(0));
  const NegocioEnServidor negocio(servidor, {facturas, facturas});
  const SentenciasDelCliente sentencias(servidor.Nombre);
  negocio.CorrerCliente(sentencias.Apartar());
  Tiempos carga;
  Tiempos grabacion;
  Tiempos cargaDelCliente;
  Tiempos grabacionDelCliente;
  Tiempos cargaLenta;
  Trabajo deCarga{};
  Trabajo deGrabacion{};
  for (auto vuelta : state) {
    (void)vuelta;
    for (int i = 0; i < kVeces; ++i) {
      Sesion sesion(negocio, servidor.Texto);
      deCarga = sesion.Cargar();
      carga.Anadir(deCarga.Segundos);
      cargaDelCliente.Anadir(negocio.CorrerCliente(sentencias.Cargar()));
      deGrabacion = sesion.Grabar();
      grabacion.Anadir(deGrabacion.Segundos);
      const std::string grabado = negocio.Resumen();
      grabacionDelCliente.Anadir(negocio.CorrerCliente(sentencias.Grabar()));
      ExigirLoMismo(state, {grabado, negocio.Resumen()});
      if (!lento.empty()) cargaLenta.Anadir(Sesion(negocio, lento).Cargar().Segundos);
    }
    state.SetIterationTime(carga.Mediana());
  }
  state.counters["razon_carga"] = carga.Mediana() / cargaDelCliente.Mediana();
  state.counters["razon_grabar"] = grabacion.Mediana() / grabacionDelCliente.Mediana();
  state.counters["grabar_ms"] = grabacion.Mediana() * 1000;
  state.counters["viajes_por_mil_carga"] = static_cast<double>(deCarga.Viajes) * 1000 / facturas;
  state.counters["viajes_por_mil_grabar"] =
      static_cast<double>(deGrabacion.Viajes) * 1000 / facturas;
  if (!lento.empty()) state.counters["carga_con_5ms_s"] = cargaLenta.Mediana();
}

std::string Entorno(const std::string& variable) {
  const char* valor = std::getenv(variable.c_str());
  return valor ? valor : "";
}

void Anadir(const std::string& nombre, const std::string& variable) {
  const std::string texto = Entorno(variable);
  if (texto.empty()) {
    std::cerr << "sin " << nombre << ": no está " << variable << '\n';
    return;
  }
  const Servidor servidor = ServidorDe(nombre, texto);
  benchmark::RegisterBenchmark(nombre.c_str(), EnUnServidor, servidor, Entorno(variable + "_LENTO"))
      ->ArgName("facturas")
      ->Arg(1'000)
      ->Arg(10'000)
      ->Iterations(1)
      ->UseManualTime()
      ->Unit(benchmark::kMillisecond);
}

}  // namespace
}  // namespace medidas

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  medidas::Anadir("postgresql", "TESVARA_POSTGRESQL");
  medidas::Anadir("mariadb", "TESVARA_MARIADB");
  benchmark::RunSpecifiedBenchmarks();
}
