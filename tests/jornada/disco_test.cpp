#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "guion/carpeta_temporal.h"
#include "jornada/partida.h"
#include "sqlite/conexion_sqlite.h"

// "Grabar" while the stored file can't be written: a clear message, nothing lost, and the next try
// works.

namespace {

using jornada::Partida;
using testing::HasSubstr;

class Disco : public testing::Test {
 protected:
  Disco() {
    EXPECT_EQ(partida
                  .Jugar(jornada::kEmpresa + kMuchas + "cargar\n" + jornada::kDosEntradas +
                         "celda MSFPagos 2 5\n")
                  .Salida,
              "");
    antes = partida.Jugar(jornada::kTablas).Salida;
    trabajo = partida.Jugar(kTrabajo).Salida;
  }

  /// Tries to save, which must fail with those words and leave everything as it was.
  void ExigirQueNoSeGraba(const std::string& palabras) {
    ExigirQueNadaCambio(palabras, partida.Jugar("pulsar BotonAceptar\n").Salida);
  }
  void ExigirQueNadaCambio(const std::string& palabras, const std::string& dicho) {
    EXPECT_THAT(dicho, HasSubstr(palabras));
    EXPECT_EQ(std::count(dicho.begin(), dicho.end(), '\n'), 1) << dicho;
    EXPECT_EQ(partida.Jugar(jornada::kTablas).Salida, antes);
    EXPECT_EQ(partida.Jugar(kTrabajo).Salida, trabajo);
    EXPECT_EQ(partida
                  .Jugar("espera celda MSFPagos 2 4 \"58,00\"\nespera marca MSFPagos 2 5 1\n"
                         "espera PicTexto.Visible \"0\"\n")
                  .Estado,
              0);
  }
  void ExigirQueAhoraSi() {
    EXPECT_EQ(partida.Jugar("pulsar BotonAceptar\n").Salida, "");
    EXPECT_EQ(partida
                  .Jugar("consulta datos SELECT Pagado, Fechapago FROM ProvVencimientos WHERE "
                         "NFactura = 'F1' AND FechaVto = '20050310'\n")
                  .Salida,
              "58|20050315\n(1 filas)\n");
    EXPECT_EQ(partida.Jugar("consulta datos SELECT Total FROM ProvFacturas WHERE Factura = 'N1'\n")
                  .Salida,
              "223\n(1 filas)\n");
  }

  inline static const std::string kMuchas = R"(
datos WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i < 300) INSERT INTO ProvFacturas SELECT '20','G'||i,'2005','20050301',116,'1',1,0,0,0,0,0,'x','y' FROM n
datos WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i < 300) INSERT INTO ProvVencimientos SELECT '20','G'||i,'2005','20050331',116,NULL,'','x','y' FROM n
)";
  inline static const std::string kTrabajo =
      "consulta local SELECT * FROM TempProvFacturas ORDER BY NConcepto, Factura\n"
      "consulta local SELECT NConcepto, NFactura, FechaVto, Importe FROM TempProvVencimientos "
      "ORDER BY NConcepto, NFactura, FechaVto\n";

  guion::CarpetaTemporal carpeta{false};
  const std::string datos = (carpeta.Ruta() / "datos.sqlite").string();
  Partida partida{[this] {
    guion::Opciones opciones;
    opciones.Datos = datos;
    return opciones;
  }()};
  std::string antes;
  std::string trabajo;
};

TEST_F(Disco, BloqueadoPorOtroProgramaSeDiceYLuegoSeGraba) {
  const auto otro = sqlite::AbrirConexion(datos);
  otro->Ejecutar("BEGIN IMMEDIATE");
  ExigirQueNoSeGraba("La base de datos está bloqueada por otro programa");
  otro->Ejecutar("COMMIT");
  ExigirQueAhoraSi();
}

TEST_F(Disco, LlenoSeDiceYLuegoSeGraba) {
  // Room for ever more of the commit: it runs out among the deletes at first, and then among the
  // inserts, where a row that fails by its own fault would be dropped without a word.
  const int paginas = std::stoi(partida.Jugar("consulta datos PRAGMA page_count\n").Salida);
  int intentos = 0;
  for (int libres = 0; libres < 400; libres += 2) {
    partida.Jugar("datos PRAGMA max_page_count = " + std::to_string(paginas + libres) + "\n");
    const std::string dicho = partida.Jugar("pulsar BotonAceptar\n").Salida;
    if (dicho.empty()) break;
    ++intentos;
    ExigirQueNadaCambio("No queda sitio en el disco para la base de datos", dicho);
  }
  EXPECT_GT(intentos, 5);
  partida.Jugar("datos PRAGMA max_page_count = 1000000\n");
  ExigirQueAhoraSi();
}

TEST_F(Disco, DeSoloLecturaSeDiceYLuegoSeGraba) {
  partida.Jugar("datos PRAGMA query_only = 1\n");
  ExigirQueNoSeGraba("La base de datos es de solo lectura");
  partida.Jugar("datos PRAGMA query_only = 0\n");
  ExigirQueAhoraSi();
}

TEST_F(Disco, BorradoSeDiceYDeVueltaSeGraba) {
  const std::string aparte = datos + ".aparte";
  std::filesystem::rename(datos, aparte);
  ExigirQueNoSeGraba(
      "Alguien ha borrado el fichero de la base de datos o lo ha sustituido por otro, "
      "y no se ha guardado nada: " +
      datos);
  std::filesystem::rename(aparte, datos);
  ExigirQueAhoraSi();
}

TEST_F(Disco, SustituidoSeDiceYNoSeGrabaEnNinguno) {
  const std::string copia = datos + ".copia";
  sqlite::AbrirConexion(datos)->CopiarEn(copia);
  std::filesystem::rename(copia, datos);
  ExigirQueNoSeGraba(
      "Alguien ha borrado el fichero de la base de datos o lo ha sustituido por otro");
  EXPECT_EQ(sqlite::AbrirConexion(datos)
                ->Consultar("SELECT count(*) FROM ProvFacturas WHERE Factura = 'N1'")
                .Filas.En(0, 0)
                .Numero(),
            0);
}

}  // namespace
