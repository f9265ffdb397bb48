#pragma once

#include <cstdint>
#include <random>
#include <vector>

namespace muestra {

/// Chance that falls the same way everywhere: the library's distributions don't.
class Azar {
 public:
  explicit Azar(std::uint32_t semilla) : motor_(semilla) {}

  /// From 0 to `hasta`, itself left out.
  [[nodiscard]] int Menos(int hasta) {
    return static_cast<int>(motor_() % static_cast<std::uint32_t>(hasta));
  }
  /// Both ends included.
  [[nodiscard]] int Entre(int desde, int hasta) { return desde + Menos(hasta - desde + 1); }
  /// True so many times in a hundred.
  [[nodiscard]] bool Ciento(int veces) { return Menos(100) < veces; }
  template <class T>
  [[nodiscard]] const T& De(const std::vector<T>& lista) {
    return lista[static_cast<std::size_t>(Menos(static_cast<int>(lista.size())))];
  }

 private:
  std::mt19937 motor_;
};

}  // namespace muestra
