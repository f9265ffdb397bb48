#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <string>
#include <string_view>
#include <vector>

#include "odbc/conexion_odbc.h"
#include "odbc/texto_de_conexion.h"
#include "platform/servidores_de_prueba.h"
#include "valores/error.h"

namespace pruebas {

/// At the end of a test, which it makes fail where it can't.
inline void Quitar(const std::string& texto, const std::vector<std::string>& sentencias) noexcept {
  try {
    const auto dueno = odbc::AbrirConexion(texto);
    for (const std::string& sentencia : sentencias) dueno->Ejecutar(sentencia);
  } catch (const services::ErrorEjecucion& fallo) {
    ADD_FAILURE() << fallo.Descripcion();
  }
}

/// A database of a test's own, and the text that leads to it.
class BaseDePrueba {
 public:
  explicit BaseDePrueba(const ServidorDePrueba& servidor) : servidor_(servidor) {
    odbc::AbrirConexion(servidor_.Texto)->Ejecutar("CREATE DATABASE " + nombre_);
  }
  ~BaseDePrueba() { Quitar(servidor_.Texto, {"DROP DATABASE " + nombre_}); }
  BaseDePrueba(const BaseDePrueba&) = delete;
  BaseDePrueba& operator=(const BaseDePrueba&) = delete;

  [[nodiscard]] std::string Texto() const {
    odbc::TextoDeConexion texto(servidor_.Texto);
    texto.Poner("Database", nombre_);
    return texto.Texto();
  }
  [[nodiscard]] const std::string& Nombre() const { return nombre_; }
  [[nodiscard]] const ServidorDePrueba& Servidor() const { return servidor_; }

 private:
  ServidorDePrueba servidor_;
  std::string nombre_ = "suite_" + std::to_string(getpid());
};

/// Somebody whom the server asks for a password, and who has no right to that database until it is
/// given.
class UsuarioDePrueba {
 public:
  UsuarioDePrueba(const BaseDePrueba& base, const std::string& nombre, std::string_view contrasena)
      : base_(base), nombre_(nombre + "_" + std::to_string(getpid())) {
    std::string clave;
    for (const char signo : contrasena) clave.append(signo == '\'' ? 2 : 1, signo);
    const auto dueno = odbc::AbrirConexion(base_.Texto());
    if (EsPostgres()) {
      dueno->Ejecutar("REVOKE CONNECT ON DATABASE " + base_.Nombre() + " FROM PUBLIC");
      dueno->Ejecutar("CREATE ROLE " + nombre_ + " LOGIN PASSWORD '" + clave + "'");
    } else {
      dueno->Ejecutar("CREATE USER " + nombre_ + " IDENTIFIED BY '" + clave + "'");
    }
  }
  ~UsuarioDePrueba() {
    std::vector<std::string> sentencias = {"DROP USER " + nombre_};
    if (EsPostgres()) sentencias.insert(sentencias.begin(), "DROP OWNED BY " + nombre_);
    Quitar(base_.Texto(), sentencias);
  }
  UsuarioDePrueba(const UsuarioDePrueba&) = delete;
  UsuarioDePrueba& operator=(const UsuarioDePrueba&) = delete;

  /// To that database, and to the tables that it has.
  void DarDerechos() {
    const auto dueno = odbc::AbrirConexion(base_.Texto());
    if (EsPostgres()) {
      dueno->Ejecutar("GRANT CONNECT ON DATABASE " + base_.Nombre() + " TO " + nombre_);
      dueno->Ejecutar("GRANT ALL ON ALL TABLES IN SCHEMA public TO " + nombre_);
    } else {
      dueno->Ejecutar("GRANT ALL ON " + base_.Nombre() + ".* TO " + nombre_);
    }
  }
  /// As the one who enters, without his password.
  [[nodiscard]] odbc::TextoDeConexion Texto() const {
    odbc::TextoDeConexion texto(base_.Texto());
    texto.Poner(EsPostgres() ? "Username" : "User", nombre_);
    return texto;
  }
  [[nodiscard]] const std::string& Nombre() const { return nombre_; }

 private:
  [[nodiscard]] bool EsPostgres() const { return base_.Servidor().Nombre == "postgresql"; }

  const BaseDePrueba& base_;
  std::string nombre_;
};

}  // namespace pruebas
