#pragma once

#include <vector>

#include "salvaguarda/noticia.h"
#include "salvaguarda/omitidas.h"

namespace salvaguarda {

/// What is to be told of what a commit passed over.
[[nodiscard]] std::vector<Noticia> NoticiasDeGrabacion(const Omitidas& omitidas);
/// What is to be told of what a load passed over, but for the rows that a commit would delete.
[[nodiscard]] std::vector<Noticia> NoticiasDeCarga(const Omitidas& omitidas);
/// What is to be told of those.
[[nodiscard]] Noticia NoticiaDeNoCargadas(const std::vector<Fila>& filas);

}  // namespace salvaguarda
