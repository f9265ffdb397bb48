#include "headless/mensajes.h"

#include "services/utiles.h"

namespace headless {
namespace {

namespace mensaje = services::mensaje;

bool EsPregunta(int flags) {
  return flags == mensaje::SiNo || flags == mensaje::SiNoCancelar;
}

bool Ofrece(int flags, int respuesta) {
  if (respuesta == mensaje::Si || respuesta == mensaje::No) return true;
  return respuesta == mensaje::Cancelar && flags == mensaje::SiNoCancelar;
}

}  // namespace

int Mensajes::Mostrar(const std::string& texto, int flags, const std::string& titulo) {
  const int respuesta = Contestar(texto, flags);
  mostrados_.push_back({texto, flags, titulo, respuesta});
  return respuesta;
}

int Mensajes::Contestar(const std::string& texto, int flags) {
  const bool hay = !respuestas_.empty();
  const int siguiente = hay ? respuestas_.front() : mensaje::Aceptar;
  if (!EsPregunta(flags)) {
    if (hay && siguiente == mensaje::Aceptar) respuestas_.pop_front();
    return mensaje::Aceptar;
  }
  if (!hay) Abandonar("pregunta sin respuesta: " + texto);
  if (!Ofrece(flags, siguiente)) Abandonar("respuesta que la pregunta no ofrece: " + texto);
  respuestas_.pop_front();
  return siguiente;
}

void Mensajes::Abandonar(const std::string& motivo) {
  sin_respuesta_ = motivo;
  throw PreguntaSinRespuesta(motivo);
}

}  // namespace headless
