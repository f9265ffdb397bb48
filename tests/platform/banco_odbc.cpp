#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <string>

#include "esquema/esquema_de_servidor.h"
#include "odbc/conexion_odbc.h"
#include "platform/banco_odbc.h"

namespace pruebas {

namespace {

/// A schema, or a database, of its own on a server.
class BancoOdbc final : public Banco {
 public:
  BancoOdbc(const ServidorDePrueba& servidor)
      : servidor_(servidor), general_(odbc::AbrirConexion(servidor.Texto)) {
    static std::atomic<int> cuantos = 0;
    nombre_ = "banco_" + std::to_string(getpid()) + "_" + std::to_string(++cuantos);
    general_->Ejecutar("CREATE SCHEMA " + nombre_);
    const auto conexion = odbc::AbrirConexion(Texto());
    esquema::CrearAlmacenadas(*conexion);
    esquema::CrearDeTrabajo(*conexion);
  }
  ~BancoOdbc() override { general_->Ejecutar("DROP SCHEMA " + nombre_ + servidor_.ConTodo); }

  [[nodiscard]] services::Ref<services::Conexion> Conectar(bool unidad) override {
    return odbc::AbrirConexion(Texto(), {.UnidadDeTrabajo = unidad, .CualquierSentencia = true});
  }
  void Ejecutar(const std::string& sql) override { odbc::AbrirConexion(Texto())->Ejecutar(sql); }
  [[nodiscard]] CuentaMotor Cuenta(services::Conexion& conexion) const override {
    const auto cuenta = dynamic_cast<odbc::Conexion&>(conexion).Cuenta();
    return {cuenta.Preparadas, cuenta.Transacciones};
  }

 private:
  [[nodiscard]] std::string Texto() const {
    std::string esquema = servidor_.ConEsquema;
    return servidor_.Texto + ";" + esquema.replace(esquema.find('#'), 1, nombre_);
  }

  ServidorDePrueba servidor_;
  services::Ref<odbc::Conexion> general_;
  std::string nombre_;
};

std::string Entorno(const char* variable) {
  const char* valor = std::getenv(variable);
  return valor ? valor : "";
}

}  // namespace

std::vector<ServidorDePrueba> ServidoresDePrueba() {
  std::vector<ServidorDePrueba> servidores;
  if (const std::string texto = Entorno("TESVARA_POSTGRESQL"); !texto.empty()) {
    servidores.push_back({"postgresql", texto, "ConnSettings={SET search_path TO #}", " CASCADE"});
  }
  if (const std::string texto = Entorno("TESVARA_MARIADB"); !texto.empty()) {
    servidores.push_back({"mariadb", texto, "Database=#", ""});
  }
  return servidores;
}

std::unique_ptr<Banco> CrearBancoOdbc(const ServidorDePrueba& servidor) {
  return std::make_unique<BancoOdbc>(servidor);
}

}  // namespace pruebas
