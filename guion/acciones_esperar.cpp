#include <array>

#include "forms/msflexgrid.h"
#include "guion/acciones.h"
#include "guion/ejecucion.h"
#include "guion/salida.h"

// Claims: what is expected against what there is.

namespace guion {
namespace {

constexpr const char* kFueraDeLaRejilla = "una celda que no existe";

void Propiedad(Ejecucion& e, const Orden& o) {
  const DePropiedad de = LeerPropiedad(o.Texto(0)).value();
  const std::optional<services::Valor> valor = e.Buscar(de.Widget).Leer(de.Aspecto);
  if (!valor) throw NoSeEntiende("no existe la propiedad " + o.Texto(0));
  e.Comparar(Entrecomillar(o.Texto(1)), Entrecomillar(TextoPlano(*valor)));
}

bool TieneCelda(const services::MSFlexGrid& rejilla, const Orden& o) {
  return o.Entero(1) < rejilla.Rows && o.Entero(2) < rejilla.Cols();
}

void Celda(Ejecucion& e, const Orden& o) {
  const auto& rejilla = e.Buscar<services::MSFlexGrid>(o.Texto(0), "una rejilla");
  e.Comparar(Entrecomillar(o.Texto(3)),
             TieneCelda(rejilla, o) ? Entrecomillar(rejilla.TextMatrix(o.Entero(1), o.Entero(2)))
                                    : kFueraDeLaRejilla);
}

void Marca(Ejecucion& e, const Orden& o) {
  const auto& rejilla = e.Buscar<services::MSFlexGrid>(o.Texto(0), "una rejilla");
  if (!TieneCelda(rejilla, o)) return e.Comparar(o.Texto(3), kFueraDeLaRejilla);
  e.Comparar(o.Texto(3), rejilla.ImagenDe(o.Entero(1), o.Entero(2)).empty() ? "0" : "1");
}

/// A message of another text counts as claimed too, so that the claims after it keep their places.
void Aviso(Ejecucion& e, const Orden& o) {
  const auto avisos = e.AvisosSinReclamar();
  if (avisos.empty()) return e.Comparar(Entrecomillar(o.Texto(0)), "ninguno");
  e.AvisoReclamado();
  e.Comparar(Entrecomillar(o.Texto(0)), Entrecomillar(avisos.front().Texto));
}

void SinAvisos(Ejecucion& e, const Orden&) {
  const auto avisos = e.AvisosSinReclamar();
  e.Comparar("ninguno", avisos.empty() ? "ninguno" : Entrecomillar(avisos.front().Texto));
}

void Foco(Ejecucion& e, const Orden& o) {
  const services::Widget* foco = e.Entorno().Foco();
  const std::string esperado =
      o.Texto(0) == "ninguno" ? "ninguno" : Ejecucion::NombreDe(e.Buscar(o.Texto(0)));
  e.Comparar(esperado, foco ? Ejecucion::NombreDe(*foco) : "ninguno");
}

std::string Filas(const std::vector<std::string>& filas) {
  if (filas.empty()) return "ninguna fila";
  std::string texto;
  for (const std::string& fila : filas) texto += (texto.empty() ? "" : " ") + Entrecomillar(fila);
  return texto;
}

void Consulta(Ejecucion& e, const Orden& o) {
  std::vector<std::string> obtenidas;
  for (const Base::Fila& fila : e.Mundo().De(o.Texto(0)).Consultar(o.Texto(1))) {
    obtenidas.push_back(FilaUnida(fila));
  }
  e.Comparar(Filas({o.Argumentos.begin() + 2, o.Argumentos.end()}), Filas(obtenidas));
}

void Error(Ejecucion& e, const Orden& o) {
  const std::optional<std::int32_t> ultimo = e.UltimoError();
  e.Comparar(std::to_string(o.NumeroDeError(0)), ultimo ? std::to_string(*ultimo) : "ninguno");
}

constexpr std::array kAcciones{
    Accion{"espera", Propiedad, false},         Accion{"espera celda", Celda, false},
    Accion{"espera marca", Marca, false},       Accion{"espera aviso", Aviso, false},
    Accion{"espera sin", SinAvisos, false},     Accion{"espera foco", Foco, false},
    Accion{"espera consulta", Consulta, false}, Accion{"espera error", Error, false},
};

}  // namespace

std::span<const Accion> AccionesDeEsperar() {
  return kAcciones;
}

}  // namespace guion
