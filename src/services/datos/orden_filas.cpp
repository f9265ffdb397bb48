#include "datos/orden_filas.h"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "valores/texto.h"

namespace services {

namespace {

using Numeros = std::vector<std::uint32_t>;

/// The rows of a list repeat their dates and suppliers, so the texts of a column are compared each
/// with the others once, and rows by the places that their texts got.
class Puestos {
 public:
  Puestos(const Filas& filas, std::size_t columna) : deCada_(filas.Cuantas()) {
    for (std::size_t fila = 0; fila < deCada_.size(); ++fila) {
      deCada_[fila] = Numero(filas.TextoEn(fila, columna));
    }
    const Numeros puestos = Comparados();
    for (std::uint32_t& numero : deCada_) numero = puestos[numero];
  }

  /// `filas`, sorted by what this column has, those with the same place as they were.
  [[nodiscard]] Numeros Repartidas(const Numeros& filas) const {
    Numeros desde(textos_.size() + 2);
    for (const std::uint32_t fila : filas) ++desde[deCada_[fila] + 1];
    std::partial_sum(desde.begin(), desde.end(), desde.begin());
    Numeros repartidas(filas.size());
    for (const std::uint32_t fila : filas) repartidas[desde[deCada_[fila]]++] = fila;
    return repartidas;
  }

 private:
  /// Null is 0, and the texts count from 1 as they come.
  std::uint32_t Numero(std::optional<std::string_view> texto) {
    if (!texto) return 0;
    const auto siguiente = static_cast<std::uint32_t>(textos_.size() + 1);
    const auto [visto, nuevo] = vistos_.try_emplace(*texto, siguiente);
    if (nuevo) textos_.push_back(*texto);
    return visto->second;
  }

  /// The place of each number: the same where two texts differ in nothing that counts.
  [[nodiscard]] Numeros Comparados() const {
    Numeros orden(textos_.size());
    std::iota(orden.begin(), orden.end(), 0);
    std::ranges::sort(orden, [&](std::uint32_t una, std::uint32_t otra) {
      return CompararTexto(textos_[una], textos_[otra]) < 0;
    });
    Numeros puestos(textos_.size() + 1);
    std::uint32_t puesto = 0;
    for (std::size_t i = 0; i < orden.size(); ++i) {
      const bool igual = i > 0 && MismoTexto(textos_[orden[i - 1]], textos_[orden[i]]);
      puestos[orden[i] + 1] = igual ? puesto : ++puesto;
    }
    return puestos;
  }

  Numeros deCada_;
  std::vector<std::string_view> textos_;
  std::unordered_map<std::string_view, std::uint32_t> vistos_;
};

}  // namespace

void Ordenar(Filas& filas, std::span<const std::size_t> columnas) {
  Numeros orden(filas.Cuantas());
  std::iota(orden.begin(), orden.end(), 0);
  for (auto columna = columnas.rbegin(); columna != columnas.rend(); ++columna) {
    orden = Puestos(filas, *columna).Repartidas(orden);
  }
  filas.Reordenar(orden);
}

}  // namespace services
