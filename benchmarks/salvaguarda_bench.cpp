#include <string>

#include "apoyo/sesion_sin_pantalla.h"
#include "medida.h"
#include "salvaguarda/guardia.h"

// What the suite's guard adds to a load and to a commit: its picture, its copy, its comparison.

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

struct Parte {
  double Carga;
  double AlCargar;
  double Grabacion;
  double AlGrabar;
};

/// A load and a commit of the component, and what the guard does beside each.
Parte Medir(const apoyo::NegocioDePrueba& negocio) {
  const pruebas::CarpetaTemporal carpeta;
  const auto datos = negocio.AbrirDatos();
  const auto temp = negocio.AbrirTemp();
  salvaguarda::Guardia guardia(
      {datos, temp, negocio.FicheroDatos(), carpeta.Fichero("trabajo.foto")},
      {carpeta.Fichero("copias"), carpeta.Fichero("registro.txt")}, "ANA",
      {[] { return apoyo::kMarzo; },
       [](const std::string& pregunta) -> bool { throw std::logic_error(pregunta); }});
  apoyo::SesionSinPantalla sesion{services::Ref<services::Conexion>(datos),
                                  services::Ref<services::Conexion>(temp), apoyo::kMarzo,
                                  apoyo::kRangoDeMarzo};
  const salvaguarda::Rango rango{apoyo::kRangoDeMarzo.Desde, apoyo::kRangoDeMarzo.Hasta};
  using Tarea = salvaguarda::Comienzo::Tarea;
  Parte parte{};
  parte.AlCargar = Segundos([&] { guardia.AlComenzar({Tarea::Carga, rango}); });
  parte.Carga = Segundos([&] { sesion.Cargar(); });
  parte.AlGrabar = Segundos([&] { guardia.AlComenzar({Tarea::Grabacion, rango}); });
  datos->AbandonarUnidad();
  parte.Grabacion = Segundos([&] { sesion.Grabar(); });
  return parte;
}

void Salvaguarda(benchmark::State& state) {
  const auto facturas = state.range(0);
  const apoyo::NegocioDePrueba negocio(apoyo::Tamano{static_cast<int>(facturas), kApuntes});
  const apoyo::NegocioDePrueba grande(negocio);
  Ampliar(grande, 9);
  Tiempos alCargar;
  Tiempos carga;
  Tiempos alGrabar;
  Tiempos grabacion;
  Tiempos enGrande;
  for (auto vuelta : state) {
    (void)vuelta;
    for (int i = 0; i < Repeticiones(facturas); ++i) {
      const Parte parte = Medir(apoyo::NegocioDePrueba(negocio));
      alCargar.Anadir(parte.AlCargar);
      carga.Anadir(parte.Carga);
      alGrabar.Anadir(parte.AlGrabar);
      grabacion.Anadir(parte.Grabacion);
      enGrande.Anadir(Medir(apoyo::NegocioDePrueba(grande)).AlGrabar);
    }
    state.SetIterationTime(alGrabar.Mediana());
  }
  state.counters["parte_de_cargar"] = alCargar.Mediana() / carga.Mediana();
  state.counters["parte_de_grabar"] = alGrabar.Mediana() / grabacion.Mediana();
  state.counters["en_almacen_de_10"] = enGrande.Mediana() / alGrabar.Mediana();
}
BENCHMARK(Salvaguarda)->Apply(Tamanos);

}  // namespace
}  // namespace medidas
