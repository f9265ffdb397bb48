#pragma once

#include <QString>

namespace qt {

/// Asks where to save a document, from a proposed path on; empty when the user backs out. All of it
/// reads in Spanish, which the desktop's own dialog only does where the desktop does. A file that
/// is there already may be chosen.
[[nodiscard]] QString PedirFicheroPdf(const QString& propuesto);

}  // namespace qt
