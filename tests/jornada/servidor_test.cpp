#include <gtest/gtest.h>

#include <future>
#include <memory>

#include "headless/entorno.h"
#include "services/anfitrion.h"
#include "services/plataforma.h"

// The component's own entry points, as the automation runtime calls them.

namespace {

using services::GUID;
using services::IClassFactory;
using services::IClassTesvara;
using services::IUnknown;
using services::Ref;
namespace hr = services::hr;

constexpr GUID kOtra{0x12345678, 1, 2, {3, 4, 5, 6, 7, 8, 9, 10}};

Ref<IClassFactory> PedirFabrica() {
  void* objeto = nullptr;
  EXPECT_EQ(services::DllGetClassObject(IClassTesvara::CLSID, IClassFactory::IID, &objeto),
            hr::Bien);
  return Ref<IClassFactory>::Adoptar(static_cast<IClassFactory*>(objeto));
}

TEST(Servidor, UnaClaseQueNoEsSuyaNoLaDa) {
  int algo = 0;
  void* objeto = &algo;
  EXPECT_EQ(services::DllGetClassObject(kOtra, IClassFactory::IID, &objeto), hr::ClaseDesconocida);
  EXPECT_EQ(objeto, nullptr);
  objeto = &algo;
  EXPECT_EQ(services::DllGetClassObject(IClassTesvara::CLSID, kOtra, &objeto), hr::SinInterfaz);
  EXPECT_EQ(objeto, nullptr);
  EXPECT_EQ(services::DllGetClassObject(IClassTesvara::CLSID, IClassFactory::IID, nullptr),
            hr::PunteroNulo);
}

TEST(Servidor, NoAdmiteAgregacion) {
  const Ref<IClassFactory> fabrica = PedirFabrica();
  int algo = 0;
  void* objeto = &algo;
  EXPECT_EQ(fabrica->CreateInstance(fabrica.get(), IUnknown::IID, &objeto), hr::SinAgregacion);
  EXPECT_EQ(objeto, nullptr);
  EXPECT_EQ(fabrica->CreateInstance(nullptr, IClassTesvara::IID, nullptr), hr::PunteroNulo);
}

// In one test: the first object keeps the library for the rest of the process.
TEST(Servidor, SePuedeSoltarHastaQueHayUnObjeto) {
  const auto entorno = headless::Entorno::Crear();
  services::InstalarPlataforma(entorno->Plataforma());
  EXPECT_EQ(services::DllCanUnloadNow(), hr::Bien);
  Ref<IClassFactory> fabrica = PedirFabrica();
  EXPECT_EQ(services::DllCanUnloadNow(), hr::No);
  fabrica = nullptr;
  EXPECT_EQ(services::DllCanUnloadNow(), hr::Bien);

  fabrica = PedirFabrica();
  EXPECT_EQ(fabrica->LockServer(true), hr::Bien);
  Ref<IClassFactory> otra = fabrica;
  fabrica = nullptr;
  otra = nullptr;
  EXPECT_EQ(services::DllCanUnloadNow(), hr::No);
  EXPECT_EQ(PedirFabrica()->LockServer(false), hr::Bien);
  EXPECT_EQ(services::DllCanUnloadNow(), hr::Bien);

  void* objeto = nullptr;
  ASSERT_EQ(PedirFabrica()->CreateInstance(nullptr, IClassTesvara::IID, &objeto), hr::Bien);
  auto tesvara = Ref<IClassTesvara>::Adoptar(static_cast<IClassTesvara*>(objeto));
  EXPECT_TRUE(tesvara.Como<services::IDescripcionError>());

  // The session belongs to the thread that made it.
  Ref<services::IDatosClase> nada;
  const auto enOtroHilo = [](auto accion) { return std::async(std::launch::async, accion).get(); };
  const auto crear = [&] {
    return PedirFabrica()->CreateInstance(nullptr, IClassTesvara::IID, &objeto);
  };
  EXPECT_EQ(enOtroHilo(crear), hr::OtroHilo);
  EXPECT_EQ(objeto, nullptr);
  EXPECT_EQ(enOtroHilo([&] { return tesvara->Cargar(nada); }), hr::OtroHilo);
  EXPECT_EQ(enOtroHilo([&] { return tesvara->Ocultar(); }), hr::OtroHilo);
  EXPECT_EQ(enOtroHilo([&] { return tesvara->Cerrar(); }), hr::OtroHilo);
  EXPECT_TRUE(entorno->Pantallas().empty());

  tesvara = nullptr;
  EXPECT_EQ(services::DllCanUnloadNow(), hr::No);
}

TEST(Servidor, SeRegistraYSeAnulaEnLaPlataforma) {
  const auto entorno = headless::Entorno::Crear();
  services::InstalarPlataforma(entorno->Plataforma());
  EXPECT_EQ(services::DllRegisterServer(), hr::Bien);
  ASSERT_EQ(entorno->Registradas().size(), 1U);
  EXPECT_EQ(entorno->Registradas()[0].Clsid, IClassTesvara::CLSID);
  EXPECT_EQ(entorno->Registradas()[0].ProgId, "Tesvara.ClassTesvara");
  EXPECT_EQ(entorno->Registradas()[0].Hilos, services::ModeloDeHilos::Unico);
  EXPECT_EQ(services::DllUnregisterServer(), hr::Bien);
  EXPECT_TRUE(entorno->Registradas().empty());
}

}  // namespace
