#pragma once

#include <QString>

class QFileDevice;

namespace qt {

/// Why a file couldn't be opened or written, for a user; empty when that isn't known.
[[nodiscard]] QString MotivoDe(QFileDevice& fichero);

}  // namespace qt
