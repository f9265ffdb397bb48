#include <gtest/gtest.h>

#include <filesystem>

#include "datos/recordset.h"
#include "esquema/esquema_sqlite.h"
#include "platform/carpeta_temporal.h"
#include "sqlite/conexion_sqlite.h"
#include "valores/error.h"

// A stored file that someone deletes or replaces while it is open.

namespace {

namespace fs = std::filesystem;

class FicheroMovido : public testing::Test {
 protected:
  FicheroMovido() { esquema::CrearAlmacenadas(*sqlite::AbrirConexion(fichero, {.Crear = true})); }

  static void Anadir(services::Conexion& conexion, const std::string& base) {
    services::Recordset rs;
    rs.Open("SELECT ProvBasesIva.* FROM ProvBasesIva", conexion, services::ModoApertura::Optimista);
    rs.AddNew();
    for (const char* columna : {"NConcepto", "NFactura", "Año"}) rs.Collect(columna) = "1";
    rs.Collect("Tipo") = base;
    rs.Update();
  }
  /// Why it fails; empty when it doesn't.
  template <class Accion>
  static std::string Motivo(const Accion& accion) {
    try {
      accion();
    } catch (const services::ErrorEjecucion& fallo) {
      EXPECT_EQ(fallo.Numero(), services::error::FalloDeConexion);
      return fallo.Descripcion();
    }
    return "";
  }
  static int Bases(sqlite::Conexion& conexion) {
    const auto resultado = conexion.Consultar("SELECT count(*) FROM ProvBasesIva");
    return static_cast<int>(resultado.Filas.En(0, 0).Numero());
  }

  pruebas::CarpetaTemporal carpeta;
  std::string fichero = carpeta.Fichero("datos.db");
  std::string otro = carpeta.Fichero("otro.db");
  std::string motivo =
      "Alguien ha borrado el fichero de la base de datos o lo ha sustituido por otro, y no se ha "
      "guardado nada: " +
      fichero + " (SQLite 1032)";
};

TEST_F(FicheroMovido, BorradoNoEmpiezaNingunaUnidad) {
  auto conexion = sqlite::AbrirConexion(fichero);
  fs::remove(fichero);
  EXPECT_EQ(Motivo([&] { Anadir(*conexion, "1"); }), motivo);
  // Whether or not anyone listened, the unit doesn't end well; and the next one fails anew.
  EXPECT_EQ(Motivo([&] { conexion->TerminarUnidad(); }), motivo);
  EXPECT_EQ(Motivo([&] { Anadir(*conexion, "1"); }), motivo);
  conexion->AbandonarUnidad();
  EXPECT_EQ(Bases(*conexion), 0);
}

TEST_F(FicheroMovido, SustituidoTampoco) {
  esquema::CrearAlmacenadas(*sqlite::AbrirConexion(otro, {.Crear = true}));
  auto conexion = sqlite::AbrirConexion(fichero);
  fs::rename(otro, fichero);
  EXPECT_EQ(Motivo([&] { Anadir(*conexion, "1"); }), motivo);
  conexion = nullptr;
  EXPECT_EQ(Bases(*sqlite::AbrirConexion(fichero)), 0);
}

TEST_F(FicheroMovido, CadaSentenciaPorSuCuentaTampoco) {
  auto conexion = sqlite::AbrirConexion(fichero, {.UnidadDeTrabajo = false});
  Anadir(*conexion, "1");
  fs::remove(fichero);
  EXPECT_EQ(Motivo([&] { Anadir(*conexion, "2"); }), motivo);
  EXPECT_EQ(Bases(*conexion), 1);
}

TEST_F(FicheroMovido, EnMitadDeUnaUnidadNoSeGuardaNada) {
  auto conexion = sqlite::AbrirConexion(fichero);
  Anadir(*conexion, "1");
  fs::rename(fichero, otro);
  EXPECT_EQ(Motivo([&] { conexion->TerminarUnidad(); }), motivo);
  EXPECT_EQ(Bases(*conexion), 0);
}

TEST_F(FicheroMovido, DeVueltaEnSuSitioEsElMismo) {
  auto conexion = sqlite::AbrirConexion(fichero);
  fs::rename(fichero, otro);
  EXPECT_EQ(Motivo([&] { Anadir(*conexion, "1"); }), motivo);
  conexion->AbandonarUnidad();
  fs::rename(otro, fichero);
  Anadir(*conexion, "1");
  conexion->TerminarUnidad();
  EXPECT_EQ(Bases(*sqlite::AbrirConexion(fichero)), 1);
}

TEST_F(FicheroMovido, LeerSeSigueLeyendo) {
  auto conexion = sqlite::AbrirConexion(fichero);
  Anadir(*conexion, "1");
  conexion->TerminarUnidad();
  fs::remove(fichero);
  EXPECT_EQ(Bases(*conexion), 1);
  conexion->TerminarUnidad();
}

TEST_F(FicheroMovido, UnaExclusivaSigueConElSuyo) {
  auto conexion = sqlite::AbrirConexion(fichero, {.Exclusiva = true});
  fs::remove(fichero);
  Anadir(*conexion, "1");
  conexion->TerminarUnidad();
  Anadir(*conexion, "2");
  conexion->TerminarUnidad();
  EXPECT_EQ(Bases(*conexion), 2);
}

}  // namespace
