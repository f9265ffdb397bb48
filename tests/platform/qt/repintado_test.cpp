#include <gmock/gmock.h>

#include "platform/qt/componente_en_ventana.h"
#include "platform/qt/frm_prueba.h"
#include "valores/error.h"

// A screen is told of each of its repaints, and whatever the host does then comes to an end.

namespace {

using pruebas::Escena;
using services::IUnknown;
using services::Ref;
namespace hr = services::hr;

using pruebas::kReposo;

class Repintado : public testing::Test {
 protected:
  Repintado() {
    QTest::qWait(kReposo);
    form.pintados = 0;
  }

  Escena escena;
  pruebas::FrmPrueba& form = *escena.form;
  QWidget& pantalla = escena.Vista<QWidget>("FrmPrueba");
};

TEST_F(Repintado, EnReposoNoSeRepinta) {
  QTest::qWait(kReposo);
  EXPECT_EQ(form.pintados, 0);
}

TEST_F(Repintado, TambienElDeUnaParteSeDice) {
  pantalla.update(QRect(0, 0, 4, 4));
  QTest::qWait(kReposo);
  EXPECT_EQ(form.pintados, 1);
  form.Refresh();
  QTest::qWait(kReposo);
  EXPECT_EQ(form.pintados, 2);
}

TEST_F(Repintado, LosDeUnMismoMomentoSonUno) {
  pantalla.update(QRect(0, 0, 4, 4));
  form.Refresh();
  pantalla.repaint();
  QTest::qWait(kReposo);
  EXPECT_EQ(form.pintados, 1);
}

TEST_F(Repintado, LoQueSeRepintaPorHaberseRepintadoNoSeDice) {
  form.AlPintar = [this] {
    form.Refresh();
    pantalla.repaint();
    escena.marco.update();
    form.LblFecha.Caption = form.pintados % 2 == 0 ? "uno" : "otro";
  };
  form.Refresh();
  QTest::qWait(kReposo);
  EXPECT_EQ(form.pintados, 1);
  // The next one is told again.
  form.Refresh();
  QTest::qWait(kReposo);
  EXPECT_EQ(form.pintados, 2);
}

TEST_F(Repintado, ElFalloSeDiceUnaVezHastaQueUnoSaleBien) {
  bool falla = true;
  form.AlPintar = [&] {
    if (falla) throw services::ErrorEjecucion(13, "No se puede pintar");
  };
  const auto repintar = [&] {
    form.Refresh();
    QTest::qWait(kReposo);
    return escena.errores.size();
  };
  EXPECT_EQ(repintar(), 1U);
  EXPECT_EQ(repintar(), 1U);
  EXPECT_EQ(form.pintados, 2);
  falla = false;
  EXPECT_EQ(repintar(), 1U);
  falla = true;
  EXPECT_EQ(repintar(), 2U);
}

TEST_F(Repintado, ElMensajeDeUnFalloNoTraeOtro) {
  int mensajes = 0;
  escena.AlFallar = [&] {
    ++mensajes;
    QWidget mensaje(&pantalla, Qt::Dialog);
    mensaje.resize(pantalla.size());
    mensaje.show();
    QTest::qWait(kReposo);
    mensaje.hide();
    pantalla.update();
  };
  form.AlPintar = [] { throw services::ErrorEjecucion(13, "No se puede pintar"); };
  form.Refresh();
  QTest::qWait(4 * kReposo);
  EXPECT_EQ(mensajes, 1);
}

TEST_F(Repintado, NoTocaLoQueElUsuarioTieneSeleccionado) {
  auto& texto = escena.Vista<QLineEdit>("TxtFecha");
  QTest::mouseClick(&texto, Qt::LeftButton);
  QTest::keyClicks(&texto, "12345");
  QTest::keyClick(&texto, Qt::Key_Left, Qt::ShiftModifier);
  QTest::keyClick(&texto, Qt::Key_Left, Qt::ShiftModifier);
  QTest::qWait(kReposo);
  form.pintados = 0;
  form.Refresh();
  QTest::qWait(kReposo);
  EXPECT_GE(form.pintados, 1);
  // From the right still, as it was begun.
  QTest::keyClick(&texto, Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_EQ(texto.selectedText(), "345");
}

TEST_F(Repintado, UnaPantallaQueSeDescargaAlPintarseSeVa) {
  form.AlPintar = [this] { form.Unload(); };
  form.Refresh();
  QTest::qWait(kReposo);
  EXPECT_FALSE(form.Cargado());
  EXPECT_EQ(form.pintados, 1);
}

using RepintadoDelAnfitrion = pruebas::ComponenteEnVentana;

TEST_F(RepintadoDelAnfitrion, UnoQueRefrescaSusFormulariosAcaba) {
  int veces = 0;
  contexto->AlRepintar = [&](Ref<IUnknown>& form) {
    ++veces;
    form.Como<services::IForm>()->Refresh();
    return hr::Bien;
  };
  Cargar();
  EXPECT_GE(veces, 2);
  EXPECT_LE(veces, 6);
  veces = 0;
  Repintar();
  EXPECT_EQ(veces, 2);
}

TEST_F(RepintadoDelAnfitrion, UnoQueFallaSeDiceUnaVez) {
  contexto->AlRepintar = [](Ref<IUnknown>&) { return hr::Fallo; };
  Cargar();
  Repintar();
  EXPECT_THAT(errores, testing::ElementsAre("El anfitrión no ha completado RepintarForm"));
  contexto->AlRepintar = nullptr;
  Repintar();
  EXPECT_EQ(errores.size(), 1U);
}

TEST_F(RepintadoDelAnfitrion, UnoQueDevuelveNadaUOtroFormularioSeDice) {
  contexto->AlRepintar = [](Ref<IUnknown>& form) {
    form = nullptr;
    return hr::Bien;
  };
  Cargar();
  contexto->AlRepintar = nullptr;
  Repintar();
  contexto->AlRepintar = [&](Ref<IUnknown>& form) {
    form = contexto->Marco;
    return hr::Bien;
  };
  Repintar();
  EXPECT_THAT(errores, testing::ElementsAre(
                           "Lo que el anfitrión entrega como FrmTesvaraGastos no es un formulario",
                           "El anfitrión ha devuelto otro formulario por FrmTesvaraGastos"));
}

}  // namespace
