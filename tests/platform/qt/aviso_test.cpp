#include "qt/aviso_qt.h"

#include <gmock/gmock.h>

#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "qt/textos_qt.h"

// Messages answered by key.

namespace {

namespace mensaje = services::mensaje;
using testing::UnorderedElementsAre;

QMessageBox* Abierta() {
  return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
}

constexpr std::chrono::milliseconds kSinDemora{0};

/// The answer to a message when `hacer` is done to its box.
template <class Hacer>
int Contestar(int flags, const Hacer& hacer) {
  QTimer::singleShot(0, [&hacer] { hacer(*Abierta()); });
  return qt::AvisoQt(kSinDemora).Mostrar("¿Desea guardar los cambios?", flags, "Atención");
}

int ContestarCon(int flags, Qt::Key tecla) {
  return Contestar(flags, [tecla](QMessageBox& caja) { QTest::keyClick(&caja, tecla); });
}

TEST(Mensajes, LasTeclasContestan) {
  EXPECT_EQ(ContestarCon(mensaje::SiNo, Qt::Key_Return), mensaje::Si);
  EXPECT_EQ(ContestarCon(mensaje::SiNo, Qt::Key_S), mensaje::Si);
  EXPECT_EQ(ContestarCon(mensaje::SiNo, Qt::Key_N), mensaje::No);
  EXPECT_EQ(ContestarCon(mensaje::SiNoCancelar, Qt::Key_N), mensaje::No);
  EXPECT_EQ(ContestarCon(mensaje::SiNoCancelar, Qt::Key_Escape), mensaje::Cancelar);
  EXPECT_EQ(ContestarCon(mensaje::Alto, Qt::Key_Escape), mensaje::Aceptar);
  EXPECT_EQ(ContestarCon(mensaje::Simple, Qt::Key_Return), mensaje::Aceptar);
}

TEST(Mensajes, ElPrimerBotonEspera) {
  QString enfocado;
  Contestar(mensaje::SiNo, [&enfocado](QMessageBox& caja) {
    enfocado = qobject_cast<QPushButton*>(caja.focusWidget())->text();
    QTest::keyClick(&caja, Qt::Key_S);
  });
  EXPECT_EQ(enfocado, QString::fromUtf8("Sí"));
}

TEST(Mensajes, EscapeNoContestaUnaPreguntaDeSiONo) {
  const int respuesta = Contestar(mensaje::SiNo, [](QMessageBox& caja) {
    QTest::keyClick(&caja, Qt::Key_Escape);
    EXPECT_TRUE(caja.isVisible());
    QTest::keyClick(&caja, Qt::Key_S);
  });
  EXPECT_EQ(respuesta, mensaje::Si);
}

TEST(Mensajes, LosBotonesSeLeenEnEspanol) {
  std::vector<std::string> rotulos;
  Contestar(mensaje::SiNoCancelar, [&rotulos](QMessageBox& caja) {
    for (const QAbstractButton* boton : caja.buttons()) rotulos.push_back(qt::Utf8(boton->text()));
    QTest::keyClick(&caja, Qt::Key_Escape);
  });
  EXPECT_THAT(rotulos, UnorderedElementsAre("Sí", "No", "Cancelar"));
}

TEST(Mensajes, ElIconoVaConElMensaje) {
  const auto icono = [](int flags) {
    QMessageBox::Icon visto = QMessageBox::NoIcon;
    Contestar(flags, [&visto](QMessageBox& caja) {
      visto = caja.icon();
      QTest::keyClick(&caja, Qt::Key_Return);
    });
    return visto;
  };
  EXPECT_EQ(icono(mensaje::Alto), QMessageBox::Critical);
  EXPECT_EQ(icono(mensaje::SiNo), QMessageBox::Question);
  EXPECT_EQ(icono(mensaje::Simple), QMessageBox::NoIcon);
}

/// A typist goes on before the message can be read, and holds a key down.
TEST(Mensajes, LoTecleadoDeCorridoNoContesta) {
  bool abierta = true;
  QTimer::singleShot(0, [&abierta] {
    for (const Qt::Key tecla : {Qt::Key_Return, Qt::Key_Space, Qt::Key_N, Qt::Key_Escape}) {
      QTest::keyClick(Abierta()->focusWidget(), tecla);
    }
    // With no pause, for longer than it takes to read.
    for (int i = 0; i < 6; ++i) {
      QTest::qWait(static_cast<int>(mensajes::kAntesDeLeer.count()) / 3);
      QTest::keyClick(Abierta()->focusWidget(), Qt::Key_S);
    }
    abierta = Abierta() != nullptr;
    QTest::qWait(static_cast<int>(mensajes::kAntesDeLeer.count()) + 50);
    QKeyEvent mantenida(QEvent::KeyPress, Qt::Key_Return, {}, "\r", true);
    QApplication::sendEvent(Abierta()->focusWidget(), &mantenida);
    abierta = abierta && Abierta() != nullptr;
    QTest::keyClick(Abierta(), Qt::Key_N);
  });
  EXPECT_EQ(qt::AvisoQt().Mostrar("¿Guardar?", mensaje::SiNo, ""), mensaje::No);
  EXPECT_TRUE(abierta);
}

QString TextoDelError(const services::ErrorEjecucion& fallo) {
  QString texto;
  QTimer::singleShot(0, [&texto] {
    texto = Abierta()->windowTitle() + ": " + Abierta()->text();
    QTest::keyClick(Abierta(), Qt::Key_Return);
  });
  qt::AvisoQt aviso(kSinDemora);
  qt::MostrarError(aviso, fallo);
  return texto;
}

TEST(Mensajes, UnErrorSinControlarDiceNumeroYDescripcion) {
  EXPECT_EQ(TextoDelError({services::error::RepetidoONoCabe, "ya existe"}),
            QString::fromUtf8("Error: Nº Error: -2147217887\nya existe"));
}

TEST(Mensajes, LoQueSeDejoNoEsUnError) {
  EXPECT_EQ(TextoDelError({services::error::OperacionCancelada, "No se ha grabado nada"}),
            "Tesvara de Pagos: No se ha grabado nada");
}

}  // namespace
