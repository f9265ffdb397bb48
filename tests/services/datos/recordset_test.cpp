#include "datos/recordset.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "apoyo/errores.h"
#include "services/datos/conexion_falsa.h"

namespace {

using apoyo::NumeroDeError;
using pruebas::ConexionFalsa;
using pruebas::TablaFalsa;
using services::Columna;
using services::ModoApertura;
using services::Recordset;
using services::Ref;
using services::TipoColumna;
using services::Valor;
namespace error = services::error;

class RecordsetTest : public testing::Test {
 protected:
  void Filas(std::initializer_list<const char*> conceptos) {
    for (const char* concepto : conceptos) {
      tabla->FilasGuardadas.push_back({Valor(concepto), Valor(1.5), {}, {}});
    }
  }
  void Abrir(ModoApertura modo) { rs.Open("SELECT", *conexion, modo); }

  std::shared_ptr<TablaFalsa> tabla =
      std::make_shared<TablaFalsa>(TablaFalsa{{{"NConcepto", TipoColumna::Texto, 10, false},
                                               {"Importe", TipoColumna::Moneda, 0, true},
                                               {"Año", TipoColumna::Texto, 4, true},
                                               {"Cada", TipoColumna::Entero, 0, true}},
                                              {}});
  Ref<ConexionFalsa> conexion = services::Crear<ConexionFalsa>(tabla);
  Ref<Recordset> sujeto = services::Crear<Recordset>();
  Recordset& rs = *sujeto;
};

TEST_F(RecordsetTest, ReciénCreadoEstáCerrado) {
  EXPECT_FALSE(rs.State());
}

TEST_F(RecordsetTest, CerradoRechazaLoQuePideUnaFila) {
  EXPECT_EQ(NumeroDeError([&] { (void)rs.Eof(); }), error::RecordsetCerrado);
  EXPECT_EQ(NumeroDeError([&] { rs.MoveNext(); }), error::RecordsetCerrado);
  EXPECT_EQ(NumeroDeError([&] { rs.AddNew(); }), error::RecordsetCerrado);
  EXPECT_EQ(NumeroDeError([&] { rs.Update(); }), error::RecordsetCerrado);
  EXPECT_EQ(NumeroDeError([&] { rs.CancelUpdate(); }), error::RecordsetCerrado);
  EXPECT_EQ(NumeroDeError([&] { rs.Close(); }), error::RecordsetCerrado);
  EXPECT_EQ(NumeroDeError([&] { (void)rs.Fields(0); }), error::RecordsetCerrado);
  EXPECT_EQ(NumeroDeError([&] { (void)rs.Fields("NConcepto"); }), error::RecordsetCerrado);
  EXPECT_EQ(NumeroDeError([&] { (void)rs.Collect("NConcepto"); }), error::RecordsetCerrado);
  EXPECT_EQ(NumeroDeError([&] { (void)rs.RecordCount(); }), error::RecordsetCerrado);
  EXPECT_EQ(NumeroDeError([&] { (void)rs.AbsolutePosition(); }), error::RecordsetCerrado);
}

TEST_F(RecordsetTest, AbiertoSinFilasEstáAlFinal) {
  Abrir(ModoApertura::Lectura);
  EXPECT_TRUE(rs.State());
  EXPECT_TRUE(rs.Eof());
  EXPECT_EQ(rs.RecordCount(), 0);
  EXPECT_EQ(rs.AbsolutePosition(), -3);
  EXPECT_EQ(NumeroDeError([&] { rs.MoveNext(); }), error::SinFilaActual);
  EXPECT_EQ(NumeroDeError([&] { (void)rs.Fields(0).Value.Leer(); }), error::SinFilaActual);
}

TEST_F(RecordsetTest, AbiertoConFilasEstáEnLaPrimera) {
  Filas({"1", "2"});
  Abrir(ModoApertura::Lectura);
  EXPECT_FALSE(rs.Eof());
  EXPECT_EQ(rs.Fields(0).Value.Texto(), "1");
  EXPECT_EQ(rs.AbsolutePosition(), 1);
  EXPECT_EQ(rs.RecordCount(), 2);
}

TEST_F(RecordsetTest, PasarDeLaÚltimaDejaElFinalSinError) {
  Filas({"1", "2"});
  Abrir(ModoApertura::Lectura);
  rs.MoveNext();
  EXPECT_EQ(rs.AbsolutePosition(), 2);
  rs.MoveNext();
  EXPECT_TRUE(rs.Eof());
  EXPECT_EQ(rs.AbsolutePosition(), -3);
  EXPECT_EQ(NumeroDeError([&] { rs.MoveNext(); }), error::SinFilaActual);
}

TEST_F(RecordsetTest, AbrirLoAbiertoEsUnErrorYNoLoCierra) {
  Filas({"1"});
  Abrir(ModoApertura::Lectura);
  EXPECT_EQ(NumeroDeError([&] { Abrir(ModoApertura::Lectura); }), error::RecordsetAbierto);
  EXPECT_EQ(rs.Fields(0).Value.Texto(), "1");
}

TEST_F(RecordsetTest, CerradoVuelveAAbrirseEnOtroModo) {
  Filas({"1"});
  Abrir(ModoApertura::Lectura);
  rs.Close();
  EXPECT_FALSE(rs.State());
  Abrir(ModoApertura::Optimista);
  EXPECT_EQ(rs.RecordCount(), -1);
}

TEST_F(RecordsetTest, UnDeleteCorreYLoDejaCerrado) {
  Filas({"1"});
  rs.Open("DELETE", *conexion, ModoApertura::Optimista);
  EXPECT_FALSE(rs.State());
  EXPECT_EQ(tabla->Borrados, 1);
}

TEST_F(RecordsetTest, UnaAperturaFallidaLoDejaCerrado) {
  EXPECT_EQ(NumeroDeError([&] { rs.Open("DROP", *conexion, ModoApertura::Lectura); }),
            error::SentenciaRechazada);
  EXPECT_FALSE(rs.State());
}

TEST_F(RecordsetTest, LosCamposSeNombranSinMirarMayúsculas) {
  Filas({"1"});
  Abrir(ModoApertura::Lectura);
  EXPECT_EQ(rs.Fields("nconcepto").Value.Texto(), "1");
  EXPECT_EQ(rs.Fields("AÑO").Name(), "Año");
}

TEST_F(RecordsetTest, UnCampoQueNoEstáEsUnError) {
  Filas({"1"});
  Abrir(ModoApertura::Optimista);
  EXPECT_EQ(NumeroDeError([&] { (void)rs.Fields("Fatura"); }), error::CampoDesconocido);
  EXPECT_EQ(NumeroDeError([&] { (void)rs.Fields(4); }), error::CampoDesconocido);
  EXPECT_EQ(NumeroDeError([&] { rs.Collect("ModificadoPor") = "ANA"; }), error::CampoDesconocido);
}

TEST_F(RecordsetTest, UnoSoloParaLeerNoEscribe) {
  Filas({"1"});
  Abrir(ModoApertura::Lectura);
  EXPECT_EQ(NumeroDeError([&] { rs.AddNew(); }), error::NoDisponible);
  EXPECT_EQ(NumeroDeError([&] { rs.Fields(0).Value = "2"; }), error::NoDisponible);
  EXPECT_EQ(NumeroDeError([&] { rs.Collect("NConcepto") = "2"; }), error::NoDisponible);
}

TEST_F(RecordsetTest, UnoDinámicoNoLeeMientrasSoloAñade) {
  Filas({"1"});
  Abrir(ModoApertura::Optimista);
  for (int i = 0; i < 3; ++i) {
    rs.AddNew();
    rs.Fields(0).Value = "9";
    rs.Update();
  }
  EXPECT_EQ(tabla->Lecturas, 0);
  EXPECT_EQ(tabla->LecturasDeInsertada, 0);
  EXPECT_EQ(tabla->FilasGuardadas.size(), 4U);
}

TEST_F(RecordsetTest, LaFilaNuevaEmpiezaConTodoNulo) {
  Abrir(ModoApertura::Optimista);
  rs.AddNew();
  EXPECT_FALSE(rs.Eof());
  EXPECT_TRUE(rs.Fields(0).Value.Leer().EsNulo());
  EXPECT_EQ(rs.AbsolutePosition(), -1);
}

TEST_F(RecordsetTest, LaFilaAñadidaQuedaComoActual) {
  Filas({"1"});
  Abrir(ModoApertura::Optimista);
  rs.AddNew();
  rs.Collect("NConcepto") = "7";
  rs.Collect("Importe") = "1.234,50";
  rs.Update();
  EXPECT_FALSE(rs.Eof());
  EXPECT_EQ(rs.Fields(0).Value.Texto(), "7");
  EXPECT_EQ(rs.Fields("Importe").Value.Leer(), Valor(1234.5));
  rs.MoveNext();
  EXPECT_TRUE(rs.Eof());
}

TEST_F(RecordsetTest, LaFilaAñadidaPuedeCambiarseDespués) {
  Abrir(ModoApertura::Pesimista);
  EXPECT_TRUE(rs.Eof());
  rs.AddNew();
  rs.Fields(0).Value = "7";
  rs.Update();
  EXPECT_FALSE(rs.Eof());
  rs.Fields("Importe").Value = 3.0;
  rs.Update();
  rs.Fields("Importe").Value = 4.0;
  rs.Update();
  ASSERT_EQ(tabla->FilasGuardadas.size(), 1U);
  EXPECT_EQ(tabla->FilasGuardadas[0][0], Valor("7"));
  EXPECT_EQ(tabla->FilasGuardadas[0][1], Valor(4.0));
}

TEST_F(RecordsetTest, AñadirConOtraPendienteEscribeLaPendiente) {
  Abrir(ModoApertura::Optimista);
  rs.AddNew();
  rs.Fields(0).Value = "1";
  rs.AddNew();
  rs.Fields(0).Value = "2";
  rs.Update();
  ASSERT_EQ(tabla->FilasGuardadas.size(), 2U);
  EXPECT_EQ(tabla->FilasGuardadas[0][0], Valor("1"));
}

TEST_F(RecordsetTest, UnCambioSeEscribeYLaFilaSigueSiendoLaActual) {
  Filas({"1", "2"});
  Abrir(ModoApertura::Optimista);
  rs.Fields("Importe").Value = 2.25;
  EXPECT_EQ(rs.Fields("Importe").Value.Leer(), Valor(2.25));
  EXPECT_EQ(tabla->FilasGuardadas[0][1], Valor(1.5));
  rs.Update();
  EXPECT_EQ(tabla->FilasGuardadas[0][1], Valor(2.25));
  EXPECT_EQ(rs.Fields(0).Value.Texto(), "1");
  EXPECT_EQ(rs.Fields("Importe").Value.Leer(), Valor(2.25));
}

TEST_F(RecordsetTest, AvanzarConUnCambioPendienteLoEscribe) {
  Filas({"1", "2"});
  Abrir(ModoApertura::Optimista);
  rs.Fields("Importe").Value = 2.25;
  rs.MoveNext();
  EXPECT_EQ(tabla->FilasGuardadas[0][1], Valor(2.25));
  EXPECT_EQ(rs.Fields(0).Value.Texto(), "2");
}

TEST_F(RecordsetTest, AvanzarConUnCambioRechazadoNoAvanzaYLoDejaPendiente) {
  Filas({"1", "2"});
  Abrir(ModoApertura::Optimista);
  rs.Fields("Importe").Value = 2.25;
  tabla->FalloAlEscribir = error::FilaCambiada;
  EXPECT_EQ(NumeroDeError([&] { rs.MoveNext(); }), error::FilaCambiada);
  EXPECT_EQ(rs.Fields(0).Value.Texto(), "1");
  EXPECT_EQ(rs.Fields("Importe").Value.Leer(), Valor(2.25));
  rs.Update();
  EXPECT_EQ(tabla->FilasGuardadas[0][1], Valor(2.25));
}

TEST_F(RecordsetTest, UnaAltaRechazadaQuedaPendienteYSePuedeCorregir) {
  Abrir(ModoApertura::Optimista);
  rs.AddNew();
  rs.Fields(0).Value = "1";
  rs.Fields("Importe").Value = "no";
  EXPECT_EQ(NumeroDeError([&] { rs.Update(); }), error::RepetidoONoCabe);
  EXPECT_TRUE(tabla->FilasGuardadas.empty());
  EXPECT_EQ(rs.Fields(0).Value.Texto(), "1");
  rs.Fields("Importe").Value = "12";
  rs.Update();
  EXPECT_EQ(tabla->FilasGuardadas[0][1], Valor(12.0));
}

TEST_F(RecordsetTest, CancelarUnAltaVuelveALaFilaDeAntes) {
  Filas({"1", "2"});
  Abrir(ModoApertura::Optimista);
  rs.MoveNext();
  rs.AddNew();
  rs.Fields(0).Value = "9";
  rs.CancelUpdate();
  EXPECT_EQ(rs.Fields(0).Value.Texto(), "2");
  EXPECT_EQ(tabla->FilasGuardadas.size(), 2U);
}

TEST_F(RecordsetTest, CancelarUnAltaVuelveALaAñadidaAntes) {
  Abrir(ModoApertura::Optimista);
  rs.AddNew();
  rs.Fields(0).Value = "8";
  rs.Update();
  rs.AddNew();
  rs.Fields(0).Value = "9";
  rs.CancelUpdate();
  EXPECT_EQ(rs.Fields(0).Value.Texto(), "8");
}

TEST_F(RecordsetTest, CancelarUnCambioDevuelveLoGuardado) {
  Filas({"1"});
  Abrir(ModoApertura::Optimista);
  rs.Fields("Importe").Value = 2.25;
  rs.CancelUpdate();
  EXPECT_EQ(rs.Fields("Importe").Value.Leer(), Valor(1.5));
  rs.Update();
  EXPECT_EQ(tabla->FilasGuardadas[0][1], Valor(1.5));
}

TEST_F(RecordsetTest, UnAltaCanceladaNoDejaValoresALaSiguiente) {
  Abrir(ModoApertura::Optimista);
  rs.AddNew();
  rs.Fields("Importe").Value = 5.0;
  rs.CancelUpdate();
  rs.AddNew();
  rs.Fields(0).Value = "1";
  rs.Update();
  EXPECT_EQ(tabla->FilasGuardadas[0][1], Valor());
}

TEST_F(RecordsetTest, SinCambiosActualizarYCancelarNoHacenNada) {
  Filas({"1"});
  Abrir(ModoApertura::Optimista);
  tabla->FalloAlEscribir = error::FalloDeConexion;
  rs.Update();
  rs.CancelUpdate();
  EXPECT_EQ(rs.Fields(0).Value.Texto(), "1");
}

TEST_F(RecordsetTest, CerrarDejaCaerLoPendiente) {
  Filas({"1"});
  Abrir(ModoApertura::Optimista);
  rs.Fields("Importe").Value = 2.25;
  rs.Close();
  EXPECT_EQ(tabla->FilasGuardadas[0][1], Valor(1.5));
}

TEST_F(RecordsetTest, AsignarSinFilaActualEsUnError) {
  Abrir(ModoApertura::Optimista);
  EXPECT_EQ(NumeroDeError([&] { rs.Fields(0).Value = "1"; }), error::SinFilaActual);
}

TEST_F(RecordsetTest, UnCampoSeAsignaDesdeOtro) {
  Filas({"1"});
  auto otro = services::Crear<Recordset>();
  otro->Open("SELECT", *conexion, ModoApertura::Lectura);
  Abrir(ModoApertura::Optimista);
  rs.AddNew();
  rs.Fields(1).Value = otro->Fields(1).Value;
  EXPECT_EQ(rs.Fields(1).Value.Leer(), Valor(1.5));
}

TEST_F(RecordsetTest, UnCampoValeLoDeLaFilaEnQueEstá) {
  Filas({"1", "2"});
  Abrir(ModoApertura::Optimista);
  auto campo = rs.Fields(0);
  rs.MoveNext();
  EXPECT_EQ(campo.Value.Texto(), "2");
  rs.AddNew();
  EXPECT_TRUE(campo.Value.Leer().EsNulo());
}

TEST_F(RecordsetTest, UnCampoDeUnaAperturaAnteriorMásAnchaEsUnError) {
  Filas({"1"});
  Abrir(ModoApertura::Lectura);
  auto campo = rs.Fields(3);
  rs.Close();
  auto estrecha = std::make_shared<TablaFalsa>(TablaFalsa{{{"A"}}, {{Valor("x")}}});
  rs.Open("SELECT", *services::Crear<ConexionFalsa>(estrecha), ModoApertura::Lectura);
  EXPECT_EQ(NumeroDeError([&] { (void)campo.Value.Leer(); }), error::CampoDesconocido);
}

TEST_F(RecordsetTest, ElRecordsetGuardaSuConexión) {
  Filas({"1"});
  Abrir(ModoApertura::Optimista);
  conexion = nullptr;
  EXPECT_EQ(rs.Fields(0).Value.Texto(), "1");
}

}  // namespace
