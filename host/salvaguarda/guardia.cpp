#include "salvaguarda/guardia.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "salvaguarda/ambito.h"
#include "salvaguarda/copia_en_curso.h"
#include "salvaguarda/omitidas.h"
#include "salvaguarda/relato.h"
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
      foto_(bases_.FicheroAlmacenados, bases_.FicheroFoto),
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
  reparos_ = {};
  foto_.Olvidar();
  const auto intentar = [this](const auto& accion) {
    try {
      accion();
    } catch (const std::exception& fallo) {
      Decir({std::string("No se ha podido comprobar lo que se ha cargado: ") + fallo.what()});
    }
  };
  intentar([&] {
    foto_.Tomar(rango);
    reparos_.NoCargadas = foto_.Excluidas();
  });
  intentar([&] {
    AnotarCopia(*bases_.DeTrabajo, {rango, usuario_, services::TextoIso(trato_.Ahora()),
                                    foto_.Sena(), bases_.FicheroAlmacenados, true});
  });
  if (!reparos_.NoCargadas.empty()) trato_.AlHaberQueContar();
}

void Guardia::AlRetomar(const Rescate& rescate) {
  reparos_ = {};
  if (!foto_.Recuperar(rescate.Copia.Rango, rescate.Copia.Foto)) {
    // Without the picture of its load nobody knows who changed what.
    foto_.Tomar(rescate.Copia.Rango);
    reparos_.DeOtros = rescate.Filas;
  }
  reparos_.NoCargadas = foto_.Excluidas();
}

void Guardia::AlGrabar(const Rango& rango) {
  // What the user paid stays in the working file, whatever becomes of the commit.
  bases_.DeTrabajo->TerminarUnidad();
  if (!foto_.De()) {
    foto_.Tomar(rango);
    reparos_.SinFoto = trato_.AvisarDeOtros;
  }
  for (bool conCopia = true; conCopia;) {
    bases_.Almacenados->EmpezarUnidad();
    const Reparos reparos = Copiar(rango);
    if (reparos.Ninguno()) return;
    // Nobody else is kept waiting for an answer; what changes meanwhile is asked again.
    bases_.Almacenados->AbandonarUnidad();
    if (!Confirmar(reparos)) {
      throw ErrorEjecucion(services::error::FilaCambiada, kNoGrabado);
    }
    reparos_ = {};
    conCopia = reparos.SinCopia.empty();
  }
  bases_.Almacenados->EmpezarUnidad();
}

bool Guardia::Confirmar(const Reparos& reparos) {
  std::string pregunta;
  std::string nota;
  for (const Noticia& noticia : Noticias(reparos)) {
    pregunta += ParaLeer(noticia) + "\n\n";
    nota += ParaAnotar(noticia) + " ";
  }
  const bool adelante = trato_.Preguntar(pregunta + "¿Grabar de todos modos?");
  Anotar(nota + (adelante ? "Se graba de todos modos" : "No se graba"));
  return adelante;
}

Reparos Guardia::Copiar(const Rango& rango) {
  try {
    CopiaEnCurso copia(copias_, foto_.Conexion(), FilasDeLaCopia(rango),
                       {trato_.Ahora(), usuario_, rango});
    Comparar();
    if (reparos_.Ninguno()) copia.Terminar();
    return reparos_;
  } catch (const std::exception& fallo) {
    Reparos reparos = reparos_;
    reparos.SinCopia = fallo.what();
    return reparos;
  }
}

// As long as nobody has stored anything the picture is the copy, and there is nothing to compare.
std::string Guardia::FilasDeLaCopia(const Rango& rango) {
  sinCambios_ = foto_.SigueIgual();
  if (sinCambios_) {
    const auto nuevas = ClavesDeTrabajo::Nuevas(*bases_.DeTrabajo, bases_.FicheroFoto);
    if (nuevas.Ninguna() || Guardadas(foto_.Conexion(), nuevas) == 0) return CopiaDeFoto(nuevas);
    sinCambios_ = false;
  }
  return CopiaDeGrabacion(rango, ClavesDeTrabajo::Leer(*bases_.DeTrabajo));
}

void Guardia::Comparar() {
  reparos_.NoCargadas = foto_.QueSiguen(std::move(reparos_.NoCargadas));
  if (sinCambios_ || !trato_.AvisarDeOtros) return;
  const std::vector<Fila> ahora = foto_.Cambiadas();
  if (ahora.empty()) return;
  auto& deOtros = reparos_.DeOtros;
  std::ranges::copy_if(ahora, std::back_inserter(deOtros), [&](const Fila& fila) {
    return std::ranges::find(deOtros, fila) == deOtros.end();
  });
  foto_.TomarDeCopia();
}

void Guardia::PasadoPorAlto(const Omision& omision) {
  if (omision.Que == Omision::Falta::Nada) return;
  omisiones_.push_back(omision);
  Anotar("Pasado por alto en " + (omision.Tabla.empty() ? "las tablas de trabajo" : omision.Tabla) +
         ": " + omision.Fallo.Descripcion());
  if (omision.Durante == Omision::Tarea::Carga && omision.Que == Omision::Falta::Tabla) {
    DarPorIncompleta();
  }
  trato_.AlHaberQueContar();
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

void Guardia::Decir(const Noticia& noticia) {
  relato_.Parrafos.push_back(ParaLeer(noticia));
  Anotar(ParaAnotar(noticia));
  trato_.AlHaberQueContar();
}

Relato Guardia::Contar() {
  const std::vector<Omision> omisiones = std::exchange(omisiones_, {});
  const Omitidas carga = Clasificar(omisiones, Omision::Tarea::Carga, foto_.Conexion());
  const Omitidas grabacion = Clasificar(omisiones, Omision::Tarea::Grabacion, foto_.Conexion());
  for (const Noticia& noticia : NoticiasDeGrabacion(grabacion)) Decir(noticia);
  for (const Noticia& noticia : NoticiasDeCarga(carga)) Decir(noticia);
  DecirNoCargadas(carga.Filas);
  return std::exchange(relato_, {});
}

void Guardia::DecirNoCargadas(std::vector<Fila> deLaCarga) {
  auto& todas = reparos_.NoCargadas;
  std::ranges::move(deLaCarga, std::back_inserter(todas));
  if (todas.empty() || todas == yaDichas_) return;
  yaDichas_ = todas;
  Decir(NoticiaDeNoCargadas(todas));
  relato_.BorrariaFilas = true;
}

Reposicion Guardia::Comparar(const Copia& copia) {
  return salvaguarda::Comparar(foto_.Conexion(), copia);
}

void Guardia::Reponer(const Copia& copia) {
  salvaguarda::Reponer(*bases_.Almacenados, foto_.Conexion(), copia, copias_, trato_.Ahora(),
                       usuario_);
}

void Guardia::CopiarElDia() {
  copias_.GuardarEntera(bases_.FicheroAlmacenados, trato_.Ahora());
}

}  // namespace salvaguarda
