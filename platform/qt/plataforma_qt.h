#pragma once

#include "qt/disenos.h"
#include "services/plataforma.h"

namespace qt {

/// What the toolkit gives to the component: windows, messages, the concept search, the clock, the
/// screen, the printers and what reports are drawn on. In a host without a `QApplication`, or from
/// another thread than that one's, they throw 91, and an error that no handler caught goes to the
/// standard error. Its `CrearUtiles`, `Registrar` and `Anular` are left to the caller.
[[nodiscard]] services::Plataforma CrearPlataforma(Disenos disenos = DisenosDeTesvara());

/// The desktop's clock, to the second.
[[nodiscard]] services::FechaHora Ahora();

}  // namespace qt
