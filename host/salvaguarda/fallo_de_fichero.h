#pragma once

#include <filesystem>
#include <string>
#include <system_error>

namespace salvaguarda {

/// Why the file system refused something, to stand behind what it was: `: no hay permiso`. Its own
/// texts come in English.
[[nodiscard]] std::string Motivo(const std::error_code& fallo);
[[noreturn]] void LanzarNoSePuede(const std::string& que, const std::error_code& fallo);

/// What an action gives. What the file system throws comes out as 0x80004005: that `que` can't be
/// done, and why.
template <class Accion>
auto EnElDisco(const std::string& que, Accion&& accion) {
  try {
    return accion();
  } catch (const std::filesystem::filesystem_error& fallo) {
    LanzarNoSePuede(que, fallo.code());
  }
}

}  // namespace salvaguarda
