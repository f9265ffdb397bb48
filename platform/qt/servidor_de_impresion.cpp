#include "qt/servidor_de_impresion.h"

#include <QLibrary>

namespace qt {

/// Asked of the library that the toolkit prints through, which is there if that is.
QString ReparoDelServidor() {
  constexpr int kPrimerFallo = 0x400;
  QLibrary cups(QStringLiteral("cups"), 2);
  const auto estado = reinterpret_cast<int (*)()>(cups.resolve("cupsLastError"));
  const auto texto = reinterpret_cast<const char* (*)()>(cups.resolve("cupsLastErrorString"));
  if (!estado || !texto || estado() < kPrimerFallo) return {};
  return QString::fromUtf8(texto());
}

}  // namespace qt
