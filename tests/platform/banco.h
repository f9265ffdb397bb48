#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "datos/conexion.h"
#include "datos/recordset.h"

namespace pruebas {

struct CuentaMotor {
  std::size_t Preparadas = 0;
  std::size_t Transacciones = 0;
};

/// A fresh, empty database on one engine with the stored and the working tables in it, for as long
/// as it lives. What is true of a driver is tested through it, the same for every engine.
class Banco {
 public:
  virtual ~Banco() = default;
  /// A new connection; writes are gathered into units of work unless told otherwise.
  [[nodiscard]] virtual services::Ref<services::Conexion> Conectar(bool unidad = true) = 0;
  /// Runs the engine's own SQL, on a connection of its own.
  virtual void Ejecutar(const std::string& sql) = 0;
  /// Ends a connection from the server's side; nothing where there is no server.
  virtual void Desconectar(services::Conexion&) {}
  [[nodiscard]] virtual CuentaMotor Cuenta(services::Conexion& conexion) const = 0;
};

struct Motor {
  std::string Nombre;
  std::function<std::unique_ptr<Banco>()> CrearBanco;
};

inline void PrintTo(const Motor& motor, std::ostream* salida) {
  *salida << motor.Nombre;
}

[[nodiscard]] std::unique_ptr<Banco> CrearBancoSqlite();

/// The embedded engine, and those servers that are there to be tried on.
[[nodiscard]] std::vector<Motor> Motores();
[[nodiscard]] std::vector<Motor> Servidores();
inline std::string NombreDelMotor(const testing::TestParamInfo<Motor>& motor) {
  return motor.param.Nombre;
}

}  // namespace pruebas
