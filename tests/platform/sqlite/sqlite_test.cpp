#include "sqlite/conexion_sqlite.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <functional>

#include "apoyo/errores.h"
#include "esquema/esquema_sqlite.h"
#include "platform/banco.h"
#include "platform/carpeta_temporal.h"

namespace {

using apoyo::NumeroDeError;
using services::ModoApertura;
using testing::EndsWith;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::StartsWith;
namespace error = services::error;

class SqliteTest : public testing::Test {
 protected:
  std::string Descripcion(const std::function<void()>& accion) {
    try {
      accion();
    } catch (const services::ErrorEjecucion& fallo) {
      EXPECT_EQ(fallo.Numero(), error::FalloDeConexion);
      return fallo.Descripcion();
    }
    return "sin error";
  }
  std::string AlAbrir(const std::string& camino) {
    return Descripcion([&] { (void)sqlite::AbrirConexion(camino); });
  }
  void Crear() { esquema::CrearAlmacenadas(*sqlite::AbrirConexion(fichero, {.Crear = true})); }
  [[nodiscard]] services::Ref<sqlite::Conexion> Abrir(sqlite::Opciones opciones = {}) const {
    opciones.CualquierSentencia = true;
    return sqlite::AbrirConexion(fichero, opciones);
  }
  /// Makes the file, of its rows half as they were.
  void Danar() {
    Crear();
    {
      auto conexion = Abrir();
      for (int i = 0; i < 3000; ++i) Anadir(*conexion, std::to_string(i));
      conexion->TerminarUnidad();
      conexion->Ejecutar("PRAGMA wal_checkpoint(TRUNCATE)");
    }
    std::fstream roto(fichero, std::ios::in | std::ios::out | std::ios::binary);
    const auto mitad = std::filesystem::file_size(fichero) / 2;
    roto.seekp(static_cast<std::streamoff>(mitad));
    roto << std::string(mitad, '\xEE');
  }
  static void Anadir(services::Conexion& conexion, const std::string& concepto) {
    auto rs = services::Crear<services::Recordset>();
    rs->Open("SELECT ProvConceptos.* FROM ProvConceptos", conexion, ModoApertura::Optimista);
    rs->AddNew();
    rs->Collect("NConcepto") = concepto;
    rs->Update();
  }
  static std::int64_t Cuantos(services::Conexion& conexion) {
    auto rs = services::Crear<services::Recordset>();
    rs->Open("SELECT ProvConceptos.* FROM ProvConceptos", conexion, ModoApertura::Lectura);
    return rs->RecordCount();
  }

