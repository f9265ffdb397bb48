#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "dialecto/traductor.h"
#include "esquema/esquema_sqlite.h"
#include "platform/carpeta_temporal.h"
#include "platform/filas_al_azar.h"
#include "sqlite/catalogo_sqlite.h"
#include "sqlite/dialecto_sqlite.h"

// The statements that look for rows by their numbers give what the plain ones give, in the same
// order.

namespace {

constexpr dialecto::Motor kSinNumeros = [] {
  dialecto::Motor motor = sqlite::DialectoSqlite;
  motor.NumeroDeFila = {};
  return motor;
}();

using pruebas::Sentencias;

class FilasDistintas : public testing::Test, protected pruebas::FilasAlAzar {
 protected:
  FilasDistintas() { conexion->Ejecutar("PRAGMA foreign_keys = OFF"); }

  std::string Traducida(const std::string& escrita, const dialecto::Motor& motor) {
    sqlite::Base base(carpeta.Fichero("datos.db"), {});
    sqlite::Catalogo catalogo(base);
    const auto sentencia =
        dialecto::Interprete(motor, catalogo).Leer(escrita, services::ModoApertura::Lectura);
    std::string texto;
    std::size_t parametro = 0;
    for (const char c : sentencia.Traducida->Texto) {
      texto += c == '?' ? "'" + sentencia.Parametros[parametro++].Texto() + "'" : std::string(1, c);
    }
    return texto;
  }
  /// As the connection reads them.
  std::vector<std::string> Leidas(const std::string& escrita) {
    const auto cursor = conexion->Abrir(escrita, services::ModoApertura::Lectura);
    return Textos(cursor->Leer(), cursor->Columnas().size());
  }
  static std::vector<std::string> Textos(const services::Filas& leidas, std::size_t columnas) {
    std::vector<std::string> filas;
    for (std::size_t i = 0; i < leidas.Cuantas(); ++i) {
      std::string fila;
      for (std::size_t j = 0; j < columnas; ++j) {
        const auto valor = leidas.En(i, j);
        fila += valor.EsNulo() ? "|NULL" : "|" + valor.Texto();
      }
      filas.push_back(fila);
    }
    return filas;
  }
  bool SeReescribe(const std::string& escrita) {
    return Traducida(escrita, sqlite::DialectoSqlite).find("rowid") != std::string::npos;
  }

  std::vector<std::string> Llanas(const std::string& escrita) {
    const auto leidas = conexion->Consultar(Traducida(escrita, kSinNumeros)).Filas;
    return Textos(leidas, leidas.Columnas());
  }
  void Comparar() {
    for (const std::string& escrita : Sentencias()) {
      const auto llanas = Llanas(escrita);
      ASSERT_EQ(Leidas(escrita), llanas) << escrita;
      vistas += llanas.size();
    }
  }
  /// Without a key the engine joins in another order, and so comes upon them in another.
  void CompararSinOrden() {
    for (const std::string& escrita : Sentencias()) {
      const auto llanas = Llanas(escrita);
      ASSERT_THAT(Leidas(escrita), testing::UnorderedElementsAreArray(llanas)) << escrita;
      vistas += llanas.size();
    }
  }

