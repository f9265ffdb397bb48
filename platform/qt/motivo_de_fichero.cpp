#include "qt/motivo_de_fichero.h"

#include <QFileDevice>
#include <cerrno>
#include <utility>

namespace qt {
namespace {

/// The toolkit's own texts aren't in Spanish on every desktop.
QString EnEspanol(const QString& motivo) {
  static constexpr std::pair<int, const char*> kMotivos[] = {
      {ENOSPC, "no queda sitio en el disco"},
      {EDQUOT, "no queda sitio en su parte del disco"},
      {EFBIG, "el fichero no puede ser tan grande"},
      {EACCES, "no hay permiso"},
      {EROFS, "el disco es de solo lectura"},
      {EIO, "el disco falla"},
      {ENOENT, "no existe"},
      {ENAMETOOLONG, "el nombre es demasiado largo"},
  };
  for (const auto& [codigo, texto] : kMotivos) {
    if (motivo == qt_error_string(codigo)) return QString::fromUtf8(texto);
  }
  return QStringLiteral("el sistema dice «%1»").arg(motivo);
}

}  // namespace

/// A write that stops half way tells no reason, and the next one does.
QString MotivoDe(QFileDevice& fichero) {
  if (fichero.error() == QFileDevice::WriteError && fichero.putChar('\n')) fichero.flush();
  return fichero.error() == QFileDevice::NoError ? QString() : EnEspanol(fichero.errorString());
}

}  // namespace qt
