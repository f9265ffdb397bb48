#include "guion/programa.h"

#include <fstream>
#include <iterator>

#include "guion/bases.h"
#include "guion/ejecucion.h"
#include "guion/opciones_guion.h"

namespace guion {
namespace {

std::string LeerTodo(std::istream& entrada) {
  return {std::istreambuf_iterator<char>(entrada), {}};
}

std::string LeerGuion(const std::string& fichero, std::istream& entrada) {
  if (fichero == "-") return LeerTodo(entrada);
  std::ifstream abierto(fichero, std::ios::binary);
  std::string texto = LeerTodo(abierto);
  if (!abierto) throw NoSeEntiende("no se puede leer " + fichero);
  return texto;
}

int Jugar(const std::vector<std::string>& argumentos, Corrientes corrientes,
          const Fabrica& fabrica) {
  const Opciones opciones = LeerOpciones(argumentos);
  // Nothing is made, let alone run, of a text that isn't understood as a whole.
  std::vector<Orden> ordenes = Analizar(LeerGuion(opciones.Fichero, corrientes.Entrada));
  Bases bases(opciones);
  if (opciones.Mantener && !bases.Carpeta().empty()) {
    corrientes.Errores << "bases de datos en " << bases.Carpeta() << '\n';
  }
  Mundo mundo(bases.Datos(), bases.Local(), fabrica);
  services::InstalarPlataforma(mundo.Plataforma());
  return Ejecucion(mundo, corrientes.Salida, corrientes.Errores).Correr(std::move(ordenes));
}

}  // namespace

int Programa(const std::vector<std::string>& argumentos, Corrientes corrientes,
             const Fabrica& fabrica) {
  try {
    return Jugar(argumentos, corrientes, fabrica);
  } catch (const ErrorDeTexto& fallo) {
    corrientes.Errores << "línea " << fallo.Linea << ": " << fallo.what() << '\n';
  } catch (const std::exception& fallo) {
    corrientes.Errores << fallo.what() << '\n';
  }
  return kNoSeEntiende;
}

}  // namespace guion
