#include "salvaguarda/conceptos.h"

#include <utility>

#include "valores/error.h"
#include "valores/texto.h"

namespace salvaguarda {

Conceptos Conceptos::Leer(sqlite::Conexion& base) {
  std::map<std::string, std::string, SinCaso> nombres;
  try {
    const auto filas = base.Consultar("SELECT NConcepto, Descripcion FROM ProvConceptos").Filas;
    for (std::size_t i = 0; i < filas.Cuantas(); ++i) {
      nombres.emplace(filas.En(i, 0).Texto(), services::Trim(filas.En(i, 1).Texto()));
    }
  } catch (const services::ErrorEjecucion&) {
    return {};
  }
  return Conceptos(std::move(nombres));
}

std::string Conceptos::Llamar(const std::string& codigo) const {
  const auto suyo = nombres_.find(codigo);
  if (suyo == nombres_.end() || suyo->second.empty()) return "del concepto " + codigo;
  return "de " + suyo->second + " (" + codigo + ")";
}

}  // namespace salvaguarda
