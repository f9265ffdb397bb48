#include <gtest/gtest.h>

#include "esquema/esquema_sqlite.h"
#include "platform/carpeta_temporal.h"
#include "sqlite/conexion_sqlite.h"

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
