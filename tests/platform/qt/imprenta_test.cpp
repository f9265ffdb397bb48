#include "qt/imprenta_qt.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QStandardPaths>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <deque>
#include <fstream>

#include "guion/carpeta_temporal.h"
#include "qt/aviso_qt.h"
#include "qt/dialogo_guardar.h"
#include "qt/plataforma_qt.h"
#include "qt/textos_qt.h"
#include "valores/error.h"

// The way from the choice of a printer to paper, and what the user is asked on it.

namespace {

namespace mensaje = services::mensaje;
using testing::ElementsAre;
using testing::IsEmpty;

class Imprenta : public testing::Test {
 protected:
  [[nodiscard]] qt::PreguntasDeImprenta Preguntas() {
    return {[this](const QString& propuesto) {
              propuestos.push_back(qt::Utf8(propuesto));
              const QString uno = elegidos.empty() ? QString() : elegidos.front();
              if (!elegidos.empty()) elegidos.pop_front();
              return uno;
            },
            [this](const std::string& texto, int, const std::string&) {
              mensajes.push_back(texto);
              const int una = respuestas.empty() ? mensaje::Aceptar : respuestas.front();
              if (!respuestas.empty()) respuestas.pop_front();
              return una;
            }};
  }
  std::unique_ptr<services::DestinoInforme> Abrir(const services::TrabajoDeImpresion& trabajo) {
    return qt::AbrirImpresora(trabajo, Preguntas());
  }
  std::unique_ptr<services::DestinoInforme> Pdf() {
    return Abrir({.Impresora = qt::kGuardarComoPdf, .Titulo = "T", .Fichero = "pagos-2026-11"});
  }
  [[nodiscard]] QString Ruta(const char* nombre) const {
    return qt::Texto((carpeta.Ruta() / nombre).string());
  }

