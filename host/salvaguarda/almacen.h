#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "salvaguarda/claves.h"
#include "salvaguarda/comienzo.h"
#include "sqlite/conexion_sqlite.h"

namespace salvaguarda {

/// The stored tables, for those who keep them: wherever they are, their rows are looked for in a
/// file of the embedded engine.
class Almacen {
 public:
  /// The keys that are looked for besides a range, found out where they are needed.
  using ClavesDe = std::function<Claves()>;

  virtual ~Almacen() = default;
  Almacen(const Almacen&) = delete;
  Almacen& operator=(const Almacen&) = delete;

  /// What tells them from those of another business: a working copy says to which it belongs.
  [[nodiscard]] const std::string& Nombre() const { return nombre_; }
  /// The file where they are looked for.
  [[nodiscard]] const std::string& Fichero() const { return fichero_; }
  /// Whether it holds all of them, and not only what is being looked for.
  [[nodiscard]] virtual bool EnteroEnSuFichero() const = 0;
  /// What components are given.
  [[nodiscard]] virtual services::Ref<services::Conexion> Conexion() const = 0;

  /// What there is of a range, and of some keys, is about to be looked for. Throws what reading it
  /// throws; where it isn't in the file anyhow, nothing is found there then.
  virtual void Traer(const std::optional<Rango>& rango, const ClavesDe& claves) = 0;
  /// The unit under way of `Conexion` begins: whoever else writes waits for its end.
  virtual void EmpezarUnidad() = 0;
  /// Changes stored rows of those that were looked for last, in that unit, by the embedded engine's
  /// own SQL. It sees what is attached to `Base`.
  virtual void Cambiar(const std::string& sql) = 0;
  /// A connection to the file.
  [[nodiscard]] virtual sqlite::Conexion& Base() const = 0;

 protected:
  Almacen(std::string nombre, std::string fichero)
      : nombre_(std::move(nombre)), fichero_(std::move(fichero)) {}

 private:
  std::string nombre_;
  std::string fichero_;
};

/// Those that are in a file anyhow, which goes by its name.
class AlmacenEnFichero final : public Almacen {
 public:
  AlmacenEnFichero(services::Ref<sqlite::Conexion> conexion, const std::string& fichero)
      : Almacen(fichero, fichero), conexion_(std::move(conexion)) {}

  [[nodiscard]] bool EnteroEnSuFichero() const override { return true; }
  [[nodiscard]] services::Ref<services::Conexion> Conexion() const override { return conexion_; }
  void Traer(const std::optional<Rango>&, const ClavesDe&) override {}
  void EmpezarUnidad() override { conexion_->EmpezarUnidad(); }
  void Cambiar(const std::string& sql) override { conexion_->Ejecutar(sql); }
  [[nodiscard]] sqlite::Conexion& Base() const override { return *conexion_; }

 private:
  services::Ref<sqlite::Conexion> conexion_;
};

}  // namespace salvaguarda
