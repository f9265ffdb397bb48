#include "platform/conformidad.h"

#include "apoyo/errores.h"

namespace pruebas {
namespace {

namespace error = services::error;
using services::Valor;
using testing::ElementsAre;
using testing::IsEmpty;

INSTANTIATE_TEST_SUITE_P(Motores, Conformidad, testing::ValuesIn(Motores()), NombreDelMotor);

TEST_P(Conformidad, UnaLecturaCuentaSusFilasYUnDinámicoNo) {
  NuevoVencimiento("1", "A");
  NuevoVencimiento("1", "B");
  EXPECT_EQ(Abrir(*conexion, Vencimientos)->RecordCount(), 2);
  EXPECT_EQ(Abrir(*conexion, Vencimientos, Modo::Optimista)->RecordCount(), -1);
}

TEST_P(Conformidad, UnaLecturaNoVeLoEscritoDespués) {
  NuevoVencimiento("1", "A");
  auto rs = Abrir(*conexion, Vencimientos);
  NuevoVencimiento("1", "B");
  EXPECT_EQ(rs->RecordCount(), 1);
}

TEST_P(Conformidad, LasColumnasTienenNombreTipoYLongitud) {
  const auto columnas =
      conexion->Abrir("SELECT ProvVencimientos.* FROM ProvVencimientos", Modo::Lectura)->Columnas();
  ASSERT_EQ(columnas.size(), 9U);
  EXPECT_TRUE(services::MismoTexto(columnas[1].Nombre, "NFactura"));
  EXPECT_EQ(columnas[1].Longitud, 20);
  EXPECT_FALSE(columnas[1].AdmiteNulo);
  EXPECT_TRUE(services::MismoTexto(columnas[2].Nombre, "Año"));
  EXPECT_EQ(columnas[4].Tipo, services::TipoColumna::Moneda);
  EXPECT_TRUE(columnas[4].AdmiteNulo);
  const auto deTrabajo = conexion->Abrir(Vencimientos, Modo::Lectura)->Columnas();
  ASSERT_EQ(deTrabajo.size(), 10U);
  EXPECT_EQ(deTrabajo[8].Longitud, 0);
  EXPECT_EQ(deTrabajo[4].Tipo, services::TipoColumna::Moneda);
  EXPECT_EQ(deTrabajo[9].Tipo, services::TipoColumna::Logico);
}

TEST_P(Conformidad, LasColumnasDeUnaTablaSonLasDeSuSentencia) {
  const auto columnas = conexion->ColumnasDe("ProvVencimientos");
  ASSERT_EQ(columnas.size(), 9U);
  EXPECT_TRUE(services::MismoTexto(columnas[8].Nombre, "ModificadoPor"));
  EXPECT_EQ(columnas[8].Longitud, 30);
  EXPECT_EQ(apoyo::NumeroDeError([&] { (void)conexion->ColumnasDe("Nada"); }),
            error::TablaDesconocida);
}

TEST_P(Conformidad, UnDeleteCorreYDejaElRecordsetCerrado) {
  NuevoVencimiento("1", "A");
  NuevoVencimiento("2", "A");
  const auto rs = Abrir(*conexion,
                        "DELETE TempProvVencimientos.* FROM TempProvVencimientos WHERE "
                        "TempProvVencimientos.NConcepto like '1'",
                        Modo::Optimista);
  EXPECT_FALSE(rs->State());
  EXPECT_THAT(Primeros(Vencimientos), ElementsAre("2"));
}

TEST_P(Conformidad, LasSentenciasRechazadasNoCorren) {
  NuevoVencimiento("1", "A");
  EXPECT_EQ(ErrorAlAbrir("SELECT * FROM TempProvVencimientos; DELETE FROM TempProvVencimientos"),
            error::SentenciaRechazada);
  EXPECT_EQ(ErrorAlAbrir("DROP TABLE TempProvVencimientos"), error::SentenciaRechazada);
  EXPECT_EQ(ErrorAlAbrir("UPDATE TempProvVencimientos SET Importe = 0"), error::SentenciaRechazada);
  EXPECT_EQ(ErrorAlAbrir("DELETE FROM TempProvVencimientos WHERE NFactura like 'O'Brien'"),
            error::SentenciaRechazada);
  EXPECT_EQ(ErrorAlAbrir("DELETE FROM TempProvVencimientos WHERE NFactura like 'B' or '1'='1'"),
            error::SentenciaRechazada);
  EXPECT_EQ(Cuantas(*conexion, "TempProvVencimientos"), 1);
}

TEST_P(Conformidad, LoQueNoExisteTieneSuNúmero) {
  EXPECT_EQ(ErrorAlAbrir("SELECT Nada.* FROM Nada"), error::TablaDesconocida);
  EXPECT_EQ(ErrorAlAbrir("DELETE FROM Nada"), error::TablaDesconocida);
  EXPECT_EQ(ErrorAlAbrir("SELECT TempCajaPagos.Factura FROM TempCajaPagos WHERE "
                         "Trim(TempCajaPagos.Fatura) like '1'"),
            error::ColumnaDesconocida);
}

TEST_P(Conformidad, LaFilaAñadidaSePuedeLeerYCambiar) {
  auto rs = Abrir(*conexion, Vencimientos, Modo::Pesimista);
  EXPECT_TRUE(rs->Eof());
  NuevoVencimiento(*rs, "1", "A");
  EXPECT_FALSE(rs->Eof());
  EXPECT_EQ(rs->Fields("NFactura").Value.Texto(), "A");
  rs->Fields("Importe").Value = "7,25";
  rs->Update();
  EXPECT_THAT(Primeros("SELECT Importe FROM TempProvVencimientos"), ElementsAre("7,25"));
}

TEST_P(Conformidad, UnaFilaSeCambiaPorNombreYPorPosición) {
  NuevoVencimiento("1", "A");
  NuevoVencimiento("2", "B");
  auto rs = Abrir(*conexion, Vencimientos, Modo::Optimista);
  rs->MoveNext();
  rs->Fields("Pagado").Value = 3.0;
  rs->Fields(6).Value = "20050316";
  rs->Update();
  EXPECT_THAT(Primeros("SELECT Pagado FROM TempProvVencimientos"), ElementsAre("", "3"));
  EXPECT_THAT(Primeros("SELECT Fechapago FROM TempProvVencimientos"), ElementsAre("", "20050316"));
}

TEST_P(Conformidad, UnaClaveRepetidaSinMirarMayúsculasFallaSola) {
  auto rs = Abrir(*conexion, Vencimientos, Modo::Optimista);
  NuevoVencimiento(*rs, "1", "ñu-a");
  EXPECT_EQ(apoyo::NumeroDeError([&] { NuevoVencimiento(*rs, "1", "ÑU-A"); }),
            error::RepetidoONoCabe);
  rs->CancelUpdate();
  NuevoVencimiento(*rs, "1", "nu-a");
  conexion->TerminarUnidad();
  EXPECT_THAT(Primeros("SELECT NFactura FROM TempProvVencimientos ORDER BY NFactura"),
              ElementsAre("nu-a", "ñu-a"));
}

TEST_P(Conformidad, UnaClaveSinValorNoSeGuarda) {
  auto rs = Abrir(*conexion, Vencimientos, Modo::Optimista);
  rs->AddNew();
  rs->Collect("NConcepto") = "1";
  EXPECT_EQ(apoyo::NumeroDeError([&] { rs->Update(); }), error::RepetidoONoCabe);
  rs->CancelUpdate();
  EXPECT_EQ(Cuantas(*conexion, "TempProvVencimientos"), 0);
}

TEST_P(Conformidad, LosValoresSeConviertenAlGuardar) {
  auto rs = Abrir(*conexion, "SELECT CajaPagos.* FROM CajaPagos", Modo::Optimista);
  rs->AddNew();
  rs->Collect("idSucursal") = 3;
  rs->Collect("FechaHora") = "5/3/2005 9:05:07";
  rs->Collect("Tipo") = "1.045";
  rs->Collect("Importe") = "-1.234.567,89";
  rs->Collect("Año") = "";
  rs->Update();
  auto leido = Abrir(*conexion, "SELECT CajaPagos.* FROM CajaPagos");
  EXPECT_EQ(leido->Fields("idSucursal").Value.Leer(), Valor("3"));
  EXPECT_EQ(leido->Fields("FechaHora").Value.Leer(),
            Valor(services::HacerFecha(2005, 3, 5, 9, 5, 7)));
  EXPECT_EQ(leido->Fields("Tipo").Value.Leer(), Valor(1045));
  EXPECT_EQ(leido->Fields("Importe").Value.Leer(), Valor(-1234567.89));
  EXPECT_EQ(leido->Fields("Año").Value.Leer(), Valor(""));
  EXPECT_TRUE(leido->Fields("Factura").Value.Leer().EsNulo());
}

TEST_P(Conformidad, ElTextoVacíoEsNuloDondeNoEsTexto) {
  NuevoVencimiento("1", "A");
  auto rs = Abrir(*conexion, Vencimientos, Modo::Optimista);
  rs->Fields("Importe").Value = "";
  rs->Fields("Visible").Value = "";
  rs->Update();
  rs = Abrir(*conexion, Vencimientos);
  EXPECT_TRUE(rs->Fields("Importe").Value.Leer().EsNulo());
  EXPECT_TRUE(rs->Fields("Visible").Value.Leer().EsNulo());
}

TEST_P(Conformidad, LoQueNoEsDeSuColumnaNoSeGuarda) {
  auto rs = Abrir(*conexion, Vencimientos, Modo::Optimista);
  NuevoVencimiento(*rs, "1", "A");
  rs->Fields("Importe").Value = "diez";
  EXPECT_EQ(apoyo::NumeroDeError([&] { rs->Update(); }), error::RepetidoONoCabe);
}

TEST_P(Conformidad, LasTablasDeTrabajoNoTienenAnchos) {
  const Texto largo(150, 'x');
  auto rs = Abrir(*conexion, Vencimientos, Modo::Optimista);
  NuevoVencimiento(*rs, "12345678901234", largo);
  rs->Fields("Importe").Value = "100.000.000.000.000,25";
  rs->Update();
  const auto leido = Abrir(*conexion, Vencimientos);
  EXPECT_EQ(leido->Fields("NConcepto").Value.Leer(), Valor("12345678901234"));
  EXPECT_EQ(leido->Fields("NFactura").Value.Leer(), Valor(largo));
  EXPECT_EQ(leido->Fields("Importe").Value.Leer(), Valor(100000000000000.25));
}

TEST_P(Conformidad, LosLógicosSeGuardanYSeBuscan) {
  auto rs = Abrir(*conexion, Vencimientos, Modo::Optimista);
  NuevoVencimiento(*rs, "1", "A");
  rs->Fields("Visible").Value = true;
  rs->Update();
  NuevoVencimiento(*rs, "2", "A");
  rs->Fields("Visible").Value = "Falso";
  rs->Update();
  EXPECT_THAT(Primeros("SELECT TempProvVencimientos.* FROM TempProvVencimientos WHERE "
                       "TempProvVencimientos.Visible = True"),
              ElementsAre("1"));
  EXPECT_EQ(Abrir(*conexion, Vencimientos)->Fields("Visible").Value.Leer(), Valor(true));
}

TEST_P(Conformidad, UnaFilaQueOtroCambióNoSePisaEnModoOptimista) {
  NuevoVencimiento("1", "A");
  conexion->TerminarUnidad();
  auto mia = Abrir(*conexion, Vencimientos, Modo::Optimista);
  EXPECT_FALSE(mia->Eof());
  auto otra = banco->Conectar(false);
  auto suya = Abrir(*otra, Vencimientos, Modo::Optimista);
  suya->Fields("Pagado").Value = 5.0;
  suya->Update();
  mia->Fields("Pagado").Value = 6.0;
  EXPECT_EQ(apoyo::NumeroDeError([&] { mia->Update(); }), error::FilaCambiada);
  mia->CancelUpdate();
  mia->Fields("Descripcion").Value = "otra columna";
  mia->Update();
  conexion->TerminarUnidad();
  EXPECT_THAT(Primeros("SELECT Pagado FROM TempProvVencimientos"), ElementsAre("5"));
}

TEST_P(Conformidad, UnaFilaQueOtroCambióSePisaEnModoPesimista) {
  NuevoVencimiento("1", "A");
  conexion->TerminarUnidad();
  auto mia = Abrir(*conexion, Vencimientos, Modo::Pesimista);
  EXPECT_FALSE(mia->Eof());
  auto otra = banco->Conectar(false);
  auto suya = Abrir(*otra, Vencimientos, Modo::Optimista);
  suya->Fields("Pagado").Value = 5.0;
  suya->Update();
  mia->Fields("Pagado").Value = 6.0;
  mia->Update();
  EXPECT_THAT(Primeros("SELECT Pagado FROM TempProvVencimientos"), ElementsAre("6"));
}

/// Given what the row had when it was read.
TEST_P(Conformidad, AsignarLoQueHabíaTambiénEsDecirQueSeaEso) {
  for (const auto modo : {Modo::Optimista, Modo::Pesimista}) {
    Abrir(*conexion, "DELETE FROM TempProvVencimientos", Modo::Optimista);
    NuevoVencimiento("1", "A");
    conexion->TerminarUnidad();
    auto mia = Abrir(*conexion, Vencimientos, modo);
    const Valor pagado = mia->Fields("Pagado").Value;
    const Valor importe = mia->Fields("Importe").Value;
    auto otra = banco->Conectar(false);
    auto suya = Abrir(*otra, Vencimientos, Modo::Optimista);
    suya->Fields("Pagado").Value = 5.0;
    suya->Update();
    mia->Fields("Pagado").Value = pagado;
    mia->Fields("Descripcion").Value = "otra";
    const bool pisa = modo == Modo::Pesimista;
    EXPECT_EQ(apoyo::NumeroDeError([&] { mia->Update(); }), pisa ? 0 : error::FilaCambiada);
    mia->CancelUpdate();
    mia->Fields("Importe").Value = importe;
    EXPECT_EQ(apoyo::NumeroDeError([&] { mia->Update(); }), 0) << "esta no la cambió nadie";
    conexion->TerminarUnidad();
    EXPECT_THAT(Primeros("SELECT Pagado FROM TempProvVencimientos"),
                ElementsAre(pisa ? pagado.Texto() : "5"));
  }
}

TEST_P(Conformidad, UnaFilaBorradaEntretantoDaSuError) {
  for (const auto modo : {Modo::Optimista, Modo::Pesimista}) {
    NuevoVencimiento("1", "A");
    auto rs = Abrir(*conexion, Vencimientos, modo);
    EXPECT_FALSE(rs->Eof());
    Abrir(*conexion, "DELETE FROM TempProvVencimientos", Modo::Optimista);
    rs->Fields("Pagado").Value = 6.0;
    EXPECT_EQ(apoyo::NumeroDeError([&] { rs->Update(); }), error::FilaCambiada);
  }
}

TEST_P(Conformidad, UnaFilaAñadidaYBorradaEntretantoDaSuError) {
  auto rs = Abrir(*conexion, Vencimientos, Modo::Optimista);
  NuevoVencimiento(*rs, "2", "B");
  Abrir(*conexion, "DELETE FROM TempProvVencimientos", Modo::Optimista);
  EXPECT_EQ(apoyo::NumeroDeError([&] { (void)rs->Fields(0).Value.Leer(); }), error::FilaCambiada);
}

TEST_P(Conformidad, UnaFilaCambiadaDosVecesNoChocaConsigoMisma) {
  NuevoVencimiento("1", "A");
  auto rs = Abrir(*conexion, Vencimientos, Modo::Optimista);
  for (const double pagado : {1.0, 2.25, 3.0}) {
    rs->Fields("Pagado").Value = pagado;
    rs->Update();
  }
  EXPECT_THAT(Primeros("SELECT Pagado FROM TempProvVencimientos"), ElementsAre("3"));
}

TEST_P(Conformidad, UnaUniónDeTablasNoDejaEscribir) {
  auto rs = Abrir(*conexion, "SELECT DISTINCT TempProvVencimientos.* FROM TempProvVencimientos",
                  Modo::Optimista);
  rs->AddNew();
  rs->Fields(0).Value = "1";
  EXPECT_EQ(apoyo::NumeroDeError([&] { rs->Update(); }), error::NoDisponible);
}

}  // namespace
}  // namespace pruebas
