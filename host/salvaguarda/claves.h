#pragma once

#include <string>
#include <vector>

#include "sqlite/conexion_sqlite.h"

namespace salvaguarda {

/// Keys of invoices, concepts of forecasts, and keys of cash entries.
struct Claves {
  struct Factura {
    std::string NConcepto;
    std::string Factura;
    std::string Anio;
  };
  /// Those of an invoice or a due date, which the list of a working copy shows.
  std::vector<Factura> EnLaLista;
  /// Those of a base and neither, which it doesn't.
  std::vector<Factura> SoloConBases;
  std::vector<std::string> Previsiones;
  struct Apunte {
    std::string idSucursal;
    std::string FechaHora;
    std::string Tipo;
  };
  std::vector<Apunte> Apuntes;

  /// Those that a working copy holds.
  [[nodiscard]] static Claves DeTrabajo(sqlite::Conexion& deTrabajo);
  /// Those alone that the picture in the file `foto`, taken at its load, hasn't. It has all the
  /// cash entries: a load brings them, and nothing adds any.
  [[nodiscard]] static Claves Nuevas(sqlite::Conexion& deTrabajo, const std::string& foto);
  /// Those of the picture in the attached file `foto`.
  [[nodiscard]] static Claves DeFoto(sqlite::Conexion& base);
  /// Those that the copy of rows in a file is about; it is attached to `base` meanwhile.
  [[nodiscard]] static Claves DeCopia(sqlite::Conexion& base, const std::string& fichero);

  void Anadir(const Claves& otras);
  [[nodiscard]] bool Ninguna() const {
    return EnLaLista.empty() && SoloConBases.empty() && Previsiones.empty();
  }
};

}  // namespace salvaguarda
