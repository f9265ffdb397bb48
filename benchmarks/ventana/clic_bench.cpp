#include <QApplication>
#include <QWidget>

#include "apoyo/componente_en_marcha.h"
#include "forms/entrada.h"
#include "medida.h"
#include "qt/plataforma_qt.h"
#include "sorvex/utiles_sorvex.h"

// What a click that rebuilds the list takes in the window, until all of it is painted: the form's
// events, and what the toolkit makes of them.

namespace medidas {
namespace {

class MarcoDeMedida final : public services::ObjetoContado<services::IForm> {
 public:
  explicit MarcoDeMedida(QWidget& marco) : marco_(marco) {}
  services::Rectangulo Geometria() noexcept override { return {}; }
  std::int32_t WindowState() noexcept override { return 0; }
  void PonerWindowState(std::int32_t) noexcept override {}
  void Refresh() noexcept override { marco_.update(); }
  void* VentanaNativa() noexcept override { return &marco_; }

 private:
  QWidget& marco_;
};

services::Plataforma Ventanas() {
  auto plataforma = qt::CrearPlataforma(qt::DisenosDeTesvara(), std::chrono::milliseconds::zero());
  plataforma.CrearUtiles = &sorvex::CrearUtiles;
  plataforma.Ahora = [] { return apoyo::kMarzo; };
  return plataforma;
}

/// The main screen with the receipts of March, in a frame of the host.
class EnVentana {
 public:
  explicit EnVentana(const apoyo::NegocioDePrueba& negocio)
      : contexto_(services::Crear<apoyo::ContextoDeAnfitrion>(
            services::Ref<services::Conexion>(negocio.AbrirDatos()),
            services::Ref<services::Conexion>(negocio.AbrirTemp()))) {
    contexto_->Marco = services::Ref<services::IUnknown>(services::Crear<MarcoDeMedida>(marco_));
    contexto_->Principal = contexto_->Marco;
    marco_.resize(1280, 900);
    marco_.show();
    services::Ref<services::IDatosClase> como(contexto_);
    if (clase_->Cargar(como) != services::hr::Bien) throw std::runtime_error(clase_->Descripcion());
    Pintar();
  }
  ~EnVentana() { clase_->Cerrar(); }
  EnVentana(const EnVentana&) = delete;
  EnVentana& operator=(const EnVentana&) = delete;

  [[nodiscard]] shell::FrmTesvaraGastos& Pantalla() { return pantallas_.Principal(); }
  void Pulsar(services::Widget& widget) {
    services::entrada::Pulsar(widget);
    Pintar();
  }

 private:
  static void Pintar() {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
  }

  services::Plataforma plataforma_ = Ventanas();
  services::Ref<apoyo::ContextoDeAnfitrion> contexto_;
  QWidget marco_;
  shell::DatosComunes sesion_{plataforma_};
  shell::Pantallas pantallas_{sesion_};
  services::Ref<shell::ClassTesvara> clase_ =
      services::Crear<shell::ClassTesvara>(sesion_, pantallas_);
};

constexpr int kPrevisiones = 50;
/// Each is listed once a day, the month's last left out.
constexpr int kDias = 30;

std::string Lineas(EnVentana& ventana) {
  return std::to_string(ventana.Pantalla().Rejilla.MSFPagos.Rows - 1);
}

void Clic(benchmark::State& state) {
  const auto filas = static_cast<int>(state.range(0));
  const apoyo::NegocioDePrueba negocio(
      apoyo::Tamano{.Facturas = filas / 3, .Previsiones = kPrevisiones});
  EnVentana ventana(negocio);
  auto& lista = ventana.Pantalla().Lista;
  Tiempos conPrevisiones;
  Tiempos sinPrevisiones;
  Tiempos sinPagados;
  Tiempos conPagados;
  Tiempos porConcepto;
  Tiempos porFecha;
  const auto medir = [&](Tiempos& tiempos, services::Widget& widget) {
    tiempos.Anadir(Segundos([&] { ventana.Pulsar(widget); }));
  };
  for (auto vuelta : state) {
    (void)vuelta;
    for (int i = 0; i < 9; ++i) {
      // They are listed at first, and so at last: at its end it asks about a list that is another.
      medir(sinPrevisiones, lista.ChkPrevisiones);
      ExigirLoMismo(state, {Lineas(ventana), std::to_string(filas)});
      medir(sinPagados, lista.ChkPagados);
      medir(conPagados, lista.ChkPagados);
      medir(porConcepto, lista.OptConcepto);
      medir(porFecha, lista.OptFecha);
      medir(conPrevisiones, lista.ChkPrevisiones);
      ExigirLoMismo(state, {Lineas(ventana), std::to_string(filas + kDias * kPrevisiones)});
    }
    state.SetIterationTime(sinPrevisiones.Mediana());
  }
  state.counters["filas"] = filas;
  state.counters["con_previsiones_ms"] = conPrevisiones.Mediana() * 1000;
  state.counters["sin_pagados_ms"] = sinPagados.Mediana() * 1000;
  state.counters["con_pagados_ms"] = conPagados.Mediana() * 1000;
  state.counters["por_concepto_ms"] = porConcepto.Mediana() * 1000;
  state.counters["por_fecha_ms"] = porFecha.Mediana() * 1000;
}
BENCHMARK(Clic)->ArgName("filas")->Arg(3'000)->Arg(30'000)->Iterations(1)->UseManualTime()->Unit(
    benchmark::kMillisecond);

}  // namespace
}  // namespace medidas

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication aplicacion(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