  pruebas::CarpetaTemporal carpeta;
  services::Ref<sqlite::Conexion> conexion =
      sqlite::AbrirConexion(carpeta.Fichero("datos.db"),
                            {.UnidadDeTrabajo = false, .Crear = true, .CualquierSentencia = true});
  std::size_t vistas = 0;
};

TEST_F(FilasDistintas, PorSusNumerosSonLasMismasYEnElMismoOrden) {
  esquema::CrearAlmacenadas(*conexion);
  for (int i = 0; i < 60; ++i) {
    conexion->Ejecutar(
        "BEGIN; DELETE FROM ProvFacturas; DELETE FROM ProvBasesIva; DELETE FROM ProvVencimientos; "
        "DELETE FROM ProvConceptos; " +
        Azar() + "COMMIT");
    Comparar();
  }
  EXPECT_GT(vistas, 5'000U);
  for (const std::string& escrita : Sentencias()) EXPECT_TRUE(SeReescribe(escrita)) << escrita;
}

/// The rows that lead to others may be of any kind: only of those others each must be known.
TEST_F(FilasDistintas, UnaTablaDelCaminoSinClaveConNulosYRepetidas) {
  esquema::CrearAlmacenadas(*conexion);
  conexion->Ejecutar(
      "DROP TABLE ProvVencimientos; CREATE TABLE ProvVencimientos (NConcepto VARCHAR(10) COLLATE "
      "ES, NFactura VARCHAR(20) COLLATE ES, Año VARCHAR(10) COLLATE ES, FechaVto VARCHAR(10) "
      "COLLATE ES, Importe DECIMAL(19,2), Pagado DECIMAL(19,2), Fechapago VARCHAR(10) COLLATE ES, "
      "Actualizado VARCHAR(20) COLLATE ES, ModificadoPor VARCHAR(30) COLLATE ES)");
  for (int i = 0; i < 30; ++i) {
    conexion->Ejecutar(
        "BEGIN; DELETE FROM ProvFacturas; DELETE FROM ProvBasesIva; DELETE FROM ProvVencimientos; "
        "DELETE FROM ProvConceptos; " +
        Azar() +
        "UPDATE ProvVencimientos SET NFactura = NULL WHERE rowid % 11 = 0; UPDATE "
        "ProvVencimientos SET NConcepto = NULL WHERE rowid % 13 = 0; UPDATE ProvVencimientos SET "
        "FechaVto = NULL WHERE rowid % 17 = 0; INSERT INTO ProvVencimientos SELECT * FROM "
        "ProvVencimientos WHERE rowid % 3 = 0; COMMIT");
    CompararSinOrden();
  }
  EXPECT_GT(vistas, 2'000U);
  int porNumero = 0;
  for (const std::string& escrita : Sentencias()) porNumero += SeReescribe(escrita) ? 1 : 0;
  EXPECT_EQ(porNumero, 5) << "todas menos la que elige las filas de esa tabla";
}

/// What it has of its own doesn't stand in their way.
TEST_F(FilasDistintas, UnFicheroConTablasDeNumeros) {
  esquema::CrearAlmacenadas(*conexion);
  conexion->Ejecutar(
      "CREATE TABLE Numeros (numero); CREATE TABLE NumerosDeFilas (orden); CREATE VIEW "
      "numeros_en_orden AS SELECT 1 AS numero;" +
      Azar());
  Comparar();
  EXPECT_GT(vistas, 20U);
}

/// The engine then takes its name for the column's.
TEST_F(FilasDistintas, UnaColumnaQueSeLlamaComoElNumeroDeFila) {
  esquema::CrearAlmacenadas(*conexion);
  std::string sql = Azar();
  for (const std::string tabla : {"ProvFacturas", "ProvBasesIva", "ProvVencimientos",
                                  "ProvConceptos", "ProvPrevisionPagos"}) {
    sql += "ALTER TABLE " + tabla + " ADD COLUMN RowId TEXT DEFAULT 'x';";
  }
  conexion->Ejecutar(sql);
  Comparar();
  EXPECT_GT(vistas, 20U);
  for (const std::string& escrita : Sentencias()) EXPECT_FALSE(SeReescribe(escrita)) << escrita;
}

/// Tables that another program has made, with the same columns.
class DeOtroPrograma : public FilasDistintas, public testing::WithParamInterface<const char*> {};

TEST_P(DeOtroPrograma, SinUnaClaveCierta) {
  esquema::CrearAlmacenadas(*conexion);
  const auto leida = conexion->Consultar(
      "SELECT sql FROM sqlite_schema WHERE type = 'table' AND name LIKE 'Prov%'");
  std::string sql;
  for (std::size_t i = 0; i < leida.Filas.Cuantas(); ++i) {
    std::string creacion = leida.Filas.En(i, 0).Texto();
    const std::string que = std::string(GetParam()).substr(0, std::string(GetParam()).find('|'));
    const std::string por = std::string(GetParam()).substr(que.size() + 1);
    for (std::size_t en = 0; (en = creacion.find(que, en)) != std::string::npos; en += por.size()) {
      creacion.replace(en, que.size(), por);
    }
    sql += creacion + ";";
  }
  conexion->Ejecutar(
      "DROP TABLE ProvFacturas; DROP TABLE ProvBasesIva; DROP TABLE ProvVencimientos; DROP TABLE "
      "ProvConceptos; DROP TABLE ProvPrevisionPagos;" +
      sql + Azar());
  Comparar();
  for (const std::string& escrita : Sentencias()) EXPECT_FALSE(SeReescribe(escrita)) << escrita;
}

INSTANTIATE_TEST_SUITE_P(Semirreunion, DeOtroPrograma,
                         testing::Values(" NOT NULL|", "PRIMARY KEY (|UNIQUE (",
                                         "COLLATE ES|COLLATE NOCASE"));

}  // namespace
