#pragma once

#include <QString>

class QFileDevice;

namespace qt {

/// Why a file couldn't be opened or written, for a user; empty when that isn't known. A file whose
/// writing stopped half way may get a byte more: it tells no reason by itself.
[[nodiscard]] QString MotivoDe(QFileDevice& fichero);

}  // namespace qt
