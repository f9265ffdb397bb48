#include "datos/orden_filas.h"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <span>
#include <string_view>
#include <unordered_map>

#include "valores/texto.h"

namespace services {

namespace {

using Numeros = std::vector<std::uint32_t>;
using Tramo = std::span<std::uint32_t>;
using Columnas = std::span<const std::size_t>;

/// So few rows are compared with each other.
constexpr std::size_t kPocas = 32;

/// Sorts rows by the place of each, from 0 on, those of the same place as they were. Where the rows
/// of each place end.
Numeros Repartir(Tramo tramo, const Numeros& puestos, std::size_t cuantos) {
  Numeros hasta(cuantos + 1);
  for (const std::uint32_t puesto : puestos) ++hasta[puesto + 1];
  std::partial_sum(hasta.begin(), hasta.end(), hasta.begin());
  const Numeros antes(tramo.begin(), tramo.end());
  for (std::size_t i = 0; i < antes.size(); ++i) tramo[hasta[puestos[i]]++] = antes[i];
  return hasta;
}

/// The place of each row's text among those of a column: the same where two texts differ in nothing
/// that counts. Lists repeat their dates and suppliers, so each text is compared once and not in
/// each row.
class Puestos {
 public:
  Puestos(const Filas& filas, Tramo tramo, std::size_t columna) {
    deCada_.reserve(tramo.size());
    for (const std::uint32_t fila : tramo) {
      deCada_.push_back(NumeroDe(filas.TextoEn(fila, columna)));
    }
    const Numeros puestos = Comparados();
    for (std::uint32_t& numero : deCada_) numero = puestos[numero];
  }

  /// Sorts the rows by their places, and calls `con` with each run of those of the same.
  template <class Con>
  void Ordenar(Tramo tramo, Con con) const {
    std::size_t desde = 0;
    for (const std::uint32_t fin : Repartir(tramo, deCada_, textos_.size() + 1)) {
      con(tramo.subspan(desde, fin - desde));
      desde = fin;
    }
  }

 private:
  /// A Null's is 0, and the texts count from 1 as they come.
  std::uint32_t NumeroDe(std::optional<std::string_view> texto) {
    if (!texto) return 0;
    const auto siguiente = static_cast<std::uint32_t>(textos_.size() + 1);
    const auto [visto, nuevo] = vistos_.try_emplace(*texto, siguiente);
    if (nuevo) textos_.push_back(*texto);
    return visto->second;
  }

  /// The place of each number.
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

int Comparar(std::optional<std::string_view> uno, std::optional<std::string_view> otro) {
  if (uno && otro) return CompararTexto(*uno, *otro);
  return static_cast<int>(uno.has_value()) - static_cast<int>(otro.has_value());
}

void OrdenarTramo(const Filas& filas, Tramo tramo, Columnas columnas) {
  if (columnas.empty() || tramo.size() < 2) return;
  if (tramo.size() > kPocas) {
    return Puestos(filas, tramo, columnas.front()).Ordenar(tramo, [&](Tramo iguales) {
      OrdenarTramo(filas, iguales, columnas.subspan(1));
    });
  }
  std::ranges::stable_sort(tramo, [&](std::uint32_t una, std::uint32_t otra) {
    int orden = 0;
    for (std::size_t i = 0; orden == 0 && i < columnas.size(); ++i) {
      orden = Comparar(filas.TextoEn(una, columnas[i]), filas.TextoEn(otra, columnas[i]));
    }
    return orden < 0;
  });
}

void PonerEnSuPuesto(const Filas& filas, Tramo tramo, std::size_t columna) {
  Numeros puestos;
  puestos.reserve(tramo.size());
  for (const std::uint32_t fila : tramo) {
    puestos.push_back(static_cast<std::uint32_t>(filas.Entero(fila, columna)));
  }
  const auto ultimo = std::ranges::max_element(puestos);
  Repartir(tramo, puestos, ultimo == puestos.end() ? 0 : std::size_t{*ultimo} + 1);
}

}  // namespace

void Ordenar(Filas& filas, const OrdenDeFilas& orden) {
  if (orden.Ninguno()) return;
  Numeros numeros(filas.Cuantas());
  std::iota(numeros.begin(), numeros.end(), 0);
  if (orden.Puesto) PonerEnSuPuesto(filas, numeros, *orden.Puesto);
  OrdenarTramo(filas, numeros, orden.Textos);
  filas.Reordenar(numeros);
}

}  // namespace services
