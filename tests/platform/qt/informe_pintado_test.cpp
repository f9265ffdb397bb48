#include <QFile>
#include <QImage>
#include <QPainter>

#include "apoyo/en_carpeta.h"
#include "platform/qt/comparar_imagenes.h"
#include "platform/qt/informe_en_papel.h"
#include "qt/letra_de_informe.h"
#include "qt/pintor_de_informe.h"

// What is seen on the screen against what is printed.

namespace {

namespace fs = std::filesystem;
using pruebas::Comparar;
using services::LaminaInforme;
using services::Trazo;

QImage EnPantalla(const LaminaInforme& hoja, QSize tamano, int puntos) {
  QImage imagen(tamano, QImage::Format_RGB32);
  imagen.fill(Qt::white);
  QPainter pintor(&imagen);
  pintor.scale(puntos / 1440.0, puntos / 1440.0);
  qt::Pintar(pintor, hoja);
  return imagen;
}

class InformePintado : public pruebas::InformeEnPapel {
 protected:
  /// The first page of the file, as another program paints it.
  [[nodiscard]] QImage EnPapel(int puntos) const {
    pruebas::Correr("pdftoppm", {"-r", QString::number(puntos), "-f", "1", "-l", "1", "-singlefile",
                                 "-png", Ruta("pagos.pdf"), Ruta("pagina")});
    return QImage(Ruta("pagina.png"));
  }
};

/// Letters of the two programs are not as dark, and up to half a pixel apart: 90 of 255 at the
/// farthest pixel. A text that is moved by two pixels is more than 150 apart somewhere.
constexpr int kResolucion = 150;
constexpr int kSoloBordes = 120;
constexpr double kMediaDeBordes = 4;
constexpr double kLejosDeBordes = 0.05;

TEST_F(InformePintado, LaVistaEsLoQueSeImprime) {
  Recibos(120);
  GuardarPdf(Ruta("pagos.pdf"));
  const LaminaInforme hoja = Hojas().front();
  const QImage papel = EnPapel(kResolucion);
  ASSERT_FALSE(papel.isNull());
  const pruebas::Distancia distancia = Comparar(papel, EnPantalla(hoja, papel.size(), kResolucion));
  EXPECT_LT(distancia.Mayor, kSoloBordes);
  EXPECT_LT(distancia.Media, kMediaDeBordes);
  EXPECT_LT(distancia.Lejos, kLejosDeBordes);

  // The comparison itself sees a single text out of its place, and one that isn't there.
  constexpr double kDosPixeles = 2 * 2.54 / kResolucion;
  for (const std::size_t cual : {std::size_t{20}, std::size_t{100}, hoja.Trazos.size() - 1}) {
    LaminaInforme movida = hoja;
    ASSERT_EQ(movida.Trazos.at(cual).Que, Trazo::Clase::Texto);
    movida.Trazos[cual].X1 += kDosPixeles;
    EXPECT_GT(Comparar(papel, EnPantalla(movida, papel.size(), kResolucion)).Mayor, kSoloBordes);
    movida.Trazos.erase(movida.Trazos.begin() + static_cast<std::ptrdiff_t>(cual));
    EXPECT_GT(Comparar(papel, EnPantalla(movida, papel.size(), kResolucion)).Mayor, kSoloBordes);
  }
}

/// A strip of paper on the screen, some centimetres of it, ten pixels each.
class Pintor : public testing::Test {
 protected:
  static constexpr int kPixeles = 10;

  QImage Pintar(const Trazo& trazo) {
    papel_ = QImage(5 * kPixeles, 5 * kPixeles, QImage::Format_RGB32);
    papel_.fill(Qt::yellow);
    QPainter pintor(&papel_);
    const double escala = kPixeles / qt::kTwipsPorCentimetro;
    pintor.scale(escala, escala);
    qt::Pintar(pintor, trazo);
    return papel_;
  }
  [[nodiscard]] QColor En(double x, double y) const {
    return papel_.pixelColor(static_cast<int>(x * kPixeles), static_cast<int>(y * kPixeles));
  }

