#include "guion/opciones_guion.h"

#include <string_view>

#include "guion/texto_guion.h"

namespace guion {
namespace {

constexpr std::string_view kSqlite = "sqlite:";
constexpr std::string_view kOdbc = "odbc:";

[[noreturn]] void DecirUso(const std::string& motivo) {
  throw NoSeEntiende(motivo +
                     "\nuso: tesvara-guion [--datos CONEXIÓN] [--esquema NOMBRE] [--local "
                     "FICHERO] [--mantener] FICHERO|-");
}

void PonerDatos(Opciones& opciones, const std::string& conexion) {
  if (conexion.starts_with(kSqlite)) {
    opciones.Datos = conexion.substr(kSqlite.size());
  } else if (conexion.starts_with(kOdbc)) {
    opciones.Servidor = conexion.substr(kOdbc.size());
  } else if (conexion.find('=') != std::string::npos) {
    opciones.Servidor = conexion;
  } else {
    const std::size_t marca = conexion.find_first_of("/:");
    const bool otra = marca != std::string::npos && conexion[marca] == ':';
    if (otra) throw NoSeEntiende("--datos no entiende la conexión: " + conexion);
    opciones.Datos = conexion;
  }
}

}  // namespace

Opciones LeerOpciones(const std::vector<std::string>& argumentos) {
  Opciones opciones;
  for (std::size_t i = 0; i < argumentos.size(); ++i) {
    const std::string& palabra = argumentos[i];
    const auto valor = [&] {
      if (i + 1 == argumentos.size()) DecirUso("falta el valor de " + palabra);
      return argumentos[++i];
    };
    if (palabra == "--datos") {
      PonerDatos(opciones, valor());
    } else if (palabra == "--esquema") {
      opciones.Esquema = valor();
    } else if (palabra == "--local") {
      opciones.Local = valor();
    } else if (palabra == "--mantener") {
      opciones.Mantener = true;
    } else if (palabra.starts_with("--") || !opciones.Fichero.empty()) {
      DecirUso("no se entiende " + palabra);
    } else {
      opciones.Fichero = palabra;
    }
  }
  if (opciones.Fichero.empty()) DecirUso("falta el guion");
  return opciones;
}

}  // namespace guion
