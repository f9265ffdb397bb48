#include <gmock/gmock.h>

#include "apoyo/componente_en_marcha.h"
#include "esquema/esquema_sqlite.h"
#include "guion/carpeta_temporal.h"
#include "platform/qt/frm_prueba.h"
#include "qt/plataforma_qt.h"
#include "sorvex/utiles_sorvex.h"
#include "sqlite/conexion_sqlite.h"
#include "valores/error.h"

// A screen is told of each of its repaints, and whatever the host does then comes to an end.

namespace {

using pruebas::Escena;
using services::IUnknown;
using services::Ref;
namespace hr = services::hr;

constexpr int kReposo = 150;  // ms, many times what a round of events takes

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

TEST_F(Repintado, UnaPantallaQueSeDescargaAlPintarseSeVa) {
  form.AlPintar = [this] { form.Unload(); };
  form.Refresh();
  QTest::qWait(kReposo);
  EXPECT_FALSE(form.Cargado());
  EXPECT_EQ(form.pintados, 1);
}

/// The component's own screen, in a frame of the host.
class RepintadoDelAnfitrion : public testing::Test {
 protected:
  RepintadoDelAnfitrion() {
    plataforma.CrearUtiles = &sorvex::CrearUtiles;
    plataforma.ErrorNoControlado = [this](const services::ErrorEjecucion& fallo) {
      errores.push_back(fallo.Descripcion());
    };
    contexto->Marco = Ref<IUnknown>(services::Crear<pruebas::MarcoDePrueba>(marco));
    contexto->Principal = contexto->Marco;
    marco.resize(1024, 700);
    marco.show();
  }
  ~RepintadoDelAnfitrion() override {
    EXPECT_EQ(clase->Cerrar(), hr::Bien) << clase->Descripcion();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  services::Ref<services::Conexion> Abrir(const char* fichero,
                                          void (*crearTablas)(sqlite::Conexion&)) {
    auto conexion = sqlite::AbrirConexion((carpeta.Ruta() / fichero).string(), {.Crear = true});
    crearTablas(*conexion);
    return conexion;
  }
  void Cargar() {
    Ref<services::IDatosClase> como(contexto);
    ASSERT_EQ(clase->Cargar(como), hr::Bien) << clase->Descripcion();
    QTest::qWait(kReposo);
  }
  void Repintar() {
    sesion.Pantalla().Refresh();
    QTest::qWait(kReposo);
  }

  guion::CarpetaTemporal carpeta{false};
  services::Plataforma plataforma = qt::CrearPlataforma();
  Ref<apoyo::ContextoDeAnfitrion> contexto = services::Crear<apoyo::ContextoDeAnfitrion>(
      Abrir("datos", &esquema::CrearAlmacenadas), Abrir("trabajo", &esquema::CrearDeTrabajo));
  std::vector<std::string> errores;
  QWidget marco;
  shell::DatosComunes sesion{plataforma};
  Ref<shell::ClassTesvara> clase = services::Crear<shell::ClassTesvara>(sesion);
};

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
