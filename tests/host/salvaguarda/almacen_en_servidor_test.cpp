#include "salvaguarda/almacen_en_servidor.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "apoyo/negocio_de_prueba.h"
#include "datos/recordset.h"
#include "esquema/esquema_de_servidor.h"
#include "esquema/esquema_sqlite.h"
#include "platform/carpeta_temporal.h"
#include "platform/filas_al_azar.h"
#include "platform/servidores_de_prueba.h"
#include "salvaguarda/ambito.h"
#include "salvaguarda/copia_en_curso.h"
#include "salvaguarda/foto.h"
#include "salvaguarda/recuperacion.h"

// The same rows in a file and on a server: who keeps them finds the same in both, and puts the same
// back.

namespace {

using salvaguarda::Almacen;
using salvaguarda::Claves;
using Textos = std::vector<std::string>;

constexpr const char* kTablas[] = {"ProvConceptos",    "ProvFacturas",       "ProvBasesIva",
                                   "ProvVencimientos", "ProvPrevisionPagos", "CajaPagos"};
const salvaguarda::Rango kMarzo{"20050301", "20050331"};

std::string NombreNuevo() {
  static int cuantos = 0;
  return "almacen_" + std::to_string(getpid()) + "_" + std::to_string(++cuantos);
}

std::string Todas(const std::string& tabla) {
  return "SELECT " + tabla + ".* FROM " + tabla;
}

Textos EnTextos(const services::Filas& filas, std::size_t columnas) {
  Textos textos;
  for (std::size_t i = 0; i < filas.Cuantas(); ++i) {
    std::string fila;
    for (std::size_t j = 0; j < columnas; ++j) {
      const auto valor = filas.En(i, j);
      fila += valor.EsNulo() ? "|NULL" : "|" + valor.Texto();
    }
    textos.push_back(fila);
  }
  std::ranges::sort(textos);
  return textos;
}

Textos Guardadas(services::Conexion& base) {
  Textos textos;
  for (const char* tabla : kTablas) {
    const auto cursor = base.Abrir(Todas(tabla), services::ModoApertura::Lectura);
    const Textos suyas = EnTextos(cursor->Leer(), cursor->Columnas().size());
    textos.push_back(tabla);
    textos.insert(textos.end(), suyas.begin(), suyas.end());
  }
  return textos;
}

/// As far as the letters of these rows go.
std::string EnMinusculas(std::string texto) {
  for (char& c : texto) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  for (const auto& [mayuscula, minuscula] : {std::pair("Ñ", "ñ"), std::pair("É", "é")}) {
    for (auto i = texto.find(mayuscula); i != std::string::npos; i = texto.find(mayuscula)) {
      texto.replace(i, std::string_view(mayuscula).size(), minuscula);
    }
  }
  return texto;
}

/// All that a file of the guard's has, but for what is always another. Of the keys one spelling of
/// each, whichever came first.
Textos Escritas(const std::string& fichero) {
  const auto base = sqlite::AbrirConexion(fichero);
  Textos textos;
  const auto tablas = base->Consultar(
                              "SELECT name FROM sqlite_schema WHERE type = 'table' AND name NOT IN "
                              "('Foto', 'Copia') ORDER BY name")
                          .Filas;
  for (std::size_t i = 0; i < tablas.Cuantas(); ++i) {
    const std::string tabla = tablas.En(i, 0).Texto();
    const auto filas = base->Consultar("SELECT * FROM " + tabla).Filas;
    textos.push_back(tabla);
    Textos suyas = EnTextos(filas, filas.Columnas());
    if (tabla.starts_with("Claves") || tabla == "DelRango") {
      for (std::string& una : suyas) una = EnMinusculas(una);
      std::ranges::sort(suyas);
    }
    textos.insert(textos.end(), suyas.begin(), suyas.end());
  }
  return textos;
}

class AzarEntero : public pruebas::FilasAlAzar {
 public:
  std::string Azar() {
    std::string sql = FilasAlAzar::Azar();
    for (int i = 0; i < 6; ++i) {
      sql +=
          "INSERT OR IGNORE INTO ProvPrevisionPagos (NConcepto, Fecha1Vto, Importe, Actualizado) "
          "VALUES (" +
          Concepto() + "," + Dia() + "," + Dinero() + "," + Sello() + ");";
    }
    for (int i = 0; i < 30; ++i) {
      sql +=
          "INSERT OR IGNORE INTO CajaPagos (idSucursal, FechaHora, Tipo, Importe, Factura, Año) "
          "VALUES (" +
          Texto({"01", "a", "A"}) + ",'2005-03-" + Una<std::string>({"01", "15"}) + " 1" +
          Una<std::string>({"0", "2", "3"}) + ":00:00'," + Una<std::string>({"1", "2", "7"}) + "," +
          Dinero() + "," + Una<std::string>({Numero(), "NULL", "''"}) + "," + Anio() + ");";
    }
    return sql;
  }
  /// Some keys, that may be stored or not.
  salvaguarda::Claves Claves() {
    salvaguarda::Claves claves;
    const Textos conceptos{"1", "A", "ñ", "zz"};
    const Textos numeros{"f1", "F1 ", "L'A", "nueva", "", "No5"};
    for (int i = 0; i < 8; ++i) {
      auto& cuales = i % 2 == 0 ? claves.EnLaLista : claves.SoloConBases;
      cuales.push_back({Una(conceptos), Una(numeros), Una<std::string>({"2004", "2005"})});
    }
    claves.Previsiones = {Una(conceptos), "á"};
    claves.Apuntes = {{"01", "2005-03-01 10:00:00", "1"}, {"A", "2005-03-15 13:00:00", "7"}};
    return claves;
  }
};

class AlmacenDeLosDos : public testing::TestWithParam<pruebas::ServidorDePrueba> {
 protected:
  AlmacenDeLosDos() {
    esquema::CrearAlmacenadas(*fichero);
    esquema::CrearAlmacenadas(*servidor);
    servidor->AlEmpezarUnidad(esquema::kTurno);
    almacenes.push_back(
        std::make_unique<salvaguarda::AlmacenEnFichero>(fichero, carpeta.Fichero("datos.db")));
    almacenes.push_back(std::make_unique<salvaguarda::AlmacenEnServidor>(
        servidor, "servidor", carpeta.Fichero("espejo.db")));
  }

