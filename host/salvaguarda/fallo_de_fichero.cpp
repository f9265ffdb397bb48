#include "salvaguarda/fallo_de_fichero.h"

#include "valores/error.h"

namespace salvaguarda {

std::string Motivo(const std::error_code& fallo) {
  if (fallo == std::errc::permission_denied || fallo == std::errc::operation_not_permitted) {
    return ": no hay permiso";
  }
  if (fallo == std::errc::not_a_directory || fallo == std::errc::file_exists) {
    return ": hay un fichero en su lugar";
  }
  if (fallo == std::errc::no_such_file_or_directory) return ": no existe";
  if (fallo == std::errc::no_space_on_device) return ": no queda sitio en el disco";
  if (fallo == std::errc::read_only_file_system) return ": el disco es de solo lectura";
  if (fallo == std::errc::io_error) return ": el disco falla";
  return " (error " + std::to_string(fallo.value()) + ")";
}

void LanzarNoSePuede(const std::string& que, const std::error_code& fallo) {
  throw services::ErrorEjecucion(services::error::FalloDeConexion,
                                 "No se puede " + que + Motivo(fallo));
}

}  // namespace salvaguarda
