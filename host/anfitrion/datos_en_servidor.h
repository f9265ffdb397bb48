#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "anfitrion/datos.h"

namespace anfitrion {

/// The stored tables on the server of a connection text; `espejo` is the file of their mirror. A
/// database that has none of them gets them, with the sample business, when the user agrees. Throws
/// `ErrorEjecucion` with a text for the user.
[[nodiscard]] std::shared_ptr<salvaguarda::Almacen> AbrirEnServidor(
    const std::string& texto, const std::filesystem::path& espejo, const AlAbrir& alAbrir);

}  // namespace anfitrion