  /// Other rows, the same in both.
  void Renovar() {
    std::string sql;
    for (const char* tabla : kTablas) sql += std::string("DELETE FROM ") + tabla + ";";
    fichero->Ejecutar(sql + azar.Azar());
    fichero->TerminarUnidad();
    for (const char* tabla : kTablas) {
      (void)servidor->Abrir(std::string("DELETE FROM ") + tabla, services::ModoApertura::Optimista);
      services::Recordset de;
      services::Recordset a;
      de.Open(Todas(tabla), *fichero, services::ModoApertura::Lectura);
      a.Open(Todas(tabla), *servidor, services::ModoApertura::Optimista);
      for (; !de.Eof(); de.MoveNext()) {
        a.AddNew();
        for (std::size_t i = 0; i < de.CuantosFields(); ++i) {
          a.Fields(i).Value = services::Valor(de.Fields(i).Value);
        }
        a.UpdateLuego([](const auto& fallo) { throw services::ErrorEjecucion(fallo); });
      }
    }
    servidor->TerminarUnidad();
    ASSERT_EQ(Guardadas(*servidor), Guardadas(*fichero));
  }
  std::string En(std::size_t cual, const std::string& nombre) {
    const std::string suya = carpeta.Fichero(std::to_string(cual));
    std::filesystem::create_directories(suya);
    return suya + "/" + nombre;
  }
  /// The picture of a load, and what a commit would copy.
  std::pair<Textos, salvaguarda::Copia> Copiar(std::size_t cual, const Claves& claves) {
    Almacen& almacen = *almacenes[cual];
    almacen.Traer(kMarzo, {});
    salvaguarda::Foto foto(almacen.Fichero(), En(cual, "trabajo.foto"));
    foto.Tomar(kMarzo);
    almacen.Traer(kMarzo, [&] {
      Claves todas = claves;
      todas.Anadir(Claves::DeFoto(foto.Conexion()));
      return todas;
    });
    salvaguarda::Copias copias(En(cual, "copias"));
    std::filesystem::create_directories(En(cual, "copias"));
    salvaguarda::CopiaEnCurso enCurso(
        copias, foto.Conexion(), salvaguarda::CopiaDeGrabacion(foto.Conexion(), kMarzo, claves),
        {apoyo::kMarzo, "ANA", kMarzo});
    return {Escritas(En(cual, "trabajo.foto")), enCurso.Terminar()};
  }
  void Reponer(std::size_t cual, const salvaguarda::Copia& copia) {
    const auto lectura =
        sqlite::AbrirConexion(almacenes[cual]->Fichero(), {.UnidadDeTrabajo = false});
    salvaguarda::Copias copias(En(cual, "copias"));
    salvaguarda::Reponer(*almacenes[cual], *lectura, copia, copias, apoyo::kMarzo, "EVA");
  }

  AzarEntero azar;
  pruebas::CarpetaTemporal carpeta;
  esquema::EsquemaPropio esquema{GetParam().Texto, NombreNuevo()};
  services::Ref<sqlite::Conexion> fichero = sqlite::AbrirConexion(
      carpeta.Fichero("datos.db"), {.Crear = true, .CualquierSentencia = true});
  services::Ref<odbc::Conexion> servidor = odbc::AbrirConexion(
      esquema.Conexion(), {.Esquema = esquema.Nombre(), .CualquierSentencia = true});
  std::vector<std::unique_ptr<Almacen>> almacenes;
};

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(AlmacenDeLosDos);
INSTANTIATE_TEST_SUITE_P(Servidores, AlmacenDeLosDos,
                         testing::ValuesIn(pruebas::ServidoresDePrueba()),
                         [](const auto& uno) { return uno.param.Nombre; });

TEST_P(AlmacenDeLosDos, SeHallaLoMismoYSeReponeLoMismo) {
  std::size_t copiadas = 0;
  for (int i = 0; i < 20; ++i) {
    Renovar();
    const Claves claves = azar.Claves();
    const auto [fotoDeFichero, copiaDeFichero] = Copiar(0, claves);
    const auto [fotoDeServidor, copiaDeServidor] = Copiar(1, claves);
    ASSERT_EQ(fotoDeServidor, fotoDeFichero);
    const Textos copia = Escritas(copiaDeFichero.Fichero);
    ASSERT_EQ(Escritas(copiaDeServidor.Fichero), copia);
    copiadas += copia.size();
    Renovar();
    Reponer(0, copiaDeFichero);
    Reponer(1, copiaDeServidor);
    ASSERT_EQ(Guardadas(*servidor), Guardadas(*fichero));
  }
  EXPECT_GT(copiadas, 1'000U);
}

}  // namespace