  guion::CarpetaTemporal carpeta{false};
  std::deque<QString> elegidos;
  std::deque<int> respuestas;
  std::vector<std::string> propuestos;
  std::vector<std::string> mensajes;
};

TEST_F(Imprenta, OfreceElFicheroEnLosDocumentosYDejarloNoHaceNada) {
  EXPECT_EQ(Pdf(), nullptr);
  const QString documentos = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  EXPECT_THAT(propuestos, ElementsAre(qt::Utf8(documentos + "/pagos-2026-11.pdf")));
  EXPECT_THAT(mensajes, IsEmpty());
}

TEST_F(Imprenta, PoneLaTerminacionYDiceDondeHaQuedado) {
  elegidos = {Ruta("pagos a 30.11.2026")};
  const auto destino = Pdf();
  ASSERT_NE(destino, nullptr);
  EXPECT_FALSE(QFile::exists(Ruta("pagos a 30.11.2026.pdf")));
  EXPECT_THAT(mensajes, IsEmpty());
  destino->EndDoc();
  EXPECT_TRUE(QFile::exists(Ruta("pagos a 30.11.2026.pdf")));
  EXPECT_THAT(mensajes, ElementsAre("El informe se ha guardado en «" +
                                    qt::Utf8(Ruta("pagos a 30.11.2026.pdf")) + "»."));
}

TEST_F(Imprenta, UnInformeDejadoNoDiceNada) {
  elegidos = {Ruta("pagos.pdf")};
  Pdf()->KillDoc();
  EXPECT_THAT(mensajes, IsEmpty());
  EXPECT_FALSE(QFile::exists(Ruta("pagos.pdf")));
}

TEST_F(Imprenta, PreguntaAntesDeSustituirUnFichero) {
  std::ofstream(carpeta.Ruta() / "hay.pdf") << "antes";
  elegidos = {Ruta("hay"), Ruta("otro.pdf")};
  respuestas = {mensaje::No};
  EXPECT_NE(Pdf(), nullptr);
  EXPECT_THAT(mensajes, ElementsAre("Ya existe «hay.pdf». ¿Desea sustituirlo?"));
  EXPECT_EQ(propuestos.back(), qt::Utf8(Ruta("hay.pdf")));

  elegidos = {Ruta("hay.pdf")};
  respuestas = {mensaje::Si};
  EXPECT_NE(Pdf(), nullptr);
}

TEST_F(Imprenta, UnaQueFaltaSeDiceAntesDeNada) {
  const services::TrabajoDeImpresion trabajo{
      .Impresora = qt::kGuardarComoPdf, .Ausente = "Láser", .Fichero = "pagos"};
  respuestas = {mensaje::Cancelar};
  EXPECT_EQ(Abrir(trabajo), nullptr);
  EXPECT_THAT(propuestos, IsEmpty());
  EXPECT_THAT(mensajes, ElementsAre("La impresora «Láser» no está disponible. El informe se "
                                    "guardará como PDF."));
  elegidos = {Ruta("pagos.pdf")};
  EXPECT_NE(Abrir(trabajo), nullptr);
}

TEST_F(Imprenta, LaQueYaNoEstaEnNingunaListaEsUnFallo) {
  try {
    static_cast<void>(Abrir({.Impresora = "Una que no hay", .Titulo = "T"}));
    ADD_FAILURE();
  } catch (const services::ErrorEjecucion& fallo) {
    EXPECT_EQ(fallo.Numero(), services::error::ErrorDeImpresora);
    EXPECT_EQ(fallo.Descripcion(),
              "No se ha podido imprimir en «Una que no hay»: ya no está instalada");
  }
}

TEST_F(Imprenta, LaPlataformaLaTrae) {
  const services::Plataforma plataforma = qt::CrearPlataforma();
  EXPECT_EQ(plataforma.Printers().back(), qt::kGuardarComoPdf);
  EXPECT_NE(plataforma.CrearAvance("Preparando"), nullptr);
  const auto hoja = plataforma.CrearHoja(1);
  hoja->FontSize = 72 / 2.54;
  hoja->FontName = "Bookman Old Style";
  EXPECT_NEAR(hoja->TextHeight("X"), 1.324, 0.001);
  EXPECT_THROW(static_cast<void>(plataforma.AbrirImpresora({.Impresora = "Una que no hay"})),
               services::ErrorEjecucion);
}

TEST(MensajesDeImprenta, AceptarYCancelar) {
  std::vector<std::string> rotulos;
  QTimer::singleShot(0, [&rotulos] {
    QWidget* caja = QApplication::activeModalWidget();
    for (const auto* boton : caja->findChildren<QAbstractButton*>()) {
      rotulos.push_back(qt::Utf8(boton->text()));
    }
    QTest::keyClick(caja, Qt::Key_Escape);
  });
  EXPECT_EQ(qt::AvisoQt(std::chrono::milliseconds::zero())
                .Mostrar("texto", qt::kAceptarCancelar | qt::kExclamacion, "T"),
            mensaje::Cancelar);
  EXPECT_THAT(rotulos, testing::UnorderedElementsAre("Aceptar", "Cancelar"));
}

/// What the file dialog answers when `hacer` is done to it.
template <class Hacer>
QString Dialogo(const QString& propuesto, const Hacer& hacer) {
  QTimer::singleShot(0, [&hacer] {
    auto* dialogo = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    hacer(*dialogo);
    if (dialogo->isVisible()) dialogo->reject();
  });
  return qt::PedirFicheroPdf(propuesto);
}

TEST(DialogoGuardar, OfreceElNombreYLoAcepta) {
  const guion::CarpetaTemporal carpeta(false);
  const QString propuesto = qt::Texto((carpeta.Ruta() / "pagos-2026-11.pdf").string());
  QString nombre;
  const QString elegido = Dialogo(propuesto, [&nombre](QFileDialog& dialogo) {
    nombre = dialogo.findChild<QLineEdit*>("fileNameEdit")->text();
    QTest::keyClick(&dialogo, Qt::Key_Return);
  });
  EXPECT_EQ(nombre, "pagos-2026-11.pdf");
  EXPECT_EQ(elegido, propuesto);
  EXPECT_EQ(Dialogo(propuesto, [](QFileDialog&) {}), "");
}

TEST(DialogoGuardar, UnoQueYaExisteSeEligeSinMas) {
  const guion::CarpetaTemporal carpeta(false);
  std::ofstream(carpeta.Ruta() / "hay.pdf") << "antes";
  const QString hay = qt::Texto((carpeta.Ruta() / "hay.pdf").string());
  EXPECT_EQ(Dialogo(hay, [](QFileDialog& dialogo) { QTest::keyClick(&dialogo, Qt::Key_Return); }),
            hay);
}

TEST(DialogoGuardar, SeLeeEnEspanol) {
  std::vector<std::string> textos;
  Dialogo(QDir::tempPath() + "/pagos.pdf", [&textos](QFileDialog& dialogo) {
    textos.push_back(qt::Utf8(dialogo.windowTitle()));
    for (const auto* rotulo : dialogo.findChildren<QLabel*>()) {
      if (rotulo->isVisible()) textos.push_back(qt::Utf8(rotulo->text()));
    }
    for (const auto* boton : dialogo.findChildren<QAbstractButton*>()) {
      if (!boton->isVisible()) continue;
      textos.push_back(qt::Utf8(boton->text().isEmpty() ? boton->toolTip() : boton->text()));
    }
    const auto* lista = dialogo.findChild<QTreeView*>("treeView");
    for (int c = 0; c < lista->model()->columnCount(); ++c) {
      textos.push_back(qt::Utf8(lista->model()->headerData(c, Qt::Horizontal).toString()));
    }
  });
  EXPECT_THAT(textos, ElementsAre("Guardar como PDF", "Buscar en:", "&Nombre:", "Tipo:", "Atrás",
                                  "Siguiente", "Directorio superior", "Crear nueva carpeta",
                                  "Vista de lista", "Vista detallada", "&Guardar", "Cancelar",
                                  "Nombre", "Tamaño", "Tipo", "Última modificación"));
}

}  // namespace
