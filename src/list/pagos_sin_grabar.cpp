#include "list/pagos_sin_grabar.h"

#include <utility>

namespace list {
namespace {

bool EsNada(const std::string& pagado) {
  return pagado.empty() || pagado == "0" || pagado == "0,00";
}

}  // namespace

void PagosSinGrabar::Anotar(int fila, const std::string& de, const std::string& a) {
  if (Cambia(fila, de, a)) {
    alConstruir_.try_emplace(fila, de);
  } else {
    alConstruir_.erase(fila);
  }
}

void PagosSinGrabar::QuitarFila(int fila) {
  std::map<int, std::string> quedan;
  for (auto& [otra, pagado] : alConstruir_) {
    if (otra != fila) quedan.emplace(otra > fila ? otra - 1 : otra, std::move(pagado));
  }
  alConstruir_ = std::move(quedan);
}

std::vector<int> PagosSinGrabar::Filas() const {
  std::vector<int> filas;
  filas.reserve(alConstruir_.size());
  for (const auto& [fila, pagado] : alConstruir_) filas.push_back(fila);
  return filas;
}

int PagosSinGrabar::CuantosTras(int fila, const std::string& de, const std::string& a) const {
  const int otros = Cuantos() - static_cast<int>(alConstruir_.count(fila));
  return otros + (Cambia(fila, de, a) ? 1 : 0);
}

bool PagosSinGrabar::Cambia(int fila, const std::string& de, const std::string& a) const {
  const auto anotada = alConstruir_.find(fila);
  const std::string& construida = anotada == alConstruir_.end() ? de : anotada->second;
  return construida != a && !(EsNada(construida) && EsNada(a));
}

}  // namespace list
