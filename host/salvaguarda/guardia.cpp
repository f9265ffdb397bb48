#include "salvaguarda/guardia.h"

#include <algorithm>
#include <exception>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>

#include "salvaguarda/consultas.h"
#include "salvaguarda/recuperacion.h"
#include "salvaguarda/tablas.h"
#include "valores/error.h"

namespace salvaguarda {
namespace {

using services::ErrorEjecucion;
using services::Omision;

constexpr const char* kNoGrabado =
    "No se ha grabado nada. Lo que ha hecho sigue en la pantalla: puede grabarlo después, o pulsar "
    "Cancelar para volver a cargar lo que hay grabado";

}  // namespace

Guardia::Guardia(Bases bases, const Lugares& lugares, std::string usuario, Trato trato)
    : bases_(std::move(bases)),
      cotejo_(bases_.FicheroAlmacenados, bases_.FicheroFoto, bases_.DeTrabajo, trato.AvisarDeOtros),
      sinGrabar_(bases_.DeTrabajo, bases_.FicheroAlmacenados, bases_.FicheroFoto),
      copias_(lugares.Copias),
      registro_(lugares.Registro),
      usuario_(std::move(usuario)),
      trato_(std::move(trato)) {}

void Guardia::Anotar(std::string_view texto) {
  registro_.Anotar(services::TextoIso(trato_.Ahora()), usuario_ + ": " + std::string(texto));
}

void Guardia::AlComenzar(const Comienzo& comienzo) {
  if (comienzo.Que == Comienzo::Tarea::Carga) return AlCargar(comienzo.Rango);
  AlGrabar(comienzo.Rango);
}

// The load goes on whatever happens here. Without a picture the copy is noted all the same.
void Guardia::AlCargar(const Rango& rango) {
  cargando_ = true;
  cotejo_.Olvidar();
  std::erase_if(oidas_,
                [](const Oida& oida) { return oida.Omision.Durante == Omision::Tarea::Carga; });
  const auto intentar = [this](const auto& accion) {
    try {
      accion();
    } catch (const std::exception& fallo) {
      Decir({std::string("No se ha podido comprobar lo que se ha cargado: ") + fallo.what()}, {});
    }
  };
  intentar([&] {
    cotejo_.Cargar(rango);
    DecirLoQueVino();
  });
  intentar([&] {
    AnotarCopia(*bases_.DeTrabajo, {rango, usuario_, services::TextoIso(trato_.Ahora()),
                                    cotejo_.Sena(), bases_.FicheroAlmacenados, true});
  });
}

void Guardia::AlRetomar(const Rescate& rescate) {
  cotejo_.Retomar(rescate);
  DecirLoQueVino();
}

void Guardia::DecirLoQueVino() {
  const std::vector<Fila> gemelas = cotejo_.Gemelas();
  // Once, and not at each load of them.
  if (std::exchange(gemelasDichas_, gemelas) != gemelas && !gemelas.empty()) {
    Decir(NoticiaDeGemelas(gemelas), Conceptos());
  }
  cotejo_.NoCargadas().empty() ? yaDichas_.clear() : trato_.AlHaberQueContar();
}

void Guardia::AlTerminarUnidad() {
  if (std::exchange(grabando_, false) && !GrabadoAMedias()) sinGrabar_.DarPorVisto();
}

void Guardia::AlTerminarUnidadDeTrabajo() {
  if (std::exchange(cargando_, false)) sinGrabar_.DarPorVisto();
}

bool Guardia::GrabadoAMedias() {
  return !NoticiasDeGrabacion(Clasificar(oidas_, Omision::Tarea::Grabacion, cotejo_.Conexion()))
              .empty();
}

// Nothing of it may keep the component from what it is at. What is being saved isn't durable yet.
void Guardia::AlVaciar() try {
  if (!trato_.Apartar) return;
  if (GrabadoAMedias()) return Dejar("No se ha podido grabar todo");
  if (grabando_) return;
  if (const auto dejado = sinGrabar_.Mirar()) {
    Dejar("Se han dejado sin grabar " + Recuento(dejado->Filas));
  }
} catch (const std::exception& fallo) {
  Anotar(std::string("No se ha podido guardar aparte lo que no está grabado: ") + fallo.what());
}

void Guardia::Dejar(const std::string& que) {
  const std::string texto = que + ". La copia de trabajo queda guardada en " + trato_.Apartar();
  Anotar(texto);
  trato_.AlDejar(texto);
}

void Guardia::AlGrabar(const Rango& rango) {
  // What the user paid stays in the working file, whatever becomes of the commit.
  bases_.DeTrabajo->TerminarUnidad();
  cotejo_.Preparar(rango);
  for (bool conCopia = true; conCopia;) {
    bases_.Almacenados->EmpezarUnidad();
    const Reparos reparos = cotejo_.Copiar(copias_, {trato_.Ahora(), usuario_, rango});
    grabando_ = reparos.Ninguno();
    if (grabando_) return;
    // Nobody else is kept waiting for an answer; what changes meanwhile is asked again.
    bases_.Almacenados->AbandonarUnidad();
    if (!Confirmar(reparos)) {
      throw ErrorEjecucion(services::error::OperacionCancelada, kNoGrabado);
    }
    cotejo_.Aceptar();
    conCopia = reparos.SinCopia.empty();
  }
  bases_.Almacenados->EmpezarUnidad();
  grabando_ = true;
}

bool Guardia::Confirmar(const Reparos& reparos) {
  const auto conceptos = Conceptos();
  std::string pregunta;
  for (const Noticia& noticia : Noticias(reparos)) {
    pregunta += ParaLeer(noticia, conceptos) + "\n\n";
    Anotar(ParaAnotar(noticia, conceptos));
  }
  const bool adelante = trato_.Preguntar(pregunta + "¿Grabar de todos modos?");
  Anotar(adelante ? "Se graba de todos modos" : "No se graba");
  return adelante;
}

void Guardia::PasadoPorAlto(const Omision& omision) {
  if (omision.Que == Omision::Falta::Nada) return;
  Anotar("Pasado por alto en " + (omision.Tabla.empty() ? "las tablas de trabajo" : omision.Tabla) +
         ": " + omision.Fallo.Descripcion());
  oidas_.push_back({omision});
  if (omision.Que == Omision::Falta::Tabla && omision.Durante == Omision::Tarea::Carga) {
    DarPorIncompleta();
  } else if (omision.Que == Omision::Falta::Tabla) {
    // Now: when the event is over a load has taken their place.
    oidas_.back().PorGrabar = LoQueHabiaQueGrabar(omision);
  }
  trato_.AlHaberQueContar();
}

std::vector<Fila> Guardia::LoQueHabiaQueGrabar(const Omision& omision) {
  const Tabla* tabla = BuscarTabla(omision.Tabla);
  if (tabla == nullptr) return {};
  try {
    return sql::TodasLasFilas(*bases_.DeTrabajo, *tabla, "Temp");
  } catch (const ErrorEjecucion& fallo) {
    Anotar("No se ha podido mirar qué había que grabar: " + fallo.Descripcion());
    return {};
  }
}

// What kept the load from a working table may keep this from being noted, too.
void Guardia::DarPorIncompleta() {
  try {
    AnotarIncompleta(*bases_.DeTrabajo);
  } catch (const ErrorEjecucion& fallo) {
    Anotar("No se ha podido anotar que la copia de trabajo está incompleta: " +
           fallo.Descripcion());
  }
}

void Guardia::Decir(const Noticia& noticia, const salvaguarda::Conceptos& conceptos) {
  relato_.Parrafos.push_back(ParaLeer(noticia, conceptos));
  Anotar(ParaAnotar(noticia, conceptos));
  trato_.AlHaberQueContar();
}

Relato Guardia::Contar() {
  const std::vector<Oida> oidas = std::exchange(oidas_, {});
  const Omitidas carga = Clasificar(oidas, Omision::Tarea::Carga, cotejo_.Conexion());
  const Omitidas grabacion = Clasificar(oidas, Omision::Tarea::Grabacion, cotejo_.Conexion());
  cotejo_.AnadirNoCargadas(carga.Filas);
  std::vector<Noticia> noticias = NoticiasDeGrabacion(grabacion);
  std::ranges::move(NoticiasDeCarga(carga), std::back_inserter(noticias));
  const std::vector<Fila>& noCargadas = cotejo_.NoCargadas();
  if (std::exchange(yaDichas_, noCargadas) != noCargadas && !noCargadas.empty()) {
    noticias.push_back(NoticiaDeNoCargadas(noCargadas));
    relato_.BorrariaFilas = true;
  }
  const auto conceptos = noticias.empty() ? salvaguarda::Conceptos() : Conceptos();
  for (const Noticia& noticia : noticias) Decir(noticia, conceptos);
  return std::exchange(relato_, {});
}

Reposicion Guardia::Comparar(const Copia& copia) {
  return salvaguarda::Comparar(cotejo_.Conexion(), copia);
}

void Guardia::Reponer(const Copia& copia) {
  salvaguarda::Reponer(*bases_.Almacenados, cotejo_.Conexion(), copia, copias_, trato_.Ahora(),
                       usuario_);
}

void Guardia::CopiarElDia() {
  copias_.GuardarEntera(bases_.FicheroAlmacenados, trato_.Ahora());
}

}  // namespace salvaguarda
