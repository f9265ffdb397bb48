#include "qt/colores.h"

#include <gmock/gmock.h>

#include <QLineEdit>
#include <algorithm>

#include "platform/qt/rejilla_en_pantalla.h"

// Told colours stay readable whatever the desktop's theme.

namespace {

using pruebas::Escena;

QPalette Oscura() {
  QPalette paleta(QColor(40, 40, 40));
  paleta.setColor(QPalette::Base, QColor(25, 25, 25));
  paleta.setColor(QPalette::Text, Qt::white);
  return paleta;
}

TEST(Colores, SinColorDichoMandaElEscritorio) {
  const qt::Pareja pareja =
      qt::Emparejar(services::color::Blanco, services::color::Negro, Oscura());
  EXPECT_EQ(pareja.Fondo, QColor(25, 25, 25));
  EXPECT_EQ(pareja.Texto, QColor(Qt::white));
}

TEST(Colores, UnFondoDichoTraeSuTexto) {
  const qt::Pareja pareja =
      qt::Emparejar(services::color::ConFoco, services::color::Negro, Oscura());
  EXPECT_EQ(pareja.Fondo, QColor(203, 202, 165));
  EXPECT_EQ(pareja.Texto, QColor(Qt::black));
}

TEST(Colores, UnTextoDichoTraeSuFondo) {
  const qt::Pareja pareja = qt::Emparejar(services::color::Blanco, 0xd11405, Oscura());
  EXPECT_EQ(pareja.Fondo, QColor(Qt::white));
  EXPECT_EQ(pareja.Texto, QColor(5, 20, 209));
}

TEST(Colores, ElTextoDelPanelSeLeeSobreUnFondoDicho) {
  const qt::Pareja pareja = qt::Emparejar(0x400000, services::color::TextoPanel, Oscura());
  EXPECT_GE(qt::Contraste(pareja.Fondo, pareja.Texto), 7);
}

TEST(Colores, ElCampoConFocoSeLeeEnUnTemaOscuro) {
  const QPalette antes = QApplication::palette();
  QApplication::setPalette(Oscura());
  {
    Escena escena;
    QLineEdit& fecha = escena.Vista<QLineEdit>("TxtFecha");
    const auto contraste = [&fecha] {
      return qt::Contraste(fecha.palette().color(QPalette::Base),
                           fecha.palette().color(QPalette::Text));
    };
    EXPECT_GE(contraste(), 7);
    escena.form->TxtFecha.BackColor = services::color::ConFoco;
    EXPECT_EQ(fecha.palette().color(QPalette::Base), QColor(203, 202, 165));
    EXPECT_GE(contraste(), 7);
    escena.form->TxtFecha.BackColor = services::color::Blanco;
    EXPECT_EQ(fecha.palette().color(QPalette::Base), QColor(25, 25, 25));
    EXPECT_GE(contraste(), 7);
  }
  QApplication::setPalette(antes);
}

TEST(Colores, LoInhabilitadoSeLeeEnClaroYEnOscuro) {
  const QPalette antes = QApplication::palette();
  for (const QPalette& tema : {antes, Oscura()}) {
    QApplication::setPalette(tema);
    Escena escena;
    escena.form->BotonGrabar.Enabled = false;
    escena.form->TxtFecha.Enabled = false;
    const QPalette boton = escena.Vista<QWidget>("BotonGrabar").palette();
    EXPECT_GE(qt::Contraste(boton.color(QPalette::Disabled, QPalette::ButtonText),
                            boton.color(QPalette::Disabled, QPalette::Button)),
              4.5);
    EXPECT_NE(boton.color(QPalette::Disabled, QPalette::ButtonText),
              boton.color(QPalette::Active, QPalette::ButtonText));
    const QPalette campo = escena.Vista<QWidget>("TxtFecha").palette();
    EXPECT_GE(qt::Contraste(campo.color(QPalette::Disabled, QPalette::Text),
                            campo.color(QPalette::Disabled, QPalette::Base)),
              4.5);
  }
  QApplication::setPalette(antes);
}

/// Base of a field that is out of use, as it is painted.
QColor BaseEnDesuso(Escena& escena) {
  escena.form->TxtFecha.Enabled = false;
  escena.form->TxtFecha.BackColor = services::color::Inhabilitado;
  return escena.Vista<QWidget>("TxtFecha").palette().color(QPalette::Disabled, QPalette::Base);
}

TEST(Colores, UnCampoEnDesusoTieneSuColorDondeElEscritorioEsClaro) {
  Escena escena;
  EXPECT_EQ(BaseEnDesuso(escena), QColor(233, 232, 211));
}

TEST(Colores, EnUnTemaOscuroUnCampoEnDesusoNoBrillaMasQueLosDemas) {
  const QPalette antes = QApplication::palette();
  QApplication::setPalette(Oscura());
  {
    Escena escena;
    const QColor base = BaseEnDesuso(escena);
    const QPalette campo = escena.Vista<QWidget>("TxtFecha").palette();
    EXPECT_LT(qGray(base.rgb()), 80);
    EXPECT_NE(base, campo.color(QPalette::Active, QPalette::Base)) << "y se distingue de ellos";
    EXPECT_GE(qt::Contraste(base, campo.color(QPalette::Disabled, QPalette::Text)), 4.5);
  }
  QApplication::setPalette(antes);
}

TEST(Colores, AlCambiarDeTemaLosCamposCambianConEl) {
  const QPalette antes = QApplication::palette();
  {
    Escena escena;
    ASSERT_GT(qGray(BaseEnDesuso(escena).rgb()), 200);
    QApplication::setPalette(Oscura());
    QCoreApplication::processEvents();
    const QPalette campo = escena.Vista<QWidget>("TxtFecha").palette();
    EXPECT_LT(qGray(campo.color(QPalette::Disabled, QPalette::Base).rgb()), 80);
  }
  QApplication::setPalette(antes);
}

TEST(Colores, LaMarcaDeLaCeldaActualSeVeSobreCualquierFondo) {
  for (const QColor& fondo : {QColor(Qt::black), QColor(25, 25, 25), QColor(233, 232, 211),
                              QColor(203, 202, 165), QColor(Qt::white)}) {
    EXPECT_GE(qt::Contraste(fondo, qt::MarcaSobre(fondo)), 3) << fondo.name().toStdString();
    EXPECT_NE(fondo, qt::LineaSobre(fondo));
  }
}

TEST(Colores, UnaListaDesplegableSePintaConSuColor) {
  Escena escena;
  QWidget& lista = escena.Vista<QWidget>("Lista");
  const auto color = [&lista] {
    return lista.grab().toImage().pixelColor(lista.width() / 2, lista.height() / 2);
  };
  const QColor suelta = color();
  for (const int fondo : {services::color::ConFoco, services::color::Inhabilitado}) {
    escena.form->Lista.BackColor = fondo;
    EXPECT_NE(color(), suelta);
    EXPECT_GT(color().red() - color().blue(), 5) << "un tono de crema";
  }
  escena.form->Lista.BackColor = services::color::Blanco;
  EXPECT_EQ(color(), suelta);
}

class TextoElegido : public pruebas::RejillaEnPantalla {
 protected:
  /// The least bright pixel of a cell, away from its frame.
  [[nodiscard]] int LoMasOscuro(int fila, int columna) const {
    const QImage todo = vista.viewport()->grab().toImage();
    const QRect celda = vista.visualRect(vista.model()->index(fila - 1, columna));
    const QImage dentro = todo.copy(celda.adjusted(4, 4, -4, -4));
    int oscuro = 255;
    for (int x = 0; x < dentro.width(); ++x) {
      for (int y = 0; y < dentro.height(); ++y) {
        oscuro = std::min(oscuro, qGray(dentro.pixel(x, y)));
      }
    }
    return oscuro;
  }
};

TEST_F(TextoElegido, SePerfilaDondeApenasSeDistingueDeSuFondo) {
  escena.Llenar(2);
  escena.form->Escritorio().Evento([this] {
    rejilla.MoverA(2, 0);
    rejilla.PintarFila(1, 0xE1C0B3, services::color::Blanco);
  });
  const int fondo = qGray(QColor(0xB3, 0xC0, 0xE1).rgb());
  EXPECT_LT(LoMasOscuro(1, 1), fondo / 2) << "el texto blanco lleva borde";
  escena.form->Escritorio().Evento([this] { rejilla.TextMatrix(1, 1, ""); });
  EXPECT_EQ(LoMasOscuro(1, 1), fondo) << "sin texto no queda nada más";
}

}  // namespace
