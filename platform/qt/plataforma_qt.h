#pragma once

#include "qt/disenos.h"
#include "services/plataforma.h"

namespace qt {

/// The name under which a report is saved to a file instead of printed.
inline constexpr const char* kGuardarComoPdf = "Guardar como PDF";

/// What the toolkit gives to the component: windows, messages, the concept search, the clock, the
/// screen and the printers. In a host without a `QApplication`, or from another thread than that
/// one's, they throw 91, and an error that no handler caught goes to the standard error. Its
/// `CrearUtiles`, `Registrar` and `Anular` are left to the caller.
[[nodiscard]] services::Plataforma CrearPlataforma(Disenos disenos = DisenosDeTesvara());

/// The desktop's clock, to the second.
[[nodiscard]] services::FechaHora Ahora();

}  // namespace qt
