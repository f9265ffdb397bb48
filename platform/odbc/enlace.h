#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "odbc/diagnostico.h"
#include "odbc/manejo.h"
#include "odbc/servidor.h"
#include "odbc/texto_de_conexion.h"
#include "valores/error.h"

namespace odbc {

/// A server that was reached doesn't let the user in, for want of a password too.
class SinEntrada final : public services::ErrorEjecucion {
  using ErrorEjecucion::ErrorEjecucion;
};

/// The server has undone the unit because of what another wrote; it may be tried anew.
class UnidadDeshecha final : public services::ErrorEjecucion {
  using ErrorEjecucion::ErrorEjecucion;
};

/// A connection that is open until nobody uses it any more.
struct Linea {
  explicit Linea(SQLHANDLE entorno) : Conexion(SQL_HANDLE_DBC, entorno) {}
  ~Linea() {
    if (Abierta) SQLDisconnect(Conexion.get());
  }
  Linea(const Linea&) = delete;
  Linea& operator=(const Linea&) = delete;

  Manejo Conexion;
  bool Abierta = false;
};

/// A statement's handle, and what it needs to be freed.
struct ManejoDeOrden {
  std::shared_ptr<Linea> De;
  Manejo Suyo;

  [[nodiscard]] SQLHSTMT get() const { return Suyo.get(); }
};

/// The way to a server. Once it is lost it stays so until somebody asks to go on; that is tried
/// once, at each of the servers of its text in turn. Of several those that can't be written to are
/// passed over.
class Enlace {
 public:
  /// Connects. Throws `ErrorEjecucion` 0x80004005 where no server of the text can be reached, the
  /// same as `SinEntrada` where one of them can, and doesn't let the user in.
  Enlace(const TextoDeConexion& texto, std::string esquema);
  Enlace(const Enlace&) = delete;
  Enlace& operator=(const Enlace&) = delete;

  [[nodiscard]] const Servidor& Motor() const { return *servidor_; }
  /// The engine, as its driver calls it.
  [[nodiscard]] const std::string& NombreDelMotor() const { return motor_; }
  /// The database that it is in.
  [[nodiscard]] const std::string& Catalogo() const { return catalogo_; }
  [[nodiscard]] const Manejo& Conexion() const { return linea_->Conexion; }

  /// Connects again where the connection was lost. Throws alike.
  void Exigir();
  /// How often it has connected: what was prepared before the last time is no more.
  [[nodiscard]] std::size_t Vez() const { return vez_; }
  /// It is of no use any more.
  void Perder() noexcept { perdido_ = true; }
  [[nodiscard]] bool Perdido() const { return perdido_; }

  [[nodiscard]] ManejoDeOrden NuevaOrden();
  /// Throws what the driver says of a call that failed, as `UnidadDeshecha` where it is that.
  void Comprobar(SQLRETURN resultado, const Manejo& manejo);
  /// Runs what gives no rows, as it stands.
  void Ejecutar(const std::string& sql);

  /// One more time that the server was asked something.
  void ContarViaje() { ++viajes_; }
  [[nodiscard]] std::size_t Viajes() const { return viajes_; }

 private:
  void Conectar();
  void ConectarCon(const TextoDeConexion& texto);
  void Abrir(const TextoDeConexion& texto);
  void EmpezarSesion();
  void ExigirQueSirva();
  [[nodiscard]] bool Muerta() const;
  void EntrarEnEsquema();
  [[nodiscard]] std::string Dato(SQLUSMALLINT cual) const;

  std::vector<TextoDeConexion> textos_;
  std::string esquema_;
  Manejo entorno_;
  std::shared_ptr<Linea> linea_;
  const Servidor* servidor_ = nullptr;
  std::string motor_;
  std::string catalogo_;
  bool perdido_ = false;
  std::size_t vez_ = 0;
  std::size_t viajes_ = 0;
};

}  // namespace odbc
