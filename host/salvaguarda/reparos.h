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
  /// Rows of the working copy that aren't stored as they are there, where nobody knows who changed
  /// what.
  std::vector<Fila> SinSaber = {};
  /// What others have changed since.
  std::vector<Fila> DeOtros = {};
  /// Invoices that are stored with due dates out of the range, and that the commit would add to;
  /// and forecasts that are stored out of it, which keep those of the list from being saved.
  std::vector<Fila> YaGrabadas = {};
  /// Rows of the range that the working copy hasn't, and that the commit would delete.
  std::vector<Fila> NoCargadas = {};

  /// Those that are not among `otros`, rows by their keys.
  [[nodiscard]] Reparos Menos(const Reparos& otros) const;
  [[nodiscard]] bool Ninguno() const {
    return SinCopia.empty() && !SinFoto && SinSaber.empty() && DeOtros.empty() &&
           YaGrabadas.empty() && NoCargadas.empty();
  }
};

[[nodiscard]] std::vector<Noticia> Noticias(const Reparos& reparos);

}  // namespace salvaguarda
