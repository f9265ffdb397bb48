#include "guion/opciones_guion.h"

#include <string_view>

#include "guion/texto_guion.h"

namespace guion {
namespace {

constexpr std::string_view kSqlite = "sqlite:";

[[noreturn]] void DecirUso(const std::string& motivo) {
  throw NoSeEntiende(motivo +
                     "\nuso: tesvara-guion [--datos CONEXIÓN] [--local FICHERO] [--mantener] "
                     "FICHERO|-");
}

std::string FicheroDe(const std::string& conexion) {
  if (conexion.starts_with(kSqlite)) return conexion.substr(kSqlite.size());
  const std::size_t marca = conexion.find_first_of("/:=");
  const bool servidor = conexion.find('=') != std::string::npos ||
                        (marca != std::string::npos && conexion[marca] == ':');
  if (servidor) throw NoSeEntiende("--datos solo admite un fichero SQLite: " + conexion);
  return conexion;
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
      opciones.Datos = FicheroDe(valor());
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
