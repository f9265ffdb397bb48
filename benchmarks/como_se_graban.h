#pragma once

#include "apoyo/sesion_sin_pantalla.h"
#include "medida.h"

namespace medidas {

/// Sizes, and in what order the rows are stored: by their numbers, or as a commit of the range
/// leaves them, which is how a business comes to have them.
inline void TamanosYOrdenes(benchmark::internal::Benchmark* medida) {
  medida->ArgNames({"facturas", "como_se_graban"});
  medida->ArgsProduct({{1'000, 10'000, 50'000}, {0, 1}});
  medida->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);
}

/// What a part of a session's work takes, and asks of the engine.
struct Trabajo {
  double Segundos = 0;
  std::size_t Preparadas = 0;
  std::size_t Transacciones = 0;
};

template <class Accion>
[[nodiscard]] Trabajo MedirTrabajo(const sqlite::Conexion& datos, const sqlite::Conexion& temp,
                                   Accion&& accion) {
  const auto preparadas = [&] { return datos.Cuenta().Preparadas + temp.Cuenta().Preparadas; };
  const auto transacciones = [&] {
    return datos.Cuenta().Transacciones + temp.Cuenta().Transacciones;
  };
  const std::size_t preparadasAntes = preparadas();
  const std::size_t transaccionesAntes = transacciones();
  const double segundos = Segundos(accion);
  return {segundos, preparadas() - preparadasAntes, transacciones() - transaccionesAntes};
}

/// A business whose range was loaded and saved the day before, if so it is to be.
class Negocio : public apoyo::NegocioDePrueba {
 public:
  Negocio(apoyo::Tamano tamano, bool comoSeGraban) : NegocioDePrueba(tamano) {
    if (!comoSeGraban) return;
    apoyo::SesionSinPantalla sesion(services::Ref<services::Conexion>(AbrirDatos()),
                                    services::Ref<services::Conexion>(AbrirTemp()),
                                    services::HacerFecha(2005, 3, 14, 11), apoyo::kRangoDeMarzo);
    sesion.Cargar();
    sesion.Grabar();
  }
};

}  // namespace medidas