 private:
  QImage papel_;
};

constexpr int kDelEscritorio = -2147483633;

TEST_F(Pintor, LosColoresDelEscritorioSonLosDelPapel) {
  Trazo caja{.Que = Trazo::Clase::Caja, .X1 = 1, .Y1 = 1, .X2 = 4, .Y2 = 3, .Llena = true};
  caja.Color = kDelEscritorio;
  Pintar(caja);
  EXPECT_EQ(En(2, 2), QColor(0xE6, 0xE6, 0xE6));
  EXPECT_EQ(En(4.5, 4), QColor(Qt::yellow));
  caja.Color = 0xFF8040;  // blue in the high byte
  Pintar(caja);
  EXPECT_EQ(En(2, 2), QColor(0x40, 0x80, 0xFF));

  caja.Llena = false;
  caja.Color = kDelEscritorio;
  Pintar(caja);
  EXPECT_EQ(En(2, 2), QColor(Qt::yellow));
  // A hair on a pixel of half a millimetre: it darkens its edge.
  EXPECT_LT(En(1, 2).red(), 255);
  EXPECT_EQ(En(1.3, 2), QColor(Qt::yellow));
}

TEST_F(Pintor, LasEsquinasSonLasQueSonEnCualquierOrden) {
  Pintar({.Que = Trazo::Clase::Caja, .X1 = 4, .Y1 = 3, .X2 = 1, .Y2 = 1, .Llena = true});
  EXPECT_EQ(En(2, 2), QColor(Qt::black));
}

TEST_F(Pintor, UnTextoOpacoTapaLoQueHayDebajo) {
  Trazo texto{.X1 = 1, .Y1 = 1, .Texto = "   ", .Letra = {"Bookman Old Style", 40, false}};
  Pintar(texto);
  EXPECT_EQ(En(1.5, 1.5), QColor(Qt::yellow));
  texto.Opaco = true;
  Pintar(texto);
  EXPECT_EQ(En(1.5, 1.5), QColor(Qt::white));
  EXPECT_EQ(En(0.5, 1.5), QColor(Qt::yellow));
}

TEST_F(Pintor, UnTextoEstaDebajoDeSuEsquina) {
  const services::Letra letra{"Bookman Old Style", 40, true};
  const QImage papel = Pintar({.X1 = 1, .Y1 = 1, .Texto = "H", .Letra = letra});
  QRect tinta;
  for (int y = 0; y < papel.height(); ++y) {
    for (int x = 0; x < papel.width(); ++x) {
      if (papel.pixelColor(x, y) != QColor(Qt::yellow)) tinta |= QRect(x, y, 1, 1);
    }
  }
  const qt::MedidasQt medidas;
  EXPECT_NEAR(tinta.bottom() + 1, (1 + medidas.Ascenso(letra)) * kPixeles, 1);
  EXPECT_GE(tinta.left(), kPixeles);
  EXPECT_LE(tinta.right(), (1 + medidas.Ancho(letra, "H")) * kPixeles);
}

TEST_F(Pintor, UnaImagenTieneSuPropioTamano) {
  const guion::CarpetaTemporal carpeta(false);
  const apoyo::EnCarpeta en(carpeta.Ruta());
  QImage cuadro(96, 48, QImage::Format_RGB32);
  cuadro.fill(Qt::blue);
  cuadro.setDotsPerMeterX(9600);  // a centimetre by half of one
  cuadro.setDotsPerMeterY(9600);
  EXPECT_TRUE(cuadro.save("Cuadro.bmp"));
  const Trazo imagen{.Que = Trazo::Clase::Imagen, .X1 = 1, .Y1 = 1, .Texto = "CUADRO.BMP"};
  Pintar(imagen);
  EXPECT_EQ(En(1.8, 1.3), QColor(Qt::blue));
  EXPECT_EQ(En(2.2, 1.3), QColor(Qt::yellow));
  EXPECT_EQ(En(1.8, 1.7), QColor(Qt::yellow));

  // Without a resolution it has 96 dots an inch.
  EXPECT_TRUE(QFile::copy("Cuadro.bmp", "sin.bmp"));
  QFile fichero("sin.bmp");
  EXPECT_TRUE(fichero.open(QIODevice::ReadWrite) && fichero.seek(38));
  fichero.write(QByteArray(8, 0));
  fichero.close();
  Trazo otra = imagen;
  otra.Texto = "sin.bmp";
  Pintar(otra);
  EXPECT_EQ(En(3.3, 2.1), QColor(Qt::blue));
  EXPECT_EQ(En(3.7, 2.1), QColor(Qt::yellow));

  fs::remove("sin.bmp");
  Pintar(otra);
  EXPECT_EQ(En(3.3, 2.1), QColor(Qt::blue)) << "lo dibujado con ella la guarda";
  fs::remove("Cuadro.bmp");
  Pintar(imagen);
  EXPECT_EQ(En(1.2, 1.2), QColor(Qt::yellow));
}

TEST_F(Pintor, UnaImagenCortadaNoTapaNada) {
  const guion::CarpetaTemporal carpeta(false);
  const apoyo::EnCarpeta en(carpeta.Ruta());
  QImage cuadro(96, 96, QImage::Format_RGB32);
  cuadro.fill(Qt::blue);
  EXPECT_TRUE(cuadro.save("cortado.bmp"));
  fs::resize_file("cortado.bmp", 200);
  Pintar({.Que = Trazo::Clase::Imagen, .X1 = 1, .Y1 = 1, .Texto = "cortado.bmp"});
  EXPECT_EQ(En(1.2, 1.2), QColor(Qt::yellow));
}

}  // namespace
