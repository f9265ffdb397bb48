#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "esquema/esquema_sqlite.h"
#include "muestra/muestra.h"
#include "platform/carpeta_temporal.h"
#include "sqlite/conexion_sqlite.h"

namespace pruebas {

/// A stored database with its tables, in a file of its own.
class NegocioVacio {
 public:
  NegocioVacio() { esquema::CrearAlmacenadas(*datos); }

  /// The number that a query of one cell gives.
  [[nodiscard]] std::int64_t Cuenta(const std::string& sql) {
    return static_cast<std::int64_t>(datos->Consultar(sql).Filas.En(0, 0).Numero());
  }
  [[nodiscard]] std::int64_t Filas(const std::string& tabla) {
    return Cuenta("SELECT count(*) FROM " + tabla);
  }

  CarpetaTemporal carpeta;
  services::Ref<sqlite::Conexion> datos = sqlite::AbrirConexion(
      carpeta.Fichero("datos.db"), {.Crear = true, .CualquierSentencia = true});
};

inline const services::FechaHora kHoy = services::HacerFecha(2005, 3, 15, 11, 30);

/// The same, filled around a day.
class NegocioLleno : public NegocioVacio {
 public:
  explicit NegocioLleno(services::FechaHora hoy = kHoy) { muestra::Llenar(*datos, hoy); }
};

}  // namespace pruebas
