#include "salvaguarda/fila.h"

#include <algorithm>
#include <iterator>
#include <set>

#include "salvaguarda/tablas.h"
#include "valores/texto.h"

namespace salvaguarda {

bool SinCaso::operator()(const std::string& a, const std::string& b) const {
  return services::CompararTexto(a, b) < 0;
}

bool PorSuClave::operator()(const Fila& a, const Fila& b) const {
  for (const auto parte :
       {&Fila::Tabla, &Fila::NConcepto, &Fila::Factura, &Fila::Anio, &Fila::Detalle}) {
    const int orden = services::CompararTexto(a.*parte, b.*parte);
    if (orden != 0) return orden < 0;
  }
  return false;
}

std::vector<Fila> Sin(const std::vector<Fila>& filas, const std::vector<Fila>& otras) {
  const std::set<Fila, PorSuClave> fuera(otras.begin(), otras.end());
  std::vector<Fila> quedan;
  std::ranges::copy_if(filas, std::back_inserter(quedan),
                       [&](const Fila& fila) { return !fuera.contains(fila); });
  return quedan;
}

PorPrevision SepararPrevisiones(const std::vector<Fila>& filas) {
  PorPrevision separadas;
  for (const Fila& fila : filas) {
    const bool prevision = fila.Tabla == Previsiones().Nombre;
    (prevision ? separadas.Previsiones : separadas.LasDemas).push_back(fila);
  }
  return separadas;
}

std::string Recuento(const std::vector<Fila>& filas) {
  std::string texto;
  for (const Tabla& tabla : Tablas()) {
    const auto cuantas = std::ranges::count(filas, tabla.Nombre, &Fila::Tabla);
    if (cuantas == 0) continue;
    if (!texto.empty()) texto += ", ";
    texto += std::to_string(cuantas) + " ";
    texto += cuantas == 1 ? tabla.Una : tabla.Varias;
  }
  return texto;
}

}  // namespace salvaguarda
