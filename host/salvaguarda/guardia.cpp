#include "salvaguarda/guardia.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <limits>

#include "salvaguarda/ambito.h"
#include "salvaguarda/omitidas.h"
#include "salvaguarda/rescate.h"
#include "valores/error.h"

namespace salvaguarda {
namespace {

using services::ErrorEjecucion;
using services::Omision;

/// As many rows as anyone reads through; the message scrolls.
constexpr std::size_t kALaVista = 100;
constexpr std::size_t kTodas = std::numeric_limits<std::size_t>::max();

constexpr const char* kNoGrabado =
    "No se ha grabado nada. Lo que ha hecho sigue en la pantalla: puede grabarlo después, o pulsar "
    "Cancelar para volver a cargar lo que hay grabado";

std::string Sobre(const std::string& frase, const std::vector<Fila>& filas, std::size_t hasta) {
  const bool entera = filas.size() <= hasta;
  return frase + " (" + Recuento(filas) + "):" + Relacion(filas, hasta) +
         (entera ? "" : ", que están en registro.txt");
}

}  // namespace

Guardia::Guardia(Bases bases, const Lugares& lugares, std::string usuario)
    : bases_(std::move(bases)),
      foto_(bases_.FicheroAlmacenados, bases_.FicheroFoto),
      copias_(lugares.Copias),
      registro_(lugares.Registro),
      usuario_(std::move(usuario)) {}

void Guardia::Anotar(std::string_view texto) {
  registro_.Anotar(services::TextoIso(Ahora()), usuario_ + ": " + std::string(texto));
}

void Guardia::AlComenzar(const Comienzo& comienzo) {
  if (comienzo.Que == Comienzo::Tarea::Carga) return AlCargar(comienzo.Rango);
  AlGrabar(comienzo.Rango);
}

// The load goes on whatever happens here. Without a picture the copy is noted all the same.
void Guardia::AlCargar(const Rango& rango) {
  noCargadas_.clear();
  deOtros_.clear();
  foto_.Olvidar();
  const auto intentar = [this](const auto& accion) {
    try {
      accion();
    } catch (const std::exception& fallo) {
      Decir(std::string("No se ha podido comprobar lo que se ha cargado: ") + fallo.what(), {});
    }
  };
  intentar([&] {
    foto_.Tomar(rango);
    noCargadas_ = foto_.Excluidas();
  });
  intentar([&] {
    AnotarCopia(*bases_.DeTrabajo, {rango, usuario_, services::TextoIso(Ahora()), foto_.Sena(),
                                    bases_.FicheroAlmacenados, true});
  });
  if (!noCargadas_.empty()) AlHaberQueContar();
}

void Guardia::AlRetomar(const Rescate& rescate) {
  noCargadas_.clear();
  deOtros_.clear();
  if (foto_.Recuperar(rescate.Copia.Rango, rescate.Copia.Foto)) {
    noCargadas_ = foto_.Excluidas();
    return;
  }
  // Without the picture of its load nobody knows who changed what.
  foto_.Tomar(rescate.Copia.Rango);
  noCargadas_ = foto_.Excluidas();
  deOtros_ = rescate.Filas;
}

void Guardia::AlGrabar(const Rango& rango) {
  // What the user paid stays in the working file, whatever becomes of the commit.
  bases_.DeTrabajo->TerminarUnidad();
  sinFoto_ = !foto_.De();
  if (sinFoto_) foto_.Tomar(rango);
  for (bool conCopia = true;;) {
    bases_.Almacenados->EmpezarUnidad();
    const std::string sinCopia = conCopia ? Copiar(rango) : "";
    const std::string reparos = Reparos(sinCopia, kALaVista);
    if (reparos.empty()) return;
    // Nobody else is kept waiting for an answer; what changes meanwhile is asked again.
    bases_.Almacenados->AbandonarUnidad();
    copias_.Quitar(copia_);
    const bool adelante = Preguntar(reparos + "\n\n¿Grabar de todos modos?");
    Anotar(Reparos(sinCopia, kTodas) + (adelante ? " Se graba de todos modos" : " No se graba"));
    if (!adelante) throw ErrorEjecucion(services::error::OperacionCancelada, kNoGrabado);
    noCargadas_.clear();
    deOtros_.clear();
    sinFoto_ = false;
    conCopia = sinCopia.empty();
  }
}

std::string Guardia::Copiar(const Rango& rango) {
  copia_ = {};
  try {
    copia_ = copias_.Guardar(foto_.Conexion(), FilasDeLaCopia(rango), {Ahora(), usuario_, rango},
                             [this] { Comparar(); });
    return "";
  } catch (const std::exception& fallo) {
    return fallo.what();
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
  noCargadas_ = foto_.QueSiguen(std::move(noCargadas_));
  if (sinCambios_ || !AvisarDeOtros) return;
  const std::vector<Fila> ahora = foto_.Cambiadas();
  if (ahora.empty()) return;
  std::ranges::copy_if(ahora, std::back_inserter(deOtros_), [this](const Fila& fila) {
    return std::ranges::find(deOtros_, fila) == deOtros_.end();
  });
  foto_.TomarDeCopia();
}

std::string Guardia::Reparos(const std::string& sinCopia, std::size_t hasta) const {
  std::string reparos;
  const auto anadir = [&](const std::string& parrafo) {
    reparos += (reparos.empty() ? "" : "\n\n") + parrafo;
  };
  if (!sinCopia.empty()) {
    anadir(
        "No se ha podido guardar una copia de lo que hay grabado, ni ver si otro usuario lo ha "
        "cambiado: " +
        sinCopia);
  }
  if (sinFoto_ && AvisarDeOtros) {
    anadir("No se pudo mirar lo que había al cargar, y no se sabe si otro usuario lo ha cambiado");
  }
  if (!deOtros_.empty()) {
    anadir(Sobre("Otro usuario ha cambiado lo que había al cargar", deOtros_, hasta));
  }
  if (!noCargadas_.empty()) {
    anadir(Sobre("Hay filas del rango que no se cargaron, y que se borrarían", noCargadas_, hasta));
  }
  return reparos;
}

void Guardia::PasadoPorAlto(const Omision& omision) {
  if (omision.Que == Omision::Falta::Nada) return;
  omisiones_.push_back(omision);
  Anotar("Pasado por alto en " + (omision.Tabla.empty() ? "las tablas de trabajo" : omision.Tabla) +
         ": " + omision.Fallo.Descripcion());
  if (omision.Durante == Omision::Tarea::Carga && omision.Que == Omision::Falta::Tabla) {
    DarPorIncompleta();
  }
  AlHaberQueContar();
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

void Guardia::Decir(const std::string& texto, const std::vector<Fila>& filas) {
  relato_.Parrafos.push_back(filas.empty() ? texto : Sobre(texto, filas, kALaVista));
  Anotar(texto + Relacion(filas, kTodas));
  AlHaberQueContar();
}

Relato Guardia::Contar() {
  const std::vector<Omision> omisiones = std::exchange(omisiones_, {});
  const Omitidas carga = Clasificar(omisiones, Omision::Tarea::Carga, foto_.Conexion());
  const Omitidas grabacion = Clasificar(omisiones, Omision::Tarea::Grabacion, foto_.Conexion());
  for (const Fila& tabla : grabacion.Tablas) {
    Decir("No se ha podido grabar nada de " + tabla.Tabla + ": " + tabla.Motivo, {});
  }
  if (!grabacion.Filas.empty()) {
    Decir(
        "No se han podido grabar estas filas, y ya no están entre lo grabado; lo que había antes "
        "está en Archivo, Recuperar una copia",
        grabacion.Filas);
  }
  if (!grabacion.Incompletas.empty()) {
    Decir("Se han grabado sin alguno de sus valores", grabacion.Incompletas);
  }
  for (const Fila& tabla : carga.Tablas) {
    Decir("No se ha podido cargar " + tabla.Tabla + ": " + tabla.Motivo +
              ". La lista no está completa y no se podrá grabar: pulse Cancelar para volver a "
              "cargarla",
          {});
  }
  if (!carga.SinApuntes.empty()) {
    Decir(
        "No se han podido buscar los apuntes de caja de estas facturas, y Grabar fallará con ellas",
        carga.SinApuntes);
  }
  if (!carga.Incompletas.empty()) {
    Decir("Se han cargado sin alguno de sus valores", carga.Incompletas);
  }
  // No commit deletes a cash entry.
  std::vector<Fila> apuntes;
  for (const Fila& fila : carga.Filas) {
    (fila.Tabla == "CajaPagos" ? apuntes : noCargadas_).push_back(fila);
  }
  if (!apuntes.empty()) Decir("No se han cargado estos apuntes de caja", apuntes);
  if (!noCargadas_.empty() && noCargadas_ != yaDichas_) {
    yaDichas_ = noCargadas_;
    Decir("No se han cargado estas filas, que no se ven en la lista y que Grabar borraría",
          noCargadas_);
    relato_.BorrariaFilas = true;
  }
  return std::exchange(relato_, {});
}

}  // namespace salvaguarda
