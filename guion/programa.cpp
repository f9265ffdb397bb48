#include "guion/programa.h"

#include <fstream>
#include <iterator>

#include "guion/bases.h"
#include "guion/ejecucion.h"
#include "guion/ficheros.h"
#include "guion/fuente.h"
#include "guion/opciones_guion.h"
#include "guion/salida_de_sesion.h"
#include "guion/sesiones.h"

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

/// What `accion` gives; an error is told, and gives the status for it.
template <class Accion>
int Intentar(std::ostream& errores, Accion accion) {
  try {
    return accion();
  } catch (const ErrorDeTexto& fallo) {
    errores << "línea " << fallo.Linea << ": " << fallo.what() << '\n';
  } catch (const std::exception& fallo) {
    errores << fallo.what() << '\n';
  }
  return kNoSeEntiende;
}

/// One session, from the opening of its databases to the last of its commands.
int JugarSesion(int sesion, const Fuente& fuente, const Ficheros& ficheros, Corrientes corrientes,
                const Fabrica& fabrica) {
  Bases bases(ficheros, sesion);
  Mundo mundo(bases.Datos(), bases.Local(), fabrica,
              [&bases](const std::string& usuario, const salvaguarda::Trato& trato) {
                return bases.Guardar(usuario, trato);
              });
  services::InstalarPlataforma(mundo.Plataforma());
  SalidaDeSesion destino(corrientes.Salida, sesion);
  std::ostream salida(&destino);
  return Ejecucion(mundo, salida, corrientes.Errores).Correr(fuente);
}

int Jugar(const std::vector<std::string>& argumentos, Corrientes corrientes,
          const Fabrica& fabrica) {
  const Opciones opciones = LeerOpciones(argumentos);
  // Nothing is made, let alone run, of a text that isn't understood as a whole.
  const std::vector<Orden> ordenes = Analizar(LeerGuion(opciones.Fichero, corrientes.Entrada));
  const Ficheros ficheros(opciones);
  if (opciones.Mantener && !ficheros.Carpeta().empty()) {
    corrientes.Errores << "bases de datos en " << ficheros.Carpeta() << '\n';
  }
  const auto papel = [&](int sesion, const Fuente& fuente) {
    return Intentar(corrientes.Errores,
                    [&] { return JugarSesion(sesion, fuente, ficheros, corrientes, fabrica); });
  };
  if (!SonDeVarias(ordenes)) return papel(1, Seguidas(ordenes));
  return Sesiones(ordenes, papel, corrientes.Errores).Correr();
}

}  // namespace

int Programa(const std::vector<std::string>& argumentos, Corrientes corrientes,
             const Fabrica& fabrica) {
  return Intentar(corrientes.Errores, [&] { return Jugar(argumentos, corrientes, fabrica); });
}

}  // namespace guion
