#pragma once

#include <string>
#include <vector>

#include "salvaguarda/noticia.h"
#include "salvaguarda/omitidas.h"

namespace salvaguarda {

/// What the user is to be told when an event is over.
struct Relato {
  /// Sentences, each a paragraph.
  std::vector<std::string> Parrafos;
  /// Whether a "Grabar" would now delete rows that the user hasn't seen.
  bool BorrariaFilas = false;
};

/// What is to be told of what a commit passed over. `conCopia`: whether what was there was copied
/// before.
[[nodiscard]] std::vector<Noticia> NoticiasDeGrabacion(const Omitidas& omitidas, bool conCopia);
/// What is to be told of what a load passed over, but for the rows that a commit would delete.
[[nodiscard]] std::vector<Noticia> NoticiasDeCarga(const Omitidas& omitidas);
/// What is to be told of the rows of a range that a load left out.
[[nodiscard]] Noticia NoticiaDeNoCargadas(const std::vector<Fila>& filas);
/// What is to be told of numbers that more than one invoice has.
[[nodiscard]] Noticia NoticiaDeGemelas(const std::vector<Fila>& filas);

}  // namespace salvaguarda
