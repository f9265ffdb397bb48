#include "services/utiles.h"

namespace services {

void Aviso::FalloAlEscribir(const ErrorEjecucion& fallo, const std::string& siNoCabe) {
  if (fallo.Numero() == error::RepetidoONoCabe) {
    Mostrar(siNoCabe, mensaje::Alto, "Error");
  } else {
    Mostrar("Nº Error:" + std::to_string(fallo.Numero()) + "\n" + fallo.Descripcion(),
            mensaje::Alto, "");
  }
}

}  // namespace services
