#pragma once

#include <memory>
#include <string>
#include <vector>

#include "sqlite/conexion_sqlite.h"

namespace sqlite {

/// An open SELECT on a file. Where it is dynamic and of one table, each of its rows ends in the
/// row's own number in the file.
class Cursor final : public services::Cursor {
 public:
  Cursor(Conexion& conexion, std::shared_ptr<Entrada> entrada, dialecto::Sentencia sentencia,
         services::ModoApertura modo);

  [[nodiscard]] const std::vector<services::Columna>& Columnas() const override {
    return sentencia_.Traducida->Columnas;
  }
  [[nodiscard]] services::Filas Leer() override;
  void Insertar(std::span<const services::Asignacion> valores) override;
  [[nodiscard]] services::Filas LeerInsertada() override;
  void Actualizar(const services::Filas& filas, std::size_t fila,
                  std::span<const services::Asignacion> valores) override;

 private:
  [[nodiscard]] const std::string& Tabla() const { return sentencia_.Traducida->Unica; }
  [[nodiscard]] const std::vector<std::string>& Origenes() const {
    return sentencia_.Traducida->Origenes;
  }
  void ExigirTabla(std::span<const services::Asignacion> valores) const;
  void PrepararInsercion(std::span<const services::Asignacion> valores);
  [[nodiscard]] services::Filas Recorrer(sqlite3_stmt* sentencia) const;
  [[nodiscard]] std::vector<std::string_view> Nombres(
      std::span<const services::Asignacion> valores) const;
  [[nodiscard]] std::vector<services::Asignacion> LosQueCambian(
      const services::Filas& filas, std::size_t fila,
      std::span<const services::Asignacion> valores) const;
  [[nodiscard]] std::string TextoDeCambio(std::span<const services::Asignacion> cambian,
                                          std::span<const services::Asignacion> valores) const;
  [[nodiscard]] std::string TextoDeInsertada() const;
  void PonerColumna(std::string& texto, std::size_t posicion) const;

  services::Ref<Conexion> conexion_;
  std::shared_ptr<Entrada> entrada_;
  dialecto::Sentencia sentencia_;
  services::ModoApertura modo_;
  /// The insertion of the last set of columns, kept since it is nearly always that of the next.
  Prestada insercion_;
  std::vector<std::size_t> posiciones_;
  std::int64_t insertada_ = 0;
};

}  // namespace sqlite
