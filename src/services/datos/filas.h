#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "valores/valor.h"

namespace services {

/// Rows as a driver fetched them, packed: cells of a fixed size, and the texts together in one
/// buffer, so that reading a table of any size allocates a handful of times.
/// Rows and columns count from 0. A driver fills it by appending cells from left to right.
class Filas {
 public:
  explicit Filas(std::size_t columnas = 0) : columnas_(columnas) {}

  [[nodiscard]] std::size_t Columnas() const { return columnas_; }
  [[nodiscard]] std::size_t Cuantas() const { return columnas_ ? celdas_.size() / columnas_ : 0; }
  [[nodiscard]] Valor En(std::size_t fila, std::size_t columna) const;

  void AnadirNulo();
  void AnadirLogico(bool valor);
  void AnadirEntero(std::int64_t valor);
  void AnadirNumero(double valor);
  void AnadirFecha(FechaHora valor);
  void AnadirTexto(std::string_view valor);
  void Anadir(const Valor& valor);
  /// A copy of another's cell.
  void AnadirCelda(const Filas& otras, std::size_t fila, std::size_t columna);

  /// The text of a cell, while these rows aren't added to; none where it holds something else.
  [[nodiscard]] std::optional<std::string_view> TextoEn(std::size_t fila,
                                                        std::size_t columna) const;
  /// Puts the rows in another order: the number of each, as it was, and each of them once.
  void Reordenar(std::span<const std::uint32_t> orden);

  /// The whole number of a cell that was added by `AnadirEntero`; not cut to 32 bits.
  [[nodiscard]] std::int64_t Entero(std::size_t fila, std::size_t columna) const;

 private:
  enum class Clase : std::uint8_t { Nulo, Logico, Entero, Numero, Fecha, Texto };
  struct Tramo {
    std::uint32_t desde;
    std::uint32_t largo;
  };
  struct Celda {
    union {
      std::int64_t entero;
      double numero;
      FechaHora fecha;
      Tramo texto;
    };
    Clase clase;
  };

  [[nodiscard]] auto Fila(std::size_t fila) {
    return std::span(celdas_).subspan(fila * columnas_, columnas_);
  }
  [[nodiscard]] std::string_view Texto(const Celda& celda) const {
    return std::string_view(textos_).substr(celda.texto.desde, celda.texto.largo);
  }

  std::size_t columnas_;
  std::vector<Celda> celdas_;
  std::string textos_;
};

}  // namespace services
