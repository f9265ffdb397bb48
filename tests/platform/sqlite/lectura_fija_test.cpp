#include <gtest/gtest.h>

#include "esquema/esquema_sqlite.h"
#include "platform/carpeta_temporal.h"
#include "sqlite/conexion_sqlite.h"
#include "valores/error.h"

// Reading of one moment, while another connection writes.

namespace {

using services::LecturaFija;

class Lectura : public testing::Test {
 protected:
  Lectura() { esquema::CrearAlmacenadas(*otra); }

  [[nodiscard]] services::Ref<sqlite::Conexion> Abrir(bool unidad = true) const {
    return sqlite::AbrirConexion(
        carpeta.Fichero("datos.db"),
        {.UnidadDeTrabajo = unidad, .Crear = true, .CualquierSentencia = true, .EsperaMs = 0});
  }
  void OtraEscribe() {
    otra->Ejecutar("INSERT INTO ProvConceptos (NConcepto) VALUES ('" + std::to_string(++escritas) +
                   "')");
  }
  static std::size_t Conceptos(services::Conexion& conexion) {
    return conexion
        .Abrir("SELECT ProvConceptos.* FROM ProvConceptos", services::ModoApertura::Lectura)
        ->Leer()
        .Cuantas();
  }
  static void Borrar(services::Conexion& conexion, const std::string& concepto) {
    (void)conexion.Abrir(
        "DELETE FROM ProvConceptos WHERE ProvConceptos.NConcepto = '" + concepto + "'",
        services::ModoApertura::Optimista);
  }

  pruebas::CarpetaTemporal carpeta;
  services::Ref<sqlite::Conexion> otra = Abrir();
  int escritas = 0;
};

TEST_F(Lectura, VeLoDelPrimerMomentoAunqueOtroEscriba) {
  const auto conexion = Abrir();
  OtraEscribe();
  {
    const LecturaFija deUnMomento(*conexion);
    EXPECT_EQ(Conceptos(*conexion), 1);
    OtraEscribe();
    EXPECT_EQ(Conceptos(*conexion), 1);
  }
  EXPECT_EQ(Conceptos(*conexion), 2);
  EXPECT_EQ(conexion->Cuenta().Transacciones, 0) << "no es una unidad: nada se ha escrito";
}

TEST_F(Lectura, EscribirLaTerminaYNoEsperaANadie) {
  for (const bool unidad : {true, false}) {
    const auto conexion = Abrir(unidad);
    OtraEscribe();
    const std::size_t antes = Conceptos(*conexion);
    {
      const LecturaFija deUnMomento(*conexion);
      EXPECT_EQ(Conceptos(*conexion), antes);
      OtraEscribe();
      Borrar(*conexion, std::to_string(escritas));
      EXPECT_EQ(Conceptos(*conexion), antes);
    }
    conexion->TerminarUnidad();
    EXPECT_EQ(Conceptos(*otra), antes) << "queda grabado lo escrito";
  }
}

TEST_F(Lectura, EnUnaUnidadEnCursoNoLaTermina) {
  const auto conexion = Abrir();
  OtraEscribe();
  Borrar(*conexion, "1");
  {
    const LecturaFija deUnMomento(*conexion);
    EXPECT_EQ(Conceptos(*conexion), 0);
  }
  conexion->AbandonarUnidad();
  EXPECT_EQ(Conceptos(*conexion), 1);
}

TEST_F(Lectura, UnaDentroDeOtraNoLaTermina) {
  const auto conexion = Abrir();
  const LecturaFija deUnMomento(*conexion);
  EXPECT_EQ(Conceptos(*conexion), 0);
  { const LecturaFija otraDentro(*conexion); }
  OtraEscribe();
  EXPECT_EQ(Conceptos(*conexion), 0);
}

TEST_F(Lectura, ElSqlPropioLaTermina) {
  const auto conexion = Abrir();
  const LecturaFija deUnMomento(*conexion);
  EXPECT_EQ(Conceptos(*conexion), 0);
  OtraEscribe();
  conexion->Ejecutar("INSERT INTO ProvConceptos (NConcepto) VALUES ('propio')");
  EXPECT_EQ(Conceptos(*otra), 2) << "ni choca con lo del otro ni lo deja esperando";
}

/// What the engine has undone isn't made half of by a reading that begins then.
TEST_F(Lectura, SobreUnaUnidadDeshechaNoLaTapa) {
  OtraEscribe();
  for (const bool escribe : {true, false}) {
    const auto conexion = Abrir();
    Borrar(*conexion, "1");
    conexion->Ejecutar("ROLLBACK");
    const LecturaFija deUnMomento(*conexion);
    if (escribe) {
      EXPECT_THROW(Borrar(*conexion, "1"), services::ErrorEjecucion);
    }
    EXPECT_THROW(conexion->TerminarUnidad(), services::ErrorEjecucion);
    EXPECT_EQ(Conceptos(*otra), 1);
  }
}

TEST_F(Lectura, OtraPuedeVaciarElDiarioEnCuantoTermina) {
  const auto conexion = Abrir();
  {
    const LecturaFija deUnMomento(*conexion);
    EXPECT_EQ(Conceptos(*conexion), 0);
    OtraEscribe();
  }
  const auto vaciado = otra->Consultar("PRAGMA wal_checkpoint(TRUNCATE)").Filas;
  EXPECT_EQ(vaciado.En(0, 0).Numero(), 0) << "nadie lo retiene";
}

}  // namespace
