#include "qt/impresora_qt.h"

#include <QRegularExpression>

#include "platform/qt/cups_privado.h"
#include "platform/qt/informe_en_papel.h"
#include "qt/pintor_de_informe.h"
#include "valores/error.h"

// The report on printers, of a print server that keeps what it gets.

namespace {

using pruebas::Correr;
using testing::AllOf;
using testing::HasSubstr;

class Impresora : public pruebas::InformeEnPapel {
 protected:
  static void SetUpTestSuite() { servidor = std::make_unique<pruebas::CupsPrivado>(); }
  static void TearDownTestSuite() { servidor.reset(); }
  void SetUp() override {
    if (!cups.Empezar()) GTEST_SKIP() << "there is no print server (cups-daemon, cups-client)";
    ASSERT_TRUE(cups.Anadir("Laser"));
  }
  /// As the platform prints; a message would fail.
  void ImprimirEn(const std::string& nombre) {
    Imprimir([nombre](services::TrabajoDeImpresion trabajo) {
      trabajo.Impresora = nombre;
      return qt::AbrirImpresora(trabajo, {});
    });
  }

  static inline std::unique_ptr<pruebas::CupsPrivado> servidor;
  pruebas::CupsPrivado& cups = *servidor;
};

TEST_F(Impresora, LeLlegaElInformeEntero) {
  Recibos(120);
  ImprimirEn("Laser");
  EXPECT_EQ(salida, "");
  GuardarPdf(Ruta("pagos.pdf"));
  const QStringList papeles = cups.Papeles(1);
  ASSERT_EQ(papeles.size(), 1);
  const QString impreso = Correr("pdftotext", {"-layout", papeles.front(), "-"});
  EXPECT_EQ(impreso, Correr("pdftotext", {"-layout", Ruta("pagos.pdf"), "-"}));
  EXPECT_EQ(impreso.count("Papelería Núñez"), 40);
  const QString datos = Correr("pdfinfo", {papeles.front()});
  EXPECT_THAT(qt::Utf8(datos),
              AllOf(HasSubstr("Tesvara de gastos, del 01/03/2005 al 31/03/2005\n"),
                    HasSubstr("595 x 842 pts (A4)\n"), HasSubstr("Pages:           3\n")));
}

TEST_F(Impresora, UnInformeQueSeDejaNoLeLlega) {
  {
    qt::ImpresoraQt informe("Laser", "Dejado");
    informe.Print("Nada", true);
    informe.NewPage();
    informe.Print("Nada", true);
    informe.KillDoc();
    informe.EndDoc();
    qt::ImpresoraQt("Laser", "Olvidado").Print("Nada", true);
  }
  qt::ImpresoraQt informe("Laser", "Entero");
  informe.Print("Algo", true);
  informe.EndDoc();
  const QStringList papeles = cups.Papeles(1);
  ASSERT_EQ(papeles.size(), 1);
  EXPECT_EQ(Correr("pdftotext", {papeles.front(), "-"}).simplified(), "Algo");
}

TEST_F(Impresora, LaQueSeQuitaAntesDeImprimirSeDice) {
  ASSERT_TRUE(cups.Anadir("Otra"));
  ASSERT_TRUE(cups.Quitar("Laser"));
  Recibos(40);
  ImprimirEn("Laser");
  EXPECT_THAT(salida,
              HasSubstr("error 482 \"No se ha podido imprimir en «Laser»: ya no está instalada\""));
  EXPECT_THROW(qt::ImpresoraQt("Laser", "Prueba"), services::ErrorEjecucion);
  EXPECT_EQ(cups.Papeles(0).size(), 0);
}

TEST_F(Impresora, LaQueSeQuitaMientrasSeImprimeSeDice) {
  qt::ImpresoraQt informe("Laser", "Prueba");
  informe.Print("Algo", true);
  ASSERT_TRUE(cups.Quitar("Laser"));
  try {
    informe.EndDoc();
    ADD_FAILURE();
  } catch (const services::ErrorEjecucion& fallo) {
    EXPECT_EQ(fallo.Numero(), services::error::ErrorDeImpresora);
    EXPECT_THAT(fallo.Descripcion(),
                HasSubstr("No se ha podido imprimir en «Laser»: ya no está instalada, o "));
  }
}

TEST_F(Impresora, UnServidorQueSeParaMientrasSeImprimeSeDice) {
  qt::ImpresoraQt informe("Laser", "Prueba");
  informe.Print("Algo", true);
  cups.Parar();
  try {
    informe.EndDoc();
    ADD_FAILURE();
  } catch (const services::ErrorEjecucion& fallo) {
    EXPECT_THAT(fallo.Descripcion(), HasSubstr("o el servidor de impresión no responde"));
  }
}

TEST_F(Impresora, SinNombreVaALaDelSistema) {
  ASSERT_TRUE(cups.Anadir("Otra"));
  ASSERT_TRUE(cups.Preferir("Otra"));
  std::string dicho;
  const auto destino =
      qt::AbrirImpresora({.Ausente = "Rota", .Titulo = "Prueba"},
                         {{}, [&dicho](const std::string& texto, int, const std::string&) {
                            dicho = texto;
                            return services::mensaje::Cancelar;
                          }});
  EXPECT_EQ(destino, nullptr);
  EXPECT_EQ(dicho, "La impresora «Rota» no está disponible. El informe irá a «Otra».");
  EXPECT_THAT(qt::Impresoras(), testing::ElementsAre("Laser", "Otra", qt::kGuardarComoPdf));
}

/// A printer that leaves an inch free at the left and half of one at the foot.
QByteArray ConMargenes() {
  return "*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n*FileVersion: \"1.0\"\n"
         "*LanguageVersion: English\n*LanguageEncoding: ISOLatin1\n*PCFileName: \"P.PPD\"\n"
         "*Product: \"(Prueba)\"\n*Manufacturer: \"Prueba\"\n*ModelName: \"Prueba\"\n"
         "*ShortNickName: \"Prueba\"\n*NickName: \"Prueba\"\n*PSVersion: \"(3010) 0\"\n"
         "*ColorDevice: True\n*DefaultColorSpace: RGB\n"
         "*cupsFilter: \"application/pdf 0 -\"\n*cupsFilter: \"application/vnd.cups-pdf 0 -\"\n"
         "*OpenUI *PageSize/Papel: PickOne\n*DefaultPageSize: A4\n"
         "*PageSize A4/A4: \"\"\n*CloseUI: *PageSize\n"
         "*OpenUI *PageRegion: PickOne\n*DefaultPageRegion: A4\n"
         "*PageRegion A4/A4: \"\"\n*CloseUI: *PageRegion\n"
         "*DefaultImageableArea: A4\n*ImageableArea A4/A4: \"72 36 595 842\"\n"
         "*DefaultPaperDimension: A4\n*PaperDimension A4/A4: \"595 842\"\n";
}

TEST_F(Impresora, DondeNoAlcanzaElBordeEncogeLaHojaEntera) {
  ASSERT_TRUE(cups.Anadir("Bordes", ConMargenes()));
  Recibos(40);
  ImprimirEn("Bordes");
  EXPECT_EQ(salida, "");
  const QStringList papeles = cups.Papeles(1);
  ASSERT_EQ(papeles.size(), 1);
  const QString cajas = Correr("pdftotext", {"-bbox", papeles.front(), "-"});
  // 595 points in the 523 that the printer reaches, which begin at 72; the amounts end at 20 cm.
  const double escala = 523 / 595.28;
  const double derecha = 72 + 20 / 2.54 * 72 * escala;
  const QRegularExpression pagado("xMax=\"([0-9.]+)\" yMax=\"[0-9.]+\">Pagado<");
  EXPECT_NEAR(pagado.match(cajas).captured(1).toDouble(), derecha, 1);
}

TEST(Encaje, LaHojaSeQuedaComoEstaDondeLaImpresoraAlcanza) {
  const QRectF hoja = qt::HojaEnTwips();
  EXPECT_TRUE(qt::Encajar(hoja, QRectF(0, 0, 11900, 16840)).isIdentity());
  const QTransform encaje = qt::Encajar(hoja, QRectF(1000, 500, 10000, 16000));
  const QRectF encogida = encaje.mapRect(hoja);
  EXPECT_NEAR(encogida.left(), 1000, 1);
  EXPECT_NEAR(encogida.right(), 11000, 1);
  EXPECT_NEAR(encogida.center().y(), 8500, 1);
  EXPECT_NEAR(encogida.width() / encogida.height(), hoja.width() / hoja.height(), 1e-9);
  // A larger paper isn't filled.
  EXPECT_TRUE(qt::Encajar(hoja, QRectF(0, 0, 20000, 30000)).isIdentity());
}

}  // namespace