  pruebas::CarpetaTemporal carpeta;
  std::string fichero = carpeta.Fichero("datos.db");
};

TEST_F(SqliteTest, UnFicheroQueNoEstáSeDiceYNoSeCrea) {
  const auto descripcion = AlAbrir(fichero);
  EXPECT_THAT(descripcion, StartsWith("No se puede abrir el fichero de la base de datos"));
  EXPECT_THAT(descripcion, HasSubstr(fichero));
  EXPECT_FALSE(std::filesystem::exists(fichero));
}

TEST_F(SqliteTest, UnaCarpetaNoEsUnaBaseDeDatos) {
  EXPECT_THAT(AlAbrir(carpeta.Camino()), StartsWith("No se puede abrir"));
}

TEST_F(SqliteTest, UnFicheroQueNoEsBaseDeDatosSeDice) {
  std::ofstream(fichero) << std::string(4096, 'x');
  EXPECT_EQ(AlAbrir(fichero), "El fichero no es una base de datos: " + fichero + " (SQLite 26)");
}

TEST_F(SqliteTest, UnFicheroDañadoSeDice) {
  Danar();
  EXPECT_THAT(Descripcion([&] { Cuantos(*Abrir()); }),
              MatchesRegex("El fichero de la base de datos está dañado: " + fichero +
                           " \\(SQLite [0-9]+\\)"));
}

TEST_F(SqliteTest, UnoAdjuntoDañadoSeNombraConElSuyo) {
  Danar();
  const std::string otro = carpeta.Fichero("otro.db");
  const auto conexion = sqlite::AbrirConexion(otro, {.Crear = true});
  conexion->Adjuntar(fichero, "roto");
  const auto mirar = [&] { (void)conexion->Consultar("SELECT count(*) FROM roto.ProvConceptos"); };
  EXPECT_THAT(Descripcion(mirar), HasSubstr("está dañado: " + otro + ", o " + fichero + " ("));
}

TEST_F(SqliteTest, UnoQueNoSePuedeAdjuntarSeNombra) {
  Crear();
  const std::string otro = carpeta.Fichero("otro.db");
  std::ofstream(otro) << std::string(4096, 'x');
  EXPECT_EQ(Descripcion([&] { Abrir()->Adjuntar(otro, "otro"); }),
            "El fichero no es una base de datos: " + otro + " (SQLite 26)");
}

TEST_F(SqliteTest, UnoBloqueadoEsperaYLuegoLoDice) {
  Crear();
  auto ocupante = Abrir();
  Anadir(*ocupante, "1");
  auto conexion = Abrir({.EsperaMs = 150});
  const auto antes = std::chrono::steady_clock::now();
  const auto descripcion = Descripcion([&] { Anadir(*conexion, "2"); });
  EXPECT_GE(std::chrono::steady_clock::now() - antes, std::chrono::milliseconds(100));
  EXPECT_THAT(descripcion, StartsWith("La base de datos está bloqueada por otro programa"));
  EXPECT_THAT(descripcion, EndsWith(": " + fichero + " (SQLite 5)"));
  ocupante->TerminarUnidad();
  // What wasn't written is missing from the unit, so the unit doesn't end well, listened to or not.
  EXPECT_EQ(Descripcion([&] { Anadir(*conexion, "2"); }), descripcion);
  EXPECT_EQ(Descripcion([&] { conexion->TerminarUnidad(); }), descripcion);
  Anadir(*conexion, "2");
  conexion->TerminarUnidad();
  EXPECT_EQ(Cuantos(*ocupante), 2);
}

TEST_F(SqliteTest, LoQueElFicheroGuardaVuelveACaberEnSusTablas) {
  Crear();
  auto conexion = Abrir();
  conexion->Ejecutar(
      "INSERT INTO ProvFacturas VALUES ('12345678901', 'F-2005-0123456789012345678', '2005', "
      "'20050301', 12345678901234.5, '2', 3000000000, 0, 0, 15.5, 0, 0, 'x', 'y')");
  auto leida = services::Crear<services::Recordset>();
  const char* facturas = "SELECT ProvFacturas.* FROM ProvFacturas";
  leida->Open(facturas, *conexion, ModoApertura::Lectura);
  conexion->Ejecutar("DELETE FROM ProvFacturas");
  auto escrita = services::Crear<services::Recordset>();
  escrita->Open(facturas, *conexion, ModoApertura::Optimista);
  escrita->AddNew();
  for (std::size_t i = 0; i < 14; ++i) escrita->Fields(i).Value = leida->Fields(i).Value;
  escrita->Update();
  for (std::size_t i = 0; i < 14; ++i) {
    EXPECT_EQ(escrita->Fields(i).Value.Leer(), leida->Fields(i).Value.Leer()) << i;
  }
  EXPECT_EQ(escrita->Fields("NRecibos").Value.Leer(), services::Valor(3e9));
}

TEST_F(SqliteTest, BloqueadoParaEscribirSeSigueLeyendo) {
  Crear();
  auto ocupante = Abrir();
  Anadir(*ocupante, "1");
  EXPECT_EQ(Cuantos(*Abrir({.EsperaMs = 0})), 0);
}

TEST_F(SqliteTest, UnFicheroDeSoloLecturaSeLeeYNoSeEscribe) {
  Crear();
  // A file's permissions don't bind the superuser, so the test becomes somebody else meanwhile.
  const bool esRoot = ::geteuid() == 0;
  ::chmod(carpeta.Camino().c_str(), 0755);
  ::chmod(fichero.c_str(), 0444);
  auto ocupante = Abrir();
  EXPECT_EQ(Cuantos(*ocupante), 0);
  ASSERT_TRUE(!esRoot || ::seteuid(65534) == 0);
  const auto descripcion = Descripcion([&] {
    auto conexion = Abrir();
    Anadir(*conexion, "1");
  });
  ASSERT_TRUE(!esRoot || ::seteuid(0) == 0);
  EXPECT_THAT(descripcion, testing::AnyOf(StartsWith("La base de datos es de solo lectura"),
                                          StartsWith("No se puede abrir")));
  EXPECT_EQ(Cuantos(*ocupante), 0);
}

TEST_F(SqliteTest, AbiertoDeSoloLecturaNoSeTocaElFichero) {
  sqlite::Opciones soloLectura;
  soloLectura.SoloLectura = true;
  Crear();
  const auto conexion = Abrir(soloLectura);
  EXPECT_EQ(Cuantos(*conexion), 0);
  EXPECT_THAT(Descripcion([&] { Anadir(*conexion, "1"); }),
              StartsWith("La base de datos es de solo lectura"));

  fichero = carpeta.Fichero("vacio");
  std::ofstream(fichero).close();
  (void)Abrir(soloLectura);
  EXPECT_EQ(std::filesystem::file_size(fichero), 0U);
}

TEST_F(SqliteTest, SinSitioEnElDiscoLaUnidadSePierdeEntera) {
  Crear();
  auto conexion = Abrir();
  Anadir(*conexion, "antes");
  conexion->TerminarUnidad();
  conexion->Ejecutar("PRAGMA cache_size = 10; PRAGMA cache_spill = 1");
  const auto paginas = conexion->Consultar("PRAGMA page_count").Filas.En(0, 0).Numero();
  conexion->Ejecutar("PRAGMA max_page_count = " + std::to_string(static_cast<int>(paginas) + 2));
  Anadir(*conexion, "primera");
  std::string descripcion = "sin error";
  for (int i = 0; i < 5000 && descripcion == "sin error"; ++i) {
    descripcion = Descripcion([&] { Anadir(*conexion, std::to_string(i)); });
  }
  EXPECT_THAT(descripcion, StartsWith("No queda sitio en el disco"));
  const bool seguia = NumeroDeError([&] { conexion->TerminarUnidad(); }) == 0;
  const auto quedan = Cuantos(*Abrir());
  EXPECT_EQ(quedan > 1, seguia);
}

TEST_F(SqliteTest, SiElMotorDeshaceLaUnidadNadaMásSeEscribeEnElla) {
  Crear();
  auto conexion = Abrir();
  Anadir(*conexion, "1");
  conexion->Ejecutar("ROLLBACK");
  EXPECT_THAT(Descripcion([&] { Anadir(*conexion, "2"); }), HasSubstr("no se han guardado"));
  EXPECT_THAT(Descripcion([&] { conexion->TerminarUnidad(); }), HasSubstr("no se han guardado"));
  EXPECT_EQ(Cuantos(*conexion), 0);
  Anadir(*conexion, "3");
  conexion->TerminarUnidad();
  EXPECT_EQ(Cuantos(*conexion), 1);
}

TEST_F(SqliteTest, LaBitácoraEsAntepuestaYLaSincronizaciónLaPedida) {
  Crear();
  auto plena = Abrir();
  EXPECT_EQ(plena->Consultar("PRAGMA journal_mode").Filas.En(0, 0).Texto(), "wal");
  EXPECT_EQ(plena->Consultar("PRAGMA synchronous").Filas.En(0, 0).Numero(), 2);
  auto normal = Abrir({.Durabilidad = sqlite::Sincronizacion::Normal});
  EXPECT_EQ(normal->Consultar("PRAGMA synchronous").Filas.En(0, 0).Numero(), 1);
}

TEST_F(SqliteTest, UnFicheroConOtrasPáginasSigueConEllasYSeCopia) {
  Crear();
  const auto paginas = [](sqlite::Conexion& conexion) {
    return conexion.Consultar("PRAGMA page_size").Filas.En(0, 0).Numero();
  };
  EXPECT_EQ(paginas(*Abrir()), 8192);
  Abrir()->Ejecutar("PRAGMA journal_mode = DELETE; PRAGMA page_size = 4096; VACUUM");
  auto conexion = Abrir({.Crear = true});
  EXPECT_EQ(paginas(*conexion), 4096);
  for (int i = 0; i < 300; ++i) Anadir(*conexion, std::to_string(i));
  conexion->TerminarUnidad();
  const std::string copia = carpeta.Fichero("copia.db");
  conexion->CopiarEn(copia);
  EXPECT_EQ(Cuantos(*sqlite::AbrirConexion(copia, {.CualquierSentencia = true})), 300);
}

TEST_F(SqliteTest, ConsultarDaLosTiposDeclarados) {
  Crear();
  auto conexion = Abrir();
  conexion->Ejecutar(
      "INSERT INTO CajaPagos (idSucursal, FechaHora, Tipo, Importe) VALUES "
      "('1', '2005-03-15 10:00:00', 7, 12)");
  const auto [columnas, filas] =
      conexion->Consultar("SELECT FechaHora, Tipo, Importe, Factura, 1 + 1 AS Dos FROM CajaPagos");
  ASSERT_EQ(filas.Cuantas(), 1U);
  EXPECT_EQ(columnas[0].Tipo, services::TipoColumna::FechaHora);
  EXPECT_EQ(columnas[4].Nombre, "Dos");
  EXPECT_EQ(filas.En(0, 0), services::Valor(services::HacerFecha(2005, 3, 15, 10, 0, 0)));
  EXPECT_EQ(filas.En(0, 1), services::Valor(7));
  EXPECT_EQ(filas.En(0, 2), services::Valor(12.0));
  EXPECT_TRUE(filas.En(0, 3).EsNulo());
}

TEST_F(SqliteTest, EjecutarConUnErrorDiceCuál) {
  Crear();
  auto conexion = Abrir();
  EXPECT_EQ(NumeroDeError([&] { conexion->Ejecutar("SELEC 1"); }), error::SentenciaRechazada);
  EXPECT_EQ(NumeroDeError([&] { conexion->Ejecutar("SELECT * FROM Nada"); }),
            error::TablaDesconocida);
  EXPECT_EQ(NumeroDeError([&] { conexion->Ejecutar("SELECT Nada FROM CajaPagos"); }),
            error::ColumnaDesconocida);
  EXPECT_EQ(NumeroDeError([&] { (void)conexion->Consultar("SELECT Nada FROM CajaPagos"); }),
            error::ColumnaDesconocida);
}

TEST_F(SqliteTest, UnaTablaCreadaDespuésSeEncuentra) {
  Crear();
  auto conexion = Abrir();
  auto rs = services::Crear<services::Recordset>();
  const auto abrir = [&] {
    rs->Open("SELECT Nueva.* FROM Nueva", *conexion, ModoApertura::Lectura);
  };
  EXPECT_EQ(NumeroDeError(abrir), error::TablaDesconocida);
  conexion->Ejecutar("CREATE TABLE Nueva (A VARCHAR(3) COLLATE ES)");
  EXPECT_EQ(NumeroDeError(abrir), 0);
}

}  // namespace
