#include "anfitrion/datos_en_servidor.h"

#include <algorithm>

#include "anfitrion/fechas.h"
#include "esquema/esquema_de_servidor.h"
#include "muestra/muestra.h"
#include "odbc/conexion_odbc.h"
#include "odbc/texto_de_conexion.h"
#include "salvaguarda/almacen_en_servidor.h"
#include "valores/error.h"

namespace anfitrion {
namespace {

using services::ErrorEjecucion;

[[noreturn]] void Rechazar(const std::string& motivo) {
  throw ErrorEjecucion(services::error::FalloDeConexion, motivo);
}

/// What is typed as a command is kept by the shell, and shown to whoever looks at the processes.
void ExigirSinContrasena(const odbc::TextoDeConexion& texto) {
  const bool enOpciones = texto.Valor("pqopt").find("password") != std::string_view::npos;
  if (texto.Valor("PWD").empty() && texto.Valor("Password").empty() && !enOpciones) return;
  Rechazar(
      "La contraseña no se escribe en la línea de órdenes, donde otros pueden leerla: quítela de "
      "--datos y guárdela en el origen de datos ODBC, o escríbala cuando se le pida");
}

std::string QuienEntra(const odbc::TextoDeConexion& texto) {
  for (const char* nombre : {"UID", "User", "Username"}) {
    const std::string usuario(texto.Valor(nombre));
    if (!usuario.empty()) return "Para entrar en " + texto.Nombre() + " como " + usuario;
  }
  return "Para entrar en " + texto.Nombre();
}

/// With the password that the user told, if it wanted one, in the text from then on.
services::Ref<odbc::Conexion> Conectar(odbc::TextoDeConexion& texto, const AlAbrir& alAbrir) {
  while (true) {
    try {
      return odbc::AbrirConexion(texto.Texto());
    } catch (const odbc::SinEntrada& fallo) {
      if (!alAbrir.Contrasena) throw;
      const bool primera = texto.Valor("PWD").empty();
      const auto contrasena = alAbrir.Contrasena(primera ? QuienEntra(texto) : fallo.Descripcion());
      if (!contrasena) throw;
      texto.Poner("PWD", *contrasena);
    }
  }
}

/// The last one that is made.
constexpr const char* kTabla = "SorvexTurno";

void ExigirTablas(odbc::Conexion& conexion, const std::string& nombre) {
  if (conexion.TieneTabla(kTabla)) return;
  Rechazar("A las tablas de la empresa en " + nombre + " les falta " + kTabla +
           ": no se han acabado de crear, o no son de esta versión");
}

bool TieneAlguna(odbc::Conexion& conexion) {
  return std::ranges::any_of(esquema::Almacenadas(), [&](const esquema::Tabla& tabla) {
    return conexion.TieneTabla(tabla.Nombre);
  });
}

void Crear(const odbc::TextoDeConexion& texto, const AlAbrir& alAbrir) {
  const std::string sinEllas =
      "La base de datos " + texto.Nombre() + " no tiene las tablas de la empresa.";
  const bool quiere =
      alAbrir.Confirmar &&
      alAbrir.Confirmar(sinEllas + " ¿Crearlas, con un negocio de muestra para probar?");
  if (!quiere) Rechazar(sinEllas + " Con --muestra se crean sin preguntar");
  const auto conexion = odbc::AbrirConexion(texto.Texto(), {.CualquierSentencia = true});
  esquema::CrearAlmacenadas(*conexion);
  muestra::Llenar(*conexion, {Ahora().Dias, 0});
}

}  // namespace

std::shared_ptr<salvaguarda::Almacen> AbrirEnServidor(const std::string& texto,
                                                      const std::filesystem::path& espejo,
                                                      const AlAbrir& alAbrir) {
  odbc::TextoDeConexion leido(texto);
  ExigirSinContrasena(leido);
  const auto conexion = Conectar(leido, alAbrir);
  if (conexion->Motor().ComoSeEscriben) {
    Rechazar(
        "Esta suite guarda las tablas de la empresa en un fichero SQLite, en PostgreSQL o en "
        "MariaDB, y no en " +
        conexion->NombreDelMotor());
  }
  if (!TieneAlguna(*conexion)) Crear(leido, alAbrir);
  ExigirTablas(*conexion, leido.Nombre());
  conexion->AlEmpezarUnidad(esquema::kTurno);
  return std::make_shared<salvaguarda::AlmacenEnServidor>(conexion, leido.Nombre(),
                                                          espejo.string());
}

}  // namespace anfitrion
