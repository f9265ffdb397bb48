#include "guion/utiles_vigilados.h"

#include "guion/conexion_vigilada.h"

namespace guion {

void UtilesVigilados::AnotarBorrado(const std::string& clave,
                                    services::Ref<services::Conexion>& conexion,
                                    const std::string& sentencia) {
  registro_->Borrados.push_back({clave, sentencia});
  auto* vigilada = dynamic_cast<ConexionVigilada*>(conexion.get());
  services::Ref<services::Conexion> propia = vigilada ? vigilada->Dentro() : conexion;
  dentro_->AnotarBorrado(clave, propia, sentencia);
}

}  // namespace guion
