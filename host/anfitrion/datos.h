#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "anfitrion/opciones_suite.h"
#include "salvaguarda/almacen.h"
#include "sqlite/conexion_sqlite.h"
#include "valores/error.h"
#include "valores/objeto.h"

namespace anfitrion {

/// The words of the user's language that the suite hands to its components, among the working
/// tables.
inline constexpr const char* kLosTextos = "SELECT SorvexTextos.* FROM SorvexTextos";

/// The two databases of the session.
struct Datos {
  std::shared_ptr<salvaguarda::Almacen> Almacenados;
  services::Ref<sqlite::Conexion> DeTrabajo;
  std::string NombreDeTrabajo;
  /// The folder of the copies of what is stored.
  std::filesystem::path Copias;
};

/// What the user is asked while they are opened; nothing where there is nobody to ask.
struct AlAbrir {
  std::function<bool(const std::string& pregunta)> Confirmar = nullptr;
  /// None when he would rather not tell it.
  std::function<std::optional<std::string>(const std::string& pregunta)> Contrasena = nullptr;
};

/// Opens both, making them at the first start: the stored ones with the sample business in them, in
/// the suite's own file or, when the user agrees, on a server that has none of their tables. Throws
/// `ErrorEjecucion` with a text for the user, 0x800A0E80 where he would rather not go on.
[[nodiscard]] Datos AbrirDatos(const Opciones& opciones, const AlAbrir& alAbrir = {});

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
