#include "salvaguarda/guardia.h"

#include <exception>
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

/// The one column of a forecast that its statement leaves out: each commit passes it over.
bool EsDeSiempre(const Omision& omision) {
  return omision.Que == Omision::Falta::Nada && omision.Tabla == Previsiones().Nombre &&
         omision.Fallo.Numero() == services::error::CampoDesconocido;
}

}  // namespace

Guardia::Guardia(Bases bases, const Lugares& lugares, std::string usuario, Trato trato)
    : bases_(std::move(bases)),
      cotejo_(*bases_.Almacen, bases_.FicheroFoto, bases_.DeTrabajo, trato.AvisarDeOtros),
      sinGrabar_(bases_.DeTrabajo, *bases_.Almacen, bases_.FicheroFoto),
      copias_(lugares.Copias),
      registro_(lugares.Registro),
      usuario_(std::move(usuario)),
      trato_(std::move(trato)) {}

void Guardia::Anotar(std::string_view texto) {
  registro_.Anotar(services::TextoIso(trato_.Ahora()), usuario_ + ": " + std::string(texto));
}

void Guardia::AlComenzar(const Comienzo& comienzo) {
  rango_ = comienzo.Rango;
  if (comienzo.Que == Comienzo::Tarea::Carga) return AlCargar(comienzo.Rango);
  AlGrabar(comienzo.Rango);
}

// The load goes on whatever happens here. Without a picture the copy is noted all the same.
void Guardia::AlCargar(const Rango& rango) {
  cargando_ = true;
  cotejo_.Olvidar();
  pasadas_.OlvidarCarga();
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
                                    cotejo_.Sena(), bases_.Almacen->Nombre(), true});
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

// It is durable: nothing of this may make it look as if it weren't.
void Guardia::AlTerminarUnidad() {
  if (!std::exchange(grabando_, false)) return;
  try {
    TraerLasPasadas();
    grabadoAMedias_ = pasadas_.CerrarGrabacion(cotejo_.Conexion());
    if (!grabadoAMedias_) sinGrabar_.DarPorVisto();
  } catch (const std::exception& fallo) {
    Anotar(std::string("No se ha podido comprobar lo que se ha grabado: ") + fallo.what());
  }
}

// Nothing of it is stored, and why not is told by what failed.
void Guardia::AlAbandonarUnidad() noexcept {
  if (std::exchange(grabando_, false)) pasadas_.OlvidarGrabacion();
}

void Guardia::AlTerminarUnidadDeTrabajo() {
  if (std::exchange(cargando_, false)) DarPorVisto();
}

void Guardia::DarPorVisto() {
  sinGrabar_.DarPorVisto();
  grabadoAMedias_ = false;
}

void Guardia::AlVaciar() {
  if (!trato_.Apartar) return;
  if (grabadoAMedias_) {
    Dejar("No se ha podido grabar todo");
    grabadoAMedias_ = false;
    return;
  }
  // What is being saved isn't durable yet.
  if (grabando_) return;
  if (const auto dejado = LoQueSeDeja()) Dejar(*dejado);
}

bool Guardia::HayAlgoSinGrabar() {
  if (grabadoAMedias_) return true;
  if (!sinGrabar_.Escrito()) return false;
  bases_.DeTrabajo->TerminarUnidad();
  return sinGrabar_.Mirar().has_value();
}

// The unit under way ends before anything is attached. Its failure is the component's.
std::optional<std::string> Guardia::LoQueSeDeja() {
  if (!sinGrabar_.Escrito()) return std::nullopt;
  bases_.DeTrabajo->TerminarUnidad();
  try {
    const auto dejado = sinGrabar_.Mirar();
    if (!dejado) return std::nullopt;
    if (dejado->Filas.empty()) return "Se ha dejado una copia de trabajo de otras tablas";
    return "Se han dejado sin grabar " + Recuento(dejado->Filas);
  } catch (const ErrorEjecucion& fallo) {
    return "No se ha podido mirar si se dejaba algo sin grabar: " + fallo.Descripcion();
  }
}

