#pragma once

#include <QImage>
#include <algorithm>
#include <cstdlib>

namespace pruebas {

/// How far two pictures of the same size are apart once the edges of their letters are blurred, in
/// greys of 0 to 255.
struct Distancia {
  int Mayor = 0;     ///< of any pixel
  double Media = 0;  ///< of all of them
  double Lejos = 0;  ///< share of the pixels that are more than an eighth of the way apart
};

/// Each pixel the mean of the three by three around it.
inline QImage Borrosa(const QImage& imagen) {
  const QImage gris = imagen.convertToFormat(QImage::Format_Grayscale8);
  QImage borrosa = gris;
  for (int y = 1; y + 1 < gris.height(); ++y) {
    for (int x = 1; x + 1 < gris.width(); ++x) {
      int suma = 0;
      for (int dy = -1; dy <= 1; ++dy) {
        const uchar* fila = gris.constScanLine(y + dy) + x;
        suma += fila[-1] + fila[0] + fila[1];
      }
      borrosa.scanLine(y)[x] = static_cast<uchar>(suma / 9);
    }
  }
  return borrosa;
}

inline Distancia Comparar(const QImage& una, const QImage& otra) {
  constexpr int kOctava = 32;
  const QImage a = Borrosa(una);
  const QImage b = Borrosa(otra);
  Distancia distancia;
  double suma = 0;
  int lejos = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      const int d = std::abs(a.constScanLine(y)[x] - b.constScanLine(y)[x]);
      distancia.Mayor = std::max(distancia.Mayor, d);
      suma += d;
      lejos += d > kOctava;
    }
  }
  const double pixeles = double(a.width()) * a.height();
  distancia.Media = suma / pixeles;
  distancia.Lejos = lejos / pixeles;
  return distancia;
}

}  // namespace pruebas
