#include <cstdlib>
#include <iostream>
#include <string>

#include "apoyo/sesion_sin_pantalla.h"
#include "medida.h"
#include "negocio_en_servidor.h"
#include "salvaguarda/almacen_en_servidor.h"
#include "salvaguarda/guardia.h"
#include "sentencias_del_cliente.h"

// A load and a commit of a range with the stored tables on a server, against the same work done by
// the server's own client, set by set; how often the server is asked for each invoice; and what the
// suite's guard takes besides.

namespace medidas {
namespace {

constexpr int kVeces = 3;

using Tarea = salvaguarda::Comienzo::Tarea;

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

/// What the suite's guard does beside a load and a commit.
class Guardia {
 public:
  explicit Guardia(const Sesion& sesion)
      : datos_(sesion.Datos),
        guardia_({std::make_shared<salvaguarda::AlmacenEnServidor>(
                      sesion.Datos, "medida", carpeta_.Fichero("espejo.sqlite")),
                  sesion.Temp, carpeta_.Fichero("trabajo.foto")},
                 {carpeta_.Fichero("copias"), carpeta_.Fichero("registro.txt")}, "ANA",
                 {.Ahora = [] { return apoyo::kMarzo; },
                  .Preguntar = [](const std::string&) { return true; }}) {}

  double AlComenzar(salvaguarda::Comienzo::Tarea tarea) {
    const double segundos = Segundos([&] { guardia_.AlComenzar({tarea, kRango}); });
    datos_->AbandonarUnidad();
    return segundos;
  }

 private:
  static inline const salvaguarda::Rango kRango{apoyo::kRangoDeMarzo.Desde,
                                                apoyo::kRangoDeMarzo.Hasta};

  pruebas::CarpetaTemporal carpeta_;
  services::Ref<odbc::Conexion> datos_;
  salvaguarda::Guardia guardia_;
};

void EnUnServidor(benchmark::State& state, const Servidor& servidor, const std::string& lento) {
  const auto facturas = static_cast<int>(state.range(0));
  const auto meses = static_cast<int>(state.range(1));
  const NegocioEnServidor negocio(servidor, {facturas, facturas, meses});
  const SentenciasDelCliente sentencias(servidor.Nombre);
  negocio.CorrerCliente(sentencias.Apartar());
  Tiempos carga;
  Tiempos grabacion;
  Tiempos cargaDelCliente;
  Tiempos grabacionDelCliente;
  Tiempos cargaLenta;
  Tiempos guardiaAlCargar;
  Tiempos guardiaAlGrabar;
  Trabajo deCarga{};
  Trabajo deGrabacion{};
  for (auto vuelta : state) {
    (void)vuelta;
    for (int i = 0; i < kVeces; ++i) {
      Sesion sesion(negocio, servidor.Texto);
      Guardia guardia(sesion);
      guardiaAlCargar.Anadir(guardia.AlComenzar(Tarea::Carga));
      deCarga = sesion.Cargar();
      carga.Anadir(deCarga.Segundos);
      cargaDelCliente.Anadir(negocio.CorrerCliente(sentencias.Cargar()));
      guardiaAlGrabar.Anadir(guardia.AlComenzar(Tarea::Grabacion));
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
  state.counters["guardia_al_cargar"] = guardiaAlCargar.Mediana() / carga.Mediana();
  state.counters["guardia_al_grabar"] = guardiaAlGrabar.Mediana() / grabacion.Mediana();
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
      // So many in the range, which is one of so many months in the table.
      ->ArgNames({"facturas", "meses"})
      ->Args({1'000, 1})
      ->Args({1'000, 10})
      ->Args({10'000, 1})
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
