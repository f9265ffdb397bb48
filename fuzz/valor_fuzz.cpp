#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>

#include "apoyo/injerto.h"
#include "platform/carpeta_temporal.h"

// A value in any place of any statement of the system, or in several of them, finds and deletes
// what it would as data, or the statement is refused. The first two bytes tell the statement and
// the places, a bit for each; the rest is the value.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t cuantos) {
  static const pruebas::CarpetaTemporal carpeta;
  static apoyo::Injerto injerto(carpeta.Fichero("datos.db"));
  if (cuantos < 2) return 0;
  const apoyo::Molde& molde = injerto.Moldes()[datos[0] % injerto.Moldes().size()];
  apoyo::Valores valores = molde.Llanos();
  for (std::size_t i = 0; i < valores.size(); ++i) {
    if ((datos[1] >> i) % 2 == 0) continue;
    valores[i].assign(reinterpret_cast<const char*>(datos) + 2, cuantos - 2);
  }
  if (injerto.Probar(molde, valores) != apoyo::Fin::Distinta) return 0;
  std::cerr << molde.Con(valores) << '\n';
  std::abort();
}
