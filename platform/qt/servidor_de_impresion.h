#pragma once

#include <QString>

namespace qt {

/// Why the print server refused what it was last asked from this thread; empty when it didn't, and
/// where there is none.
[[nodiscard]] QString ReparoDelServidor();

}  // namespace qt
