#include "dialecto/interprete.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "apoyo/errores.h"
#include "catalogo_de_prueba.h"
#include "valores/error.h"

namespace {

using dialecto::Sentencia;
using dialecto::Traduccion;
using dialecto::Verbo;
using services::HacerFecha;
using services::Nulo;
using services::Valor;
using testing::ElementsAre;
namespace error = services::error;

constexpr dialecto::Motor kOrdenaQuienLee = [] {
  dialecto::Motor motor = pruebas::MotorDePrueba;
  motor.OrdenaQuienLee = true;
  return motor;
}();

class Banco {
 public:
  explicit Banco(const dialecto::Motor& motor = pruebas::MotorDePrueba)
      : interprete_(motor, catalogo_) {}
  Sentencia Leer(std::string_view texto) {
    return interprete_.Leer(texto, services::ModoApertura::Lectura);
  }
  const Traduccion& Traducir(std::string_view texto, bool conOcultas = false) {
    sentencia_ = interprete_.Leer(
        texto, conOcultas ? services::ModoApertura::Optimista : services::ModoApertura::Lectura);
    return *sentencia_.Traducida;
  }
  std::int32_t Error(std::string_view texto) {
    return apoyo::NumeroDeError([&] { Traducir(texto); });
  }

 private:
  pruebas::CatalogoDePrueba catalogo_;
  dialecto::Interprete interprete_;
  Sentencia sentencia_;
};

struct Caso {
  const char* escrita;
  const char* traducida;
  std::vector<Valor> parametros;
};

void PrintTo(const Caso& caso, std::ostream* salida) {
  *salida << caso.escrita;
}

class TraduccionTest : public testing::TestWithParam<Caso> {};

TEST_P(TraduccionTest, DaElTextoDelMotorYSusParametros) {
  Banco banco;
  const auto sentencia = banco.Leer(GetParam().escrita);
  EXPECT_EQ(sentencia.Traducida->Texto, GetParam().traducida);
  EXPECT_EQ(sentencia.Parametros, GetParam().parametros);
}

INSTANTIATE_TEST_SUITE_P(
    Borrados, TraduccionTest,
    testing::Values(
        Caso{"DELETE Caja.* FROM Caja", "DELETE FROM \"Caja\"", {}},
        Caso{"DELETE caja.* From CAJA", "DELETE FROM \"Caja\"", {}},
        Caso{"DELETE * FROM Caja", "DELETE FROM \"Caja\"", {}},
        Caso{"DELETE From Vtos WHERE Vtos.NConcepto like '5' and Vtos.Año like '2005' and "
             "RTRIM(LTRIM(Vtos.NFactura)) like 'A 1'",
             "DELETE FROM \"Vtos\" WHERE \"Vtos\".\"NConcepto\" = ? AND \"Vtos\".\"Año\" = ? AND "
             "RECORTE(\"Vtos\".\"NFactura\") = ?",
             {"5", "2005", "A 1"}},
        Caso{"DELETE Vtos.* FROM Vtos WHERE Trim(Vtos.NFactura) like 'A'And Vtos.FechaVto like "
             "'20050101'And Vtos.Año like '2005' ;",
             "DELETE FROM \"Vtos\" WHERE RECORTE(\"Vtos\".\"NFactura\") = ? AND "
             "\"Vtos\".\"FechaVto\" = ? AND \"Vtos\".\"Año\" = ?",
             {"A", "20050101", "2005"}}));

INSTANTIATE_TEST_SUITE_P(
    Consultas, TraduccionTest,
    testing::Values(
        Caso{"SELECT Caja.* From Caja", "SELECT \"Caja\".* FROM \"Caja\"", {}},
        Caso{"select * from caja", "SELECT \"Caja\".* FROM \"Caja\"", {}},
        Caso{"SELECT Caja.Factura, [Caja].[Año] FROM Caja Order by Caja.Año desc, Factura",
             "SELECT \"Caja\".\"Factura\", \"Caja\".\"Año\" FROM \"Caja\" ORDER BY "
             "\"Caja\".\"Año\" DESC, \"Factura\"",
             {}},
        Caso{"SELECT DISTINCT Vtos.*, Conceptos.Descripcion FROM (Vtos INNER JOIN Caja ON "
             "(Vtos.NFactura = Caja.Factura) AND (Vtos.Año = Caja.Año)) INNER JOIN Conceptos ON "
             "Vtos.NConcepto = Conceptos.NConcepto WHERE Vtos.FechaVto >= '20050101' And "
             "Vtos.FechaVto <= '20050131'  Order By Vtos.FechaVto",
             "SELECT DISTINCT \"Vtos\".*, \"Conceptos\".\"Descripcion\" FROM (\"Vtos\" INNER JOIN "
             "\"Caja\" ON (\"Vtos\".\"NFactura\" = \"Caja\".\"Factura\") AND (\"Vtos\".\"Año\" = "
             "\"Caja\".\"Año\")) INNER JOIN \"Conceptos\" ON \"Vtos\".\"NConcepto\" = "
             "\"Conceptos\".\"NConcepto\" WHERE \"Vtos\".\"FechaVto\" >= ? AND "
             "\"Vtos\".\"FechaVto\" <= ? ORDER BY \"Vtos\".\"FechaVto\"",
             {"20050101", "20050131"}},
        Caso{"SELECT V.* FROM Vtos AS V INNER JOIN Vtos AS V_1 ON (V.NFactura = "
             "V_1.NFactura)WHERE (((V_1.FechaVto)>='a' And (V_1.FechaVto)<='b'))",
             "SELECT \"V\".* FROM \"Vtos\" AS \"V\" INNER JOIN \"Vtos\" AS \"V_1\" ON "
             "(\"V\".\"NFactura\" = \"V_1\".\"NFactura\") WHERE (((\"V_1\".\"FechaVto\") >= ? AND "
             "(\"V_1\".\"FechaVto\") <= ?))",
             {"a", "b"}},
        Caso{"SELECT Sum(Caja.Importe) AS Importe, Caja.Factura, Caja.Tipo FROM Caja WHERE "
             "(Caja.Factura Is Null OR Caja.Factura = '') And Caja.FechaHora >= #1/31/2005 "
             "00:00:00# And Caja.FechaHora <= #2/1/2005# GROUP BY Caja.Factura, Caja.Tipo",
             "SELECT SUM(\"Caja\".\"Importe\") AS \"Importe\", \"Caja\".\"Factura\", "
             "\"Caja\".\"Tipo\" FROM \"Caja\" WHERE (\"Caja\".\"Factura\" IS NULL OR "
             "\"Caja\".\"Factura\" = ?) AND \"Caja\".\"FechaHora\" >= ? AND "
             "\"Caja\".\"FechaHora\" <= ? GROUP BY \"Caja\".\"Factura\", \"Caja\".\"Tipo\"",
             {"", HacerFecha(2005, 1, 31), HacerFecha(2005, 2, 1)}},
        Caso{"SELECT Caja.* FROM Caja WHERE NOT Caja.Factura IS NOT NULL",
             "SELECT \"Caja\".* FROM \"Caja\" WHERE NOT \"Caja\".\"Factura\" IS NOT NULL",
             {}}));

#define CONDICION(escrita, traducida, ...)                                                        \
  Caso {                                                                                          \
    "SELECT Caja.* FROM Caja WHERE " escrita, "SELECT \"Caja\".* FROM \"Caja\" WHERE " traducida, \
    {                                                                                             \
      __VA_ARGS__                                                                                 \
    }                                                                                             \
  }

INSTANTIATE_TEST_SUITE_P(
    Condiciones, TraduccionTest,
    testing::Values(CONDICION("Caja.Visible = True", "\"Caja\".\"Visible\" = ?", true),
                    CONDICION("Visible=0", "\"Visible\" = ?", false),
                    CONDICION("Caja.Tipo like 45", "\"Caja\".\"Tipo\" = ?", 45),
                    CONDICION("Caja.Tipo like '45'", "\"Caja\".\"Tipo\" = ?", 45),
                    CONDICION("Caja.Tipo = -3", "\"Caja\".\"Tipo\" = ?", -3),
                    CONDICION("Caja.Tipo like 'ab'", "\"Caja\".\"Tipo\" = ?", Nulo{}),
                    CONDICION("Caja.Tipo like '4%'", "\"Caja\".\"Tipo\" = ?", Nulo{}),
                    CONDICION("'45' = Caja.Tipo", "? = \"Caja\".\"Tipo\"", 45),
                    CONDICION("Importe > 12.5", "\"Importe\" > ?", 12.5),
                    CONDICION("Importe > '12,5'", "\"Importe\" > ?", 12.5),
                    CONDICION("Factura = 7", "\"Factura\" = ?", "7"),
                    CONDICION("Factura like 'a%'", "\"Factura\" = ?", "a%"),
                    CONDICION("Factura not like '_b'", "\"Factura\" <> ?", "_b"),
                    CONDICION("Factura not like 'b'", "\"Factura\" <> ?", "b"),
                    CONDICION("Factura = '%'", "\"Factura\" = ?", "%"),
                    CONDICION("Factura like 'O''Brien'", "\"Factura\" = ?", "O'Brien"),
                    CONDICION("trim(Factura) like 'ñ%'", "RECORTE(\"Factura\") = ?", "ñ%"),
                    CONDICION("LTRIM(RTRIM(Factura))='x'", "RECORTE(\"Factura\") = ?", "x"),
                    CONDICION("RTrim(Trim(Factura))='x'", "RECORTE(\"Factura\") = ?", "x"),
                    CONDICION("LTrim(Factura)='x'", "IZQ(\"Factura\") = ?", "x"),
                    CONDICION("RTrim(Factura)='x'", "DER(\"Factura\") = ?", "x"),
                    CONDICION("FechaHora like '05/03/2005 9:05:00'", "\"FechaHora\" = ?",
                              HacerFecha(2005, 3, 5, 9, 5, 0)),
                    CONDICION("FechaHora = '05/03/2005'", "\"FechaHora\" = ?",
                              HacerFecha(2005, 3, 5)),
                    CONDICION("FechaHora like '5/3/2005 09:05:00'", "\"FechaHora\" = ?",
                              HacerFecha(2005, 3, 5, 9, 5, 0)),
                    CONDICION("FechaHora like 'ayer'", "\"FechaHora\" = ?", Nulo{}),
                    CONDICION("FechaHora like '05/03/2005%'", "\"FechaHora\" = ?", Nulo{}),
                    CONDICION("Factura like Caja.Año", "\"Factura\" = \"Caja\".\"Año\""),
                    CONDICION("FechaHora = #3/5/2005 9:5:7#", "\"FechaHora\" = ?",
                              HacerFecha(2005, 3, 5, 9, 5, 7)),
                    CONDICION("(Caja.[Año]) <> 'a' or not (Tipo<>1)",
                              "(\"Caja\".\"Año\") <> ? OR NOT (\"Tipo\" <> ?)", "a", 1)));

class RechazoTest : public testing::TestWithParam<const char*> {};

TEST_P(RechazoTest, NoSeEntiende) {
  EXPECT_EQ(Banco().Error(GetParam()), error::SentenciaRechazada);
}

INSTANTIATE_TEST_SUITE_P(
    Sentencias, RechazoTest,
    testing::Values(
        "", " ", ";", "INSERT INTO Caja VALUES (1)", "UPDATE Caja SET Tipo = 1", "DROP TABLE Caja",
        "PRAGMA table_info(Caja)", "ATTACH 'x' AS y", "WITH a AS (SELECT 1)",
        "SELECT Caja.* FROM Caja; DELETE FROM Caja", "SELECT Caja.* FROM Caja;;",
        "SELECT Caja.* FROM Caja -- fin", "SELECT Caja.* FROM Caja /* fin */",
        "SELECT Caja.* FROM Caja UNION SELECT Caja.* FROM Caja",
        "SELECT Caja.* FROM Caja WHERE Tipo = (SELECT Tipo FROM Caja)",
        "SELECT Caja.* FROM Caja WHERE Factura like 'O'Brien'",
        "SELECT Caja.* FROM Caja WHERE Factura like 'O'Brien' And Año like '2005'",
        "SELECT Caja.* FROM Caja WHERE Factura like ''x''",
        "SELECT Caja.* FROM Caja WHERE Factura like 'x", "SELECT Caja.* FROM Caja WHERE Tipo like ",
        "SELECT Caja.* FROM Caja WHERE Tipo =  AND Año = '1'", "SELECT Caja.* FROM Caja WHERE",
        "SELECT Caja.* FROM Caja WHERE (Tipo = 1", "SELECT Caja.* FROM Caja WHERE Tipo = 1)",
        "SELECT Caja.* FROM Caja WHERE Tipo = 12abc", "SELECT Caja.* FROM Caja WHERE Tipo = 1 = 1",
        "SELECT Caja.* FROM Caja WHERE FechaHora = #31/31/2005#",
        "SELECT Caja.* FROM Caja WHERE FechaHora = #2/29/2005#",
        "SELECT Caja.* FROM Caja WHERE FechaHora = #1/1/2005 25:00:00#",
        "SELECT Caja.* FROM Caja WHERE FechaHora = #1/011/2005#",
        "SELECT Caja.* FROM Caja WHERE FechaHora = #1/11/2005 9:-0#",
        "SELECT Caja.* FROM Caja WHERE FechaHora = #1/1/02005#",
        "SELECT Caja.* FROM Caja WHERE FechaHora = #1/1/2005",
        "SELECT Caja.* FROM Caja WHERE load_extension('x')", "SELECT Caja.* FROM Caja WHERE $x",
        "SELECT Caja.* FROM Caja ORDER Tipo", "SELECT FROM Caja", "SELECT Caja.* Caja",
        "DELETE Caja", "DELETE Caja.Tipo FROM Caja", "DELETE FROM Caja, Vtos",
        "DELETE FROM Caja ORDER BY Tipo", "SELECT [Ca\"ja].* FROM Caja",
        "SELECT Caja.* FROM Caja LIMIT 1"));

#define DONDE(condicion) "DELETE FROM Caja WHERE " condicion

INSTANTIATE_TEST_SUITE_P(
    CondicionesSinColumna, RechazoTest,
    testing::Values(
        DONDE("Factura like 'A' or '1'='1'"), DONDE("Factura like '' or 1=1 or Año like ''"),
        DONDE("Factura like 'A' or '1' like '1'"), DONDE("Factura like 'A' or '1' not like '2'"),
        DONDE("Factura like 'A' or 2>1"), DONDE("Factura like 'A' or -1<>1"),
        DONDE("Factura like 'A' or True=True"),
        DONDE("Factura like 'A' or #1/1/2005# <= #1/2/2005#"),
        DONDE("Factura like 'A' or ('1')=(('1'))"), DONDE("Factura like 'A' or Trim('1')='1'"),
        DONDE("Factura like 'A' or '1'=LTrim(RTrim('1'))"), DONDE("Factura like 'A' or '1'"),
        DONDE("Factura like 'A' or 1"), DONDE("Factura like 'A' or True"),
        DONDE("Factura like 'A' or (True)"), DONDE("Factura like 'A' or Trim('1')"),
        DONDE("Factura like 'A' or not False"), DONDE("Factura like 'A' or not '1'='2'"),
        DONDE("Factura like 'A' or '1' is not null"), DONDE("'1' or Factura like 'A'"),
        DONDE("Factura like 'A' and '1'"), DONDE("'1' and Factura like 'A'"), DONDE("'1'='1'"),
        DONDE("'1'"), DONDE("('1')"), DONDE("True"), DONDE("Sum(1)"), DONDE("Sum(1) > 0"),
        "SELECT Caja.* FROM Caja INNER JOIN Vtos ON 1=1",
        "SELECT Caja.* FROM Caja INNER JOIN Vtos ON True",
        "SELECT Caja.* FROM Caja ORDER BY '1'='1'"));

#undef DONDE

TEST(Traductor, SoloUnaDescripciónSeBuscaPorPatrones) {
  Banco banco;
  const auto donde = [&](const std::string& condicion) {
    const std::string comienzo = "SELECT \"Conceptos\".* FROM \"Conceptos\" WHERE ";
    const auto& dicha =
        banco.Traducir("SELECT Conceptos.* From Conceptos WHERE " + condicion).Texto;
    EXPECT_TRUE(dicha.starts_with(comienzo)) << dicha;
    return dicha.substr(comienzo.size());
  };
  const std::string recortada = "RECORTE(\"Conceptos\".\"Descripcion\")";
  EXPECT_EQ(donde("trim(Conceptos.Descripcion) like 'lu%'"), recortada + " LIKE ?");
  EXPECT_EQ(donde("trim(Conceptos.Descripcion) like '_uz'"), recortada + " LIKE ?");
  EXPECT_EQ(donde("Descripcion not like '%z'"), "\"Descripcion\" NOT LIKE ?");
  EXPECT_EQ(donde("trim(Conceptos.Descripcion) like 'luz'"), recortada + " = ?");
  EXPECT_EQ(donde("trim(Conceptos.Descripcion) = 'lu%'"), recortada + " = ?");
  EXPECT_EQ(donde("trim(Conceptos.NConcepto) like '4%'"),
            "RECORTE(\"Conceptos\".\"NConcepto\") = ?");
}

TEST(Traductor, UnLiteralAUnSoloLadoSeEntiende) {
  Banco banco;
  EXPECT_EQ(banco.Error("SELECT Caja.* FROM Caja WHERE ('A') = Factura"), 0);
  EXPECT_EQ(banco.Error("SELECT Caja.* FROM Caja WHERE Factura = Trim(' A ')"), 0);
  EXPECT_EQ(banco.Error("SELECT Caja.* FROM Caja WHERE (Factura = 'A') = True"), 0);
  EXPECT_EQ(banco.Error("SELECT Caja.* FROM Caja WHERE Visible"), 0);
  EXPECT_EQ(banco.Error("SELECT 'A' AS Factura FROM Caja ORDER BY 'A'"), 0);
}

TEST(Traductor, LaCondiciónSinColumnaSeDiceDesdeDondeEmpieza) {
  const auto traducir = [] {
    Banco().Traducir("DELETE FROM Caja WHERE Factura like 'A' or '1'='1'");
  };
  EXPECT_THAT(apoyo::DescripcionDeError(traducir),
              testing::HasSubstr("ninguna columna, en «1'='1'»"));
}

TEST(Traductor, UnaTablaQueNoEstáTieneSuNúmero) {
  EXPECT_EQ(Banco().Error("SELECT Nada.* FROM Nada"), error::TablaDesconocida);
  EXPECT_EQ(Banco().Error("DELETE FROM Nada"), error::TablaDesconocida);
}

TEST(Traductor, UnaColumnaQueNoEstáTieneSuNúmero) {
  Banco banco;
  EXPECT_EQ(banco.Error("SELECT Caja.Fatura FROM Caja"), error::ColumnaDesconocida);
  EXPECT_EQ(banco.Error("SELECT Caja.* FROM Caja WHERE Trim(Caja.Fatura) like 'x'"),
            error::ColumnaDesconocida);
  EXPECT_EQ(banco.Error("SELECT Caja.* FROM Caja WHERE Vtos.Año = '1'"), error::ColumnaDesconocida);
  EXPECT_EQ(banco.Error("SELECT Caja.* FROM Caja WHERE Tipo like abc"), error::ColumnaDesconocida);
}

TEST(Traductor, MuchosParéntesisSeRechazanSinAgotarLaPila) {
  const std::string abiertos(100'000, '(');
  EXPECT_EQ(Banco().Error("SELECT Caja.* FROM Caja WHERE " + abiertos), error::SentenciaRechazada);
  EXPECT_EQ(Banco().Error("SELECT Caja.* FROM " + abiertos + "Caja"), error::SentenciaRechazada);
}

TEST(Traductor, DosSentenciasQueSoloDifierenEnLaClaveTienenElMismoTexto) {
  Banco banco;
  const std::string una = banco.Traducir("SELECT Caja.* FROM Caja WHERE Factura like 'A1'").Texto;
  EXPECT_EQ(banco.Traducir("SELECT caja.*  FROM caja where factura LIKE 'B-22'").Texto.size(),
            una.size());
  EXPECT_EQ(banco.Traducir("Select Caja.* from Caja WHERE Factura  Like 'B-22' ").Texto, una);
}

TEST(Traductor, SoloUnaTablaTalCualDejaEscribirEnElla) {
  Banco banco;
  EXPECT_EQ(banco.Traducir("SELECT Caja.Factura FROM Caja ORDER BY Tipo").Unica, "Caja");
  EXPECT_EQ(banco.Traducir("SELECT DISTINCT Caja.* FROM Caja").Unica, "");
  EXPECT_EQ(banco.Traducir("SELECT Sum(Importe) FROM Caja").Unica, "");
  EXPECT_EQ(banco.Traducir("SELECT Tipo FROM Caja GROUP BY Tipo").Unica, "");
  EXPECT_EQ(banco.Traducir("SELECT Caja.* FROM Caja, Vtos").Unica, "");
}

TEST(Traductor, LoQueSeVeYSeOrdenaPorTextosLoOrdenaQuienLoLee) {
  Banco banco(kOrdenaQuienLee);
  const auto porTextos = banco.Traducir(
      "SELECT Vtos.* FROM Vtos WHERE Año like '1' Order by Vtos.FechaVto, NConcepto asc");
  EXPECT_EQ(porTextos.Texto, "SELECT \"Vtos\".* FROM \"Vtos\" WHERE \"Año\" = ?");
  EXPECT_EQ(porTextos.Orden, (services::OrdenDeFilas{{3, 0}, {}}));
  EXPECT_THAT(
      banco.Traducir("SELECT Importe, Factura FROM Caja ORDER BY Caja.Factura").Orden.Textos,
      ElementsAre(1));
  for (const std::string orden :
       {"Factura desc", "Tipo, Factura", "Factura, FechaHora", "trim(Factura)", "Año"}) {
    const auto& dada =
        banco.Traducir("SELECT Factura, Tipo, FechaHora FROM Caja ORDER BY " + orden);
    EXPECT_THAT(dada.Texto, testing::HasSubstr(" ORDER BY ")) << orden;
    EXPECT_TRUE(dada.Orden.Ninguno()) << orden;
  }
  EXPECT_TRUE(banco.Traducir("SELECT DISTINCT Factura FROM Caja ORDER BY Factura").Orden.Ninguno());
  EXPECT_TRUE(banco.Traducir("SELECT Año AS Factura, Factura AS F FROM Caja ORDER BY Factura")
                  .Orden.Ninguno());
  EXPECT_TRUE(Banco().Traducir("SELECT Caja.* FROM Caja ORDER BY Factura").Orden.Ninguno())
      << "otro motor ordena lo suyo";
  EXPECT_TRUE(
      banco.Traducir("SELECT Caja.* FROM Caja, Vtos ORDER BY Caja.Factura").Orden.Ninguno());
}

TEST(Traductor, LoQueHallaLaFilaVaDetrásDeLasColumnas) {
  Banco banco;
  EXPECT_EQ(banco.Traducir("SELECT C.Factura FROM Caja AS C", true).Texto,
            "SELECT \"C\".\"Factura\", \"C\".fila FROM \"Caja\" AS \"C\"");
  EXPECT_EQ(banco.Traducir("SELECT DISTINCT Factura FROM Caja", true).Texto,
            "SELECT DISTINCT \"Factura\" FROM \"Caja\"");
}

TEST(Traductor, DaLasColumnasConSuNombreYSuTipo) {
  Banco banco;
  const std::string escrita =
      "SELECT Vtos.*, Caja.Tipo, Sum(Caja.Importe) AS Importe, trim(Caja.Año) FROM Caja, Vtos";
  const Traduccion& traducida = banco.Traducir(escrita);
  const auto& columnas = traducida.Columnas;
  const auto& origenes = traducida.Origenes;
  std::vector<std::string> nombres;
  for (const auto& columna : columnas) nombres.push_back(columna.Nombre);
  EXPECT_THAT(nombres, ElementsAre("NConcepto", "NFactura", "Año", "FechaVto", "Tipo", "Importe",
                                   "Expr1006"));
  EXPECT_EQ(columnas[4].Tipo, services::TipoColumna::Entero);
  EXPECT_EQ(origenes[4], "Tipo");
  EXPECT_EQ(columnas[5].Tipo, services::TipoColumna::Numero);
  EXPECT_EQ(origenes[5], "");
}

TEST(Traductor, DiceQuéVerboEs) {
  Banco banco;
  EXPECT_EQ(banco.Traducir("DELETE FROM Caja").Que, Verbo::Delete);
  EXPECT_EQ(banco.Traducir("SELECT * FROM Caja").Que, Verbo::Select);
}

}  // namespace
