#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "odbc/conexion_odbc.h"

namespace odbc {

/// An open SELECT on a server. A row is found again by its key.
class Cursor final : public services::Cursor {
 public:
  Cursor(Conexion& conexion, std::string texto, dialecto::Sentencia sentencia,
         services::ModoApertura modo, std::optional<services::Filas> halladas = {});

  [[nodiscard]] const std::vector<services::Columna>& Columnas() const override {
    return sentencia_.Traducida->Columnas;
  }
  [[nodiscard]] services::Filas Leer() override;
  void Insertar(std::span<const services::Asignacion> valores) override;
  void InsertarLuego(std::span<const services::Asignacion> valores,
                     const services::AlNoInsertar& alNoInsertar) override;
  [[nodiscard]] services::Filas LeerInsertada() override;
  void Bloquear(const services::Filas& filas, std::size_t fila) override;
  void Actualizar(const services::Filas& filas, std::size_t fila,
                  std::span<const services::Asignacion> valores) override;

 private:
  struct Insertado {
    std::size_t Posicion;
    services::Valor Nuevo;
  };

  [[nodiscard]] const std::string& Tabla() const { return sentencia_.Traducida->Unica; }
  [[nodiscard]] const std::vector<std::string>& Origenes() const {
    return sentencia_.Traducida->Origenes;
  }
  [[nodiscard]] services::TipoColumna TipoDe(std::size_t posicion) const {
    return Columnas()[posicion].Tipo;
  }
  [[nodiscard]] std::string TextoDeInsercion(std::span<const services::Asignacion> valores,
                                             std::size_t filas) const;
  [[nodiscard]] const std::shared_ptr<const Pendientes::Sentencia>& Insercion(
      std::span<const services::Asignacion> valores);
  [[nodiscard]] Parametros Nuevos(std::span<const services::Asignacion> valores) const;
  void Recordar(std::span<const services::Asignacion> valores);
  void ExigirTabla(std::span<const services::Asignacion> valores) const;
  [[nodiscard]] std::vector<std::size_t> Clave() const;
  [[nodiscard]] std::string DondeLaClave(const std::vector<std::size_t>& clave) const;
  [[nodiscard]] std::string SigueSiendo(std::size_t posicion, const services::Valor& antes) const;

  services::Ref<Conexion> conexion_;
  std::string texto_;
  dialecto::Sentencia sentencia_;
  services::ModoApertura modo_;
  /// Its columns, and what it is sorted by besides.
  std::vector<services::Columna> leidas_;
  /// What it finds, when that is known beforehand: for the first look.
  std::optional<services::Filas> halladas_;
  /// What the row that was added last was given.
  std::vector<Insertado> insertada_;
  /// The columns of the last rows that were left to be written, and their statement.
  std::vector<std::size_t> columnasDeInsercion_;
  std::shared_ptr<const Pendientes::Sentencia> insercion_;
};

}  // namespace odbc
