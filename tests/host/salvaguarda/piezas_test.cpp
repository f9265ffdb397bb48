#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

#include "platform/carpeta_temporal.h"
#include "salvaguarda/comienzo.h"
#include "salvaguarda/dicho.h"
#include "salvaguarda/fichero_entero.h"
#include "salvaguarda/fila.h"
#include "salvaguarda/registro.h"
#include "salvaguarda/relacion.h"
#include "salvaguarda/sql.h"
#include "valores/error.h"
#include "valores/fecha.h"

namespace {

using salvaguarda::Comienzo;
using salvaguarda::Conceptos;
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

const Conceptos kConceptos({{"400", "Luz y Fuerza"}, {"500", ""}});

TEST(FilaDicha, CadaTablaTieneSuNombre) {
  EXPECT_EQ(Nombre(Fila{"ProvFacturas", "400", "F-1", "2005"}, kConceptos),
            "factura F-1 de 2005 de Luz y Fuerza (400)");
  EXPECT_EQ(Nombre(Fila{"ProvVencimientos", "400", "F-1", "2005", "20050310"}, kConceptos),
            "vencimiento 10/03/2005 de la factura F-1 de 2005 de Luz y Fuerza (400)");
  EXPECT_EQ(Nombre(Fila{"ProvVencimientos", "400", "F-1", "2005", "marzo"}, kConceptos),
            "vencimiento marzo de la factura F-1 de 2005 de Luz y Fuerza (400)");
  EXPECT_EQ(Nombre(Fila{"ProvBasesIva", "400", "F-1", "2005", "2"}, kConceptos),
            "base de IVA del 7% de la factura F-1 de 2005 de Luz y Fuerza (400)");
  EXPECT_EQ(Nombre(Fila{"ProvPrevisionPagos", "400", "", ""}, kConceptos),
            "previsión de Luz y Fuerza (400)");
  EXPECT_EQ(Nombre(Fila{"CajaPagos", "400", "", "", "2005-03-02 09:30:00"}, kConceptos),
            "apunte de caja de 02/03/2005 9:30:00 de Luz y Fuerza (400)");
}

TEST(FilaDicha, UnConceptoSinNombreSeDicePorSuCodigo) {
  EXPECT_EQ(Nombre(Fila{"ProvFacturas", "401", "F-1", "2005"}, kConceptos),
            "factura F-1 de 2005 del concepto 401");
  EXPECT_EQ(Nombre(Fila{"ProvPrevisionPagos", "500", "", ""}, kConceptos),
            "previsión del concepto 500");
}

TEST(FilaDicha, ConSuImporteSiSeSabe) {
  EXPECT_EQ(Nombre(Fila{"ProvFacturas", "400", "F-1", "2005", "", "", "121,00, antes 100,00"},
                   kConceptos),
            "factura F-1 de 2005 de Luz y Fuerza (400), por 121,00, antes 100,00");
}

/// The C library writes six decimals, and their mark as the locale has it.
TEST(Literal, UnNumeroSeEscribeEnteroYConPunto) {
  EXPECT_EQ(salvaguarda::sql::Literal(400), "400");
  EXPECT_EQ(salvaguarda::sql::Literal(400.0), "400");
  EXPECT_EQ(salvaguarda::sql::Literal(-12.5), "-12.5");
  EXPECT_EQ(salvaguarda::sql::Literal(0.0000001), "1e-07");
  EXPECT_EQ(salvaguarda::sql::Literal(0.1), "0.1");
}

TEST(Literal, LosDemasValores) {
  EXPECT_EQ(salvaguarda::sql::Literal({}), "NULL");
  EXPECT_EQ(salvaguarda::sql::Literal("O'1"), "'O''1'");
  EXPECT_EQ(salvaguarda::sql::Literal(services::FechaHora{38411, 34200}), "'2005-02-28 09:30:00'");
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
  const std::string dos =
      "\n· factura A de 2005 del concepto 1: no cabe"
      "\n· factura A de 2005 del concepto 1: no cabe"
      "\n… y 3 más";
  EXPECT_EQ(Relatar(filas, {}, {2, 1'000}).Texto, dos);
  EXPECT_EQ(Relatar(filas, {}, {5, 110}).Texto, dos);
  EXPECT_EQ(Relatar(filas, {}, {5, 110}).QueFaltan, 3U);
  EXPECT_EQ(Relatar(filas, {}, {5, 1}).QueFaltan, 4U) << "la primera se dice siempre";
  EXPECT_EQ(Relatar(filas, {}, {5, 1'000}).QueFaltan, 0U);
}

TEST(FilaDicha, LasDeUnaFacturaSeDicenConElla) {
  EXPECT_EQ(salvaguarda::Relatar(
                {{"ProvBasesIva", "1", "a", "2005", "1", "se añadió"},
                 {"ProvFacturas", "1", "A", "2005", "", "se añadió"},
                 {"ProvVencimientos", "1", "A", "2005", "20050310", "se añadió", "60,50"},
                 {"ProvVencimientos", "1", "A", "2005", "20050410", "se añadió"},
                 {"ProvVencimientos", "1", "A", "2005", "20050510", "se borró"},
                 {"ProvBasesIva", "1", "B", "2005", "0", "se añadió"}},
                {}, {9, 1'000})
                .Texto,
            "\n· factura A de 2005 del concepto 1 (base de IVA del 16%; vencimiento 10/03/2005, "
            "por 60,50; vencimiento 10/04/2005): se añadió"
            "\n· vencimiento 10/05/2005 de la factura A de 2005 del concepto 1: se borró"
            "\n· base de IVA exenta de la factura B de 2005 del concepto 1: se añadió");
}

TEST(FicheroEntero, DondeNoSePuedeEscribirDicePorQue) {
  const pruebas::CarpetaTemporal carpeta;
  const auto alCrearEn = [&](const std::string& donde) {
    try {
      salvaguarda::FicheroEntero(carpeta.Fichero(donde)).Crear();
      return std::string();
    } catch (const services::ErrorEjecucion& fallo) {
      return fallo.Descripcion();
    }
  };
  EXPECT_EQ(alCrearEn("a.sqlite"), "");
  EXPECT_EQ(alCrearEn("nada/a.sqlite"),
            "No se puede escribir en " + carpeta.Fichero("nada") + ": no existe");
  std::ofstream(carpeta.Fichero("fichero")) << "en su lugar";
  EXPECT_EQ(alCrearEn("fichero/a.sqlite"), "No se puede escribir en " + carpeta.Fichero("fichero") +
                                               ": hay un fichero en su lugar");
}

TEST(RegistroDeLaSuite, UnaLineaDeMegasSeAcortaYElFicheroNoCrece) {
  const pruebas::CarpetaTemporal carpeta;
  salvaguarda::Registro registro(carpeta.Fichero("registro.txt"));
  std::string larga;
  while (larga.size() < 3'000'000) larga += "ñandú ";
  for (int i = 0; i < 100; ++i) registro.Anotar("2005-03-15 10:00:00", larga);
  EXPECT_LE(std::filesystem::file_size(carpeta.Fichero("registro.txt")),
            salvaguarda::Registro::kTope);
  EXPECT_LE(std::filesystem::file_size(carpeta.Fichero("registro.anterior.txt")),
            salvaguarda::Registro::kTope);
  std::ifstream fichero(registro.Fichero());
  std::string linea;
  std::getline(fichero, linea);
  EXPECT_LT(linea.size(), salvaguarda::Registro::kLinea + 10);
  EXPECT_TRUE(linea.ends_with("…"));
}

TEST(RegistroDeLaSuite, SiLoAnteriorNoSePuedeApartarEmpiezaDeNuevo) {
  const pruebas::CarpetaTemporal carpeta;
  std::filesystem::create_directories(carpeta.Fichero("registro.anterior.txt") + "/ocupada");
  salvaguarda::Registro registro(carpeta.Fichero("registro.txt"), 1000);
  for (int i = 0; i < 200; ++i) registro.Anotar("2005-03-15 10:00:00", "línea");
  EXPECT_LE(std::filesystem::file_size(carpeta.Fichero("registro.txt")), 1000U);
  EXPECT_GT(std::filesystem::file_size(carpeta.Fichero("registro.txt")), 0U);
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
