#include "guion/ejecucion.h"

#include <algorithm>
#include <utility>

#include "guion/acciones.h"
#include "guion/salida.h"

namespace guion {
namespace {

constexpr std::string_view kPantallaPrincipal = "FrmTesvaraGastos";

}  // namespace

Ejecucion::Ejecucion(guion::Mundo& mundo, std::ostream& salida, std::ostream& errores)
    : mundo_(mundo), salida_(salida), errores_(errores) {
  Entorno().AlEsperarModal = [this](services::Form& form) { EsperarModal(form); };
  Entorno().AlFallar = [this](const services::ErrorEjecucion& fallo) {
    Error(fallo.Numero(), fallo.Descripcion());
  };
}

Ejecucion::~Ejecucion() {
  Entorno().AlEsperarModal = nullptr;
  Entorno().AlFallar = nullptr;
}

int Ejecucion::Correr(Fuente fuente) {
  fuente_ = std::move(fuente);
  acabada_ = false;
  Seguir([] { return false; });
  salida_.flush();
  return Estado();
}

int Ejecucion::Estado() const {
  if (rota_) return kNoSeEntiende;
  return alguna_falla_ ? kAlgunaFalla : kBien;
}

void Ejecucion::Seguir(const std::function<bool()>& hasta) {
  while (!hasta()) {
    const Orden* orden = Siguiente();
    if (!orden) return;
    Ejecutar(*orden);
  }
}

const Orden* Ejecucion::Siguiente() {
  if (rota_ || acabada_) return nullptr;
  // Whoever reads along knows at once how far the run has come.
  salida_.flush();
  const Orden* orden = fuente_(Estado());
  acabada_ = !orden;
  return orden;
}

void Ejecucion::EsperarModal(services::Form& form) {
  Seguir([&form] { return !form.Visible(); });
  if (form.Visible()) dejada_ = true;
}

void Ejecucion::Ejecutar(const Orden& orden) {
  const Accion& accion = AccionDe(orden.Nombre);
  if (accion.Actua) ultimo_error_.reset();
  linea_ = orden.Linea;
  try {
    accion.Hacer(*this, orden);
  } catch (const NoSeEntiende& fallo) {
    Romper(orden.Linea, fallo.what());
  } catch (const headless::PreguntaSinRespuesta&) {
    // Told below: on other ways the exception may have been swallowed.
  }
  mundo_.Contar();
  const auto& pregunta = Entorno().Mensajes.SinRespuesta();
  if (pregunta) Romper(orden.Linea, *pregunta);
}

void Ejecucion::Romper(int linea, const std::string& motivo) {
  if (rota_ || dejada_) return;
  rota_ = true;
  salida_.flush();
  errores_ << "línea " << linea << ": " << motivo << '\n';
}

void Ejecucion::Escribir(std::string_view linea) {
  salida_ << linea << '\n';
}

void Ejecucion::Error(std::int32_t numero, const std::string& descripcion) {
  // A question without an answer ends the run: the error that it leaves behind is not the system's.
  if (Entorno().Mensajes.SinRespuesta()) return;
  ultimo_error_ = numero;
  Escribir(LineaDeError(numero, descripcion));
}

void Ejecucion::Comparar(const std::string& esperado, const std::string& obtenido) {
  if (esperado == obtenido) return;
  alguna_falla_ = true;
  Escribir("FALLO line " + std::to_string(linea_) + ": esperado " + esperado + ", obtenido " +
           obtenido);
}

std::vector<headless::AvisoMostrado> Ejecucion::AvisosSinImprimir() const {
  const auto& todos = mundo_.Entorno().Mensajes.Mostrados();
  return {todos.begin() + static_cast<std::ptrdiff_t>(impresos_), todos.end()};
}

std::vector<headless::AvisoMostrado> Ejecucion::AvisosSinReclamar() const {
  const auto& todos = mundo_.Entorno().Mensajes.Mostrados();
  return {todos.begin() + static_cast<std::ptrdiff_t>(std::max(impresos_, reclamados_)),
          todos.end()};
}

void Ejecucion::AvisosImpresos() {
  impresos_ = Entorno().Mensajes.Mostrados().size();
  reclamados_ = impresos_;
}

services::Form& Ejecucion::BuscarPantalla(const std::string& nombre) const {
  services::Form* form = mundo_.Entorno().Buscar(nombre);
  if (!form) throw NoSeEntiende("la pantalla " + nombre + " no está cargada");
  return *form;
}

services::Widget& Ejecucion::Buscar(const std::string& referencia) const {
  const Referencia partes = LeerReferencia(referencia).value();
  const std::string pantalla =
      partes.Pantalla.empty() ? std::string(kPantallaPrincipal) : partes.Pantalla;
  services::Widget* widget = BuscarPantalla(pantalla).Buscar(partes.Widget);
  if (!widget) throw NoSeEntiende(pantalla + " no tiene " + partes.Widget);
  return *widget;
}

std::string Ejecucion::NombreDe(const services::Widget& widget) {
  const std::string& pantalla = widget.Formulario().Nombre();
  const std::string prefijo = pantalla == kPantallaPrincipal ? "" : pantalla + ".";
  return prefijo + widget.NombreCompleto();
}

}  // namespace guion
