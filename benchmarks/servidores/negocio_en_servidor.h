#pragma once

#include <string>

#include "apoyo/negocio_de_prueba.h"
#include "esquema/esquema_de_servidor.h"
#include "odbc/conexion_odbc.h"

namespace medidas {

/// A server, and how its own client is told to run a file of statements, whose name follows.
struct Servidor {
  std::string Nombre;
  std::string Texto;
  std::string Cliente;
  /// In the client's text: what goes into a schema, whose name takes the place of the `#`, and what
  /// brings the server's knowledge of a table up to date.
  std::string Entrar;
  std::string Analizar;
};

/// That of which the environment holds a connection text in the variable of that name.
[[nodiscard]] Servidor ServidorDe(const std::string& nombre, const std::string& texto);

/// The business of `local`, its stored tables on a server, in a schema of its own.
class NegocioEnServidor {
 public:
  NegocioEnServidor(Servidor servidor, apoyo::Tamano tamano);

  [[nodiscard]] services::Ref<odbc::Conexion> Abrir() const { return AbrirEn(servidor_.Texto); }
  /// The same on the server that another text leads to.
  [[nodiscard]] services::Ref<odbc::Conexion> AbrirEn(const std::string& texto) const {
    return odbc::AbrirConexion(texto, {.Esquema = esquema_.Nombre()});
  }
  [[nodiscard]] services::Ref<sqlite::Conexion> AbrirTemp() const { return local_.AbrirTemp(); }
  /// Has the server's own client run statements, what they find thrown away, and gives the seconds
  /// that it takes. Throws what it says when they fail.
  double CorrerCliente(const std::string& sql) const;
  /// The rows of the stored tables, and what their amounts add up to.
  [[nodiscard]] std::string Resumen() const;

 private:
  void Volcar(const std::string& tabla, services::Conexion& origen, services::Conexion& destino);

  Servidor servidor_;
  apoyo::NegocioDePrueba local_;
  esquema::EsquemaPropio esquema_;
  pruebas::CarpetaTemporal carpeta_;
};

}  // namespace medidas
