#include "ficheros/iconos.h"

#include <QFileInfo>

namespace ficheros {

QIcon Iconos::icon(const QFileInfo& fichero) const {
  return icon(fichero.isDir() ? Folder : File);
}

QString Iconos::type(const QFileInfo& fichero) const {
  if (fichero.isDir()) return QStringLiteral("Carpeta");
  return QStringLiteral("Fichero %1").arg(fichero.suffix()).trimmed();
}

}  // namespace ficheros
