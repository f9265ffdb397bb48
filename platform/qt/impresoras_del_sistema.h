#pragma once

#include <QStringList>

namespace qt {

/// The names of the system's printers. A print server that is slow is waited for so long; one that
/// doesn't answer by then counts as without printers until it does.
[[nodiscard]] QStringList ImpresorasDelSistema();

}  // namespace qt
