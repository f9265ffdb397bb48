#include "salvaguarda/reparos.h"

namespace salvaguarda {

std::vector<Noticia> Noticias(const Reparos& reparos) {
  std::vector<Noticia> noticias;
  if (!reparos.SinCopia.empty()) {
    noticias.push_back(
        {"No se ha podido guardar una copia de lo que hay grabado, ni ver si otro usuario lo ha "
         "cambiado: " +
         reparos.SinCopia});
  }
  if (reparos.SinFoto) {
    noticias.push_back(
        {"No se pudo mirar lo que había al cargar, y no se sabe si otro usuario lo ha cambiado"});
  }
  if (!reparos.DeOtros.empty()) {
    noticias.push_back({"Otro usuario ha cambiado lo que había al cargar", reparos.DeOtros});
  }
  if (!reparos.NoCargadas.empty()) {
    noticias.push_back(
        {"Hay filas del rango que no se cargaron, y que se borrarían", reparos.NoCargadas});
  }
  return noticias;
}

}  // namespace salvaguarda
