#include "salvaguarda/pasadas_por_alto.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "salvaguarda/relato.h"

namespace salvaguarda {
namespace {

using Tarea = services::Omision::Tarea;

void Quitar(std::vector<Oida>& oidas, Tarea durante) {
  std::erase_if(oidas, [&](const Oida& oida) { return oida.Omision.Durante == durante; });
}

}  // namespace

void PasadasPorAlto::Anadir(const services::Omision& omision, std::vector<Fila> porGrabar) {
  oidas_.push_back({omision, std::move(porGrabar)});
}

void PasadasPorAlto::OlvidarCarga() {
  Quitar(oidas_, Tarea::Carga);
}

void PasadasPorAlto::OlvidarGrabacion() noexcept {
  Quitar(oidas_, Tarea::Grabacion);
}

bool PasadasPorAlto::CerrarGrabacion(sqlite::Conexion& almacenados) {
  const Omitidas omitidas = Clasificar(oidas_, Tarea::Grabacion, almacenados);
  Quitar(oidas_, Tarea::Grabacion);
  const std::vector<Noticia> noticias = NoticiasDeGrabacion(omitidas, conCopia_);
  deGrabacion_.insert(deGrabacion_.end(), noticias.begin(), noticias.end());
  return !noticias.empty();
}

PasadasPorAlto::Todas PasadasPorAlto::Tomar(sqlite::Conexion& almacenados) {
  (void)CerrarGrabacion(almacenados);  // one that was given up, or what came after its end
  const Omitidas carga = Clasificar(oidas_, Tarea::Carga, almacenados);
  OlvidarCarga();
  Todas todas{std::exchange(deGrabacion_, {}), carga.Filas};
  std::ranges::move(NoticiasDeCarga(carga), std::back_inserter(todas.Noticias));
  return todas;
}

}  // namespace salvaguarda
