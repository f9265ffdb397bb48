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
      if (!contrasena) throw Desistido(fallo.Descripcion());
      texto.Poner("PWD", *contrasena);
    }
  }
}

/// Whether there is nothing in the tables that are there.
bool EstanVacias(odbc::Conexion& conexion) {
  return std::ranges::all_of(esquema::Almacenadas(), [&](const esquema::Tabla& tabla) {
    const std::string una = "SELECT 1 FROM " + std::string(tabla.Nombre) + " LIMIT 1";
    return !conexion.TieneTabla(tabla.Nombre) || conexion.Consultar(una).Filas.Cuantas() == 0;
  });
}

/// A creation that was cut short has left tables without rows, and no turn: it is done again.
void Crear(const odbc::TextoDeConexion& texto, const AlAbrir& alAbrir) {
  const std::string sinEllas =
      "La base de datos " + texto.Nombre() + " no tiene las tablas de la empresa.";
  if (!alAbrir.Confirmar) Rechazar(sinEllas + " Con --muestra se crean sin preguntar");
  if (!alAbrir.Confirmar(sinEllas + " ¿Crearlas, con un negocio de muestra para probar?")) {
    throw Desistido(sinEllas);
  }
  try {
    const auto conexion = odbc::AbrirConexion(texto.Texto(), {.CualquierSentencia = true});
    esquema::CrearTablas(*conexion);
    muestra::Llenar(*conexion, {Ahora().Dias, 0});
    esquema::CrearTurno(*conexion);
  } catch (const ErrorEjecucion& fallo) {
    Rechazar(
        "Las tablas de la empresa no se han podido crear en " + texto.Nombre() +
        ", y se puede volver a intentar con un usuario que pueda crearlas: " + fallo.Descripcion());
  }
}

void ExigirTablas(odbc::Conexion& conexion, const odbc::TextoDeConexion& texto,
                  const AlAbrir& alAbrir) {
  if (esquema::TieneTurno(conexion)) return;
  if (!EstanVacias(conexion)) {
    Rechazar("A las tablas de la empresa en " + texto.Nombre() +
             " les falta SorvexTurno: no son de esta versión, o no se han acabado de crear");
  }
  Crear(texto, alAbrir);
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
  ExigirTablas(*conexion, leido, alAbrir);
  conexion->AlEmpezarUnidad(esquema::kTurno);
  return std::make_shared<salvaguarda::AlmacenEnServidor>(conexion, leido.Nombre(),
                                                          espejo.string());
}

}  // namespace anfitrion
