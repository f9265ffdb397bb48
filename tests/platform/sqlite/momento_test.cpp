#include "sqlite/momento.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "esquema/esquema_sqlite.h"
#include "platform/banco.h"
#include "platform/carpeta_temporal.h"
#include "sqlite/conexion_sqlite.h"

// Moments compare as moments, whatever the text under which another program stored them.

namespace {

using services::HacerFecha;
using testing::ElementsAre;
using testing::IsEmpty;

class Momento : public testing::Test {
 protected:
  Momento() { esquema::CrearAlmacenadas(*conexion); }
  void Guardar(const std::string& sucursal, const std::string& momento) {
    conexion->Ejecutar("INSERT INTO CajaPagos (idSucursal, FechaHora, Tipo) VALUES ('" + sucursal +
                       "', '" + momento + "', 12)");
  }
  std::vector<std::string> Donde(const std::string& condicion) {
    services::Recordset rs;
    rs.Open(
        "SELECT CajaPagos.* FROM CajaPagos WHERE " + condicion + " ORDER BY CajaPagos.idSucursal",
        *conexion, services::ModoApertura::Lectura);
    std::vector<std::string> sucursales;
    for (; !rs.Eof(); rs.MoveNext()) sucursales.push_back(rs.Fields(0).Value.Texto());
    return sucursales;
  }

  pruebas::CarpetaTemporal carpeta;
  services::Ref<sqlite::Conexion> conexion = sqlite::AbrirConexion(
      carpeta.Fichero("datos.db"), {.Crear = true, .CualquierSentencia = true});
};

TEST_F(Momento, DeMedianocheSeHallaEnTodasSusFormas) {
  Guardar("a", "2005-03-02 00:00:00");
  Guardar("b", "2005-03-02");
  Guardar("c", "2005-03-02 00:00");
  Guardar("d", "2005-03-02T00:00:00");
  Guardar("e", "02/03/2005");
  Guardar("f", "2005-03-02 00:00:01");
  Guardar("g", "2/3/2005");
  Guardar("h", "02-03-2005 00:00:00");
  EXPECT_THAT(Donde("CajaPagos.FechaHora like '02/03/2005'"),
              ElementsAre("a", "b", "c", "d", "e", "g", "h"));
  EXPECT_THAT(Donde("CajaPagos.FechaHora not like '02/03/2005'"), ElementsAre("f"));
  EXPECT_THAT(Donde("CajaPagos.FechaHora = #3/2/2005#"),
              ElementsAre("a", "b", "c", "d", "e", "g", "h"));
}

TEST_F(Momento, ConHoraSeHallaEnTodasSusFormas) {
  Guardar("a", "2005-03-03 09:30:00");
  Guardar("b", "2005-03-03 09:30");
  Guardar("c", "2005-03-03T09:30");
  Guardar("d", "03/03/2005 9:30:00");
  Guardar("e", "2005-03-03");
  Guardar("f", "2005-03-03 09:30:10");
  Guardar("g", "3/3/2005 9:30");
  Guardar("h", "03-03-2005 09:30:00");
  EXPECT_THAT(Donde("CajaPagos.FechaHora like '03/03/2005 9:30:00'"),
              ElementsAre("a", "b", "c", "d", "g", "h"));
  EXPECT_THAT(Donde("CajaPagos.FechaHora like '03/03/2005 9:30:10'"), ElementsAre("f"));
  EXPECT_THAT(Donde("CajaPagos.FechaHora like '03/03/2005'"), ElementsAre("e"));
}

TEST_F(Momento, SeOrdenanPorLoQueSonYNoPorSuTexto) {
  Guardar("a", "2005-03-01 23:59:59");
  Guardar("b", "2005-03-02");
  Guardar("c", "02/03/2005 9:30:00");
  Guardar("d", "2005-03-03T00:00:00");
  EXPECT_THAT(Donde("CajaPagos.FechaHora >= #3/2/2005 00:00:00# And CajaPagos.FechaHora <= "
                    "#3/2/2005 23:59:59#"),
              ElementsAre("b", "c"));
}

TEST_F(Momento, LoQueNoEsUnMomentoNoEsIgualANinguno) {
  Guardar("a", "2005-03-02x09:30:00");
  Guardar("b", "2005-13-45");
  EXPECT_THAT(Donde("CajaPagos.FechaHora like '02/03/2005 9:30:00'"), IsEmpty());
  EXPECT_EQ(sqlite::LeerMomento("2005-03-02x09:30:00"), std::nullopt);
  EXPECT_EQ(sqlite::LeerMomento("2005-13-45"), std::nullopt);
  EXPECT_EQ(sqlite::LeerMomento("2005-03-02 09x30"), std::nullopt);
  EXPECT_EQ(sqlite::LeerMomento("2005-03-02 09:30x00"), std::nullopt);
}

}  // namespace
