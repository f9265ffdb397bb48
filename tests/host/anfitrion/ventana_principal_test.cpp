#include "anfitrion/ventana_principal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QStatusBar>
#include <QStatusTipEvent>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include "platform/carpeta_temporal.h"
#include "valores/error.h"

// The suite's window around a component that can't be closed.

namespace {

using services::HRESULT;
using services::Ref;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
namespace fs = std::filesystem;
namespace hr = services::hr;

/// Shows an empty screen in the host's frame, and closes it when it may.
class ComponenteTerco final
    : public services::ObjetoContado<services::IClassTesvara, services::IDescripcionError,
                                     services::ICierre> {
 public:
  HRESULT Cargar(Ref<services::IDatosClase>& datos) noexcept override {
    Ref<services::Conexion> almacenados;
    Ref<services::Conexion> deTrabajo;
    Ref<services::IUnknown> nada;
    Ref<services::IUnknown> marco;
    Ref<services::IUnknown> principal;
    Ref<services::Recordset> textos = services::Crear<services::Recordset>();
    std::int32_t medida = 0;
    double valor = 0;
    std::string texto;
    datos->EntregarSesion(almacenados, nada, deTrabajo, nada, nada, marco, principal, medida,
                          medida, valor, textos, textos, textos, texto, texto);
    Principal = principal;
    auto* area = static_cast<QWidget*>(marco.Como<services::IForm>()->VentanaNativa());
    pantalla_ = new QWidget(area);
    return hr::Bien;
  }
  HRESULT Ocultar() noexcept override { return hr::Bien; }
  HRESULT Cerrar() noexcept override {
    ++Cierres;
    if (SeNiega) return hr::Fallo;
    AlCerrarse();
    delete pantalla_;
    return hr::Bien;
  }
  const char* MotivoParaNoCerrar() noexcept override { return Motivo.c_str(); }
  const char* Descripcion() noexcept override { return "Falta la celda 7"; }
  std::int32_t Numero() noexcept override { return Error; }

  bool SeNiega = true;
  std::int32_t Error = services::error::CeldaNoValida;
  std::string Motivo;
  std::function<void()> AlCerrarse = [] {};
  int Cierres = 0;
  Ref<services::IUnknown> Principal;

 private:
  QWidget* pantalla_ = nullptr;
};

class Ventana : public testing::Test {
 protected:
  Ventana() {
    ventana.CrearPagos = [this] { return Ref<services::IClassTesvara>(componente); };
    ventana.AlMostrar = [this](const QString& texto) { dicho.push_back(texto.toStdString()); };
    ventana.AlPreguntar = [this](const QString& texto) {
      preguntado.push_back(texto.toStdString());
      return respuesta;
    };
    ventana.show();
    EXPECT_TRUE(ventana.AbrirPagos());
  }
  static anfitrion::Opciones En(const std::string& carpeta) {
    anfitrion::Opciones opciones;
    opciones.Carpeta = QString::fromStdString(carpeta);
    return opciones;
  }
  void DejarSinGrabar() {
    ventana.Custodia().Guardia().AlComenzar(
        {salvaguarda::Comienzo::Tarea::Carga, {"20050301", "20050331"}});
    datos.DeTrabajo->Ejecutar(
        "INSERT INTO TempProvFacturas (NConcepto, Factura, Año) VALUES ('1', 'F1', '2005')");
  }
  /// The working files kept aside.
  [[nodiscard]] std::vector<std::string> Apartados() const {
    std::vector<std::string> nombres;
    for (const auto& entrada : fs::directory_iterator(carpeta.Camino())) {
      const std::string nombre = entrada.path().filename();
      if (nombre.starts_with("trabajo-")) nombres.push_back(nombre);
    }
    return nombres;
  }

