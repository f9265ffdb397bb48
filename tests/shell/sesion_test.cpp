#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "apoyo/form_de_prueba.h"
#include "headless/entorno.h"
#include "services/anfitrion.h"
#include "shell/class_tesvara.h"
#include "shell/datos_comunes.h"
#include "sorvex/utiles_sorvex.h"
#include "valores/error.h"

// What a host can hand over wrong, and what comes of it.

namespace {

using services::Conexion;
using services::HRESULT;
using services::IUnknown;
using services::Ref;
namespace hr = services::hr;

/// A database that can't be reached, and that counts who tries.
class ConexionRota final : public services::ObjetoContado<Conexion> {
 public:
  std::unique_ptr<services::Cursor> Abrir(std::string_view, services::ModoApertura) override {
    ++intentos;
    throw services::ErrorEjecucion(services::error::FalloDeConexion,
                                   "No se puede abrir la base de datos");
  }
  void TerminarUnidad() override {}
  void AbandonarUnidad() noexcept override {}
  int intentos = 0;
};

using FormAnfitrion = apoyo::FormDePrueba<>;

class NoEsForm final : public services::ObjetoContado<services::IClassFactory> {
 public:
  HRESULT CreateInstance(IUnknown*, const services::GUID&, void**) noexcept override {
    return hr::Fallo;
  }
  HRESULT LockServer(bool) noexcept override { return hr::Bien; }
};

class Contexto final
    : public services::ObjetoContado<services::IDatosClase, services::IDescripcionError> {
 public:
  HRESULT EntregarSesion(Ref<Conexion>& CnDatos, Ref<IUnknown>&, Ref<Conexion>& CnTemp,
                         Ref<IUnknown>&, Ref<IUnknown>&, Ref<IUnknown>& FrmMarco,
                         Ref<IUnknown>& FrmPrincipal, std::int32_t& AnchoReferencia,
                         std::int32_t& AltoReferencia, double&,
                         Ref<services::Recordset>& RsSesion11, Ref<services::Recordset>& RsTextos,
                         Ref<services::Recordset>& RsSesion13, std::string& ClaveBorrado,
                         std::string& Usuario) noexcept override {
    if (hr::Fallido(resultado)) return resultado;
    recordsetsVivos = RsSesion11 && RsTextos && RsSesion13 && !RsTextos->State();
    CnDatos = datos;
    CnTemp = temp;
    FrmMarco = marco;
    FrmPrincipal = principal;
    AnchoReferencia = 15360;
    AltoReferencia = 11520;
    ClaveBorrado = "CLAVE";
    Usuario = "ANA";
    return resultado;
  }
  HRESULT RepintarForm(Ref<IUnknown>& form) noexcept override {
    ++repintados;
    if (alRepintar) alRepintar(form);
    return hr::Bien;
  }
  const char* Descripcion() noexcept override { return "La empresa no está abierta"; }
  std::int32_t Numero() noexcept override { return resultado; }

  HRESULT resultado = hr::Bien;
  Ref<Conexion> datos;
  Ref<Conexion> temp;
  Ref<IUnknown> marco = Ref<IUnknown>(services::Crear<FormAnfitrion>());
  Ref<IUnknown> principal = Ref<IUnknown>(services::Crear<FormAnfitrion>());
  bool recordsetsVivos = false;
  int repintados = 0;
  std::function<void(Ref<IUnknown>&)> alRepintar;
};

class Sesion : public testing::Test {
 protected:
  Sesion() {
    entorno->CrearUtiles = &sorvex::CrearUtiles;
    contexto->datos = Ref<Conexion>(rota);
    contexto->temp = Ref<Conexion>(rota);
  }
  HRESULT Cargar() {
    Ref<services::IDatosClase> como(contexto);
    return tesvara->Cargar(como);
  }

