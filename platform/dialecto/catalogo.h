#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "datos/conexion.h"

namespace dialecto {

/// A table as its database tells it.
struct Tabla {
  std::string Nombre;
  std::vector<services::Columna> Columnas;
  /// What an engine selects, besides the columns, to find a row again; in its own text.
  std::vector<std::string> Ocultas;
  /// The positions of the columns of a key: none of them is ever Null, no two rows have the same in
  /// all of them, and their texts compare as the system compares texts. Empty where there is none.
  std::vector<int> Clave = {};
  /// Whether `Motor::NumeroDeFila` gives the number of its rows: it has numbers, and no column of
  /// that name.
  bool Numerada = false;
  /// A column that another one is without the blanks on both sides, by its position, for an engine
  /// that has no other index of that; it isn't among the columns.
  struct Recortada {
    int Columna;
    std::string Nombre;
  };
  std::vector<Recortada> Recortadas = {};
};

/// The tables of a database. A driver supplies it.
class Catalogo {
 public:
  virtual ~Catalogo() = default;
  /// By name without regard to case; null where there is none. The table lives as long as its
  /// statements are in use.
  [[nodiscard]] virtual const Tabla* Buscar(std::string_view nombre) = 0;
  /// The same; throws 0x80040E37 where there is none.
  [[nodiscard]] const Tabla& Exigir(std::string_view nombre);
};

/// The position of a column, by name without regard to case; -1 where there is none.
[[nodiscard]] int BuscarColumna(const Tabla& tabla, std::string_view nombre);

/// Names are compared byte by byte first, which is how they nearly always come.
[[nodiscard]] bool MismoNombre(std::string_view a, std::string_view b);

}  // namespace dialecto
