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
/// none. The last one read is kept until its file is another one: every page shares it, a document
/// holds it once, and a page that was drawn with it keeps it when its file goes.
[[nodiscard]] Estampa EstampaDe(const std::string& fichero);

}  // namespace qt