  pruebas::CarpetaTemporal carpeta;
  anfitrion::Opciones opciones = En(carpeta.Camino());
  anfitrion::Datos datos = anfitrion::AbrirDatos(opciones);
  Ref<ComponenteTerco> componente = services::Crear<ComponenteTerco>();
  std::vector<std::string> dicho;
  std::vector<std::string> preguntado;
  bool respuesta = false;
  anfitrion::VentanaPrincipal ventana{opciones, datos};
};

TEST_F(Ventana, SeCierraConElComponente) {
  componente->SeNiega = false;
  EXPECT_TRUE(ventana.close());
  EXPECT_EQ(componente->Cierres, 1);
  EXPECT_TRUE(preguntado.empty());
  EXPECT_TRUE(Apartados().empty());
}

TEST_F(Ventana, LoQueNoSePodriaGrabarNoSeCierra) {
  componente->SeNiega = false;
  componente->Motivo = "Hay una entrada a medio hacer";
  EXPECT_FALSE(ventana.close());
  EXPECT_EQ(componente->Cierres, 0);
  EXPECT_THAT(preguntado, ElementsAre(HasSubstr("Hay una entrada a medio hacer")));
  componente->Motivo.clear();
  EXPECT_TRUE(ventana.close());
}

/// As on a full disk, where it can be neither saved nor let go of.
TEST_F(Ventana, QuienNoPuedeHacerOtraCosaSaleDejandoLaCopiaDondeEsta) {
  componente->Motivo = "Hay entradas aceptadas";
  respuesta = true;
  EXPECT_TRUE(ventana.close());
  EXPECT_EQ(componente->Cierres, 0);
  EXPECT_THAT(preguntado, ElementsAre(HasSubstr("la próxima vez se ofrecerá abrirla")));
}

TEST_F(Ventana, SinNadaSinGrabarSeSaleAunqueNoSePuedaCerrarBien) {
  EXPECT_TRUE(ventana.close());
  EXPECT_TRUE(preguntado.empty());
  EXPECT_THAT(dicho, ElementsAre(AllOf(HasSubstr("no queda nada sin grabar"),
                                       HasSubstr("Falta la celda 7"))));
}

TEST_F(Ventana, LosPagosDeLaListaTampocoEstanGrabados) {
  componente->Principal.Como<services::IPagosSinGrabar>()->Contar(1);
  EXPECT_FALSE(ventana.close());
  EXPECT_THAT(preguntado, ElementsAre(HasSubstr("Falta la celda 7")));
}

TEST_F(Ventana, SeQuedaAbiertaYDicePorQue) {
  DejarSinGrabar();
  EXPECT_FALSE(ventana.close());
  EXPECT_TRUE(ventana.isVisible());
  EXPECT_THAT(preguntado, ElementsAre(AllOf(HasSubstr("Falta la celda 7"),
                                            HasSubstr("¿Quiere salir de todas formas?"))));
  EXPECT_TRUE(Apartados().empty());
  // Once what stood in the way is gone it closes as always.
  componente->SeNiega = false;
  EXPECT_TRUE(ventana.close());
}

TEST_F(Ventana, LoQueElUsuarioDejoSeDiceSinOfrecerSalir) {
  componente->Error = services::error::OperacionCancelada;
  EXPECT_FALSE(ventana.close());
  EXPECT_THAT(dicho, ElementsAre("Falta la celda 7"));
  EXPECT_TRUE(preguntado.empty());
}

/// The window goes, and its status bar with it.
TEST_F(Ventana, LoQueSeDejaAlCerrarSeDice) {
  componente->SeNiega = false;
  componente->AlCerrarse = [this] { ventana.Custodia().AlDejar("Se ha dejado una factura"); };
  EXPECT_TRUE(ventana.close());
  EXPECT_THAT(dicho, ElementsAre("Se ha dejado una factura"));
}

TEST_F(Ventana, SaleSiElUsuarioQuiereYGuardaAparteLaCopiaDeTrabajo) {
  DejarSinGrabar();
  respuesta = true;
  EXPECT_TRUE(ventana.close());
  const auto apartados = Apartados();
  ASSERT_EQ(apartados.size(), 1U);
  EXPECT_TRUE(QRegularExpression(R"(^trabajo-\d{4}-\d\d-\d\d-\d{6}\.sqlite$)")
                  .match(QString::fromStdString(apartados[0]))
                  .hasMatch());
  EXPECT_THAT(dicho, ElementsAre(HasSubstr(apartados[0])));
  const auto aparte = sqlite::AbrirConexion(carpeta.Fichero(apartados[0]));
  EXPECT_EQ(aparte->Consultar("SELECT Factura FROM TempProvFacturas").Filas.En(0, 0).Texto(), "F1");
}

TEST_F(Ventana, SiLaCopiaNoSePuedeGuardarSeQuedaODejaDondeEsta) {
  DejarSinGrabar();
  ventana.AlPreguntar = [this](const QString& texto) {
    preguntado.push_back(texto.toStdString());
    return preguntado.size() != 2;
  };
  fs::remove_all(carpeta.Camino());
  EXPECT_FALSE(ventana.close());
  EXPECT_THAT(preguntado.back(),
              AllOf(HasSubstr("No se ha podido guardar aparte"), HasSubstr("se ofrecerá abrirla")));
  EXPECT_TRUE(ventana.close());
}

/// Opening a menu asks for what it says there to be taken away.
TEST_F(Ventana, LoDejadoSigueEnLaBarraDeEstadoMientrasSeMiraElMenu) {
  ventana.Custodia().AlDejar("Se ha dejado una factura");
  QStatusTipEvent vacio("");
  QApplication::sendEvent(&ventana, &vacio);
  EXPECT_EQ(ventana.statusBar()->currentMessage(), "Se ha dejado una factura");
}

TEST_F(Ventana, ElTituloDiceCuantosPagosNoSeHanGrabado) {
  const auto principal = componente->Principal.Como<services::IPagosSinGrabar>();
  ASSERT_TRUE(principal);
  EXPECT_EQ(ventana.windowTitle(), "[*]Sorvex");
  EXPECT_FALSE(ventana.isWindowModified());
  principal->Contar(3);
  EXPECT_EQ(ventana.windowTitle(), "[*]Sorvex – 3 pagos sin grabar");
  EXPECT_TRUE(ventana.isWindowModified());
  principal->Contar(1);
  EXPECT_EQ(ventana.windowTitle(), "[*]Sorvex – 1 pago sin grabar");
  principal->Contar(0);
  EXPECT_EQ(ventana.windowTitle(), "[*]Sorvex");
  EXPECT_FALSE(ventana.isWindowModified());
}

TEST_F(Ventana, LaPreguntaTieneSiYNoYSinMasEsQueNo) {
  DejarSinGrabar();
  ventana.AlPreguntar = nullptr;
  QStringList botones;
  QString porDefecto;
  QTimer::singleShot(0, &ventana, [&] {
    auto* caja = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(caja, nullptr);
    for (const auto* boton : caja->buttons()) botones << boton->text();
    porDefecto = caja->defaultButton()->text();
    caja->reject();
  });
  EXPECT_FALSE(ventana.close());
  botones.sort();
  EXPECT_EQ(botones, QStringList({"No", "Sí"}));
  EXPECT_EQ(porDefecto, "No");
}

TEST_F(Ventana, MasPequenaQueLaPantallaSeDesplazaHastaLoQueTieneElFoco) {
  auto* pantalla = ventana.Marco().findChild<QWidget*>();
  ASSERT_NE(pantalla, nullptr);
  auto* disposicion = new QVBoxLayout(pantalla);
  auto* arriba = new QLineEdit;
  auto* abajo = new QLineEdit;
  disposicion->addWidget(arriba);
  disposicion->addSpacing(800);
  disposicion->addWidget(abajo);
  ventana.resize(400, 300);
  ventana.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&ventana));
  pantalla->show();
  pantalla->resize(pantalla->minimumSizeHint());
  QCoreApplication::processEvents();
  EXPECT_GE(ventana.Marco().height(), 800);
  abajo->setFocus();
  EXPECT_FALSE(abajo->visibleRegion().isEmpty());
  arriba->setFocus();
  EXPECT_FALSE(arriba->visibleRegion().isEmpty());
  EXPECT_TRUE(abajo->visibleRegion().isEmpty());
  pantalla->hide();
  QCoreApplication::processEvents();
  EXPECT_LT(ventana.Marco().height(), 300);
}

}  // namespace
