#include "salvaguarda/cotejo.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "salvaguarda/ambito.h"
#include "salvaguarda/cambio.h"
#include "salvaguarda/copia_en_curso.h"
#include "valores/error.h"

namespace salvaguarda {
Cotejo::Cotejo(const std::string& almacenados, std::string foto,
               services::Ref<sqlite::Conexion> deTrabajo, bool avisarDeOtros)
    : ficheroFoto_(std::move(foto)),
      deTrabajo_(std::move(deTrabajo)),
      avisarDeOtros_(avisarDeOtros),
      foto_(almacenados, ficheroFoto_) {}

void Cotejo::Olvidar() {
  reparos_ = {};
  foto_.Olvidar();
}

void Cotejo::Cargar(const Rango& rango) {
  foto_.Tomar(rango);
  reparos_.NoCargadas = foto_.Excluidas();
}

// Without the picture of its load nobody knows who changed what.
void Cotejo::Retomar(const Rescate& rescate) {
  reparos_ = {};
  if (foto_.Recuperar(rescate.Copia.Rango, rescate.Copia.Foto)) {
    reparos_.NoCargadas = foto_.Excluidas();
    return;
  }
  if (avisarDeOtros_) reparos_.SinSaber = rescate.Filas;
  Retratar(rescate.Copia.Rango);
  reparos_.NoCargadas = foto_.Excluidas();
}

// Without one nothing can be copied, which is asked about then.
void Cotejo::Retratar(const Rango& rango) {
  try {
    foto_.Tomar(rango);
  } catch (const services::ErrorEjecucion&) {
    foto_.Olvidar();
  }
}

void Cotejo::Preparar(const Rango& rango) {
  aceptados_ = {};
  if (foto_.De()) return;
  reparos_.SinFoto = avisarDeOtros_;
  Retratar(rango);
}

Reparos Cotejo::Copiar(Copias& copias, const Copia& copia) {
  try {
    CopiaEnCurso enCurso(copias, foto_.Conexion(), FilasDeLaCopia(copia.Rango), copia);
    Comparar();
    Reparos nuevos = reparos_.Menos(aceptados_);
    if (nuevos.Ninguno()) enCurso.Terminar();
    return nuevos;
  } catch (const std::exception& fallo) {
    Reparos reparos = reparos_.Menos(aceptados_);
    reparos.SinCopia = fallo.what();
    return reparos;
  }
}

// As long as nobody has stored anything the picture is the copy, and there is nothing to compare.
std::string Cotejo::FilasDeLaCopia(const Rango& rango) {
  sinCambios_ = foto_.SigueIgual();
  if (sinCambios_) {
    const auto nuevas = ClavesDeTrabajo::Nuevas(*deTrabajo_, ficheroFoto_);
    if (nuevas.Ninguna() || !HayGuardadas(foto_.Conexion(), nuevas)) return CopiaDeFoto(nuevas);
    sinCambios_ = false;
  }
  return CopiaDeGrabacion(rango, ClavesDeTrabajo::Leer(*deTrabajo_));
}

void Cotejo::Comparar() {
  reparos_.NoCargadas = foto_.QueSiguen(reparos_.NoCargadas);
  if (sinCambios_) return;
  const std::vector<Cambio> cambios = foto_.Cambios();
  if (cambios.empty()) return;
  std::vector<Fila> deOtros;
  std::vector<Fila> yaGrabadas;
  for (const Cambio& cambio : cambios) {
    const Consecuencia que = ConsecuenciaDe(cambio);
    if (que == Consecuencia::Anade) yaGrabadas.push_back(ComoFila(cambio));
    if (que == Consecuencia::Pisa && avisarDeOtros_) deOtros.push_back(ComoFila(cambio));
  }
  foto_.TomarDeCopia();
  Renovar(&Reparos::DeOtros, std::move(deOtros));
  Renovar(&Reparos::YaGrabadas, std::move(yaGrabadas));
}

// A row that was told before is told as it is now, and asked about again.
void Cotejo::Renovar(std::vector<Fila> Reparos::*cuales, std::vector<Fila> nuevas) {
  aceptados_.*cuales = Sin(aceptados_.*cuales, nuevas);
  std::ranges::move(Sin(reparos_.*cuales, nuevas), std::back_inserter(nuevas));
  reparos_.*cuales = std::move(nuevas);
}

void Cotejo::AnadirNoCargadas(const std::vector<Fila>& filas) {
  std::ranges::copy(filas, std::back_inserter(reparos_.NoCargadas));
}

}  // namespace salvaguarda
