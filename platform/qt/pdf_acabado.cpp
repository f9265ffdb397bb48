#include "qt/pdf_acabado.h"

#include <unistd.h>

#include <QFileDevice>
#include <cerrno>
#include <cstdio>
#include <map>
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

/// A font of which only the letters in use are there is told by six capitals before its name, the
/// same wherever that stands.
class Subconjuntos {
 public:
  void Marcar(QPDFObjectHandle objeto, const std::string& clave) {
    QPDFObjectHandle nombre = objeto.getKey(clave);
    if (nombre.isName()) objeto.replaceKey(clave, QPDFObjectHandle::newName(De(nombre.getName())));
  }

 private:
  const std::string& De(const std::string& nombre) {
    const auto [donde, nueva] = marcados_.try_emplace(nombre);
    if (nueva) {
      std::string marca = "TESVAA";
      marca.back() = static_cast<char>('A' + (marcados_.size() - 1) % 26);
      donde->second = "/" + marca + "+" + nombre.substr(1);
    }
    return donde->second;
  }

  std::map<std::string, std::string> marcados_;
};

void MarcarLetras(QPDF& pdf) {
  Subconjuntos subconjuntos;
  for (QPDFObjectHandle objeto : pdf.getAllObjects()) {
    if (objeto.isDictionaryOfType("/Font")) subconjuntos.Marcar(objeto, "/BaseFont");
    if (objeto.isDictionaryOfType("/FontDescriptor")) subconjuntos.Marcar(objeto, "/FontName");
  }
}

}  // namespace

void AcabarPdf(QFileDevice& borrador, QIODevice& destino) {
  QPDF pdf;
  pdf.setSuppressWarnings(true);
  // What lacks a piece isn't to be patched up without a word.
  pdf.setAttemptRecovery(false);
  pdf.processFile("borrador", Abrir(borrador), true);
  QPDFObjectHandle raiz = pdf.getRoot();
  raiz.replaceKey("/Lang", QPDFObjectHandle::newUnicodeString("es-ES"));
  raiz.replaceKey("/ViewerPreferences", QPDFObjectHandle::parse("<< /DisplayDocTitle true >>"));
  MarcarLetras(pdf);
  Salida salida(destino);
  QPDFWriter escritor(pdf);
  escritor.setOutputPipeline(&salida);
  escritor.setObjectStreamMode(qpdf_o_generate);
  escritor.write();
}

}  // namespace qt
