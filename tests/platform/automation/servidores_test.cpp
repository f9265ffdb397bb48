#include "automation/servidores.h"

#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <future>
#include <string>

#include "apoyo/errores.h"
#include "automation/registro_clases.h"
#include "platform/automation/carpeta_de_datos.h"
#include "platform/automation/contador.h"

namespace {

using apoyo::DescripcionDeError;
using apoyo::NumeroDeError;
using automation::CrearObjeto;
using automation::Registro;
using pruebas::IContador;

constexpr services::GUID kAjena{0xABCDEF01, 0x2345, 0x6789, {1, 2, 3, 4, 5, 6, 7, 8}};

bool EstaCargada(const char* biblioteca) {
  void* cargada = dlopen(biblioteca, RTLD_NOW | RTLD_NOLOAD);
  if (cargada) dlclose(cargada);
  return cargada != nullptr;
}

class ServidoresTest : public testing::Test {
 protected:
  ~ServidoresTest() override { automation::LiberarBibliotecas(); }

  pruebas::CarpetaDeDatos datos;
};

TEST_F(ServidoresTest, UnaBibliotecaRegistradaDaObjetosDeSuClase) {
  automation::RegistrarBiblioteca(BIBLIOTECA_SERVIDOR);
  const auto uno = CrearObjeto<IContador>(IContador::ProgId);
  const auto otro = CrearObjeto<IContador>(IContador::ProgId);
  EXPECT_EQ(uno->Siguiente(), 1);
  EXPECT_EQ(uno->Siguiente(), 2);
  EXPECT_EQ(otro->Siguiente(), 1);
}

TEST_F(ServidoresTest, LaBibliotecaSeRegistraConSuRutaCompleta) {
  const auto aqui = std::filesystem::current_path();
  automation::RegistrarBiblioteca(std::filesystem::relative(BIBLIOTECA_SERVIDOR, aqui));
  const auto clase = Registro().Buscar(IContador::ProgId);
  ASSERT_TRUE(clase);
  EXPECT_EQ(clase->Biblioteca, std::filesystem::canonical(BIBLIOTECA_SERVIDOR));
}

TEST_F(ServidoresTest, ElObjetoTraeUnaSolaCuenta) {
  automation::RegistrarBiblioteca(BIBLIOTECA_SERVIDOR);
  auto objeto = CrearObjeto<IContador>(IContador::ProgId);
  EXPECT_EQ(objeto->AddRef(), 2U);
  EXPECT_EQ(objeto->Release(), 1U);
}

TEST_F(ServidoresTest, UnaClaseSinRegistrarLoDice) {
  EXPECT_EQ(NumeroDeError([] { (void)CrearObjeto<IContador>("No.Existe"); }),
            services::error::Numero(0x80040154));
  EXPECT_EQ(DescripcionDeError([] { (void)CrearObjeto<IContador>("No.Existe"); }),
            "La clase No.Existe no está registrada");
}

TEST_F(ServidoresTest, UnaBibliotecaAnuladaDejaDeOfrecerSuClase) {
  automation::RegistrarBiblioteca(BIBLIOTECA_SERVIDOR);
  automation::AnularBiblioteca(BIBLIOTECA_SERVIDOR);
  EXPECT_EQ(NumeroDeError([] { (void)CrearObjeto<IContador>(IContador::ProgId); }),
            automation::error::ClaseNoRegistrada);
}

TEST_F(ServidoresTest, UnaBibliotecaQueFaltaLoDice) {
  Registro().Poner({IContador::CLSID, IContador::ProgId, "/no/existe.so"});
  const auto crear = [] { (void)CrearObjeto<IContador>(IContador::ProgId); };
  EXPECT_EQ(NumeroDeError(crear), automation::error::SinBiblioteca);
  EXPECT_THAT(DescripcionDeError(crear),
              testing::StartsWith("No se puede cargar la biblioteca /no/existe.so: "));
  EXPECT_EQ(NumeroDeError([] { automation::RegistrarBiblioteca("/no/existe.so"); }),
            automation::error::SinBiblioteca);
  EXPECT_EQ(automation::LiberarBibliotecas(), 0U);
}

TEST_F(ServidoresTest, UnaBibliotecaSinEntradasLoDice) {
  const auto registrar = [] { automation::RegistrarBiblioteca(BIBLIOTECA_SIN_ENTRADAS); };
  EXPECT_EQ(NumeroDeError(registrar), automation::error::SinEntrada);
  EXPECT_EQ(DescripcionDeError(registrar), "La biblioteca no exporta la función DllRegisterServer");
  Registro().Poner({IContador::CLSID, IContador::ProgId, BIBLIOTECA_SIN_ENTRADAS});
  EXPECT_EQ(DescripcionDeError([] { (void)CrearObjeto<IContador>(IContador::ProgId); }),
            "La biblioteca no exporta la función DllGetClassObject");
}

TEST_F(ServidoresTest, UnaClaseQueLaBibliotecaNoTieneDaElNumeroDeLaBiblioteca) {
  Registro().Poner({kAjena, "Pruebas.Ajena", BIBLIOTECA_SERVIDOR});
  EXPECT_EQ(NumeroDeError([] { (void)CrearObjeto<IContador>("Pruebas.Ajena"); }),
            services::hr::ClaseDesconocida);
}

TEST_F(ServidoresTest, UnaInterfazQueLaClaseNoTieneDaElNumeroDeLaBiblioteca) {
  automation::RegistrarBiblioteca(BIBLIOTECA_SERVIDOR);
  EXPECT_EQ(NumeroDeError([] { (void)CrearObjeto(IContador::ProgId, kAjena); }),
            services::hr::SinInterfaz);
}

TEST_F(ServidoresTest, SiNoSePuedeEscribirLaListaElRegistroFalla) {
  datos.Poner("XDG_DATA_HOME", "/proc/no-se-puede");
  EXPECT_EQ(NumeroDeError([] { automation::RegistrarBiblioteca(BIBLIOTECA_SERVIDOR); }),
            services::hr::Fallo);
}

TEST_F(ServidoresTest, SiNoSePuedeRegistrarSeDiceEnQueLista) {
  datos.Poner("XDG_DATA_HOME", "/proc/no-se-puede");
  EXPECT_THAT(DescripcionDeError([] { automation::RegistrarBiblioteca(BIBLIOTECA_SERVIDOR); }),
              testing::EndsWith("la lista de clases /proc/no-se-puede/tesvara/clases.tsv"));
}

TEST_F(ServidoresTest, UnaListaQueNoSePuedeLeerLoDiceAntesDeRegistrar) {
  std::filesystem::create_directories(automation::FicheroDeClases());
  const std::string texto = "No se puede leer la lista de clases " +
                            automation::FicheroDeClases().string() + ": no es un fichero corriente";
  EXPECT_EQ(DescripcionDeError([] { automation::RegistrarBiblioteca(BIBLIOTECA_SERVIDOR); }),
            texto);
  EXPECT_EQ(DescripcionDeError([] { automation::AnularBiblioteca(BIBLIOTECA_SERVIDOR); }), texto);
  EXPECT_EQ(DescripcionDeError([] { (void)CrearObjeto<IContador>(IContador::ProgId); }), texto);
}

TEST_F(ServidoresTest, UnaFabricaNulaDadaPorBuenaEsUnFallo) {
  Registro().Poner({kAjena, "Pruebas.Ajena", BIBLIOTECA_VACIA});
  const auto crear = [] { (void)CrearObjeto<IContador>("Pruebas.Ajena"); };
  EXPECT_EQ(NumeroDeError(crear), services::hr::PunteroNulo);
  EXPECT_THAT(DescripcionDeError(crear),
              testing::EndsWith("servidor_vacio.so no ofrece la clase Pruebas.Ajena"));
}

TEST_F(ServidoresTest, UnObjetoNuloDadoPorBuenoEsUnFallo) {
  Registro().Poner({IContador::CLSID, IContador::ProgId, BIBLIOTECA_VACIA});
  const auto crear = [] { (void)CrearObjeto<IContador>(IContador::ProgId); };
  EXPECT_EQ(NumeroDeError(crear), services::hr::PunteroNulo);
  EXPECT_EQ(DescripcionDeError(crear), "No se puede crear un objeto de la clase Pruebas.Contador");
}

TEST_F(ServidoresTest, UnaClaseSinIdentificadorNoSeRegistra) {
  EXPECT_EQ(NumeroDeError([] { automation::RegistrarBiblioteca(BIBLIOTECA_VACIA); }),
            services::hr::Fallo);
  EXPECT_TRUE(Registro().Clases().empty());
}

TEST_F(ServidoresTest, UnaClaseDeUnSoloHiloNoSeDaAOtro) {
  automation::RegistrarBiblioteca(BIBLIOTECA_SERVIDOR);
  const auto crear = [] { (void)CrearObjeto<IContador>(IContador::ProgId); };
  const auto enOtroHilo = [&] {
    return std::async(std::launch::async, [&] { return DescripcionDeError(crear); }).get();
  };
  EXPECT_EQ(enOtroHilo(),
            "La clase Pruebas.Contador sólo se puede usar desde el hilo que cargó su biblioteca");
  EXPECT_EQ(NumeroDeError(crear), 0);
  auto libre = *Registro().Buscar(IContador::ProgId);
  libre.Hilos = services::ModeloDeHilos::Libre;
  Registro().Poner(libre);
  EXPECT_EQ(enOtroHilo(), "");
}

TEST_F(ServidoresTest, ElHiloDeUnaClaseEsElQueCargaSuBiblioteca) {
  Registro().Poner({IContador::CLSID, IContador::ProgId, BIBLIOTECA_SERVIDOR});
  const auto crear = [] { (void)CrearObjeto<IContador>(IContador::ProgId); };
  EXPECT_EQ(std::async(std::launch::async, [&] { return NumeroDeError(crear); }).get(), 0);
  EXPECT_EQ(NumeroDeError(crear), automation::error::OtroHilo);
}

TEST_F(ServidoresTest, LaBibliotecaConObjetosVivosNoSeDescarga) {
  automation::RegistrarBiblioteca(BIBLIOTECA_SERVIDOR);
  auto objeto = CrearObjeto<IContador>(IContador::ProgId);
  EXPECT_EQ(automation::LiberarBibliotecas(), 0U);
  EXPECT_EQ(objeto->Siguiente(), 1);
  objeto = nullptr;
  EXPECT_EQ(automation::LiberarBibliotecas(), 1U);
  EXPECT_FALSE(EstaCargada(BIBLIOTECA_SERVIDOR));
}

TEST_F(ServidoresTest, TrasDescargarlaSeVuelveACargar) {
  automation::RegistrarBiblioteca(BIBLIOTECA_SERVIDOR);
  EXPECT_EQ(automation::LiberarBibliotecas(), 1U);
  EXPECT_EQ(CrearObjeto<IContador>(IContador::ProgId)->Siguiente(), 1);
  EXPECT_TRUE(EstaCargada(BIBLIOTECA_SERVIDOR));
}

}  // namespace
