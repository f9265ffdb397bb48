#include "services/automatizacion.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace {

using services::Crear;
using services::GUID;
using services::IUnknown;
using services::ObjetoContado;
using services::Ref;

struct INombre : IUnknown {
  static constexpr GUID IID{0x11111111, 1, 1, {1, 1, 1, 1, 1, 1, 1, 1}};
  virtual std::string Nombre() noexcept = 0;

 protected:
  ~INombre() = default;
};

struct IEdad : IUnknown {
  static constexpr GUID IID{0x22222222, 2, 2, {2, 2, 2, 2, 2, 2, 2, 2}};
  virtual int Edad() noexcept = 0;

 protected:
  ~IEdad() = default;
};

struct IOtra : IUnknown {
  static constexpr GUID IID{0x33333333, 3, 3, {3, 3, 3, 3, 3, 3, 3, 3}};

 protected:
  ~IOtra() = default;
};

class Persona final : public ObjetoContado<INombre, IEdad> {
 public:
  explicit Persona(bool& viva, std::string nombre = "Ana")
      : viva_(viva), nombre_(std::move(nombre)) {
    viva_ = true;
  }
  ~Persona() override { viva_ = false; }
  std::string Nombre() noexcept override { return nombre_; }
  int Edad() noexcept override { return 41; }

 private:
  bool& viva_;
  std::string nombre_;
};

class Automatizacion : public testing::Test {
 protected:
  /// How many counts the object has.
  static std::uint32_t Cuentas(IUnknown& objeto) {
    objeto.AddRef();
    return objeto.Release();
  }

  bool viva = false;
};

TEST_F(Automatizacion, CrearDaLaPrimeraCuentaYLaUltimaReferenciaLoSuelta) {
  {
    const auto persona = Crear<Persona>(viva, "Eva");
    EXPECT_EQ(persona->Nombre(), "Eva");
    EXPECT_EQ(Cuentas(static_cast<INombre&>(*persona)), 1U);
    EXPECT_TRUE(viva);
  }
  EXPECT_FALSE(viva);
}

TEST_F(Automatizacion, CopiarCuentaYMoverNo) {
  Ref<INombre> una = Crear<Persona>(viva);
  Ref<INombre> copia = una;
  EXPECT_EQ(Cuentas(*una), 2U);
  const Ref<INombre> movida = std::move(copia);
  EXPECT_EQ(Cuentas(*movida), 2U);
  EXPECT_TRUE(una == movida);
  una = nullptr;
  EXPECT_FALSE(una);
  EXPECT_EQ(Cuentas(*movida), 1U);
}

TEST_F(Automatizacion, AsignarSueltaElViejoYCuentaElNuevo) {
  bool otraViva = false;
  Ref<Persona> una = Crear<Persona>(viva);
  const Ref<Persona> otra = Crear<Persona>(otraViva);
  una = otra;
  EXPECT_FALSE(viva);
  EXPECT_TRUE(otraViva);
  EXPECT_EQ(una.get(), otra.get());
}

TEST_F(Automatizacion, AsignarUnaReferenciaASiMismaNoLaSuelta) {
  Ref<Persona> una = Crear<Persona>(viva);
  const Ref<Persona>& misma = una;
  una = misma;
  EXPECT_TRUE(viva);
  EXPECT_EQ(una->Edad(), 41);
}

TEST_F(Automatizacion, AdoptarNoCuentaDeNuevo) {
  Ref<Persona> una = Crear<Persona>(viva);
  una->AddRef();
  Ref<Persona> adoptada = Ref<Persona>::Adoptar(una.get());
  una = nullptr;
  EXPECT_TRUE(viva);
  adoptada = nullptr;
  EXPECT_FALSE(viva);
}

TEST_F(Automatizacion, QueryInterfaceDaLaInterfazConSuCuenta) {
  const auto persona = Crear<Persona>(viva);
  void* objeto = nullptr;
  ASSERT_EQ(persona->QueryInterface(IEdad::IID, &objeto), services::hr::Bien);
  auto* edad = static_cast<IEdad*>(objeto);
  EXPECT_EQ(edad->Edad(), 41);
  EXPECT_EQ(edad->Release(), 1U);
}

TEST_F(Automatizacion, QueryInterfaceDeLoQueNoOfreceDejaNuloYNoCuenta) {
  const auto persona = Crear<Persona>(viva);
  int resto = 0;
  void* objeto = &resto;
  EXPECT_EQ(persona->QueryInterface(IOtra::IID, &objeto), services::hr::SinInterfaz);
  EXPECT_EQ(objeto, nullptr);
  EXPECT_EQ(Cuentas(static_cast<INombre&>(*persona)), 1U);
}

TEST_F(Automatizacion, QueryInterfaceSinDondePonerloEsUnError) {
  EXPECT_EQ(Crear<Persona>(viva)->QueryInterface(IEdad::IID, nullptr), services::hr::PunteroNulo);
}

TEST_F(Automatizacion, LaIdentidadDeUnObjetoEsLaMismaDesdeCualquierInterfaz) {
  const Ref<INombre> nombre = Crear<Persona>(viva);
  const Ref<IEdad> edad = nombre.Como<IEdad>();
  ASSERT_TRUE(edad);
  EXPECT_EQ(nombre.Como<IUnknown>().get(), edad.Como<IUnknown>().get());
  EXPECT_EQ(edad.Como<INombre>().get(), nombre.get());
}

TEST_F(Automatizacion, ComoDaUnaReferenciaVaciaDondeNoHayInterfaz) {
  const Ref<INombre> nombre = Crear<Persona>(viva);
  EXPECT_FALSE(nombre.Como<IOtra>());
  EXPECT_FALSE(Ref<INombre>().Como<IEdad>());
  EXPECT_EQ(Cuentas(*nombre), 1U);
}

TEST_F(Automatizacion, ComoMantieneVivoElObjeto) {
  Ref<INombre> nombre = Crear<Persona>(viva);
  Ref<IEdad> edad = nombre.Como<IEdad>();
  nombre = nullptr;
  EXPECT_TRUE(viva);
  EXPECT_EQ(edad->Edad(), 41);
  edad = nullptr;
  EXPECT_FALSE(viva);
}

TEST_F(Automatizacion, SoloLosNegativosSonFallos) {
  EXPECT_FALSE(services::hr::Fallido(services::hr::Bien));
  EXPECT_FALSE(services::hr::Fallido(services::hr::No));
  EXPECT_TRUE(services::hr::Fallido(services::hr::Fallo));
  EXPECT_TRUE(services::hr::Fallido(services::hr::ClaseNoRegistrada));
}

}  // namespace
