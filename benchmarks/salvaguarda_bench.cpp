#include <string>

#include "apoyo/sesion_sin_pantalla.h"
#include "medida.h"
#include "salvaguarda/guardia.h"

// What the suite's guard adds to a load and to a commit: its picture, its copy, its comparison;
// what it takes to keep aside what is let go of without saving; and what it takes when another user
// has changed the whole month.

namespace medidas {
namespace {

/// Adds to a store as many times its invoices again, in other years.
void Ampliar(const apoyo::NegocioDePrueba& negocio, int veces) {
  const auto datos = negocio.AbrirDatos();
  for (int i = 1; i <= veces; ++i) {
    const std::string anio = "'" + std::to_string(2005 + i) + "'";
    const std::string vence = anio + " || substr(FechaVto, 5)";
    datos->Ejecutar(
        "BEGIN; "
        "INSERT INTO ProvFacturas SELECT NConcepto, Factura || '-' || " +
        anio + ", " + anio +
        ", Fecha, Total, forpago, NRecibos, Dias1Vto, BIRPF, TipoIRPF, IRPF, Cadencia, "
        "Actualizado, ModificadoPor FROM ProvFacturas WHERE Año = '2005'; "
        "INSERT INTO ProvBasesIva SELECT NConcepto, NFactura || '-' || " +
        anio + ", " + anio +
        ", Tipo, Base, Importe, Exento, Actualizado, ModificadoPor FROM ProvBasesIva "
        "WHERE Año = '2005'; "
        "INSERT INTO ProvVencimientos SELECT NConcepto, NFactura || '-' || " +
        anio + ", " + anio + ", " + vence +
        ", Importe, Pagado, Fechapago, Actualizado, ModificadoPor FROM ProvVencimientos "
        "WHERE Año = '2005'; COMMIT");
  }
  datos->Ejecutar("PRAGMA wal_checkpoint(TRUNCATE)");
}

/// A component at work on March, and a guard beside it that sees nothing of it by itself.
class Puesto {
 public:
  explicit Puesto(const apoyo::NegocioDePrueba& negocio) : negocio_(negocio) {}

  double AlComenzar(salvaguarda::Comienzo::Tarea tarea) {
    const double segundos = Segundos([&] { guardia_.AlComenzar({tarea, kRango}); });
    datos_->AbandonarUnidad();
    return segundos;
  }
  double Cargar() {
    return Segundos([&] { sesion_.Cargar(); });
  }
  /// What is looked at and kept aside when all that is loaded was changed and is let go of.
  double Dejar() {
    guardia_.AlTerminarUnidadDeTrabajo();
    temp_->Ejecutar("UPDATE TempProvVencimientos SET Pagado = Importe + 1");
    return Segundos([&] { guardia_.AlVaciar(); });
  }
  double Grabar() {
    return Segundos([&] { sesion_.Grabar(); });
  }
  /// What was copied before the last "Grabar", beside what is stored.
  double CompararCopia() {
    const salvaguarda::Copia copia = guardia_.Copias().at(0);
    return Segundos([&] { (void)guardia_.Comparar(copia); });
  }

 private:
  std::string Apartar() {
    const std::string aparte = carpeta_.Fichero("dejada");
    temp_->CopiarEn(aparte);
    return aparte;
  }

  static inline const salvaguarda::Rango kRango{apoyo::kRangoDeMarzo.Desde,
                                                apoyo::kRangoDeMarzo.Hasta};

