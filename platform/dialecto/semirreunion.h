#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "dialecto/catalogo.h"
#include "dialecto/motor.h"

// "SELECT DISTINCT T.* FROM T, joined with others" asks for the rows of T for which there are rows
// of the others. An engine that takes it by the letter makes all the combinations, and compares
// whole rows to find those that repeat. Written as what it asks, each table is looked at once, and
// what is compared are row numbers.

namespace dialecto {

/// As many as there are bits to tell them by.
inline constexpr std::size_t kMasFuentes = 64;

/// A table that a statement takes rows from, under the name that it has there.
struct Fuente {
  std::string_view Nombre;
  const dialecto::Tabla* Tabla;
};

/// A column, by the place of its source in the statement and its own in the table.
struct ColumnaDeFuente {
  int Fuente = -1;
  int Columna = -1;
  /// Whether what it holds counts without the blanks around it.
  bool SinBlancos = false;
};

/// A condition as it stands in a statement's text.
struct CondicionEscrita {
  std::size_t Desde = 0;
  std::size_t Hasta = 0;
  /// A bit for each source that it looks at, and the first column.
  std::uint64_t Fuentes = 0;
  ColumnaDeFuente Primera = {};
  bool ConLiterales = false;
  /// Whether each of its columns tells its source.
  bool Calificada = true;
  /// Whether it is conditions joined by AND alone, and which of those want two columns equal.
  bool SoloY = true;
  /// Whether there is anything in it but such conditions.
  bool SoloIgualdades = true;
  std::vector<std::pair<ColumnaDeFuente, ColumnaDeFuente>> Igualdades = {};

  void Mirar(ColumnaDeFuente columna) {
    if (Primera.Fuente < 0) Primera = columna;
    Fuentes |= std::uint64_t{1} << static_cast<unsigned>(columna.Fuente);
  }
};

/// What a SELECT DISTINCT asks for, in pieces of its text.
struct Reunion {
  std::string_view Texto;
  std::span<const Fuente> Fuentes;
  /// The source of which all columns are selected.
  int Elegida = -1;
  /// A bit for each other one of which any is, or by which the rows are sorted.
  std::uint64_t ConColumnas = 0;
  /// Of the inner joins, in any order.
  std::span<const CondicionEscrita> Juntas;
  const CondicionEscrita* Donde = nullptr;
};

/// A SELECT without DISTINCT that gives the same rows as one with it, in pieces of its text.
struct FilasPorNumero {
  /// Its FROM, and in it the WHERE.
  std::string Desde;
  /// The place of a row in the order in which the plain joins come upon them: a column to sort by
  /// at last, or to select.
  std::string Orden;
};

/// The same for an engine without row numbers: the place of a row is the least that the first
/// column of the condition is for it.
struct FilasPorClave : FilasPorNumero {
  services::Columna Lugar;
};

/// None where the engine has no row numbers, or it isn't certain that the rows are the same and
/// sooner found: each row of the chosen table is another by its key, other columns come from tables
/// joined to it by theirs, and the rest of the joins is a way from it to the one other table that
/// the WHERE looks at.
[[nodiscard]] std::optional<FilasPorNumero> PorNumerosDeFila(const Motor& motor,
                                                             const Reunion& reunion);
/// None where the engine is asked for no such thing, or the rest of that isn't certain.
[[nodiscard]] std::optional<FilasPorClave> PorClavesDeFila(const Motor& motor,
                                                           const Reunion& reunion);

}  // namespace dialecto
