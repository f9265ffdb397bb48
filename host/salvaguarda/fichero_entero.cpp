#include "salvaguarda/fichero_entero.h"

#include <cerrno>
#include <fstream>
#include <string>
#include <system_error>
#include <utility>

#include "salvaguarda/fallo_de_fichero.h"

namespace salvaguarda {

FicheroEntero::FicheroEntero(std::filesystem::path fichero, std::string_view propio)
    : fichero_(std::move(fichero)), enCurso_(fichero_) {
  if (!propio.empty()) enCurso_ += "." + std::string(propio);
  enCurso_ += kSinAcabar;
  Quitar();
}

FicheroEntero::~FicheroEntero() {
  Quitar();
}

void FicheroEntero::Quitar() noexcept {
  std::error_code noEstaba;
  std::filesystem::remove(enCurso_, noEstaba);
}

void FicheroEntero::Crear() const {
  errno = 0;
  if (std::ofstream(enCurso_).flush()) return;
  LanzarNoSePuede("escribir en " + enCurso_.parent_path().string(),
                  {errno, std::generic_category()});
}

void FicheroEntero::Terminar() {
  EnElDisco("guardar " + fichero_.string(), [&] { std::filesystem::rename(enCurso_, fichero_); });
}

}  // namespace salvaguarda