  const apoyo::NegocioDePrueba& negocio_;
  pruebas::CarpetaTemporal carpeta_;
  services::Ref<sqlite::Conexion> datos_ = negocio_.AbrirDatos();
  services::Ref<sqlite::Conexion> temp_ = negocio_.AbrirTemp();
  salvaguarda::Guardia guardia_{
      {std::make_shared<salvaguarda::AlmacenEnFichero>(datos_, negocio_.FicheroDatos()), temp_,
       carpeta_.Fichero("trabajo.foto")},
      {carpeta_.Fichero("copias"), carpeta_.Fichero("registro.txt")},
      "ANA",
      {.Ahora = [] { return apoyo::kMarzo; },
       .Preguntar = [](const std::string&) { return true; },
       .Apartar = [this] { return Apartar(); }}};
  apoyo::SesionSinPantalla sesion_{services::Ref<services::Conexion>(datos_),
                                   services::Ref<services::Conexion>(temp_), apoyo::kMarzo,
                                   apoyo::kRangoDeMarzo};
};

using Tarea = salvaguarda::Comienzo::Tarea;

struct Parte {
  double Carga;
  double AlCargar;
  double AlDejar;
  double Grabacion;
  double AlGrabar;
};

/// A load and a commit of the component, and what the guard does beside each.
Parte Medir(const apoyo::NegocioDePrueba& negocio) {
  Puesto puesto(negocio);
  Parte parte{};
  parte.AlCargar = puesto.AlComenzar(Tarea::Carga);
  parte.Carga = puesto.Cargar();
  parte.AlDejar = puesto.Dejar();
  parte.AlGrabar = puesto.AlComenzar(Tarea::Grabacion);
  parte.Grabacion = puesto.Grabar();
  return parte;
}

void Salvaguarda(benchmark::State& state) {
  const auto facturas = state.range(0);
  const apoyo::NegocioDePrueba negocio(apoyo::Tamano{static_cast<int>(facturas), kApuntes});
  const apoyo::NegocioDePrueba grande(negocio);
  Ampliar(grande, 9);
  Tiempos alCargar;
  Tiempos carga;
  Tiempos alDejar;
  Tiempos alGrabar;
  Tiempos grabacion;
  Tiempos enGrande;
  for (auto vuelta : state) {
    (void)vuelta;
    for (int i = 0; i < Repeticiones(facturas); ++i) {
      const Parte parte = Medir(apoyo::NegocioDePrueba(negocio));
      alCargar.Anadir(parte.AlCargar);
      carga.Anadir(parte.Carga);
      alDejar.Anadir(parte.AlDejar);
      alGrabar.Anadir(parte.AlGrabar);
      grabacion.Anadir(parte.Grabacion);
      enGrande.Anadir(Medir(apoyo::NegocioDePrueba(grande)).AlGrabar);
    }
    state.SetIterationTime(alGrabar.Mediana());
  }
  state.counters["parte_de_cargar"] = alCargar.Mediana() / carga.Mediana();
  state.counters["dejar_parte_de_cargar"] = alDejar.Mediana() / carga.Mediana();
  state.counters["parte_de_grabar"] = alGrabar.Mediana() / grabacion.Mediana();
  state.counters["en_almacen_de_10"] = enGrande.Mediana() / alGrabar.Mediana();
}
BENCHMARK(Salvaguarda)->Apply(Tamanos);

/// All invoices, which are of two hundred suppliers, become the first one's.
void DejarUnProveedor(const apoyo::NegocioDePrueba& negocio) {
  const auto datos = negocio.AbrirDatos();
  datos->Ejecutar(
      "BEGIN; UPDATE ProvFacturas SET NConcepto = '1'; UPDATE ProvBasesIva SET NConcepto = '1'; "
      "UPDATE ProvVencimientos SET NConcepto = '1'; COMMIT; PRAGMA wal_checkpoint(TRUNCATE)");
}

void CambiarTodas(const apoyo::NegocioDePrueba& negocio) {
  const auto datos = negocio.AbrirDatos();
  datos->Ejecutar(
      "BEGIN; UPDATE ProvFacturas SET Total = Total + 1; UPDATE ProvVencimientos SET Importe = "
      "Importe + 1; COMMIT; PRAGMA wal_checkpoint(TRUNCATE)");
}

struct ConOtro {
  double AlGrabar;
  double Grabacion;
  double Comparacion;
};

/// A commit of what another user has changed whole since the load, and the comparison of its copy.
ConOtro MedirConOtro(const apoyo::NegocioDePrueba& negocio) {
  Puesto puesto(negocio);
  puesto.AlComenzar(Tarea::Carga);
  puesto.Cargar();
  CambiarTodas(negocio);
  ConOtro parte{};
  parte.AlGrabar = puesto.AlComenzar(Tarea::Grabacion);
  parte.Grabacion = puesto.Grabar();
  parte.Comparacion = puesto.CompararCopia();
  return parte;
}

void LoDeOtros(benchmark::State& state) {
  const auto facturas = state.range(0);
  const apoyo::NegocioDePrueba negocio(apoyo::Tamano{static_cast<int>(facturas), kApuntes});
  const apoyo::NegocioDePrueba deUno(negocio);
  DejarUnProveedor(deUno);
  Tiempos alGrabar;
  Tiempos grabacion;
  Tiempos comparacion;
  Tiempos alGrabarDeUno;
  Tiempos comparacionDeUno;
  for (auto vuelta : state) {
    (void)vuelta;
    for (int i = 0; i < Repeticiones(facturas); ++i) {
      const ConOtro parte = MedirConOtro(apoyo::NegocioDePrueba(negocio));
      alGrabar.Anadir(parte.AlGrabar);
      grabacion.Anadir(parte.Grabacion);
      comparacion.Anadir(parte.Comparacion);
      const ConOtro deUnProveedor = MedirConOtro(apoyo::NegocioDePrueba(deUno));
      alGrabarDeUno.Anadir(deUnProveedor.AlGrabar);
      comparacionDeUno.Anadir(deUnProveedor.Comparacion);
    }
    state.SetIterationTime(alGrabar.Mediana());
  }
  state.counters["parte_de_grabar"] = alGrabar.Mediana() / grabacion.Mediana();
  state.counters["comparar_parte_de_grabar"] = comparacion.Mediana() / grabacion.Mediana();
  state.counters["de_un_proveedor"] = alGrabarDeUno.Mediana() / alGrabar.Mediana();
  state.counters["comparar_de_un_proveedor"] = comparacionDeUno.Mediana() / comparacion.Mediana();
}
BENCHMARK(LoDeOtros)
    ->ArgName("facturas")
    ->Arg(1'000)
    ->Arg(10'000)
    ->Iterations(1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace medidas
