#include <gtest/gtest.h>

#include "apoyo/errores.h"
#include "esquema/esquema_sqlite.h"
#include "platform/carpeta_temporal.h"
#include "sqlite/conexion_sqlite.h"

// What a connection runs, opened as the component gets it.

namespace {

using apoyo::NumeroDeError;
using services::ModoApertura;
namespace error = services::error;

class SentenciasQueCorren : public testing::Test {
 protected:
  SentenciasQueCorren() { esquema::CrearAlmacenadas(*conexion); }

  static std::int32_t Error(services::Conexion& conexion, const std::string& sentencia,
                            ModoApertura modo = ModoApertura::Optimista) {
    return NumeroDeError([&] { return conexion.Abrir(sentencia, modo); });
  }

  pruebas::CarpetaTemporal carpeta;
  std::string fichero = carpeta.Fichero("datos.db");
  services::Ref<sqlite::Conexion> conexion = sqlite::AbrirConexion(fichero, {.Crear = true});
};

TEST_F(SentenciasQueCorren, CorreSoloLoQueElSistemaEscribe) {
  conexion->Ejecutar(
      "INSERT INTO ProvBasesIva (NConcepto, NFactura, Año, Tipo) VALUES ('1','F','2005','1')");
  for (const char* ajena : {"DELETE FROM ProvBasesIva", "DELETE ProvBasesIva.* FROM ProvBasesIva",
                            "SELECT * FROM ProvBasesIva"}) {
    EXPECT_EQ(Error(*conexion, ajena), error::SentenciaRechazada) << ajena;
  }
  const char* suya = "SELECT ProvBasesIva.* FROM ProvBasesIva";
  EXPECT_EQ(Error(*conexion, suya, ModoApertura::Lectura), error::SentenciaRechazada);
  EXPECT_EQ(Error(*conexion, suya), 0);
  EXPECT_EQ(conexion->Consultar(suya).Filas.Cuantas(), 1U);
  EXPECT_EQ(conexion->Cuenta().Transacciones, 0U);
}

// The engine's text of both is the same.
TEST_F(SentenciasQueCorren, UnaSentenciaYaPreparadaSeMiraOtraVez) {
  const auto borrar = [&](const std::string& factura) {
    return Error(*conexion,
                 "DELETE FROM ProvFacturas WHERE RTRIM(LTRIM(ProvFacturas.Factura)) like '" +
                     factura +
                     "' AND ProvFacturas.NConcepto like '1' And ProvFacturas.Año like ''");
  };
  EXPECT_EQ(borrar("a'b"), error::SentenciaRechazada);
  EXPECT_EQ(borrar("ab"), 0);
  EXPECT_EQ(borrar("a''b"), error::SentenciaRechazada);
}

TEST_F(SentenciasQueCorren, QuienLaAbreCorreTambienLasSuyas) {
  const std::string propia = "SELECT ProvConceptos.NConcepto FROM ProvConceptos";
  EXPECT_EQ(Error(*conexion, propia), error::SentenciaRechazada);
  const auto suya = sqlite::AbrirConexion(fichero, {.Propias = {propia}});
  EXPECT_EQ(Error(*suya, propia), 0);
  EXPECT_EQ(Error(*suya, propia + " Order by NConcepto"), error::SentenciaRechazada);
}

TEST_F(SentenciasQueCorren, LasColumnasDeUnaTablaNoSonUnaSentencia) {
  EXPECT_EQ(conexion->ColumnasDe("CajaPagos").size(), 10U);
  EXPECT_EQ(NumeroDeError([&] { return conexion->ColumnasDe("Nada"); }), error::TablaDesconocida);
}

}  // namespace
