#pragma once

#include <filesystem>
#include <string>

#include "datos/conexion.h"
#include "opciones_suite.h"
#include "valores/objeto.h"

namespace anfitrion {

/// The two databases of the session.
struct Datos {
  services::Ref<services::Conexion> Almacenados;
  services::Ref<services::Conexion> DeTrabajo;
  /// What the status bar says of each.
  std::string NombreAlmacenados;
  std::string NombreDeTrabajo;
};

/// Opens both, making them at the first start: the stored ones with the sample business in them.
/// Throws `ErrorEjecucion` with a text for the user.
[[nodiscard]] Datos AbrirDatos(const Opciones& opciones);

/// The folder of the suite's own files.
[[nodiscard]] std::filesystem::path CarpetaDeDatos(const Opciones& opciones);

}  // namespace anfitrion
