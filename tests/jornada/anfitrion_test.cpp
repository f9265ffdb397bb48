#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "apoyo/componente_en_marcha.h"
#include "esquema/esquema_sqlite.h"
#include "guion/carpeta_temporal.h"
#include "sqlite/conexion_sqlite.h"

// What a host does with a screen that is open: another frame, a repaint gone wrong.

namespace {

using services::HRESULT;
using services::IForm;
using services::IUnknown;
using services::Ref;
using testing::ElementsAre;
namespace hr = services::hr;

class FormConSitio final : public services::ObjetoContado<IForm> {
 public:
  services::Rectangulo Geometria() noexcept override { return {30, 40, 9000, 6000}; }
  std::int32_t WindowState() noexcept override { return 0; }
  void PonerWindowState(std::int32_t) noexcept override {}
  void Refresh() noexcept override {}
  void* VentanaNativa() noexcept override { return nullptr; }
};

class AnfitrionDeLaPantalla : public testing::Test {
 protected:
  AnfitrionDeLaPantalla() {
    componente.Entorno().AlFallar = [this](const services::ErrorEjecucion& fallo) {
      errores.push_back(fallo.Descripcion());
    };
  }
  Ref<services::Conexion> Abrir(const char* fichero, void (*crearTablas)(sqlite::Conexion&)) {
    auto conexion = sqlite::AbrirConexion((carpeta.Ruta() / fichero).string(), {.Crear = true});
    crearTablas(*conexion);
    return conexion;
  }
  [[nodiscard]] std::vector<services::Form*> Pantallas() {
    return componente.Sesion().Escritorio().Cargados();
  }

  guion::CarpetaTemporal carpeta{false};
  std::vector<std::string> errores;
  apoyo::ComponenteEnMarcha componente{Abrir("datos", &esquema::CrearAlmacenadas),
                                       Abrir("trabajo", &esquema::CrearDeTrabajo),
                                       services::HacerFecha(2005, 3, 15, 10, 0, 0)};
};

TEST_F(AnfitrionDeLaPantalla, UnRepintarFormQueFallaSeDiceYLaPantallaQueda) {
  componente.Contexto().AlRepintar = [](Ref<IUnknown>&) { return hr::Fallo; };
  EXPECT_EQ(componente.Cargar(), "");
  EXPECT_THAT(errores, ElementsAre("El anfitrión no ha completado RepintarForm"));
  EXPECT_TRUE(componente.Pantalla().Visible());
  EXPECT_EQ(componente.Cerrar(), "");
}

TEST_F(AnfitrionDeLaPantalla, UnRepintarFormQueDevuelveNadaUOtroSeDiceYLaPantallaQueda) {
  const auto pedir = [&](const Ref<IUnknown>& devuelto) {
    componente.Contexto().AlRepintar = [&](Ref<IUnknown>& form) {
      form = devuelto;
      return hr::Bien;
    };
    EXPECT_EQ(componente.Cargar(), "");
    EXPECT_TRUE(componente.Pantalla().Visible());
    EXPECT_EQ(componente.Cerrar(), "");
    return std::exchange(errores, {});
  };
  EXPECT_THAT(pedir(nullptr),
              ElementsAre("Lo que el anfitrión entrega como FrmTesvaraGastos no es un formulario"));
  EXPECT_THAT(pedir(componente.Contexto().Principal),
              ElementsAre("El anfitrión ha devuelto otro formulario por FrmTesvaraGastos"));
}

TEST_F(AnfitrionDeLaPantalla, SiFallaConSuVentanaPrincipalSeConservaLaQueHabia) {
  ASSERT_EQ(componente.Cargar(), "");
  const Ref<IForm> principal = componente.Sesion().FrmPrincipal();
  componente.Contexto().AlRepintar = [&](Ref<IUnknown>& form) {
    if (form.Como<IForm>() == principal) form = nullptr;
    return hr::Bien;
  };
  EXPECT_THROW(componente.Pantalla().Form_Paint(), services::ErrorEjecucion);
  EXPECT_EQ(componente.Sesion().FrmPrincipal(), principal);
}

TEST_F(AnfitrionDeLaPantalla, ElSegundoCargarTomaElOtroMarcoYNoCargaDeNuevo) {
  ASSERT_EQ(componente.Cargar(), "");
  shell::FrmTesvaraGastos& pantalla = componente.Pantalla();
  pantalla.Rejilla.MSFPagos.TextMatrix(0, 0, "de la primera carga");
  const Ref<IForm> otro(services::Crear<FormConSitio>());
  componente.Contexto().Marco = otro;
  ASSERT_EQ(componente.Cargar(), "");
  EXPECT_EQ(&componente.Pantalla(), &pantalla);
  EXPECT_EQ(pantalla.Marco, otro);
  EXPECT_EQ(componente.Sesion().FrmMarco(), otro);
  // Place and size are taken by the load, and there was none.
  EXPECT_EQ(pantalla.Width, 15360);
  EXPECT_EQ(pantalla.Rejilla.MSFPagos.TextMatrix(0, 0), "de la primera carga");
  ASSERT_EQ(componente.Cerrar(), "");
  ASSERT_EQ(componente.Cargar(), "");
  EXPECT_EQ(componente.Pantalla().Width, 9000);
}

TEST_F(AnfitrionDeLaPantalla, ElSegundoCargarConUnMarcoQueNoLoEsDejaTodoComoEstaba) {
  ASSERT_EQ(componente.Cargar(), "");
  const Ref<IForm> marco = componente.Sesion().FrmMarco();
  for (const Ref<IUnknown>& malo :
       {Ref<IUnknown>(),
        Ref<IUnknown>(static_cast<services::IDatosClase*>(&componente.Contexto()))}) {
    componente.Contexto().Marco = malo;
    EXPECT_EQ(componente.Cargar(), "Lo que el anfitrión entrega como FrmMarco no es un formulario");
    EXPECT_EQ(componente.Clase().Numero(), services::error::InterfazNoDisponible);
    EXPECT_EQ(componente.Sesion().FrmMarco(), marco);
    EXPECT_EQ(componente.Pantalla().Marco, marco);
    EXPECT_TRUE(componente.Pantalla().Visible());
  }
  componente.Contexto().Marco = nullptr;  // it would keep itself alive
  EXPECT_EQ(componente.Cerrar(), "");
}

TEST_F(AnfitrionDeLaPantalla, OcultarTrasCerrarCargaOtraYLaDejaOculta) {
  ASSERT_EQ(componente.Cargar(), "");
  ASSERT_EQ(componente.Cerrar(), "");
  EXPECT_TRUE(Pantallas().empty());
  EXPECT_EQ(componente.Clase().Ocultar(), hr::Bien);
  ASSERT_EQ(Pantallas().size(), 1U);
  EXPECT_FALSE(Pantallas().front()->Visible());
  ASSERT_EQ(componente.Cargar(), "");
  EXPECT_EQ(Pantallas().size(), 1U);
  EXPECT_TRUE(Pantallas().front()->Visible());
}

}  // namespace
