#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

#include "platform/carpeta_temporal.h"
#include "salvaguarda/comienzo.h"
#include "salvaguarda/dicho.h"
#include "salvaguarda/fila.h"
#include "salvaguarda/registro.h"

namespace {

using salvaguarda::Comienzo;
using salvaguarda::Fila;

TEST(Comienzo, UnaCargaSeReconocePorSuPrimeraSentencia) {
  const auto comienzo = salvaguarda::Reconocer(
      "SELECT DISTINCT ProvFacturas.*, ProvConceptos.Descripcion FROM (ProvFacturas INNER JOIN "
      "ProvVencimientos ON (ProvFacturas.Factura = ProvVencimientos.NFactura) AND "
      "(ProvFacturas.NConcepto = ProvVencimientos.NConcepto)) INNER JOIN ProvConceptos ON "
      "ProvFacturas.NConcepto = ProvConceptos.NConcepto WHERE ProvVencimientos.FechaVto >= "
      "'20050301' And ProvVencimientos.FechaVto <= '20050331'  Order By ProvFacturas.Fecha");
  ASSERT_TRUE(comienzo);
  EXPECT_EQ(comienzo->Que, Comienzo::Tarea::Carga);
  EXPECT_EQ(comienzo->Rango.Desde, "20050301");
  EXPECT_EQ(comienzo->Rango.Hasta, "20050331");
}

TEST(Comienzo, OtraSentenciaNoEmpiezaNada) {
  EXPECT_FALSE(salvaguarda::Reconocer("SELECT ProvFacturas.* FROM ProvFacturas"));
  EXPECT_FALSE(salvaguarda::Reconocer("SELECT DISTINCT ProvFacturas.* FROM ProvFacturas"));
}

TEST(FilaDicha, CadaTablaTieneSuNombre) {
  EXPECT_EQ(Nombre(Fila{"ProvFacturas", "400", "F-1", "2005"}),
            "factura F-1 de 2005 del concepto 400");
  EXPECT_EQ(Nombre(Fila{"ProvVencimientos", "400", "F-1", "2005", "20050310"}),
            "vencimiento 10/03/2005 de la factura F-1 de 2005 del concepto 400");
  EXPECT_EQ(Nombre(Fila{"ProvVencimientos", "400", "F-1", "2005", "marzo"}),
            "vencimiento marzo de la factura F-1 de 2005 del concepto 400");
  EXPECT_EQ(Nombre(Fila{"ProvBasesIva", "400", "F-1", "2005", "2"}),
            "base de IVA 2 de la factura F-1 de 2005 del concepto 400");
  EXPECT_EQ(Nombre(Fila{"ProvPrevisionPagos", "403", "", ""}), "previsión del concepto 403");
  EXPECT_EQ(Nombre(Fila{"CajaPagos", "400", "", "", "2005-03-02 09:30:00"}),
            "apunte de caja de 02/03/2005 9:30:00 del concepto 400");
}

TEST(ValorDicho, UnaFechaQueNoExisteSeDiceComoEsta) {
  EXPECT_EQ(salvaguarda::FechaDicha("20050310"), "10/03/2005");
  EXPECT_EQ(salvaguarda::FechaDicha("20051310"), "20051310");
  EXPECT_EQ(salvaguarda::FechaDicha("2005031"), "2005031");
  EXPECT_EQ(salvaguarda::MomentoDicho("ayer"), "ayer");
}

TEST(FilaDicha, SeCuentanPorTablas) {
  EXPECT_EQ(salvaguarda::Recuento({{"ProvVencimientos", "1", "A", "2005"},
                                   {"ProvFacturas", "1", "A", "2005"},
                                   {"ProvVencimientos", "1", "A", "2005"}}),
            "1 factura, 2 vencimientos");
}

TEST(FilaDicha, UnaRelacionLargaSeCortaYLoDice) {
  const std::vector<Fila> filas(5, {"ProvFacturas", "1", "A", "2005", "", "no cabe"});
  EXPECT_EQ(Relacion(filas, 2),
            "\n· factura A de 2005 del concepto 1: no cabe"
            "\n· factura A de 2005 del concepto 1: no cabe"
            "\n… y 3 más");
}

TEST(RegistroDeLaSuite, NoCreceSinFin) {
  const pruebas::CarpetaTemporal carpeta;
  salvaguarda::Registro registro(carpeta.Fichero("registro.txt"), 1000);
  for (int i = 0; i < 200; ++i)
    registro.Anotar("2005-03-15 10:00:00", "línea\n" + std::to_string(i));
  EXPECT_LT(std::filesystem::file_size(carpeta.Fichero("registro.txt")), 1100U);
  EXPECT_LT(std::filesystem::file_size(carpeta.Fichero("registro.anterior.txt")), 1100U);
  std::ifstream fichero(registro.Fichero());
  std::string ultima;
  for (std::string linea; std::getline(fichero, linea);) ultima = linea;
  EXPECT_EQ(ultima, "2005-03-15 10:00:00 línea 199");
}

TEST(RegistroDeLaSuite, DondeNoSePuedeEscribirSeSigue) {
  salvaguarda::Registro registro("/no/hay/tal/carpeta/registro.txt");
  registro.Anotar("2005-03-15 10:00:00", "algo");
  EXPECT_FALSE(std::filesystem::exists(registro.Fichero()));
}

}  // namespace
