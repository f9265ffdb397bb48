#include "odbc/pendientes.h"

#include <algorithm>
#include <utility>

#include "dialecto/escritura.h"
#include "odbc/juntas.h"
#include "valores/error.h"

namespace odbc {

using services::ErrorEjecucion;

namespace {

/// More than that don't wait.
constexpr std::size_t kEsperan = 1024;

}  // namespace

/// What is written of one table stays in its order: others than these of it are written first.
Pendientes::Grupo& Pendientes::De(const std::shared_ptr<const Sentencia>& sentencia) {
  const auto suyo = std::ranges::find_if(
      grupos_, [&](const Grupo& grupo) { return grupo.Suya->Una == sentencia->Una; });
  const bool otras = std::ranges::any_of(grupos_, [&](const Grupo& grupo) {
    return grupo.Suya->Tabla == sentencia->Tabla && grupo.Suya->Una != sentencia->Una;
  });
  const bool muchas = suyo != grupos_.end() && suyo->Escrituras.size() == kEsperan;
  if (suyo != grupos_.end() && !otras && !muchas) return *suyo;
  if (otras || muchas) Escribir();
  grupos_.push_back({sentencia, {}});
  return grupos_.back();
}

void Pendientes::Borrar(const std::string& tabla, const std::string& texto, Parametros parametros) {
  const auto varias = [texto](std::size_t cuantas) {
    return dialecto::TextoDeBorrados(texto, cuantas);
  };
  De(std::make_shared<const Sentencia>(Sentencia{tabla, texto, varias}))
      .Escrituras.push_back({std::move(parametros), nullptr});
}

void Pendientes::Insertar(const std::shared_ptr<const Sentencia>& sentencia, Parametros parametros,
                          services::AlNoInsertar alNoInsertar) {
  De(sentencia).Escrituras.push_back({std::move(parametros), std::move(alNoInsertar)});
}

/// None waits any more while they are written: who is told of one may come back here.
void Pendientes::Escribir() {
  std::vector<Grupo> grupos = std::exchange(grupos_, {});
  std::optional<ErrorEjecucion> primero;
  for (Grupo& grupo : grupos) Escribir(grupo, primero);
  if (primero) throw ErrorEjecucion(*primero);
}

void Pendientes::Escribir(Grupo& grupo, std::optional<ErrorEjecucion>& primero) {
  std::size_t desde = 0;
  while (desde < grupo.Escrituras.size()) {
    const std::size_t quedan = grupo.Escrituras.size() - desde;
    const std::size_t cuantas = Siguientes(quedan);
    if (cuantas == 1 || !EscribirJuntas(grupo, desde, cuantas)) {
      for (std::size_t i = desde; i < desde + cuantas; ++i) {
        try {
          EscribirSola(grupo, grupo.Escrituras[i]);
        } catch (const ErrorEjecucion& fallo) {
          if (!primero) primero = fallo;
        }
      }
    }
    desde += cuantas;
  }
}

/// All of them or none; why not is found out by writing them alone.
bool Pendientes::EscribirJuntas(Grupo& grupo, std::size_t desde, std::size_t cuantas) {
  Parametros todos;
  for (std::size_t i = desde; i < desde + cuantas; ++i) todos.Anadir(grupo.Escrituras[i].Suyos);
  try {
    unidad_.Escribir(grupo.Suya->Varias(cuantas), todos);
    return true;
  } catch (const ErrorEjecucion&) {
    return false;
  }
}

void Pendientes::EscribirSola(const Grupo& grupo, Escritura& escritura) {
  try {
    unidad_.Escribir(grupo.Suya->Una, escritura.Suyos);
  } catch (const ErrorEjecucion& fallo) {
    if (!escritura.AlNoInsertar) throw;
    escritura.AlNoInsertar(fallo);
  }
}

}  // namespace odbc
