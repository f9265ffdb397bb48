#include <qpdf/qpdf-c.h>

#include <QRegularExpression>
#include <algorithm>
#include <fstream>
#include <map>

#include "apoyo/en_carpeta.h"
#include "platform/qt/informe_en_papel.h"

// The report saved as PDF, read back by other programs.

namespace {

namespace fs = std::filesystem;
using pruebas::Correr;
using services::Trazo;

class InformePdf : public pruebas::InformeEnPapel, public testing::WithParamInterface<int> {
 protected:
  void Guardar(int recibos) {
    if (recibos > 0) Recibos(recibos);
    GuardarPdf(Ruta("pagos.pdf"));
  }
  [[nodiscard]] QString Leer(const QString& programa, const QStringList& antes,
                             const QStringList& despues = {}) const {
    return Correr(programa, antes + QStringList{Ruta("pagos.pdf")} + despues);
  }
};

/// The lines of a sheet, blanks aside.
QStringList Lineas(const services::LaminaInforme& hoja) {
  std::map<double, std::map<double, QString>> lineas;
  for (const Trazo& trazo : hoja.Trazos) {
    if (trazo.Que == Trazo::Clase::Texto) lineas[trazo.Y1][trazo.X1] = qt::Texto(trazo.Texto);
  }
  QStringList textos;
  for (const auto& [y, trozos] : lineas) {
    QString linea;
    for (const auto& [x, trozo] : trozos) linea += trozo + ' ';
    textos << linea.simplified();
  }
  return textos;
}

QStringList Lineas(const QString& pagina) {
  QStringList textos;
  for (const QString& linea : pagina.split('\n')) {
    if (!linea.simplified().isEmpty()) textos << linea.simplified();
  }
  return textos;
}

TEST_P(InformePdf, SuTextoEsElDelInforme) {
  Guardar(GetParam());
  const auto hojas = Hojas();
  QStringList paginas = Leer("pdftotext", {"-layout"}, {"-"}).split('\f');
  ASSERT_EQ(paginas.takeLast(), "");
  ASSERT_EQ(paginas.size(), static_cast<qsizetype>(hojas.size()));
  for (qsizetype i = 0; i < paginas.size(); ++i) {
    EXPECT_EQ(Lineas(paginas[i]), Lineas(hojas[static_cast<std::size_t>(i)])) << "page " << i + 1;
    EXPECT_TRUE(paginas[i].contains(QStringLiteral("Página %1\n").arg(i + 1)));
  }
}

INSTANTIATE_TEST_SUITE_P(Recibos, InformePdf, testing::Values(0, 40, 120));

TEST_F(InformePdf, LlevaLosNombresConSusAcentos) {
  Guardar(40);
  const QString texto = Leer("pdftotext", {"-layout"}, {"-"});
  EXPECT_EQ(texto.count("Papelería Núñez"), 13);
  EXPECT_EQ(texto.count("Ñandú, S.A."), 14);
  EXPECT_EQ(texto.count("Güell (oficina fija y calefacción)"), 13);
}

TEST_F(InformePdf, LlevaSuLetra) {
  Guardar(40);
  const QStringList letras = Leer("pdffonts", {}).trimmed().split('\n').mid(2);
  ASSERT_EQ(letras.size(), 2);
  // Name, then kind of letter, and whether it is embedded, in part, and has its text.
  const QRegularExpression dentro("^[A-Z]{6}\\+URWBookman-(Light|Demi) .* yes yes yes ");
  for (const QString& letra : letras)
    EXPECT_TRUE(dentro.match(letra).hasMatch()) << qPrintable(letra);
}

TEST_F(InformePdf, DiceSuTituloSuHojaYSuIdioma) {
  Guardar(120);
  const QString datos = Leer("pdfinfo", {});
  EXPECT_TRUE(datos.contains(
      QRegularExpression("Title: +Tesvara de gastos, del 01/03/2005 al 31/03/2005\n")));
  EXPECT_TRUE(datos.contains(QRegularExpression("Page size: +595 x 842 pts \\(A4\\)\n")));
  EXPECT_TRUE(datos.contains(QRegularExpression("Pages: +3\n")));
  qpdf_data pdf = qpdf_init();
  EXPECT_EQ(qpdf_read(pdf, Ruta("pagos.pdf").toUtf8().constData(), nullptr), QPDF_SUCCESS);
  const qpdf_oh idioma = qpdf_oh_get_key(pdf, qpdf_get_root(pdf), "/Lang");
  EXPECT_STREQ(qpdf_oh_get_utf8_value(pdf, idioma), "es-ES");
  EXPECT_EQ(qpdf_check_pdf(pdf), QPDF_SUCCESS);
  qpdf_cleanup(&pdf);
}

struct Palabra {
  double Izquierda, Arriba, Derecha, Abajo;
  QString Texto;
};

std::vector<Palabra> Palabras(const QString& cajas) {
  static const QRegularExpression forma(
      "<word xMin=\"([^\"]+)\" yMin=\"([^\"]+)\" xMax=\"([^\"]+)\" yMax=\"([^\"]+)\">(.*)</word>");
  std::vector<Palabra> palabras;
  for (auto hallada = forma.globalMatch(cajas); hallada.hasNext();) {
    const auto una = hallada.next();
    palabras.push_back({una.captured(1).toDouble(), una.captured(2).toDouble(),
                        una.captured(3).toDouble(), una.captured(4).toDouble(), una.captured(5)});
  }
  return palabras;
}

TEST_F(InformePdf, LosImportesAcabanEnSuColumnaYNadaSeSale) {
  Guardar(120);
  constexpr double kPunto = 2.54 / 72;
  constexpr double kFilas = 5.5;  // cm, below head and titles
  const QRegularExpression importe("^[0-9.]+,[0-9]{2}$");
  int deImporte = 0;
  int dePagado = 0;
  for (const Palabra& palabra : Palabras(Leer("pdftotext", {"-bbox"}, {"-"}))) {
    EXPECT_GE(palabra.Izquierda, 1 / kPunto - 1) << qPrintable(palabra.Texto);
    EXPECT_LE(palabra.Derecha, 20 / kPunto + 1) << qPrintable(palabra.Texto);
    EXPECT_GE(palabra.Arriba, 0) << qPrintable(palabra.Texto);
    EXPECT_LE(palabra.Abajo, 842) << qPrintable(palabra.Texto);
    if (palabra.Arriba * kPunto < kFilas || !importe.match(palabra.Texto).hasMatch()) continue;
    const bool pagado = palabra.Derecha > 17 / kPunto;
    EXPECT_NEAR(palabra.Derecha, (pagado ? 20 : 16.4) / kPunto, 1) << qPrintable(palabra.Texto);
    ++(pagado ? dePagado : deImporte);
  }
  EXPECT_EQ(deImporte, 120);
  EXPECT_EQ(dePagado, 40);
}

TEST_F(InformePdf, ElFondoEstaUnaVezPorMuchasHojasQueSean) {
  fs::create_directory(carpeta.Ruta() / "Fotos");
  QImage fondo(200, 100, QImage::Format_RGB32);
  fondo.fill(QColor(200, 220, 240));
  fondo.setDotsPerMeterX(2000);
  fondo.setDotsPerMeterY(2000);
  ASSERT_TRUE(fondo.save(Ruta("Fotos/FONDO.BMP"), "BMP"));
  const apoyo::EnCarpeta aqui(carpeta.Ruta());
  Guardar(120);
  const QStringList imagenes = Leer("pdfimages", {"-list"}).trimmed().split('\n').mid(2);
  ASSERT_EQ(imagenes.size(), 3);
  QStringList objetos;
  for (const QString& imagen : imagenes) {
    const QStringList datos = imagen.simplified().split(' ');
    objetos << datos.value(10);
    // 200 dots at 2000 a metre are ten centimetres: 50.8 an inch.
    EXPECT_NEAR(datos.value(12).toInt(), 51, 1) << qPrintable(imagen);
  }
  EXPECT_EQ(objetos.count(objetos.front()), 3);
}

TEST_F(InformePdf, UnFondoQueNoEsUnaImagenNoEstorba) {
  fs::create_directory(carpeta.Ruta() / "fotos");
  std::ofstream(carpeta.Ruta() / "fotos" / "fondo.bmp") << "nada";
  const apoyo::EnCarpeta aqui(carpeta.Ruta());
  Guardar(40);
  EXPECT_EQ(Leer("pdfimages", {"-list"}).trimmed().split('\n').size(), 2);
  EXPECT_TRUE(Leer("pdftotext", {}, {"-"}).contains("TESVARA DE GASTOS"));
}

TEST_F(InformePdf, UnaHojaSePuedeBorrarMientrasEsLaActual) {
  qt::InformePdf informe(Ruta("pagos.pdf"), "Prueba");
  informe.Print("Primera", true);
  informe.NewPage();
  informe.Print("Borrada", true);
  informe.Cls();
  informe.Print("Segunda", true);
  informe.EndDoc();
  EXPECT_EQ(Leer("pdftotext", {}, {"-"}).simplified(), "Primera Segunda");
}

}  // namespace
