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
      if (!contrasena) {
        throw ErrorEjecucion(services::error::OperacionCancelada, fallo.Descripcion());
      }
      texto.Poner("PWD", *contrasena);
    }
  }
}

bool EstaVacia(odbc::Conexion& conexion, const std::string& tabla) {
  return conexion.Consultar("SELECT 1 FROM " + tabla + " LIMIT 1").Filas.Cuantas() == 0;
}

/// All of the sample is there with the row by which they are worked with, or nothing of it.
void CrearYLlenar(const odbc::TextoDeConexion& texto, const std::vector<std::string>& sobran) {
  const auto conexion = odbc::AbrirConexion(texto.Texto(), {.CualquierSentencia = true});
  for (const std::string& tabla : sobran) conexion->Ejecutar("DROP TABLE " + tabla);
  esquema::CrearTablas(*conexion);
  conexion->EmpezarUnidad();
  esquema::PonerTurno(*conexion);
  muestra::Llenar(*conexion, {Ahora().Dias, 0});
}

void Crear(const odbc::TextoDeConexion& texto, const std::vector<std::string>& sobran,
           const AlAbrir& alAbrir) {
  const std::string falta =
      sobran.empty() ? "La base de datos " + texto.Nombre() + " no tiene las tablas de la empresa."
                     : "Las tablas de la empresa en " + texto.Nombre() +
                           " no se acabaron de crear, y están vacías.";
  if (!alAbrir.Confirmar) Rechazar(falta + " Con --muestra se crean sin preguntar");
  const std::string pregunta = sobran.empty() ? " ¿Crearlas, con" : " ¿Quitarlas y crearlas, con";
  if (!alAbrir.Confirmar(falta + pregunta + " un negocio de muestra para probar?")) {
    throw ErrorEjecucion(services::error::OperacionCancelada, falta);
  }
  try {
    CrearYLlenar(texto, sobran);
  } catch (const ErrorEjecucion& fallo) {
    Rechazar("Las tablas de la empresa no se han podido crear en " + texto.Nombre() +
             ", y se puede volver a intentar. Hace falta un usuario que pueda crearlas. " +
             fallo.Descripcion());
  }
}

/// Tables with something in them are somebody's, whatever they lack.
void ExigirTablas(odbc::Conexion& conexion, const odbc::TextoDeConexion& texto,
                  const AlAbrir& alAbrir) {
  if (esquema::TieneTurno(conexion)) return;
  const std::vector<std::string> hay = esquema::TablasQueHay(conexion);
  for (const std::string& tabla : hay) {
    if (EstaVacia(conexion, tabla)) continue;
    Rechazar("A las tablas de la empresa en " + texto.Nombre() +
             " les falta la fila de SorvexTurno: no son de esta versión");
  }
  Crear(texto, hay, alAbrir);
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
