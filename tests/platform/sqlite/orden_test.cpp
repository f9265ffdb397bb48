#include <gtest/gtest.h>

#include <array>
#include <random>

#include "datos/recordset.h"
#include "esquema/esquema_sqlite.h"
#include "platform/carpeta_temporal.h"
#include "sqlite/conexion_sqlite.h"

// Rows that the driver sorts, held against the engine's own order.

namespace {

using services::ModoApertura;
using services::Recordset;

class Orden : public testing::Test {
 protected:
  Orden() { esquema::CrearDeTrabajo(*conexion); }

  void Llenar(std::mt19937& azar) {
    const std::array textos = {"NULL",   "''",      "'Luz'",  "'LUZ'", "'lúz'",
                               "'Agua'", "'ñandú'", "'Nube'", "'nz'",  "'20050301'"};
    std::string sql = "DELETE FROM TempTesvara;";
    const auto texto = [&] { return std::string(textos[azar() % textos.size()]); };
    for (std::size_t i = azar() % 80; i > 0; --i) {
      sql += "INSERT INTO TempTesvara (Concepto, FechaVto, NConcepto, NFactura) VALUES (" +
             texto() + ", " + texto() + ", " + texto() + ", '" + std::to_string(i) + "');";
    }
    conexion->Ejecutar(sql);
  }
  std::vector<std::string> DelMotor(const std::string& orden) {
    const auto filas =
        conexion->Consultar("SELECT NFactura FROM TempTesvara ORDER BY " + orden).Filas;
    std::vector<std::string> numeros;
    for (std::size_t i = 0; i < filas.Cuantas(); ++i) numeros.push_back(filas.En(i, 0).Texto());
    return numeros;
  }
  std::vector<std::string> DelControlador(const std::string& orden, ModoApertura modo) {
    Recordset lista;
    lista.Open("SELECT TempTesvara.* FROM TempTesvara ORDER BY " + orden, *conexion, modo);
    std::vector<std::string> numeros;
    for (; !lista.Eof(); lista.MoveNext()) numeros.push_back(lista.Collect("NFactura").Texto());
    return numeros;
  }

  pruebas::CarpetaTemporal carpeta;
  services::Ref<sqlite::Conexion> conexion = sqlite::AbrirConexion(
      carpeta.Fichero("temp.db"), {.Crear = true, .CualquierSentencia = true});
};

TEST_F(Orden, EsElMismoQueDaElMotor) {
  std::mt19937 azar{7};
  for (int vez = 0; vez < 60; ++vez) {
    Llenar(azar);
    for (const char* orden : {"FechaVto, Concepto, NConcepto", "Concepto, NConcepto, FechaVto",
                              "NConcepto", "Concepto desc, NConcepto", "Importe, Concepto"}) {
      EXPECT_EQ(DelControlador(orden, ModoApertura::Lectura), DelMotor(orden)) << orden;
    }
  }
}

TEST_F(Orden, UnaFilaQueSeCambiaSigueSiendoLaSuya) {
  conexion->Ejecutar(
      "INSERT INTO TempTesvara (Concepto, NFactura) VALUES ('c', '1'), ('a', '2'), ('b', '3')");
  Recordset lista;
  lista.Open("SELECT TempTesvara.* FROM TempTesvara ORDER BY Concepto", *conexion,
             ModoApertura::Optimista);
  for (; !lista.Eof(); lista.MoveNext()) {
    lista.Collect("Concepto") = "de " + lista.Collect("NFactura").Texto();
  }
  EXPECT_EQ(DelControlador("Concepto", ModoApertura::Pesimista),
            (std::vector<std::string>{"1", "2", "3"}));
}

}  // namespace