  std::shared_ptr<headless::Entorno> entorno = headless::Entorno::Crear();
  services::Plataforma plataforma = entorno->Plataforma();
  Ref<ConexionRota> rota = services::Crear<ConexionRota>();
  Ref<Contexto> contexto = services::Crear<Contexto>();
  shell::DatosComunes datos{plataforma};
  shell::Pantallas pantallas{datos};
  Ref<shell::ClassTesvara> tesvara = services::Crear<shell::ClassTesvara>(datos, pantallas);
};

TEST_F(Sesion, SinContextoCargarFalla) {
  Ref<services::IDatosClase> nada;
  EXPECT_TRUE(hr::Fallido(tesvara->Cargar(nada)));
  EXPECT_EQ(tesvara->Numero(), services::error::ObjetoNoEstablecido);
  EXPECT_STRNE(tesvara->Descripcion(), "");
}

TEST_F(Sesion, ElFalloDeEntregarSesionSaleConSuMotivo) {
  contexto->resultado = hr::Codigo(0x80070005);
  EXPECT_EQ(Cargar(), hr::Codigo(0x80070005));
  EXPECT_STREQ(tesvara->Descripcion(), "La empresa no está abierta");
}

TEST_F(Sesion, SinConexionNoSeTocaNada) {
  contexto->datos = nullptr;
  EXPECT_TRUE(hr::Fallido(Cargar()));
  EXPECT_EQ(tesvara->Numero(), services::error::ObjetoNoEstablecido);
  EXPECT_NE(std::string(tesvara->Descripcion()).find("CnDatos"), std::string::npos);
  EXPECT_EQ(rota->intentos, 0);

  contexto->datos = Ref<Conexion>(rota);
  contexto->temp = nullptr;
  EXPECT_TRUE(hr::Fallido(Cargar()));
  EXPECT_NE(std::string(tesvara->Descripcion()).find("CnTemp"), std::string::npos);
  EXPECT_EQ(rota->intentos, 0);
}

TEST_F(Sesion, UnFormularioQueNoLoEsHaceFallarCargar) {
  contexto->marco = Ref<IUnknown>(services::Crear<NoEsForm>());
  EXPECT_EQ(Cargar(), hr::SinInterfaz);
  EXPECT_NE(std::string(tesvara->Descripcion()).find("FrmMarco"), std::string::npos);
  EXPECT_EQ(rota->intentos, 0);

  contexto->marco = Ref<IUnknown>(services::Crear<FormAnfitrion>());
  contexto->principal = nullptr;
  EXPECT_EQ(Cargar(), hr::SinInterfaz);
  EXPECT_NE(std::string(tesvara->Descripcion()).find("FrmPrincipal"), std::string::npos);
}

TEST_F(Sesion, UnaBaseQueNoSeAlcanzaHaceFallarCargarYOtraVezSeIntenta) {
  EXPECT_EQ(Cargar(), services::error::FalloDeConexion);
  EXPECT_STREQ(tesvara->Descripcion(), "No se puede abrir la base de datos");
  EXPECT_TRUE(entorno->Pantallas().empty());
  const int intentos = rota->intentos;
  EXPECT_EQ(Cargar(), services::error::FalloDeConexion);
  EXPECT_GT(rota->intentos, intentos);
}

TEST_F(Sesion, LosRecordsetsLleganVivosYCerrados) {
  Cargar();
  EXPECT_TRUE(contexto->recordsetsVivos);
}

TEST_F(Sesion, OcultarAntesDeCargarFallaEnLaCargaDeLaPantalla) {
  EXPECT_TRUE(hr::Fallido(tesvara->Ocultar()));
  EXPECT_EQ(tesvara->Numero(), services::error::DivisionPorCero);
  EXPECT_TRUE(hr::Fallido(tesvara->Cerrar()));
}

TEST_F(Sesion, LosValoresDelAnfitrionLleganALaSesion) {
  const auto marco = services::Crear<FormAnfitrion>();
  contexto->marco = Ref<IUnknown>(marco);
  Cargar();
  EXPECT_EQ(datos.Usuario(), "ANA");
  EXPECT_EQ(datos.AnchoReferencia(), 15360);
  EXPECT_EQ(datos.AltoReferencia(), 11520);
  EXPECT_EQ(&datos.CnDatos(), rota.get());
  EXPECT_EQ(datos.FrmMarco().get(), marco.get());
}

TEST_F(Sesion, LoQueLaSesionTeniaQuedaTrasUnaEntregaFallida) {
  Cargar();
  contexto->resultado = hr::Fallo;
  contexto->datos = nullptr;
  EXPECT_TRUE(hr::Fallido(Cargar()));
  EXPECT_EQ(datos.Usuario(), "ANA");
  EXPECT_EQ(&datos.CnDatos(), rota.get());
}

}  // namespace