void Guardia::Dejar(const std::string& que) {
  std::string aparte;
  try {
    aparte = trato_.Apartar();
  } catch (const std::exception& fallo) {
    throw ErrorEjecucion(services::error::FalloDeConexion,
                         "No se puede guardar aparte lo que no está grabado, y no se deja para no "
                         "perderlo: " +
                             std::string(fallo.what()));
  }
  // The name last: where there is little room it is cut.
  const std::string texto =
      que +
      ". Puede abrir la copia de trabajo con Archivo, Abrir una copia guardada aparte: " + aparte;
  Anotar(texto);
  trato_.AlDejar(texto);
}

void Guardia::AlGrabar(const Rango& rango) {
  // What the user paid stays in the working file, whatever becomes of the commit.
  bases_.DeTrabajo->TerminarUnidad();
  cotejo_.Preparar(rango);
  for (bool conCopia = true; conCopia;) {
    bases_.Almacen->EmpezarUnidad();
    const Reparos reparos = cotejo_.Copiar(copias_, {trato_.Ahora(), usuario_, rango});
    grabando_ = reparos.Ninguno();
    if (grabando_) return pasadas_.EmpezarGrabacion(true);
    // What the server has undone meanwhile, or what went with the connection, fails as it would
    // have failed without a copy.
    if (!reparos.SinCopia.empty()) bases_.Almacen->EmpezarUnidad();
    // Nobody else is kept waiting for an answer; what changes meanwhile is asked again.
    bases_.Almacen->Conexion()->AbandonarUnidad();
    if (!Confirmar(reparos)) {
      throw ErrorEjecucion(services::error::OperacionCancelada, kNoGrabado);
    }
    cotejo_.Aceptar();
    conCopia = reparos.SinCopia.empty();
  }
  bases_.Almacen->EmpezarUnidad();
  grabando_ = true;
  pasadas_.EmpezarGrabacion(false);
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
  if (EsDeSiempre(omision)) return;
  Anotar("Pasado por alto en " + (omision.Tabla.empty() ? "las tablas de trabajo" : omision.Tabla) +
         ": " + omision.Fallo.Descripcion());
  if (omision.Que == Omision::Falta::Nada) return;
  const bool tabla = omision.Que == Omision::Falta::Tabla;
  const bool deCarga = omision.Durante == Omision::Tarea::Carga;
  if (tabla && deCarga) DarPorIncompleta();
  // Now: when the event is over a load has taken their place.
  pasadas_.Anadir(omision, tabla && !deCarga ? LoQueHabiaQueGrabar(omision) : std::vector<Fila>());
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

// What can't be brought isn't there, as what can't be looked for.
void Guardia::TraerLasPasadas() {
  if (pasadas_.Ninguna()) return;
  try {
    bases_.Almacen->Traer(rango_, [this] { return pasadas_.Claves(); });
  } catch (const ErrorEjecucion& fallo) {
    Anotar("No se ha podido mirar lo que hay grabado: " + fallo.Descripcion());
  }
}

void Guardia::Decir(const Noticia& noticia, const salvaguarda::Conceptos& conceptos) {
  relato_.Parrafos.push_back(ParaLeer(noticia, conceptos));
  Anotar(ParaAnotar(noticia, conceptos));
  trato_.AlHaberQueContar();
}

Relato Guardia::Contar() {
  TraerLasPasadas();
  auto [noticias, noSeCargaron] = pasadas_.Tomar(cotejo_.Conexion());
  cotejo_.AnadirNoCargadas(noSeCargaron);
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
  return salvaguarda::Comparar(*bases_.Almacen, cotejo_.Conexion(), copia);
}

void Guardia::Reponer(const Copia& copia) {
  salvaguarda::Reponer(*bases_.Almacen, cotejo_.Conexion(), copia, copias_, trato_.Ahora(),
                       usuario_);
}

void Guardia::CopiarElDia() {
  if (!bases_.Almacen->EnteroEnSuFichero()) return;
  copias_.GuardarEntera(bases_.Almacen->Fichero(), trato_.Ahora());
}

}  // namespace salvaguarda
