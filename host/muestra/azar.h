#pragma once

#include <cstdint>

namespace muestra {

/// Numbers that look like chance and are the same everywhere for the same seed: the library's own
/// distributions give other numbers with each library.
class Azar {
 public:
  explicit Azar(std::uint64_t semilla) : estado_(semilla) {}

  /// A whole number from `desde` to `hasta`, both included. Takes one step whatever the bounds, so
  /// that a choice among more or fewer leaves the later ones as they were.
  int Entre(int desde, int hasta) {
    const auto cuantos = static_cast<std::uint64_t>(hasta - desde + 1);
    return desde + static_cast<int>(((Siguiente() >> 32) * cuantos) >> 32);
  }

  /// True so many times in a hundred.
  bool DeCada100(int veces) { return Entre(0, 99) < veces; }

 private:
  std::uint64_t Siguiente() {
    estado_ += 0x9E3779B97F4A7C15;
    std::uint64_t mezcla = estado_;
    mezcla = (mezcla ^ (mezcla >> 30)) * 0xBF58476D1CE4E5B9;
    mezcla = (mezcla ^ (mezcla >> 27)) * 0x94D049BB133111EB;
    return mezcla ^ (mezcla >> 31);
  }

  std::uint64_t estado_;
};

}  // namespace muestra
