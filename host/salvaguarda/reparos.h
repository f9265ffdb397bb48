#pragma once

#include <string>
#include <vector>

#include "salvaguarda/noticia.h"

namespace salvaguarda {

/// What is to be asked before a commit writes over what is there.
struct Reparos {
  /// Why what is there can't be copied, nor compared; empty when it can.
  std::string SinCopia = {};
  /// Whether nobody knows what was there at the load.
  bool SinFoto = false;
  /// What others have changed since.
  std::vector<Fila> DeOtros = {};
  /// Rows of the range that the working copy hasn't, and that the commit would delete.
  std::vector<Fila> NoCargadas = {};

  [[nodiscard]] bool Ninguno() const {
    return SinCopia.empty() && !SinFoto && DeOtros.empty() && NoCargadas.empty();
  }
};

[[nodiscard]] std::vector<Noticia> Noticias(const Reparos& reparos);

}  // namespace salvaguarda
