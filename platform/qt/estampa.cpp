#include "qt/estampa.h"

#include <QDateTime>
#include <QFileInfo>
#include <QImageReader>
#include <filesystem>
#include <system_error>

#include "forms/iform.h"
#include "qt/textos_qt.h"
#include "valores/fichero.h"

namespace qt {
namespace {

struct EstampaLeida {
  std::string Fichero;  // as it was asked for
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

Estampa LeerEstampa(const QString& ruta) {
  QImageReader lector(ruta);
  lector.setDecideFormatFromContent(true);
  lector.setAutoTransform(true);
  const QImage imagen = lector.read();
  if (imagen.isNull()) return {};
  const QImage cualquiera(1, 1, QImage::Format_RGB32);
  const double x = Resolucion(imagen.dotsPerMeterX(), cualquiera.dotsPerMeterX());
  const double y = Resolucion(imagen.dotsPerMeterY(), cualquiera.dotsPerMeterY());
  return {imagen, {imagen.width() * kTwipsPorMetro / x, imagen.height() * kTwipsPorMetro / y}};
}

}  // namespace

Estampa EstampaDe(const std::string& fichero) {
  static EstampaLeida ultima;
  std::error_code fallo;
  const auto carpeta = std::filesystem::current_path(fallo);
  const auto hallado = fallo ? std::nullopt : services::BuscarFichero(fichero, carpeta);
  if (!hallado) return ultima.Fichero == fichero ? ultima.Dibujo : Estampa();
  const QFileInfo datos(Texto(hallado->string()));
  const QString ruta = datos.absoluteFilePath();
  if (ultima.Ruta != ruta || ultima.Momento != datos.lastModified() ||
      ultima.Largo != datos.size()) {
    ultima = {fichero, ruta, datos.lastModified(), datos.size(), LeerEstampa(ruta)};
  }
  return ultima.Dibujo;
}

}  // namespace qt
