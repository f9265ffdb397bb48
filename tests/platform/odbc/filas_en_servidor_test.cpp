#include "esquema/esquema_sqlite.h"
#include "platform/carpeta_temporal.h"
#include "platform/conformidad.h"
#include "platform/filas_al_azar.h"
#include "sqlite/conexion_sqlite.h"

// A server finds the rows of a load by what joins them. They are those that the joins find in a
// file of the embedded engine, taken by the letter.

namespace pruebas {
namespace {

class FilasEnServidor : public Conformidad {
 protected:
  static constexpr const char* kTablas[] = {"ProvConceptos", "ProvFacturas", "ProvBasesIva",
                                            "ProvVencimientos"};

  void Renovar() {
    std::string sql = "BEGIN;";
    for (const char* tabla : kTablas) sql += Texto("DELETE FROM ") + tabla + ";";
    fichero->Ejecutar(sql + azar.Azar() + "COMMIT");
    for (const char* tabla : kTablas) {
      const Texto todas = Texto("SELECT ") + tabla + ".* FROM " + tabla;
      Abrir(*conexion, Texto("DELETE FROM ") + tabla, Modo::Optimista);
      Copiar(*Abrir(*fichero, todas), *Abrir(*conexion, todas, Modo::Optimista));
    }
    conexion->TerminarUnidad();
  }
  static void Copiar(services::Recordset& de, services::Recordset& a) {
    for (; !de.Eof(); de.MoveNext()) {
      a.AddNew();
      for (std::size_t i = 0; i < de.CuantosFields(); ++i) {
        a.Fields(i).Value = services::Valor(de.Fields(i).Value);
      }
      a.UpdateLuego([](const auto& fallo) { throw services::ErrorEjecucion(fallo); });
    }
  }
  static std::vector<Texto> Textos(const services::Filas& filas, std::size_t columnas) {
    std::vector<Texto> textos;
    for (std::size_t i = 0; i < filas.Cuantas(); ++i) {
      Texto fila;
      for (std::size_t j = 0; j < columnas; ++j) {
        const auto valor = filas.En(i, j);
        fila += valor.EsNulo() ? "|NULL" : "|" + valor.Texto();
      }
      textos.push_back(fila);
    }
    return textos;
  }
  std::vector<Texto> Leidas(const Texto& sentencia) {
    const auto cursor = conexion->Abrir(sentencia, Modo::Lectura);
    return Textos(cursor->Leer(), cursor->Columnas().size());
  }
  /// What is trimmed has no order of its own there.
  std::vector<Texto> Llanas(Texto sentencia) {
    const auto recortada = sentencia.find(" = RTRIM");
    if (recortada != Texto::npos) sentencia.insert(recortada, " COLLATE ES");
    const auto filas = fichero->Consultar(sentencia).Filas;
    return Textos(filas, filas.Columnas());
  }

  FilasAlAzar azar;
  CarpetaTemporal carpeta;
  services::Ref<sqlite::Conexion> fichero =
      sqlite::AbrirConexion(carpeta.Fichero("datos.db"),
                            {.UnidadDeTrabajo = false, .Crear = true, .CualquierSentencia = true});
};

INSTANTIATE_TEST_SUITE_P(Motores, FilasEnServidor, testing::ValuesIn(Motores()), NombreDelMotor);

TEST_P(FilasEnServidor, SonLasQueHallanLasJuntas) {
  esquema::CrearAlmacenadas(*fichero);
  std::vector<Texto> todas = Sentencias();
  todas.insert(todas.end(), SentenciasSinBlancos().begin(), SentenciasSinBlancos().end());
  std::size_t vistas = 0;
  for (int i = 0; i < 30; ++i) {
    Renovar();
    for (const Texto& sentencia : todas) {
      const auto llanas = Llanas(sentencia);
      ASSERT_THAT(Leidas(sentencia), testing::UnorderedElementsAreArray(llanas)) << sentencia;
      vistas += llanas.size();
    }
  }
  EXPECT_GT(vistas, 2'500U);
}

}  // namespace
}  // namespace pruebas
