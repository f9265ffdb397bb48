#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "datos/recordset.h"
#include "esquema/definiciones.h"
#include "esquema/esquema_sqlite.h"
#include "platform/carpeta_temporal.h"
#include "valores/error.h"

// The screens learn that a row is there already from the failure of its `Update`.

namespace {

using services::ModoApertura;
using Columnas = std::vector<std::pair<std::string, std::string>>;

/// A working table with a row's key, and a key that differs in each column.
struct Clave {
  const char* Tabla;
  Columnas Una;
  Columnas Otra;
};
void PrintTo(const Clave& clave, std::ostream* salida) {
  *salida << clave.Tabla;
}

const std::vector<Clave> kClaves = {
    {"TempProvFacturas",
     {{"NConcepto", "12"}, {"Factura", "F1"}, {"Año", "2005"}},
     {{"NConcepto", "13"}, {"Factura", "F2"}, {"Año", "2006"}}},
    {"TempProvBasesIva",
     {{"NConcepto", "12"}, {"NFactura", "F1"}, {"Año", "2005"}, {"Tipo", "1"}},
     {{"NConcepto", "13"}, {"NFactura", "F2"}, {"Año", "2006"}, {"Tipo", "0"}}},
    {"TempProvVencimientos",
     {{"NConcepto", "12"}, {"NFactura", "F1"}, {"Año", "2005"}, {"FechaVto", "20050310"}},
     {{"NConcepto", "13"}, {"NFactura", "F2"}, {"Año", "2006"}, {"FechaVto", "20050311"}}},
    {"TempProvPrevisionPagos", {{"NConcepto", "12"}}, {{"NConcepto", "13"}}},
    {"TempCajaPagos",
     {{"idSucursal", "1"}, {"FechaHora", "02/03/2005 9:30:00"}, {"Tipo", "12"}},
     {{"idSucursal", "2"}, {"FechaHora", "02/03/2005 9:30:01"}, {"Tipo", "13"}}},
};
const std::vector<std::string> kSinClave = {"TempTesvara", "TempTesvaraBorrar"};

class ClavesDeTrabajo : public testing::Test {
 protected:
  ClavesDeTrabajo() { esquema::CrearDeTrabajo(*conexion); }

  /// The number of the error of adding such a row, 0 for none.
  std::int32_t Anadir(const std::string& tabla, const Columnas& fila) {
    services::Recordset rs;
    rs.Open("SELECT " + tabla + ".* FROM " + tabla, *conexion, ModoApertura::Optimista);
    rs.AddNew();
    for (const auto& [columna, valor] : fila) rs.Collect(columna) = valor;
    try {
      rs.Update();
      return 0;
    } catch (const services::ErrorEjecucion& fallo) {
      rs.CancelUpdate();
      return fallo.Numero();
    }
  }
  [[nodiscard]] std::int64_t Filas(const std::string& tabla) {
    services::Recordset rs;
    rs.Open("SELECT " + tabla + ".* FROM " + tabla, *conexion, ModoApertura::Lectura);
    return rs.RecordCount();
  }

  pruebas::CarpetaTemporal carpeta;
  services::Ref<sqlite::Conexion> conexion = sqlite::AbrirConexion(
      carpeta.Fichero("local.db"), {.Crear = true, .CualquierSentencia = true});
};

class ClaveDe : public ClavesDeTrabajo, public testing::WithParamInterface<Clave> {};

TEST_P(ClaveDe, LaMismaDosVecesEsUnaClaveRepetidaYLaFilaQueHabiaQueda) {
  const auto& [tabla, una, otra] = GetParam();
  EXPECT_EQ(Anadir(tabla, una), 0);
  EXPECT_EQ(Anadir(tabla, una), services::error::Numero(0x80040E21));
  EXPECT_EQ(Filas(tabla), 1);
}

TEST_P(ClaveDe, BastaConQueUnaDeSusColumnasSeaOtra) {
  const auto& [tabla, una, otra] = GetParam();
  ASSERT_EQ(Anadir(tabla, una), 0);
  for (std::size_t i = 0; i < una.size(); ++i) {
    Columnas distinta = una;
    distinta[i] = otra[i];
    EXPECT_EQ(Anadir(tabla, distinta), 0) << una[i].first;
  }
  EXPECT_EQ(Filas(tabla), static_cast<std::int64_t>(1 + una.size()));
}

INSTANTIATE_TEST_SUITE_P(CadaTabla, ClaveDe, testing::ValuesIn(kClaves),
                         [](const auto& una) { return std::string(una.param.Tabla); });

TEST_F(ClavesDeTrabajo, LasTablasDeLaListaAdmitenFilasIguales) {
  for (const std::string& tabla : kSinClave) {
    const Columnas fila = {{"NConcepto", "12"}, {"FechaVto", "20050310"}, {"Importe", "10,50"}};
    EXPECT_EQ(Anadir(tabla, fila), 0) << tabla;
    EXPECT_EQ(Anadir(tabla, fila), 0) << tabla;
    EXPECT_EQ(Filas(tabla), 2) << tabla;
  }
}

TEST_F(ClavesDeTrabajo, NoHayOtrasTablas) {
  std::vector<std::string> probadas = kSinClave;
  for (const Clave& clave : kClaves) probadas.emplace_back(clave.Tabla);
  std::vector<std::string> todas;
  for (const esquema::Tabla& tabla : esquema::DeTrabajo()) todas.emplace_back(tabla.Nombre);
  EXPECT_THAT(todas, testing::UnorderedElementsAreArray(probadas));
}

}  // namespace
