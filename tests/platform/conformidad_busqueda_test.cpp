#include "platform/conformidad.h"

namespace pruebas {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class Facturas : public Conformidad {
 protected:
  void Guardar(std::initializer_list<const char*> facturas) {
    auto rs = Abrir(*conexion, Vencimientos, Modo::Optimista);
    for (const char* factura : facturas) NuevoVencimiento(*rs, "1", factura);
  }
  std::vector<Texto> Donde(const Texto& condicion) {
    return Primeros("SELECT NFactura FROM TempProvVencimientos WHERE " + condicion);
  }
};

INSTANTIATE_TEST_SUITE_P(Motores, Facturas, testing::ValuesIn(Motores()), NombreDelMotor);

TEST_P(Facturas, LikeEsUnaIgualdadSinMayúsculas) {
  Guardar({"Ñandú-1", "Ñandú-12", "nandu-1"});
  EXPECT_THAT(Donde("NFactura like 'ÑANDÚ-1'"), ElementsAre("Ñandú-1"));
  EXPECT_THAT(Donde("NFactura = 'ñandú-1'"), ElementsAre("Ñandú-1"));
}

TEST_P(Facturas, UnComodínEnLaClaveEsUnSignoComoOtroCualquiera) {
  Guardar({"a_1", "AB1", "100%", "1000", "%", "_"});
  EXPECT_THAT(Donde("NFactura like 'A_1'"), ElementsAre("a_1"));
  EXPECT_THAT(Donde("Trim(NFactura) like 'A_1'"), ElementsAre("a_1"));
  EXPECT_THAT(Donde("NFactura like '100%'"), ElementsAre("100%"));
  EXPECT_THAT(Donde("NFactura like '%'"), ElementsAre("%"));
  EXPECT_THAT(Donde("NFactura like '_'"), ElementsAre("_"));
  EXPECT_THAT(Donde("NFactura not like '%'"),
              UnorderedElementsAre("a_1", "AB1", "100%", "1000", "_"));
}

TEST_P(Facturas, BorrarUnaClaveConComodinesDejaLasParecidas) {
  Guardar({" A_1 ", "AB1", "100%", "1000"});
  for (const char* clave : {"A_1", "100%"}) {
    Abrir(
        *conexion,
        Texto("DELETE From TempProvVencimientos WHERE RTRIM(LTRIM(NFactura)) like '") + clave + "'",
        Modo::Optimista);
  }
  EXPECT_THAT(Primeros("SELECT NFactura FROM TempProvVencimientos"),
              UnorderedElementsAre("AB1", "1000"));
}

TEST_P(Facturas, LosBlancosAlrededorNoCuentanRecortados) {
  Guardar({"  A 1 "});
  EXPECT_THAT(Donde("Trim(TempProvVencimientos.NFactura) like 'a 1'"), ElementsAre("  A 1 "));
  EXPECT_THAT(Donde("RTRIM(LTRIM(NFactura)) like 'A 1'And NConcepto like '1'"),
              ElementsAre("  A 1 "));
  EXPECT_THAT(Donde("NFactura like 'A 1'"), IsEmpty());
  EXPECT_THAT(Donde("LTrim(NFactura) = 'A 1 '"), ElementsAre("  A 1 "));
  EXPECT_THAT(Donde("RTrim(NFactura) = '  A 1'"), ElementsAre("  A 1 "));
}

TEST_P(Facturas, UnDeleteHallaLaFacturaConBlancos) {
  Guardar({"  A 1 ", "A 12"});
  Abrir(*conexion,
        "DELETE From TempProvVencimientos WHERE TempProvVencimientos.NConcepto like '1' and "
        "TempProvVencimientos.Año like '2005' and RTRIM(LTRIM(TempProvVencimientos.NFactura)) "
        "like 'A 1'",
        Modo::Optimista);
  EXPECT_THAT(Primeros("SELECT NFactura FROM TempProvVencimientos"), ElementsAre("A 12"));
}

TEST_P(Facturas, ElOrdenEsElEspañol) {
  Guardar({"zeta", "ñu", "Nube", "árbol", "arbol", "Oca", "burro", "ARBOLES"});
  EXPECT_THAT(Primeros("SELECT NFactura FROM TempProvVencimientos ORDER BY NFactura"),
              ElementsAre("arbol", "árbol", "ARBOLES", "burro", "Nube", "ñu", "Oca", "zeta"));
}

TEST_P(Facturas, UnaComillaDobladaEsUnaComilla) {
  Guardar({"O'Brien"});
  EXPECT_THAT(Donde("NFactura like 'O''BRIEN'"), ElementsAre("O'Brien"));
}

TEST_P(Facturas, UnaFechaEnOtraFormaNoHallaNadaNiFalla) {
  Guardar({"A"});
  EXPECT_THAT(Donde("FechaVto like '15/03/2005'"), IsEmpty());
  EXPECT_THAT(Donde("FechaVto >= '20050301' And FechaVto <= '20050331'"), ElementsAre("A"));
}

class Descripciones : public Conformidad {
 protected:
  void SetUp() override {
    auto rs = Abrir(*conexion, "SELECT ProvConceptos.* FROM ProvConceptos", Modo::Optimista);
    const auto nuevo = [&](const char* codigo, const char* descripcion) {
      rs->AddNew();
      rs->Collect("NConcepto") = codigo;
      rs->Collect("Descripcion") = descripcion;
      rs->Update();
    };
    nuevo("luz 1", "  Luz y Gas ");
    nuevo("LUZ", "LUZ");
    nuevo("Ñandú", "Ñandú");
    nuevo("nandu", "nandu");
    nuevo("Nóm 100%", "Nómina 100%");
    nuevo("Nóm 1000", "Nómina 1000");
  }
  std::vector<Texto> Como(const Texto& patron) {
    return Primeros(
        "SELECT ProvConceptos.Descripcion From ProvConceptos WHERE "
        "trim(ProvConceptos.Descripcion) like '" +
        patron + "' ORDER BY ProvConceptos.Descripcion");
  }
};

INSTANTIATE_TEST_SUITE_P(Motores, Descripciones, testing::ValuesIn(Motores()), NombreDelMotor);

TEST_P(Descripciones, SeBuscanConComodinesYSinMayúsculas) {
  EXPECT_THAT(Como("luz%"), UnorderedElementsAre("  Luz y Gas ", "LUZ"));
  EXPECT_THAT(Como("L_Z"), ElementsAre("LUZ"));
  EXPECT_THAT(Como("%gas"), ElementsAre("  Luz y Gas "));
  EXPECT_THAT(Como("%Y%g_s%"), ElementsAre("  Luz y Gas "));
  EXPECT_THAT(Como("nómina 100_"), UnorderedElementsAre("Nómina 100%", "Nómina 1000"));
  EXPECT_THAT(Como("%"), testing::SizeIs(6));
  EXPECT_THAT(Como("_"), IsEmpty());
  EXPECT_THAT(Como("lu"), IsEmpty());
  EXPECT_THAT(Como("luz"), ElementsAre("LUZ"));
}

TEST_P(Descripciones, LosAcentosYLaEñeCuentanComoAlComparar) {
  EXPECT_THAT(Como("ñan%"), ElementsAre("Ñandú"));
  EXPECT_THAT(Como("_ANDÚ"), ElementsAre("Ñandú"));
  EXPECT_THAT(Como("%andu"), ElementsAre("nandu"));
}

TEST_P(Descripciones, UnComodínEnElCódigoEsUnSignoComoOtro) {
  EXPECT_THAT(Primeros("SELECT ProvConceptos.* From ProvConceptos WHERE "
                       "trim(ProvConceptos.NConcepto) like 'l%'"),
              IsEmpty());
  EXPECT_THAT(Primeros("SELECT ProvConceptos.* From ProvConceptos WHERE "
                       "ProvConceptos.NConcepto like 'NÓM 100%'"),
              ElementsAre("Nóm 100%"));
}

class Caja : public Conformidad {
 protected:
  void SetUp() override {
    auto rs = Abrir(*conexion, "SELECT TempCajaPagos.* FROM TempCajaPagos", Modo::Optimista);
    Nueva(*rs, "a", "05/03/2005 9:05:00", 12, 1.25, services::Nulo{});
    Nueva(*rs, "b", "06/03/2005", 12, 2.5, "");
    Nueva(*rs, "c", "07/03/2005 23:59:59", 45, 4.0, " F1 ");
  }
  void Nueva(services::Recordset& rs, const char* sucursal, const char* momento, int tipo,
             double importe, const services::Valor& factura) {
    rs.AddNew();
    rs.Collect("idSucursal") = sucursal;
    rs.Collect("FechaHora") = momento;
    rs.Collect("Tipo") = tipo;
    rs.Collect("Importe") = importe;
    rs.Collect("Factura") = factura;
    rs.Update();
  }
  std::vector<Texto> Donde(const Texto& condicion) {
    return Primeros("SELECT TempCajaPagos.* FROM TempCajaPagos WHERE " + condicion +
                    " ORDER BY TempCajaPagos.idSucursal");
  }
};

INSTANTIATE_TEST_SUITE_P(Motores, Caja, testing::ValuesIn(Motores()), NombreDelMotor);

TEST_P(Caja, LaFechaSeComparaConSuPropioTexto) {
  EXPECT_THAT(Donde("FechaHora like '05/03/2005 9:05:00'"), ElementsAre("a"));
  EXPECT_THAT(Donde("FechaHora = '06/03/2005'"), ElementsAre("b"));
}

TEST_P(Caja, OtroTextoDelMismoMomentoEsElMismo) {
  EXPECT_THAT(Donde("FechaHora like '5/3/2005 9:05'"), ElementsAre("a"));
  EXPECT_THAT(Donde("FechaHora <> '6/3/2005 0:00:00'"), ElementsAre("a", "c"));
}

TEST_P(Caja, UnTextoQueNoEsMomentoNoHallaNada) {
  EXPECT_THAT(Donde("FechaHora like 'mañana'"), IsEmpty());
  EXPECT_THAT(Donde("FechaHora like '05/03/2005 9:0'"), IsEmpty());
  EXPECT_THAT(Donde("FechaHora like '05/03/2005'"), IsEmpty());
}

TEST_P(Caja, UnComodínEnUnaFechaNoHallaNada) {
  EXPECT_THAT(Donde("FechaHora like '%/03/2005 %'"), IsEmpty());
}

TEST_P(Caja, LaFechaEntreAlmohadillasEsMesDíaAño) {
  EXPECT_THAT(Donde("FechaHora >= #3/6/2005 00:00:00# And FechaHora <= #3/7/2005 23:59:59#"),
              ElementsAre("b", "c"));
}

TEST_P(Caja, UnEnteroSeComparaConComillasYSinEllas) {
  EXPECT_THAT(Donde("Tipo like 12"), ElementsAre("a", "b"));
  EXPECT_THAT(Donde("Tipo like '12'"), ElementsAre("a", "b"));
  EXPECT_THAT(Donde("Tipo = 45"), ElementsAre("c"));
  EXPECT_THAT(Donde("Tipo like 'doce'"), IsEmpty());
  EXPECT_THAT(Donde("Tipo like '4%'"), IsEmpty());
}

TEST_P(Caja, NuloYVacíoEstánPendientes) {
  EXPECT_THAT(Donde("(TempCajaPagos.Factura Is Null OR TempCajaPagos.Factura = '')"),
              ElementsAre("a", "b"));
  EXPECT_THAT(Donde("Trim(TempCajaPagos.Factura) like 'f1'"), ElementsAre("c"));
}

TEST_P(Caja, LaSumaAgrupaConElNuloAparte) {
  auto rs = Abrir(*conexion,
                  "SELECT Sum(TempCajaPagos.Importe) AS Importe, TempCajaPagos.Factura, "
                  "TempCajaPagos.Tipo FROM TempCajaPagos GROUP BY TempCajaPagos.Factura, "
                  "TempCajaPagos.Tipo");
  std::vector<Texto> grupos;
  for (; !rs->Eof(); rs->MoveNext()) {
    const services::Valor factura = rs->Fields("Factura").Value;
    grupos.push_back((factura.EsNulo() ? "Null" : factura.Texto()) + ":" +
                     rs->Fields("Importe").Value.Texto());
  }
  EXPECT_THAT(grupos, UnorderedElementsAre("Null:1,25", ":2,5", " F1 :4"));
}

}  // namespace
}  // namespace pruebas
