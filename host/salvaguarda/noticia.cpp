#include "salvaguarda/noticia.h"

#include <limits>

namespace salvaguarda {
namespace {

constexpr std::size_t kALaVista = 100;
constexpr std::size_t kTodas = std::numeric_limits<std::size_t>::max();

std::string Texto(const Noticia& noticia, std::size_t hasta) {
  if (noticia.Filas.empty()) return noticia.Frase;
  return noticia.Frase + " (" + Recuento(noticia.Filas) + "):" + Relacion(noticia.Filas, hasta);
}

}  // namespace

std::string ParaLeer(const Noticia& noticia) {
  const bool entera = noticia.Filas.size() <= kALaVista;
  return Texto(noticia, kALaVista) + (entera ? "" : ", que están en registro.txt");
}

std::string ParaAnotar(const Noticia& noticia) {
  return Texto(noticia, kTodas);
}

}  // namespace salvaguarda
