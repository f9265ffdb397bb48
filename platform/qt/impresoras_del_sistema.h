#pragma once

#include <QStringList>

namespace qt {

/// The names of the system's printers. A print server that is slow is waited for four seconds; then
/// its last answer counts, and from then on none until it has answered.
[[nodiscard]] QStringList ImpresorasDelSistema();

}  // namespace qt
