#include "salvaguarda/cotejo.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "salvaguarda/ambito.h"
#include "salvaguarda/cambio.h"
#include "salvaguarda/copia_en_curso.h"
#include "valores/error.h"

namespace salvaguarda {
Cotejo::Cotejo(Almacen& almacen, std::string foto, services::Ref<sqlite::Conexion> deTrabajo,
               bool avisarDeOtros)
    : almacen_(almacen),
      ficheroFoto_(std::move(foto)),
      deTrabajo_(std::move(deTrabajo)),
      avisarDeOtros_(avisarDeOtros),
      foto_(almacen.Fichero(), ficheroFoto_) {}

void Cotejo::Olvidar() {
  deLaCarga_ = {};
  foto_.Olvidar();
}

void Cotejo::Cargar(const Rango& rango) {
  almacen_.Traer(rango, {});
  foto_.Tomar(rango);
  deLaCarga_.NoCargadas = foto_.Excluidas();
}

// Without the picture of its load nobody knows who changed what.
void Cotejo::Retomar(const Rescate& rescate) {
  deLaCarga_ = {};
  if (!foto_.Recuperar(rescate.Copia.Rango, rescate.Copia.Foto)) {
    Retratar(rescate.Copia.Rango);
    DecirTodoLoDistinto();
  }
  deLaCarga_.NoCargadas = foto_.Excluidas();
}

// What others have stored since the working copy was offered is in the picture already.
void Cotejo::DecirTodoLoDistinto() {
  if (!avisarDeOtros_) return;
  const auto distinto = BuscarRescate(*deTrabajo_, almacen_, ficheroFoto_);
  if (distinto) deLaCarga_.SinSaber = distinto->Filas;
}

// Without one nothing can be copied, which is asked about then.
void Cotejo::Retratar(const Rango& rango) {
  try {
    almacen_.Traer(rango, {});
    foto_.TomarTarde(rango);
  } catch (const services::ErrorEjecucion&) {
    foto_.Olvidar();
  }
}

void Cotejo::Preparar(const Rango& rango) {
  if (!foto_.De()) {
    deLaCarga_.SinFoto = avisarDeOtros_;
    Retratar(rango);
  }
  reparos_ = deLaCarga_;
  aceptados_ = {};
  preguntado_.reset();
}

Reparos Cotejo::Copiar(Copias& copias, const Copia& copia) {
  try {
    CopiaEnCurso enCurso(copias, foto_.Conexion(), FilasDeLaCopia(copia.Rango), copia);
    Comparar();
    Reparos nuevos = reparos_.Menos(aceptados_);
    if (nuevos.Ninguno()) {
      enCurso.Terminar();
    } else if (!sinCambios_) {
      preguntado_.emplace(foto_.Conexion());
    }
    return nuevos;
  } catch (const std::exception& fallo) {
    Reparos reparos = reparos_.Menos(aceptados_);
    reparos.SinCopia = fallo.what();
    return reparos;
  }
}

// As long as nobody has stored anything the picture is the copy, and there is nothing to compare.
std::string Cotejo::FilasDeLaCopia(const Rango& rango) {
  almacen_.Traer(rango, [this] { return Pedidas(); });
  sinCambios_ = foto_.SigueIgual();
  if (sinCambios_) {
    const auto nuevas = Claves::Nuevas(*deTrabajo_, ficheroFoto_);
    if (nuevas.Ninguna() || !HayGuardadas(foto_.Conexion(), nuevas)) return CopiaDeFoto(nuevas);
    sinCambios_ = false;
  }
  return CopiaDeGrabacion(foto_.Conexion(), rango, Claves::DeTrabajo(*deTrabajo_));
}

/// Of what is to be written, and of what the picture holds.
Claves Cotejo::Pedidas() {
  Claves claves = Claves::DeTrabajo(*deTrabajo_);
  if (foto_.De()) claves.Anadir(Claves::DeFoto(foto_.Conexion()));
  return claves;
}

// What has changed since the user was asked isn't what he agreed to.
void Cotejo::Comparar() {
  if (preguntado_) {
    std::vector<Fila> cambiadas;
    for (const Cambio& cambio : preguntado_->Cambios()) cambiadas.push_back(cambio.Fila);
    if (cambiadas.empty()) return;
    aceptados_ = aceptados_.Menos({.DeOtros = cambiadas, .YaGrabadas = cambiadas});
  }
  CompararConLaFoto();
}

void Cotejo::CompararConLaFoto() {
  reparos_ = deLaCarga_;
  reparos_.NoCargadas = foto_.QueSiguen(std::move(reparos_.NoCargadas));
  if (sinCambios_) return;
  for (const Cambio& cambio : foto_.Cambios()) {
    const Consecuencia que = ConsecuenciaDe(cambio);
    if (que == Consecuencia::Ninguna) continue;
    if (que == Consecuencia::Topa) {
      reparos_.YaGrabadas.push_back(ComoFila(cambio));
    } else if (avisarDeOtros_) {
      reparos_.DeOtros.push_back(ComoFila(cambio));
    }
  }
}

void Cotejo::AnadirNoCargadas(const std::vector<Fila>& filas) {
  std::ranges::copy(filas, std::back_inserter(deLaCarga_.NoCargadas));
}

}  // namespace salvaguarda
