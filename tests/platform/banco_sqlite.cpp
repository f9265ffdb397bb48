#include "esquema/esquema_sqlite.h"
#include "platform/banco.h"
#include "platform/carpeta_temporal.h"
#include "sqlite/conexion_sqlite.h"

namespace pruebas {

namespace {

class BancoSqlite final : public Banco {
 public:
  BancoSqlite() {
    auto conexion = sqlite::AbrirConexion(fichero_, {.Crear = true});
    esquema::CrearAlmacenadas(*conexion);
    esquema::CrearDeTrabajo(*conexion);
  }

  [[nodiscard]] services::Ref<services::Conexion> Conectar(bool unidad) override {
    return sqlite::AbrirConexion(fichero_, {.UnidadDeTrabajo = unidad, .CualquierSentencia = true});
  }
  void Ejecutar(const std::string& sql) override { sqlite::AbrirConexion(fichero_)->Ejecutar(sql); }
  [[nodiscard]] CuentaMotor Cuenta(services::Conexion& conexion) const override {
    const auto cuenta = dynamic_cast<sqlite::Conexion&>(conexion).Cuenta();
    return {cuenta.Preparadas, cuenta.Transacciones};
  }

 private:
  CarpetaTemporal carpeta_;
  std::string fichero_ = carpeta_.Fichero("banco.db");
};

}  // namespace

std::unique_ptr<Banco> CrearBancoSqlite() {
  return std::make_unique<BancoSqlite>();
}

}  // namespace pruebas
