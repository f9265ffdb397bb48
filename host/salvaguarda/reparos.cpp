#include "salvaguarda/reparos.h"

namespace salvaguarda {

Reparos Reparos::Menos(const Reparos& otros) const {
  return {SinCopia,
          SinFoto && !otros.SinFoto,
          Sin(SinSaber, otros.SinSaber),
          Sin(DeOtros, otros.DeOtros),
          Sin(YaGrabadas, otros.YaGrabadas),
          Sin(NoCargadas, otros.NoCargadas)};
}

std::vector<Noticia> Noticias(const Reparos& reparos) {
  std::vector<Noticia> noticias;
  const auto deFilas = [&](const char* frase, const std::vector<Fila>& filas) {
    if (!filas.empty()) noticias.push_back({frase, filas});
  };
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
  deFilas(
      "No se sabe qué había al cargar: estas filas no están así entre lo grabado, y se grabarían "
      "como están en la lista",
      reparos.SinSaber);
  deFilas("Otro usuario ha cambiado lo que había al cargar", reparos.DeOtros);
  const auto [previsiones, facturas] = SepararPrevisiones(reparos.YaGrabadas);
  deFilas(
      "Estas facturas ya están grabadas con vencimientos de otras fechas, y lo entrado con su "
      "número se les añadiría",
      facturas);
  deFilas(
      "Estas previsiones ya están grabadas para después de las fechas de la lista, y seguirían "
      "como están: las de la lista no se grabarían",
      previsiones);
  deFilas("Hay filas del rango que no se cargaron, y que se borrarían", reparos.NoCargadas);
  return noticias;
}

}  // namespace salvaguarda
