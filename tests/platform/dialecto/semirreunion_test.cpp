#include "dialecto/semirreunion.h"

#include <gmock/gmock.h>

#include <map>
#include <string>
#include <vector>

#include "catalogo_de_prueba.h"
#include "dialecto/interprete.h"

// A SELECT DISTINCT of a table's rows, written so that they are found by their numbers.

namespace {

using testing::HasSubstr;

constexpr dialecto::Motor kConNumeros = [] {
  dialecto::Motor motor = pruebas::MotorDePrueba;
  motor.NumeroDeFila = "n";
  motor.Reunidos = {"reunidos(", ")"};
  motor.Numeros = {"numeros((", "))"};
  motor.NumerosEnOrden = {"ordenados((", "))"};
  motor.JuntaEnOrden = " LUEGO ";
  return motor;
}();

constexpr dialecto::Motor kPorClaves = [] {
  dialecto::Motor motor = pruebas::MotorDePrueba;
  motor.PorClaves = true;
  motor.OrdenaQuienLee = true;
  return motor;
}();

std::string Traducida(const std::string& escrita, const dialecto::Motor& motor = kConNumeros) {
  pruebas::CatalogoConClaves catalogo;
  const auto leida =
      dialecto::Interprete(motor, catalogo).Leer(escrita, services::ModoApertura::Lectura);
  return leida.Traducida->Texto;
}

constexpr const char* kEntreFechas = " WHERE Vtos.FechaVto >= 'a' And Vtos.FechaVto <= 'b'";
constexpr const char* kConVtos =
    "Facturas INNER JOIN Vtos ON (Facturas.NConcepto = Vtos.NConcepto) AND (Facturas.Factura = "
    "Vtos.NFactura)";

TEST(Semirreunion, LasFilasSeHallanPorSusNumeros) {
  EXPECT_EQ(
      Traducida("SELECT DISTINCT Facturas.* FROM " + std::string(kConVtos) + kEntreFechas +
                " Order By Facturas.Fecha"),
      "SELECT \"Facturas\".* FROM ordenados((SELECT reunidos(\"Facturas\".n) FROM \"Vtos\" LUEGO "
      "\"Facturas\" ON (\"Facturas\".\"NConcepto\" = \"Vtos\".\"NConcepto\") AND "
      "(\"Facturas\".\"Factura\" = \"Vtos\".\"NFactura\") WHERE \"Vtos\".\"FechaVto\" >= ? AND "
      "\"Vtos\".\"FechaVto\" <= ?)) AS \"filas de Facturas\" LUEGO \"Facturas\" ON "
      "\"Facturas\".n = \"filas de Facturas\".numero ORDER BY \"Facturas\".\"Fecha\", "
      "\"filas de Facturas\".orden");
}

TEST(Semirreunion, OPorLosValoresQueLasJuntanTambienSinSusBlancos) {
  EXPECT_EQ(Traducida("SELECT DISTINCT Facturas.* FROM Facturas INNER JOIN Vtos AS V ON "
                      "Facturas.NConcepto = V.NConcepto AND RTRIM(LTRIM(Facturas.Factura)) = "
                      "RTRIM(LTRIM(V.NFactura)) WHERE V.FechaVto >= 'a'",
                      kPorClaves),
            "SELECT \"Facturas\".*, \"filas de V\".orden FROM (SELECT \"V\".\"NConcepto\" AS "
            "\"NConcepto\", RECORTE(\"V\".\"NFactura\") AS \"NFactura sin blancos\", "
            "MIN(\"V\".\"FechaVto\") AS orden FROM \"Vtos\" AS \"V\" WHERE \"V\".\"FechaVto\" >= "
            "? GROUP BY \"V\".\"NConcepto\", RECORTE(\"V\".\"NFactura\")) AS \"filas de V\" INNER "
            "JOIN \"Facturas\" ON \"Facturas\".\"NConcepto\" = \"filas de V\".\"NConcepto\" AND "
            "RECORTE(\"Facturas\".\"Factura\") = \"filas de V\".\"NFactura sin blancos\"");
}

TEST(Semirreunion, PeroNoDondeUnaColumnaSeComparaDosVecesOConOtraDeSuTabla) {
  for (const char* junta :
       {"Facturas.NConcepto = Vtos.NConcepto AND Facturas.Factura = Vtos.NConcepto",
        "Facturas.NConcepto = Vtos.NConcepto AND Facturas.Factura = Facturas.Año"}) {
    EXPECT_THAT(Traducida("SELECT DISTINCT Facturas.* FROM Facturas INNER JOIN Vtos ON " +
                              std::string(junta) + " WHERE Vtos.FechaVto >= 'a'",
                          kPorClaves),
                HasSubstr("SELECT DISTINCT"))
        << junta;
  }
}

TEST(Semirreunion, SusPuestosSeLeenDetrasCuandoOrdenaQuienLee) {
  constexpr dialecto::Motor kOrdenaQuienLee = [] {
    dialecto::Motor motor = kConNumeros;
    motor.OrdenaQuienLee = true;
    return motor;
  }();
  pruebas::CatalogoConClaves catalogo;
  const auto leida = [&](const std::string& orden) {
    return dialecto::Interprete(kOrdenaQuienLee, catalogo)
        .Leer("SELECT DISTINCT Facturas.*, Conceptos.Descripcion FROM (" + std::string(kConVtos) +
                  ") INNER JOIN Conceptos ON Facturas.NConcepto = Conceptos.NConcepto" +
                  kEntreFechas + orden,
              services::ModoApertura::Lectura)
        .Traducida;
  };
  for (const auto& [orden, textos] : std::map<std::string, std::vector<std::size_t>>{
           {"", {}},
           {" Order By Facturas.Fecha", {3}},
           {" Order By Conceptos.Descripcion, Facturas.Fecha", {4, 3}}}) {
    const auto traducida = leida(orden);
    EXPECT_THAT(traducida->Texto,
                testing::StartsWith("SELECT \"Facturas\".*, \"Conceptos\".\"Descripcion\", "
                                    "\"filas de Facturas\".orden FROM ordenados("));
    EXPECT_THAT(traducida->Texto, testing::Not(HasSubstr("ORDER BY")));
    EXPECT_EQ(traducida->Orden, (services::OrdenDeFilas{textos, traducida->Columnas.size()}));
  }
  const auto alReves = leida(" Order By Facturas.Fecha desc");
  EXPECT_THAT(alReves->Texto, testing::EndsWith(" ORDER BY \"Facturas\".\"Fecha\" DESC, "
                                                "\"filas de Facturas\".orden"));
  EXPECT_TRUE(alReves->Orden.Ninguno());
}

TEST(Semirreunion, UnaTablaSinNumerosDeFilaNoSeToca) {
  class SinNumeros : public pruebas::CatalogoConClaves {
   public:
    explicit SinNumeros(std::size_t tabla) { tablas_[tabla].Numerada = false; }
  };
  for (const std::size_t tabla : {1U, 3U}) {
    SinNumeros catalogo(tabla);
    const auto leida =
        dialecto::Interprete(kConNumeros, catalogo)
            .Leer("SELECT DISTINCT Facturas.* FROM " + std::string(kConVtos) + kEntreFechas,
                  services::ModoApertura::Lectura);
    EXPECT_THAT(leida.Traducida->Texto, HasSubstr("SELECT DISTINCT ")) << tabla;
  }
}

TEST(Semirreunion, LaTablaQueSoloPoneSuNombreSeMiraAlFinal) {
  EXPECT_THAT(
      Traducida("SELECT DISTINCT Facturas.*, Conceptos.Descripcion FROM (" + std::string(kConVtos) +
                ") INNER JOIN Conceptos ON Facturas.NConcepto = Conceptos.NConcepto" +
                kEntreFechas),
      HasSubstr("\"filas de Facturas\".numero LUEGO \"Conceptos\" ON "
                "\"Facturas\".\"NConcepto\" = \"Conceptos\".\"NConcepto\" ORDER BY "
                "\"filas de Facturas\".orden"));
}

TEST(Semirreunion, CadaTablaSeRecorreDesdeLaQueLleva) {
  EXPECT_EQ(
      Traducida("SELECT DISTINCT Vtos.* FROM (Vtos INNER JOIN Facturas ON Vtos.NFactura = "
                "Facturas.Factura) INNER JOIN Vtos AS V_1 ON Facturas.Factura = V_1.NFactura WHERE "
                "V_1.FechaVto = 'a'"),
      "SELECT \"Vtos\".* FROM ordenados((SELECT reunidos(\"Vtos\".n) FROM numeros((SELECT "
      "reunidos(\"Facturas\".n) FROM \"Vtos\" AS \"V_1\" LUEGO \"Facturas\" ON "
      "\"Facturas\".\"Factura\" = \"V_1\".\"NFactura\" WHERE \"V_1\".\"FechaVto\" = ?)) AS "
      "\"filas de Facturas\" LUEGO \"Facturas\" ON \"Facturas\".n = "
      "\"filas de Facturas\".numero LUEGO \"Vtos\" ON \"Vtos\".\"NFactura\" = "
      "\"Facturas\".\"Factura\")) AS \"filas de Vtos\" LUEGO \"Vtos\" ON \"Vtos\".n = "
      "\"filas de Vtos\".numero ORDER BY \"filas de Vtos\".orden");
}

class SemirreunionQueNo : public testing::TestWithParam<const char*> {};

TEST_P(SemirreunionQueNo, SeDejaComoEsta) {
  EXPECT_EQ(Traducida(GetParam()), Traducida(GetParam(), pruebas::MotorDePrueba));
  EXPECT_THAT(Traducida(GetParam()), HasSubstr("DISTINCT "));
}

INSTANTIATE_TEST_SUITE_P(
    NoEsCierta, SemirreunionQueNo,
    testing::Values(
        // The chosen table has no key: two rows may be the same.
        "SELECT DISTINCT Caja.* FROM Caja INNER JOIN Vtos ON Caja.Factura = Vtos.NFactura WHERE "
        "Vtos.Importe = 1",
        // Not all of it is chosen, or another's rows are told apart too.
        "SELECT DISTINCT Vtos.NFactura FROM Vtos INNER JOIN Caja ON Caja.Factura = Vtos.NFactura "
        "WHERE Caja.Tipo = 1",
        "SELECT DISTINCT * FROM Vtos INNER JOIN Caja ON Caja.Factura = Vtos.NFactura WHERE "
        "Caja.Tipo = 1",
        "SELECT DISTINCT Vtos.*, Caja.Tipo FROM Vtos INNER JOIN Caja ON Caja.Factura = "
        "Vtos.NFactura WHERE Caja.Tipo = 1",
        // The other's row is joined by less than its key, by more than equality, or by another kind
        // of value.
        "SELECT DISTINCT Vtos.*, Facturas.Fecha FROM (Vtos INNER JOIN Caja ON Caja.Factura = "
        "Vtos.NFactura) INNER JOIN Facturas ON Facturas.Factura = Vtos.NFactura WHERE Caja.Tipo = "
        "1",
        "SELECT DISTINCT Vtos.*, Conceptos.Descripcion FROM (Vtos INNER JOIN Caja ON Caja.Factura "
        "= Vtos.NFactura) INNER JOIN Conceptos ON Vtos.NConcepto = Conceptos.NConcepto OR Vtos.Año "
        "= Conceptos.NConcepto WHERE Caja.Tipo = 1",
        "SELECT DISTINCT Vtos.*, Conceptos.Descripcion FROM (Vtos INNER JOIN Caja ON Caja.Factura "
        "= Vtos.NFactura) INNER JOIN Conceptos ON NOT Vtos.NConcepto = Conceptos.NConcepto WHERE "
        "Caja.Tipo = 1",
        "SELECT DISTINCT Vtos.*, Conceptos.Descripcion FROM (Vtos INNER JOIN Caja ON Caja.Factura "
        "= Vtos.NFactura) INNER JOIN Conceptos ON Vtos.NConcepto >= Conceptos.NConcepto WHERE "
        "Caja.Tipo = 1",
        "SELECT DISTINCT Vtos.*, Conceptos.Descripcion FROM (Vtos INNER JOIN Caja ON Caja.Factura "
        "= Vtos.NFactura) INNER JOIN Conceptos ON Vtos.Importe = Conceptos.NConcepto WHERE "
        "Caja.Tipo = 1",
        // Sorted by what the other has, or by nobody knows whose.
        "SELECT DISTINCT Vtos.* FROM Vtos INNER JOIN Caja ON Caja.Factura = Vtos.NFactura WHERE "
        "Caja.Tipo = 1 ORDER BY Caja.Tipo",
        "SELECT DISTINCT Vtos.* FROM Vtos INNER JOIN Caja ON Caja.Factura = Vtos.NFactura WHERE "
        "Caja.Tipo = 1 ORDER BY FechaVto",
        // The WHERE isn't there, or looks at the chosen table, at both, or at nobody knows which.
        "SELECT DISTINCT Vtos.* FROM Vtos INNER JOIN Caja ON Caja.Factura = Vtos.NFactura",
        "SELECT DISTINCT Vtos.* FROM Vtos WHERE Vtos.Importe = 1",
        "SELECT DISTINCT Vtos.*, Conceptos.Descripcion FROM Vtos INNER JOIN Conceptos ON "
        "Vtos.NConcepto = Conceptos.NConcepto WHERE Vtos.Importe = 1",
        "SELECT DISTINCT Vtos.* FROM Vtos INNER JOIN Caja ON Caja.Factura = Vtos.NFactura WHERE "
        "Vtos.Importe = 1",
        "SELECT DISTINCT Vtos.* FROM Vtos INNER JOIN Caja ON Caja.Factura = Vtos.NFactura WHERE "
        "Vtos.Importe > 1 OR Caja.Importe > 1",
        "SELECT DISTINCT Vtos.* FROM Vtos INNER JOIN Caja ON Caja.Factura = Vtos.NFactura WHERE "
        "Tipo = 1",
        // The joins aren't inner ones of two tables each, a way, and all of it.
        "SELECT DISTINCT Vtos.* FROM Vtos INNER JOIN Caja ON Caja.Factura = Vtos.NFactura AND "
        "Caja.Tipo = 1 WHERE Caja.Tipo = 1",
        "SELECT DISTINCT Vtos.* FROM Vtos LEFT JOIN Caja ON Caja.Factura = Vtos.NFactura WHERE "
        "Caja.Tipo = 1",
        "SELECT DISTINCT Vtos.* FROM Vtos, Caja WHERE Caja.Tipo = 1",
        "SELECT DISTINCT Vtos.* FROM (Vtos INNER JOIN Caja ON Caja.Factura = Vtos.NFactura) INNER "
        "JOIN Facturas ON Caja.Factura = Vtos.NFactura WHERE Caja.Tipo = 1",
        "SELECT DISTINCT Vtos.* FROM (Vtos INNER JOIN Caja ON Caja.Factura = Vtos.NFactura) INNER "
        "JOIN Facturas ON Facturas.Factura = Vtos.NFactura WHERE Caja.Tipo = 1",
        "SELECT DISTINCT Vtos.* FROM (Vtos INNER JOIN Caja ON Caja.Factura = Vtos.NFactura) INNER "
        "JOIN Facturas ON Facturas.Factura = Caja.Factura WHERE Caja.Tipo = 1",
        "SELECT DISTINCT Vtos.* FROM Vtos INNER JOIN Vtos ON Vtos.NFactura = Vtos.NFactura WHERE "
        "Vtos.Importe = 1"));

}  // namespace
