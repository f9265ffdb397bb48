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
