#include <array>
#include <csignal>

#include "guion/acciones.h"
#include "guion/ejecucion.h"
#include "valores/error.h"

// What the host does before and around the component.

namespace guion {
namespace {

void Reloj(Ejecucion& e, const Orden& o) {
  e.Entorno().PararReloj(LeerMomento(o.Texto(0), o.Texto(1)).value());
}

void Pantalla(Ejecucion& e, const Orden& o) {
  e.Entorno().Pantalla = {o.Entero(0), o.Entero(1)};
  e.Mundo().Anfitrion().PonerPantalla(o.Entero(0), o.Entero(1));
}

void ReferenciaDePantalla(Ejecucion& e, const Orden& o) {
  e.Mundo().Anfitrion().AnchoReferencia = o.Entero(0);
  e.Mundo().Anfitrion().AltoReferencia = o.Entero(1);
}

void Usuario(Ejecucion& e, const Orden& o) {
  e.Mundo().Anfitrion().Usuario = o.Texto(0);
}

void Clave(Ejecucion& e, const Orden& o) {
  e.Mundo().Anfitrion().Clave = o.Texto(0);
}

void TextoDeIdioma(Ejecucion& e, const Orden& o) {
  Anfitrion& anfitrion = e.Mundo().Anfitrion();
  (o.Texto(0) == "Pagina" ? anfitrion.Pagina : anfitrion.Pantalla) = o.Texto(1);
}

void Impresora(Ejecucion& e, const Orden& o) {
  e.Entorno().Printers.push_back(o.Texto(0));
}

void SqlEn(Ejecucion& e, const Orden& o) {
  e.Mundo().De(std::string(o.Nombre)).Ejecutar(o.Texto(0));
}

void Responder(Ejecucion& e, const Orden& o) {
  for (const std::string& respuesta : o.Argumentos) {
    e.Entorno().Mensajes.Responder(CodigoDeRespuesta(respuesta).value());
  }
}

void Concepto(Ejecucion& e, const Orden& o) {
  e.Entorno().Concepto.reset();
  if (o.Texto(0) != "cancelar") e.Entorno().Concepto = o.Texto(0);
}

void Unidad(Ejecucion& e, const Orden& o) {
  e.Mundo().De("datos").Agrupar(o.Texto(0) == "evento");
}

void Guardia(Ejecucion& e, const Orden&) {
  e.Mundo().Guardar();
}

void Fallo(Ejecucion& e, const Orden& o) {
  const std::int32_t numero =
      o.Argumentos.size() > 2 ? o.NumeroDeError(2) : services::error::FalloDeConexion;
  e.Mundo().VigiaDe(o.Texto(0)).Provocar(o.Entero(1), numero);
}

/// The end that comes without notice: nothing is written, unlocked or told any more.
void Matar(Ejecucion&, const Orden&) {
  std::raise(SIGKILL);
}

constexpr std::array kAcciones{
    Accion{"reloj", Reloj, true},
    Accion{"pantalla", Pantalla, true},
    Accion{"referencia", ReferenciaDePantalla, true},
    Accion{"usuario", Usuario, true},
    Accion{"clave", Clave, true},
    Accion{"texto", TextoDeIdioma, true},
    Accion{"impresora", Impresora, true},
    Accion{"datos", SqlEn, true},
    Accion{"local", SqlEn, true},
    Accion{"responder", Responder, true},
    Accion{"concepto", Concepto, true},
    Accion{"unidad", Unidad, true},
    Accion{"guardia", Guardia, true},
    Accion{"fallo", Fallo, true},
    Accion{"matar", Matar, true},
};

}  // namespace

std::span<const Accion> AccionesDelAnfitrion() {
  return kAcciones;
}

}  // namespace guion
