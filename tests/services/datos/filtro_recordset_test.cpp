#include <gtest/gtest.h>

#include "apoyo/errores.h"
#include "datos/filtro.h"
#include "datos/recordset.h"
#include "services/datos/conexion_falsa.h"

namespace {

using apoyo::NumeroDeError;
using pruebas::ConexionFalsa;
using pruebas::TablaFalsa;
using services::ModoApertura;
using services::Valor;
namespace error = services::error;

class FiltroTest : public testing::Test {
 protected:
  FiltroTest() {
    tabla->Columnas = {{"FechaVto"}, {"Importe", services::TipoColumna::Moneda}};
    for (const char* fecha : {"20050101", "20050201", "20050101", "o'b"}) {
      tabla->FilasGuardadas.push_back({Valor(fecha), Valor(12.5)});
    }
    tabla->FilasGuardadas.push_back({Valor(), Valor()});
  }
  void Abrir(ModoApertura modo = ModoApertura::Lectura) { rs->Open("SELECT", *conexion, modo); }

  std::shared_ptr<TablaFalsa> tabla = std::make_shared<TablaFalsa>();
  services::Ref<ConexionFalsa> conexion = services::Crear<ConexionFalsa>(tabla);
  services::Ref<services::Recordset> rs = services::Crear<services::Recordset>();
};

TEST_F(FiltroTest, VaALaPrimeraQuePasaYCuentaSoloLasQuePasan) {
  Abrir();
  rs->Filter("FechaVto = '20050101'");
  EXPECT_EQ(rs->RecordCount(), 2);
  EXPECT_EQ(rs->AbsolutePosition(), 1);
  rs->MoveNext();
  EXPECT_EQ(rs->AbsolutePosition(), 2);
  EXPECT_EQ(rs->Fields(0).Value.Texto(), "20050101");
  rs->MoveNext();
  EXPECT_TRUE(rs->Eof());
}

TEST_F(FiltroTest, LosBlancosAlrededorDelIgualSobran) {
  Abrir();
  rs->Filter("FechaVto ='20050201'");
  EXPECT_EQ(rs->RecordCount(), 1);
  rs->Filter("fechavto='20050201'");
  EXPECT_EQ(rs->Fields(0).Value.Texto(), "20050201");
}

TEST_F(FiltroTest, SinCoincidenciasQuedaAlFinal) {
  Abrir();
  rs->Filter("FechaVto = '19990101'");
  EXPECT_TRUE(rs->Eof());
  EXPECT_EQ(rs->RecordCount(), 0);
}

TEST_F(FiltroTest, ElTextoVacíoLoQuitaYVuelveALaPrimera) {
  Abrir();
  rs->Filter("FechaVto = '20050201'");
  rs->Filter("");
  EXPECT_EQ(rs->RecordCount(), 5);
  EXPECT_EQ(rs->Fields(0).Value.Texto(), "20050101");
}

TEST_F(FiltroTest, LaComillaDobladaEsUnaComilla) {
  Abrir();
  rs->Filter("FechaVto = 'O''B'");
  EXPECT_EQ(rs->RecordCount(), 1);
}

TEST_F(FiltroTest, UnaColumnaDeNúmeroComparaComoNúmero) {
  Abrir();
  rs->Filter("Importe = '12,50'");
  EXPECT_EQ(rs->RecordCount(), 4);
}

TEST_F(FiltroTest, NingúnNuloPasa) {
  Abrir();
  rs->Filter("FechaVto = ''");
  EXPECT_EQ(rs->RecordCount(), 0);
}

TEST_F(FiltroTest, OtroCriterioEsUnErrorYNadaCambia) {
  Abrir();
  rs->Filter("FechaVto = '20050201'");
  for (const char* malo : {"FechaVto", "FechaVto = 5", "FechaVto > '1'", "FechaVto = 'a", "= 'a'",
                           "FechaVto = 'a' AND Importe = '1'", "FechaVto = 'a'b'"}) {
    EXPECT_EQ(NumeroDeError([&] { rs->Filter(malo); }), error::ArgumentoNoValido) << malo;
  }
  EXPECT_EQ(NumeroDeError([&] { rs->Filter("Nada = 'a'"); }), error::CampoDesconocido);
  EXPECT_EQ(rs->RecordCount(), 1);
  EXPECT_EQ(rs->Fields(0).Value.Texto(), "20050201");
}

TEST_F(FiltroTest, PuestoEnUnoCerradoSeAplicaAlAbrir) {
  rs->Filter("FechaVto = '20050201'");
  Abrir();
  EXPECT_EQ(rs->RecordCount(), 1);
  rs->Close();
  Abrir();
  EXPECT_EQ(rs->RecordCount(), 5);
}

TEST_F(FiltroTest, PuestoEnUnoCerradoBuscaSuColumnaAlAbrir) {
  rs->Filter("Nada = 'a'");
  EXPECT_EQ(NumeroDeError([&] { Abrir(); }), error::CampoDesconocido);
  EXPECT_FALSE(rs->State());
}

TEST_F(FiltroTest, VeLasFilasQueElMismoRecordsetAñadió) {
  Abrir(ModoApertura::Optimista);
  EXPECT_FALSE(rs->Eof());
  rs->AddNew();
  rs->Fields(0).Value = "20060101";
  rs->Update();
  rs->Filter("FechaVto = '20060101'");
  EXPECT_EQ(rs->Fields(0).Value.Texto(), "20060101");
}

TEST_F(FiltroTest, DejaCaerElCambioPendiente) {
  Abrir(ModoApertura::Optimista);
  rs->Fields(1).Value = 99.0;
  rs->Filter("FechaVto = '20050201'");
  rs->Update();
  EXPECT_EQ(tabla->FilasGuardadas[0][1], Valor(12.5));
}

}  // namespace
