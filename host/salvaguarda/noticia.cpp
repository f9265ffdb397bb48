#include "salvaguarda/noticia.h"

#include "salvaguarda/relacion.h"

namespace salvaguarda {
namespace {

std::string Con(const Noticia& noticia, const Relacion& relacion) {
  return noticia.Frase + " (" + Recuento(noticia.Filas) + "):" + relacion.Texto;
}

}  // namespace

std::string ParaLeer(const Noticia& noticia, const Conceptos& conceptos) {
  if (noticia.Filas.empty()) return noticia.Frase;
  const Relacion aLaVista = Relatar(noticia.Filas, conceptos, kALaVista);
  if (aLaVista.QueFaltan == 0) return Con(noticia, aLaVista);
  const bool todas = Relatar(noticia.Filas, conceptos, kEnElRegistro).QueFaltan == 0;
  return Con(noticia, aLaVista) +
         (todas ? ", que están en registro.txt" : "; las primeras están en registro.txt");
}

std::string ParaAnotar(const Noticia& noticia, const Conceptos& conceptos) {
  if (noticia.Filas.empty()) return noticia.Frase;
  return Con(noticia, Relatar(noticia.Filas, conceptos, kEnElRegistro));
}

}  // namespace salvaguarda
