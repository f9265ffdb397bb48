#pragma once

#include "mensajes/teclas_de_mensaje.h"
#include "qt/disenos.h"
#include "services/plataforma.h"

namespace qt {

/// What the toolkit gives to the component: windows, messages, the concept search, the clock, the
/// screen, the printers and what reports are drawn on. In a host without a `QApplication`, or from
/// another thread than that one's, they throw 91, and an error that no handler caught goes to the
/// standard error. Its `CrearUtiles`, `Registrar` and `Anular` are left to the caller. A message
/// takes no key before `antesDeLeer`.
[[nodiscard]] services::Plataforma CrearPlataforma(
    Disenos disenos = DisenosDeTesvara(),
    std::chrono::milliseconds antesDeLeer = mensajes::kAntesDeLeer);

/// The desktop's clock, to the second.
[[nodiscard]] services::FechaHora Ahora();

}  // namespace qt
