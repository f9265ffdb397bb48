#include "dialecto/sentencias.h"
#include "odbc/conexion_odbc.h"
#include "platform/banco_odbc.h"
#include "platform/conformidad.h"
#include "platform/filas_al_azar.h"

// How many rows a server goes through for what a load asks, by its own count: a few for each that
// it gives, also when all are of one supplier and it hasn't counted its tables yet.

namespace pruebas {
namespace {

class FilasMiradas : public Conformidad {
 protected:
  static constexpr std::int64_t kEnElPeriodo = 6'400;

  FilasMiradas() {
    Anadir("ProvConceptos", "NConcepto, Descripcion", "concat('', i), concat('Proveedor ', i)");
    Anadir("ProvPrevisionPagos", "NConcepto, Fecha1Vto, Cada, Tipo, Importe",
           "concat('', i), '20050315', 1, 2, 10");
    Anadir("CajaPagos", "idSucursal, FechaHora, Tipo, Importe, Factura, Año",
           "concat('', i), '2005-03-15 10:00:00', 400, 10, concat('F', i), '2005'");
    Llenar("F", "20050315");
    Llenar("A", "20040315");
  }

  odbc::Conexion& Suya() { return dynamic_cast<odbc::Conexion&>(*conexion); }

  /// Rows numbered by `i`.
  void Anadir(const Texto& tabla, const Texto& columnas, const Texto& valores) {
    banco->Ejecutar("INSERT INTO " + tabla + " (" + columnas +
                    ") WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < 79)"
                    ", m(i) AS (SELECT a.i * 80 + b.i FROM n AS a, n AS b) SELECT " +
                    valores + " FROM m");
  }
  /// Invoices of one supplier with a base and a due date each.
  void Llenar(const Texto& prefijo, const Texto& dia) {
    const Texto clave = "'400', concat('" + prefijo + "', i), '2005', ";
    Anadir("ProvFacturas", "NConcepto, Factura, Año, Fecha", clave + "'" + dia + "'");
    Anadir("ProvVencimientos", "NConcepto, NFactura, Año, FechaVto", clave + "'" + dia + "'");
    Anadir("ProvBasesIva", "NConcepto, NFactura, Año, Tipo", clave + "'16'");
  }
  /// With the supplier and the year of all invoices in it.
  static Texto DeTodas(Texto sentencia) {
    for (const auto& [antes, despues] :
         {std::pair("NConcepto like ''", "NConcepto like '400'"),
          std::pair("Año like ''", "Año like '2005'"), std::pair("Tipo like 0", "Tipo like 400")}) {
      const auto donde = sentencia.find(antes);
      if (donde != Texto::npos) sentencia.replace(donde, Texto(antes).size(), despues);
    }
    return sentencia;
  }
  std::int64_t Miradas() {
    const bool postgres = Suya().NombreDelMotor() == "PostgreSQL";
    if (postgres) Suya().Ejecutar("SELECT pg_stat_force_next_flush()");
    const auto cuenta = Suya().Consultar(
        postgres ? "SELECT sum(coalesce(seq_tup_read, 0) + coalesce(idx_tup_fetch, 0)) FROM "
                   "pg_stat_user_tables WHERE schemaname = current_schema()"
                 : "SELECT sum(VARIABLE_VALUE) FROM information_schema.SESSION_STATUS WHERE "
                   "VARIABLE_NAME LIKE 'HANDLER_READ%'");
    return std::stoll(cuenta.Filas.En(0, 0).Texto());
  }
};

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(FilasMiradas);
INSTANTIATE_TEST_SUITE_P(Servidores, FilasMiradas, testing::ValuesIn(Servidores()), NombreDelMotor);

TEST_P(FilasMiradas, UnaCargaMiraUnasPocasPorCadaUnaQueTrae) {
  for (const Texto& sentencia : Sentencias()) {
    if (sentencia.find("FechaVto") == Texto::npos) continue;
    const std::int64_t antes = Miradas();
    EXPECT_EQ(Abrir(*conexion, sentencia)->RecordCount(), kEnElPeriodo) << sentencia;
    const std::int64_t miradas = Miradas() - antes;
    EXPECT_GE(miradas, kEnElPeriodo) << "no se han contado: " << sentencia;
    EXPECT_LE(miradas, 20 * kEnElPeriodo) << sentencia;
  }
}

/// What the system looks for, or deletes, by a number or a date that nothing has.
TEST_P(FilasMiradas, LoQueNoEstaNoSeBuscaPorTodaLaTabla) {
  std::size_t probadas = 0;
  const auto abrir = [this](const Texto& sentencia, Modo modo) {
    Abrir(*conexion, sentencia, modo);
    conexion->AbandonarUnidad();  // one server counts at its end
  };
  for (const auto& [modo, escrita] : dialecto::Sentencias()) {
    const Texto sentencia = DeTodas(Texto(escrita));
    const bool almacenada = sentencia.find("Temp") == Texto::npos;
    if (!almacenada || sentencia.find("WHERE") == Texto::npos) continue;
    // Forecasts are few: a server may as well read them all, or the concepts that name them.
    const bool deTodos = sentencia.find("ProvPrevisionPagos") != Texto::npos;
    abrir(sentencia, modo);  // its tables are looked up
    const std::int64_t antes = Miradas();
    abrir(sentencia, modo);
    EXPECT_LE(Miradas() - antes, deTodos ? kEnElPeriodo + 100 : 100) << sentencia;
    ++probadas;
  }
  EXPECT_GE(probadas, 15U);
}

}  // namespace
}  // namespace pruebas
