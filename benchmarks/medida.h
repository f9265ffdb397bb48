#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

#include "apoyo/negocio_de_prueba.h"

namespace medidas {

template <class Accion>
[[nodiscard]] double Segundos(Accion&& accion) {
  const auto antes = std::chrono::steady_clock::now();
  accion();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - antes).count();
}

/// Times of the same thing, of which the middle one counts.
class Tiempos {
 public:
  void Anadir(double segundos) { tiempos_.push_back(segundos); }
  [[nodiscard]] double Mediana() const {
    std::vector<double> orden = tiempos_;
    const auto medio = orden.begin() + static_cast<std::ptrdiff_t>(orden.size() / 2);
    std::nth_element(orden.begin(), medio, orden.end());
    return *medio;
  }

 private:
  std::vector<double> tiempos_;
};

/// What is measured has gone well: the text of its failure is empty.
inline void ExigirBien(benchmark::State& state, const std::string& motivo) {
  if (!motivo.empty()) state.SkipWithError(motivo.c_str());
}

/// What was measured beside each other has done the same.
inline void ExigirLoMismo(benchmark::State& state, const std::vector<std::string>& resumenes) {
  for (const std::string& resumen : resumenes) {
    if (resumen == resumenes.front()) continue;
    const std::string motivo = "no son las mismas filas: " + resumenes.front() + " / " + resumen;
    state.SkipWithError(motivo.c_str());
  }
}

inline constexpr int kApuntes = 10'000;
inline constexpr int kFacturasDeReferencia = 1'000;
/// Fewer the longer each one takes.
[[nodiscard]] inline int Repeticiones(std::int64_t facturas) {
  if (facturas <= 1'000) return 15;
  return facturas <= 10'000 ? 9 : 5;
}

/// Sizes at which most is measured.
inline void Tamanos(benchmark::internal::Benchmark* medida) {
  medida->ArgName("facturas")->Arg(1'000)->Arg(10'000)->Arg(50'000);
  medida->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);
}

/// The same proportion of cash entries at the size that costs per invoice are compared with.
[[nodiscard]] inline apoyo::Tamano Referencia(std::int64_t facturas) {
  return {kFacturasDeReferencia,
          static_cast<int>(std::int64_t{kApuntes} * kFacturasDeReferencia / facturas)};
}

}  // namespace medidas
