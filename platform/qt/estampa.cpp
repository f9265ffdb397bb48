#include "qt/estampa.h"

#include <QDataStream>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "forms/iform.h"
#include "qt/textos_qt.h"
#include "valores/fichero.h"

namespace qt {
namespace {

struct EstampaLeida {
  std::string Fichero;  // as it was asked for
  QString Carpeta;      // from which on
  QString Ruta;
  QDateTime Momento;
  qint64 Largo = -1;
  Estampa Dibujo;
};

constexpr double kTwipsPorMetro = services::kTwipsPorCentimetro * 100;
constexpr double kSinResolucion = 96 / 0.0254;  // dots per metre

/// The toolkit gives a picture that tells none the screen's resolution.
double Resolucion(int puntosPorMetro, int delaPantalla) {
  const bool dicha = puntosPorMetro > 0 && puntosPorMetro != delaPantalla;
  return dicha ? puntosPorMetro : kSinResolucion;
}

/// Of a picture cut short the reader would make up the rest in black, over the report.
bool EstaEntera(const QString& ruta) {
  QFile fichero(ruta);
  if (!fichero.open(QIODevice::ReadOnly)) return false;
  QDataStream datos(&fichero);
  datos.setByteOrder(QDataStream::LittleEndian);
  quint16 marca = 0;
  quint32 largo = 0;
  quint32 nada = 0;
  quint32 comienzo = 0;
  quint32 cabecera = 0;
  qint32 ancho = 0;
  qint32 alto = 0;
  quint16 planos = 0;
  quint16 bits = 0;
  quint32 compresion = 0;
  datos >> marca >> largo >> nada >> comienzo >> cabecera >> ancho >> alto >> planos >> bits >>
      compresion;
  constexpr quint16 kMapaDeBits = 0x4D42;
  constexpr quint32 kSinComprimir = 0;
  constexpr quint32 kConMascaras = 3;
  constexpr quint32 kCabeceraCorriente = 40;
  constexpr qint64 kLadoMaximo = 1 << 20;
  constexpr qint64 kBitsMaximos = 64;
  const bool seCuenta = compresion == kSinComprimir || compresion == kConMascaras;
  if (marca != kMapaDeBits || cabecera < kCabeceraCorriente || !seCuenta) return true;
  const qint64 lineas = std::abs(qint64{alto});
  if (ancho < 0 || ancho > kLadoMaximo || lineas > kLadoMaximo || bits > kBitsMaximos) return false;
  const qint64 linea = (qint64{bits} * ancho + 31) / 32 * 4;
  return datos.status() == QDataStream::Ok && fichero.size() >= comienzo + linea * lineas;
}

/// A whole sheet at the resolution of a scanner takes more than the toolkit's readers may.
class MasMemoria {
 public:
  MasMemoria() : antes_(QImageReader::allocationLimit()) {
    constexpr int kMegas = 1024;
    QImageReader::setAllocationLimit(kMegas);
  }
  ~MasMemoria() { QImageReader::setAllocationLimit(antes_); }
  MasMemoria(const MasMemoria&) = delete;

 private:
  int antes_;
};

Estampa LeerEstampa(const QString& ruta) {
  const MasMemoria amplitud;
  QImageReader lector(ruta);
  lector.setDecideFormatFromContent(true);
  lector.setAutoTransform(true);
  const QImage imagen = EstaEntera(ruta) ? lector.read() : QImage();
  if (imagen.isNull()) return {};
  const QImage cualquiera(1, 1, QImage::Format_RGB32);
  const double x = Resolucion(imagen.dotsPerMeterX(), cualquiera.dotsPerMeterX());
  const double y = Resolucion(imagen.dotsPerMeterY(), cualquiera.dotsPerMeterY());
  return {imagen, {imagen.width() * kTwipsPorMetro / x, imagen.height() * kTwipsPorMetro / y}};
}

QFileInfo Buscar(const std::string& fichero) {
  std::error_code fallo;
  const auto carpeta = std::filesystem::current_path(fallo);
  const auto hallado = fallo ? std::nullopt : services::BuscarFichero(fichero, carpeta);
  return hallado ? QFileInfo(Texto(hallado->string())) : QFileInfo();
}

}  // namespace

Estampa EstampaDe(const std::string& fichero) {
  static EstampaLeida ultima;
  const auto esLaUltima = [](const QFileInfo& datos) {
    return datos.exists() && datos.lastModified() == ultima.Momento && datos.size() == ultima.Largo;
  };
  // Asked of every page: a folder with much in it is looked through once.
  const bool mismo = ultima.Fichero == fichero && ultima.Carpeta == QDir::currentPath();
  if (mismo && esLaUltima(QFileInfo(ultima.Ruta))) return ultima.Dibujo;
  const QFileInfo datos = Buscar(fichero);
  if (!datos.exists()) return ultima.Fichero == fichero ? ultima.Dibujo : Estampa();
  const QString ruta = datos.absoluteFilePath();
  ultima = {fichero,      QDir::currentPath(), ruta, datos.lastModified(),
            datos.size(), LeerEstampa(ruta)};
  return ultima.Dibujo;
}

}  // namespace qt
