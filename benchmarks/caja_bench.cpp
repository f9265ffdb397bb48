#include <string>

#include "apoyo/componente_en_marcha.h"
#include "caja_directa.h"
#include "forms/entrada.h"
#include "medida.h"

// The cash screens: automatic invoices against the same rows written by the engine alone, and the
// list of entries against the same rows read.

namespace medidas {
namespace {

namespace entrada = services::entrada;

/// The component's main screen over working tables that can be filled from outside.
class ConCaja {
 public:
  explicit ConCaja(const apoyo::NegocioDePrueba& negocio)
      : temp_(negocio.AbrirTemp()),
        enMarcha_(services::Ref<services::Conexion>(negocio.AbrirDatos()),
                  services::Ref<services::Conexion>(temp_), apoyo::kMarzo) {}

  [[nodiscard]] std::string Cargar() { return enMarcha_.Cargar(); }
  void Llenar(std::int64_t apuntes, int conceptos) {
    temp_->Ejecutar(SoloApuntes(apuntes, conceptos));
  }
  /// Seconds from the click on "Generar" to its end, the list made anew in it.
  [[nodiscard]] double Facturar() {
    const auto pantalla = services::Crear<cash::FrmFraAutomaticas>(
        enMarcha_.Sesion().Escritorio(), enMarcha_.Sesion(), enMarcha_.Pantalla().Lista);
    pantalla->Show();
    pantalla->Campos.CboIVA.ListIndex = 1;
    return Segundos([&] { entrada::Pulsar(pantalla->Campos.BtnAceptar); });
  }
  struct Vida {
    double Carga;
    double Descarga;
    int Filas;
  };
  /// Seconds in which the list of concept 1 comes and goes, and how many rows it has.
  [[nodiscard]] Vida Abrir() {
    shell::FrmTesvaraGastos& principal = enMarcha_.Pantalla();
    principal.Campos.TxtNConcepto.Text = "1";
    auto pantalla =
        services::Crear<cash::FrmPagosCaja>(enMarcha_.Sesion().Escritorio(), enMarcha_.Sesion(),
                                            principal.Campos, principal.Entrada.Terminos);
    const double carga = Segundos([&] { pantalla->Load(); });
    const int filas = pantalla->DivFondo.Count();
    const double descarga = Segundos([&] {
      enMarcha_.Sesion().Escritorio().Operacion([&] {
        pantalla->Unload();
        pantalla = nullptr;
      });
    });
    return {carga, descarga, filas};
  }
  [[nodiscard]] sqlite::Conexion& Temp() { return *temp_; }

 private:
  services::Ref<sqlite::Conexion> temp_;
  apoyo::ComponenteEnMarcha enMarcha_;
};

/// The component and the engine alone, over a business each.
struct Enfrentados {
  const apoyo::NegocioDePrueba Negocio{apoyo::Tamano{1, 0}};
  const apoyo::NegocioDePrueba Otro{Negocio};
  ConCaja Componente{Negocio};
  CajaDirecta Directa{Otro};
  const std::string Motivo = Componente.Cargar();  ///< of a failed load
};

constexpr const char* kResumen =
    "SELECT (SELECT count(*) || ' ' || total(Total) FROM TempProvFacturas) || ', ' || "
    "(SELECT count(*) || ' ' || total(Base) || ' ' || total(Importe) FROM TempProvBasesIva) || "
    "', ' || (SELECT count(*) || ' ' || total(Pagado) FROM TempProvVencimientos) || ', ' || "
    "(SELECT count(*) FROM TempCajaPagos WHERE Factura = '02/2005' AND Año = '2005')";

void GenerarFacturas(benchmark::State& state) {
  const auto apuntes = state.range(0);
  Enfrentados cada;
  if (!cada.Motivo.empty()) return state.SkipWithError(cada.Motivo.c_str());
  ConCaja& componente = cada.Componente;
  CajaDirecta& directa = cada.Directa;
  Tiempos genera;
  Tiempos escribe;
  Tiempos pequena;
  for (auto vuelta : state) {
    (void)vuelta;
    for (int i = 0; i < Repeticiones(apuntes); ++i) {
      componente.Llenar(kFacturasDeReferencia, kConceptos / 10);
      pequena.Anadir(componente.Facturar());
      componente.Llenar(apuntes, kConceptos);
      genera.Anadir(componente.Facturar());
      directa.Ejecutar(SoloApuntes(apuntes, kConceptos));
      escribe.Anadir(Segundos([&] { directa.Facturar(); }));
      const std::string hechas = componente.Temp().Consultar(kResumen).Filas.En(0, 0).Texto();
      if (hechas != directa.Texto(kResumen)) {
        return state.SkipWithError(("no son las mismas filas: " + hechas).c_str());
      }
    }
    state.SetIterationTime(genera.Mediana());
  }
  state.counters["razon"] = genera.Mediana() / escribe.Mediana();
  state.counters["por_apunte_sobre_1000"] =
      genera.Mediana() * kFacturasDeReferencia / (pequena.Mediana() * static_cast<double>(apuntes));
  state.counters["sql_ms"] = escribe.Mediana() * 1000;
}
BENCHMARK(GenerarFacturas)
    ->ArgName("apuntes")
    ->Arg(1'000)
    ->Arg(10'000)
    ->Arg(50'000)
    ->Iterations(1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

void CargarPagosCaja(benchmark::State& state) {
  const auto apuntes = state.range(0);
  Enfrentados cada;
  if (!cada.Motivo.empty()) return state.SkipWithError(cada.Motivo.c_str());
  ConCaja& componente = cada.Componente;
  CajaDirecta& directa = cada.Directa;
  componente.Llenar(apuntes, 1);
  directa.Ejecutar(SoloApuntes(apuntes, 1));
  Tiempos carga;
  Tiempos descarga;
  Tiempos lee;
  for (auto vuelta : state) {
    (void)vuelta;
    for (int i = 0; i < 25; ++i) {
      const ConCaja::Vida vida = componente.Abrir();
      carga.Anadir(vida.Carga);
      descarga.Anadir(vida.Descarga);
      lee.Anadir(Segundos([&] { benchmark::DoNotOptimize(directa.Leer()); }));
      if (vida.Filas != apuntes) return state.SkipWithError("faltan filas");
    }
    state.SetIterationTime(carga.Mediana());
  }
  state.counters["razon"] = carga.Mediana() / lee.Mediana();
  state.counters["razon_de_descarga"] = descarga.Mediana() / carga.Mediana();
  state.counters["sql_ms"] = lee.Mediana() * 1000;
}
BENCHMARK(CargarPagosCaja)
    ->ArgName("apuntes")
    ->Arg(100)
    ->Arg(1'000)
    ->Iterations(1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace medidas
