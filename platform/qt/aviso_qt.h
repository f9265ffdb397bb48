#pragma once

#include "mensajes/teclas_de_mensaje.h"
#include "services/utiles.h"
#include "valores/error.h"

namespace qt {

/// Besides those of `services::mensaje`: a box with "Aceptar" and "Cancelar", and icons.
inline constexpr int kAceptarCancelar = 1;
inline constexpr int kExclamacion = 48;
inline constexpr int kInformacion = 64;

/// The messages of the system. Buttons read in Spanish whatever the desktop's language, and answer
/// to their first letter, to Enter and, where there is a way out, to Escape.
class AvisoQt final : public services::Aviso {
 public:
  explicit AvisoQt(std::chrono::milliseconds antesDeLeer = mensajes::kAntesDeLeer)
      : antesDeLeer_(antesDeLeer) {}
  int Mostrar(const std::string& texto, int flags, const std::string& titulo) override;

 private:
  std::chrono::milliseconds antesDeLeer_;
};

/// Tells the user of an error that no handler caught. What the user gave up when asked is no error,
/// and is told as any message.
void MostrarError(services::Aviso& aviso, const services::ErrorEjecucion& fallo);

}  // namespace qt
