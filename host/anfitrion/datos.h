#pragma once

#include <filesystem>
#include <string>

#include "anfitrion/opciones_suite.h"
#include "datos/conexion.h"
#include "sqlite/conexion_sqlite.h"
#include "valores/objeto.h"

namespace anfitrion {

/// The words of the user's language that the suite hands to its components, among the working
/// tables.
inline constexpr const char* kLosTextos = "SELECT SorvexTextos.* FROM SorvexTextos";

/// The two databases of the session.
struct Datos {
  services::Ref<sqlite::Conexion> Almacenados;
  services::Ref<sqlite::Conexion> DeTrabajo;
  /// What the status bar says of each.
  std::string NombreAlmacenados;
  std::string NombreDeTrabajo;
};

/// Opens both, making them at the first start: the stored ones with the sample business in them.
/// Throws `ErrorEjecucion` with a text for the user.
[[nodiscard]] Datos AbrirDatos(const Opciones& opciones);

/// Keeps the working file as it is now beside it, under a name with the date and the time, which it
/// gives. Throws `ErrorEjecucion` with a text for the user.
[[nodiscard]] std::filesystem::path ApartarDeTrabajo(const Datos& datos);

/// The same for one that is let go of without anybody asking for it: under a name of that kind, of
/// which the last ten stay, and `conservada`.
[[nodiscard]] std::filesystem::path ApartarDejada(const Datos& datos,
                                                  const std::filesystem::path& conservada);

/// The folder of the suite's own files.
[[nodiscard]] std::filesystem::path CarpetaDeDatos(const Opciones& opciones);

}  // namespace anfitrion
