#pragma once

#include <QImage>
#include <QSizeF>
#include <string>

namespace qt {

/// A picture that a report paints, and its own size on paper.
struct Estampa {
  QImage Imagen;
  QSizeF Twips;
};

/// The picture of a file that is looked for from the current folder on; a null one where there is
/// none. The last one read is kept while its file stays the same: every page shares it, and a
/// document holds it once.
[[nodiscard]] Estampa EstampaDe(const std::string& fichero);

}  // namespace qt
