#include "qt/pdf_acabado.h"

#include <unistd.h>

#include <QFileDevice>
#include <cstdio>
#include <qpdf/Pipeline.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFWriter.hh>
#include <stdexcept>
#include <system_error>

namespace qt {
namespace {

class Salida final : public Pipeline {
 public:
  explicit Salida(QIODevice& destino) : Pipeline("salida", nullptr), destino_(destino) {}

  void write(const unsigned char* datos, std::size_t largo) override {
    const auto cuantos = static_cast<qint64>(largo);
    if (destino_.write(reinterpret_cast<const char*>(datos), cuantos) == cuantos) return;
    throw std::runtime_error(destino_.errorString().toLocal8Bit().constData());
  }
  void finish() override {}

 private:
  QIODevice& destino_;
};

/// A file without a name is read all the same. Whoever gets it closes it.
FILE* Abrir(QFileDevice& fichero) {
  const bool entero = fichero.flush();
  const int otro = entero ? ::dup(fichero.handle()) : -1;
  FILE* abierto = otro < 0 ? nullptr : ::fdopen(otro, "rb");
  if (abierto) return abierto;
  const std::system_error fallo(errno, std::generic_category());
  if (otro >= 0) ::close(otro);
  if (!entero) throw std::runtime_error(fichero.errorString().toLocal8Bit().constData());
  throw fallo;
}

}  // namespace

void AcabarPdf(QFileDevice& borrador, QIODevice& destino) {
  QPDF pdf;
  pdf.setSuppressWarnings(true);
  pdf.processFile("borrador", Abrir(borrador), true);
  QPDFObjectHandle raiz = pdf.getRoot();
  raiz.replaceKey("/Lang", QPDFObjectHandle::newUnicodeString("es-ES"));
  raiz.replaceKey("/ViewerPreferences", QPDFObjectHandle::parse("<< /DisplayDocTitle true >>"));
  Salida salida(destino);
  QPDFWriter escritor(pdf);
  escritor.setOutputPipeline(&salida);
  escritor.setObjectStreamMode(qpdf_o_generate);
  escritor.write();
}

}  // namespace qt
