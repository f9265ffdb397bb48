#include "platform/conformidad.h"

#include "apoyo/errores.h"

namespace pruebas {
namespace {

using testing::ElementsAre;

class Unidad : public Conformidad {
 protected:
  static constexpr const char* Tabla = "TempProvVencimientos";
  services::Ref<services::Conexion> otra = banco->Conectar();
};

INSTANTIATE_TEST_SUITE_P(Motores, Unidad, testing::ValuesIn(Motores()), NombreDelMotor);

TEST_P(Unidad, OtraConexiónNoVeLoEscritoHastaElFinal) {
  NuevoVencimiento("1", "A");
  EXPECT_EQ(Cuantas(*conexion, Tabla), 1);
  EXPECT_EQ(Cuantas(*otra, Tabla), 0);
  conexion->TerminarUnidad();
  EXPECT_EQ(Cuantas(*otra, Tabla), 1);
}

TEST_P(Unidad, AbandonarlaDeshaceLoEscrito) {
  NuevoVencimiento("1", "A");
  conexion->TerminarUnidad();
  Abrir(*conexion, "DELETE FROM TempProvVencimientos", Modo::Optimista);
  NuevoVencimiento("2", "B");
  conexion->AbandonarUnidad();
  EXPECT_THAT(Primeros("SELECT * FROM TempProvVencimientos"), ElementsAre("1"));
}

TEST_P(Unidad, PerderLaConexiónLaDeshace) {
  NuevoVencimiento("1", "A");
  conexion = nullptr;
  EXPECT_EQ(Cuantas(*otra, Tabla), 0);
}

TEST_P(Unidad, TerminarSinHaberEscritoNoHaceNada) {
  conexion->TerminarUnidad();
  Abrir(*conexion, Vencimientos);
  conexion->TerminarUnidad();
  EXPECT_EQ(banco->Cuenta(*conexion).Transacciones, 0U);
}

TEST_P(Unidad, SinUnidadCadaEscrituraQuedaHecha) {
  auto suelta = banco->Conectar(false);
  auto rs = Abrir(*suelta, Vencimientos, Modo::Optimista);
  NuevoVencimiento(*rs, "1", "A");
  EXPECT_EQ(Cuantas(*otra, Tabla), 1);
  suelta->AbandonarUnidad();
  EXPECT_EQ(Cuantas(*otra, Tabla), 1);
}

TEST_P(Unidad, UnaFilaRechazadaNoSeLlevaLasDemás) {
  auto rs = Abrir(*conexion, Vencimientos, Modo::Optimista);
  for (int i = 0; i < 6; ++i) {
    apoyo::NumeroDeError([&] { NuevoVencimiento(*rs, "1", std::to_string(i / 2)); });
    rs->CancelUpdate();
  }
  conexion->TerminarUnidad();
  EXPECT_EQ(Cuantas(*otra, Tabla), 3);
}

TEST_P(Unidad, LasCuentasNoCrecenConLasFilas) {
  std::vector<CuentaMotor> cuentas;
  for (const int filas : {10, 1000}) {
    auto limpia = banco->Conectar();
    auto rs = Abrir(*limpia, Vencimientos, Modo::Optimista);
    for (int i = 0; i < filas; ++i) NuevoVencimiento(*rs, "7", std::to_string(filas + i));
    for (int i = 0; i < filas; ++i) {
      Abrir(*limpia, "SELECT * FROM TempProvVencimientos WHERE Trim(NFactura) like '" +
                         std::to_string(filas + i) + "'");
    }
    limpia->TerminarUnidad();
    cuentas.push_back(banco->Cuenta(*limpia));
  }
  EXPECT_EQ(cuentas[0].Preparadas, cuentas[1].Preparadas);
  EXPECT_EQ(cuentas[0].Transacciones, 1U);
  EXPECT_EQ(cuentas[1].Transacciones, 1U);
}

TEST_P(Unidad, LaMismaSentenciaPuedeEstarAbiertaDosVeces) {
  NuevoVencimiento("1", "A");
  NuevoVencimiento("2", "B");
  auto una = Abrir(*conexion, Vencimientos, Modo::Optimista);
  auto dos = Abrir(*conexion, Vencimientos, Modo::Optimista);
  EXPECT_EQ(una->Fields(0).Value.Texto(), "1");
  EXPECT_EQ(dos->Fields(0).Value.Texto(), "1");
  NuevoVencimiento(*una, "3", "C");
  NuevoVencimiento(*dos, "4", "D");
  EXPECT_EQ(una->Fields(0).Value.Texto(), "3");
  EXPECT_EQ(dos->Fields(0).Value.Texto(), "4");
}

TEST_P(Unidad, SeLeeUnaTablaMientrasSeEscribeOtra) {
  NuevoVencimiento("1", "A");
  NuevoVencimiento("2", "B");
  auto destino =
      Abrir(*conexion, "SELECT ProvVencimientos.* FROM ProvVencimientos", Modo::Optimista);
  for (auto origen = Abrir(*conexion, Vencimientos); !origen->Eof(); origen->MoveNext()) {
    destino->AddNew();
    for (std::size_t i = 0; i < 7; ++i) {
      destino->Fields(i).Value = origen->Fields(i).Value;
    }
    destino->Update();
  }
  EXPECT_EQ(Cuantas(*conexion, "ProvVencimientos"), 2);
}

TEST_P(Unidad, UnRecordsetAbiertoSobreviveAlFinDeLaUnidad) {
  NuevoVencimiento("1", "A");
  NuevoVencimiento("2", "B");
  auto rs = Abrir(*conexion, Vencimientos, Modo::Optimista);
  EXPECT_FALSE(rs->Eof());
  conexion->TerminarUnidad();
  rs->MoveNext();
  rs->Fields("Pagado").Value = 1.0;
  rs->Update();
  conexion->TerminarUnidad();
  EXPECT_THAT(Primeros(*otra, "SELECT Pagado FROM TempProvVencimientos"), ElementsAre("", "1"));
}

}  // namespace
}  // namespace pruebas
