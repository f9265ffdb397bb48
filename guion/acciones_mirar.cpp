#include <array>
#include <utility>

#include "forms/msflexgrid.h"
#include "guion/acciones.h"
#include "guion/ejecucion.h"
#include "guion/salida.h"

// What is printed of what can be seen.

namespace guion {
namespace {

void Ver(Ejecucion& e, const Orden& o) {
  const services::Widget& widget = e.Buscar(o.Texto(0));
  e.Escribir(LineaDeWidget(Ejecucion::NombreDe(widget), widget));
}

void Rejilla(Ejecucion& e, const Orden& o) {
  const auto& rejilla = e.Buscar<services::MSFlexGrid>(o.Texto(0), "una rejilla");
  e.Escribir(Ejecucion::NombreDe(rejilla) + " filas=" + std::to_string(rejilla.Rows) +
             " fila=" + std::to_string(rejilla.Row) + " columna=" + std::to_string(rejilla.Col));
  for (int fila = 0; fila < rejilla.Rows; ++fila) e.Escribir(LineaDeFila(rejilla, fila));
}

void Colores(Ejecucion& e, const Orden& o) {
  const auto& rejilla = e.Buscar<services::MSFlexGrid>(o.Texto(0), "una rejilla");
  if (o.Entero(1) >= rejilla.Rows) {
    throw NoSeEntiende(o.Texto(0) + " no tiene la fila " + o.Texto(1));
  }
  e.Escribir(LineaDeColores(rejilla, o.Entero(1)));
}

void Foco(Ejecucion& e, const Orden&) {
  const services::Widget* foco = e.Entorno().Foco();
  e.Escribir(foco ? Ejecucion::NombreDe(*foco) : "ninguno");
}

void Avisos(Ejecucion& e, const Orden&) {
  for (const auto& aviso : e.AvisosSinImprimir()) e.Escribir(LineaDeAviso(aviso));
  e.AvisosImpresos();
}

void Consulta(Ejecucion& e, const Orden& o) {
  const auto filas = e.Mundo().De(o.Texto(0)).Consultar(o.Texto(1));
  for (const auto& fila : filas) e.Escribir(FilaUnida(fila));
  e.Escribir("(" + std::to_string(filas.size()) + " filas)");
}

void Borrados(Ejecucion& e, const Orden&) {
  for (const auto& borrado : std::exchange(e.Mundo().Registro().Borrados, {})) {
    e.Escribir("borrado " + Entrecomillar(borrado.Clave) + " " + Entrecomillar(borrado.Sentencia));
  }
}

void Omitidos(Ejecucion& e, const Orden&) {
  for (const auto& omision : std::exchange(e.Entorno().Omisiones, {})) {
    e.Escribir(LineaDeOmision(omision.Fallo));
  }
}

std::string_view NombreDeModo(services::ModoApertura modo) {
  switch (modo) {
    case services::ModoApertura::Lectura:
      return "lectura";
    case services::ModoApertura::Optimista:
      return "optimista";
    case services::ModoApertura::Pesimista:
      return "pesimista";
  }
  return "";
}

void Sentencias(Ejecucion& e, const Orden&) {
  for (const auto& sentencia : std::exchange(e.Mundo().Registro().Sentencias, {})) {
    e.Escribir(sentencia.Base + " " + std::string(NombreDeModo(sentencia.Modo)) + " " +
               Entrecomillar(sentencia.Texto));
  }
}

void Informe(Ejecucion& e, const Orden&) {
  const headless::Grabacion* informe = e.Entorno().UltimoInforme();
  if (!informe) return;
  for (const auto& [pagina, trazo] : informe->Trazos) e.Escribir(LineaDeTrazo(pagina, trazo));
}

void Pantallas(Ejecucion& e, const Orden&) {
  for (const services::Form* form : e.Entorno().Pantallas()) {
    e.Escribir(form->Nombre() + (form->Visible() ? " 1" : " 0"));
  }
}

constexpr std::array kAcciones{
    Accion{"ver", Ver, false},
    Accion{"rejilla", Rejilla, false},
    Accion{"colores", Colores, false},
    Accion{"foco?", Foco, false},
    Accion{"avisos", Avisos, false},
    Accion{"consulta", Consulta, false},
    Accion{"borrados", Borrados, false},
    Accion{"omitidos", Omitidos, false},
    Accion{"sentencias", Sentencias, false},
    Accion{"informe", Informe, false},
    Accion{"pantallas", Pantallas, false},
};

}  // namespace

std::span<const Accion> AccionesDeMirar() {
  return kAcciones;
}

}  // namespace guion
