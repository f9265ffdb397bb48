#include "platform/banco_odbc.h"

#include <unistd.h>

#include "esquema/esquema_de_servidor.h"
#include "odbc/conexion_odbc.h"

namespace pruebas {

namespace {

std::string NombreNuevo() {
  static int cuantos = 0;
  return "banco_" + std::to_string(getpid()) + "_" + std::to_string(++cuantos);
}

class BancoOdbc final : public Banco {
 public:
  explicit BancoOdbc(const std::string& servidor) : esquema_(servidor, NombreNuevo()) {
    const auto conexion = Abrir({});
    esquema::CrearAlmacenadas(*conexion);
    esquema::CrearDeTrabajo(*conexion);
  }

  [[nodiscard]] services::Ref<services::Conexion> Conectar(bool unidad) override {
    return Abrir({.UnidadDeTrabajo = unidad, .CualquierSentencia = true});
  }
  void Ejecutar(const std::string& sql) override { Abrir({})->Ejecutar(sql); }
  void Desconectar(services::Conexion& conexion) override {
    auto& suya = dynamic_cast<odbc::Conexion&>(conexion);
    const bool postgres = suya.NombreDelMotor() == "PostgreSQL";
    const std::string quien =
        suya.Consultar(postgres ? "SELECT pg_backend_pid()" : "SELECT CONNECTION_ID()")
            .Filas.En(0, 0)
            .Texto();
    const auto general = odbc::AbrirConexion(esquema_.Conexion());
    if (postgres) {
      static_cast<void>(general->Consultar("SELECT pg_terminate_backend(" + quien + ")"));
    } else {
      general->Ejecutar("KILL " + quien);
    }
  }
  [[nodiscard]] CuentaMotor Cuenta(services::Conexion& conexion) const override {
    const auto cuenta = dynamic_cast<odbc::Conexion&>(conexion).Cuenta();
    return {cuenta.Preparadas, cuenta.Transacciones};
  }

 private:
  [[nodiscard]] services::Ref<odbc::Conexion> Abrir(odbc::Opciones opciones) const {
    opciones.Esquema = esquema_.Nombre();
    return odbc::AbrirConexion(esquema_.Conexion(), opciones);
  }

  esquema::EsquemaPropio esquema_;
};

}  // namespace

std::unique_ptr<Banco> CrearBancoOdbc(const ServidorDePrueba& servidor) {
  return std::make_unique<BancoOdbc>(servidor.Texto);
}

}  // namespace pruebas
