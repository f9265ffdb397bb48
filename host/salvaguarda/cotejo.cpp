#include "salvaguarda/cotejo.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <utility>

#include "salvaguarda/ambito.h"
#include "salvaguarda/copia_en_curso.h"
#include "salvaguarda/recuperacion.h"
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

void Cotejo::Retomar(const Rescate& rescate) {
  reparos_ = {};
  if (!foto_.Recuperar(rescate.Copia.Rango, rescate.Copia.Foto)) {
    // Without the picture of its load nobody knows who changed what.
    foto_.Tomar(rescate.Copia.Rango);
    reparos_.DeOtros = rescate.Filas;
  }
  reparos_.NoCargadas = foto_.Excluidas();
}

void Cotejo::Preparar(const Rango& rango) {
  copia_.reset();
  if (foto_.De()) return;
  foto_.Tomar(rango);
  reparos_.SinFoto = avisarDeOtros_;
}

Reparos Cotejo::Copiar(Copias& copias, const Copia& copia) {
  try {
    CopiaEnCurso enCurso(copias, foto_.Conexion(), FilasDeLaCopia(copia.Rango), copia);
    Comparar();
    if (reparos_.Ninguno()) copia_ = enCurso.Terminar();
    return reparos_;
  } catch (const std::exception& fallo) {
    Reparos reparos = reparos_;
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

// A row that was told before is told as it is now.
void Cotejo::Comparar() {
  reparos_.NoCargadas = foto_.QueSiguen(reparos_.NoCargadas);
  if (sinCambios_ || !avisarDeOtros_) return;
  std::vector<Fila> deOtros = foto_.Cambiadas();
  if (deOtros.empty()) return;
  const std::set<Fila, PorSuClave> ahora(deOtros.begin(), deOtros.end());
  std::ranges::copy_if(reparos_.DeOtros, std::back_inserter(deOtros),
                       [&](const Fila& fila) { return !ahora.contains(fila); });
  reparos_.DeOtros = std::move(deOtros);
  foto_.TomarDeCopia();
}

void Cotejo::AnadirNoCargadas(const std::vector<Fila>& filas) {
  std::ranges::copy(filas, std::back_inserter(reparos_.NoCargadas));
}

std::vector<Fila> Cotejo::Perdidas(const std::vector<Fila>& tablas) {
  if (tablas.empty() || !copia_) return {};
  try {
    std::vector<Fila> perdidas = salvaguarda::Comparar(foto_.Conexion(), *copia_).Vuelven;
    std::erase_if(perdidas, [&](const Fila& fila) {
      return std::ranges::find(tablas, fila.Tabla, &Fila::Tabla) == tablas.end();
    });
    return perdidas;
  } catch (const services::ErrorEjecucion&) {
    return {};
  }
}

}  // namespace salvaguarda
