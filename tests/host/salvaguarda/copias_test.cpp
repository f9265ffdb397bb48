#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

#include "apoyo/errores.h"
#include "host/salvaguarda/oficina.h"
#include "salvaguarda/adjunta.h"
#include "salvaguarda/ambito.h"
#include "salvaguarda/copia_en_curso.h"
#include "salvaguarda/recuperacion.h"
#include "salvaguarda/reposicion.h"
#include "valores/error.h"

// What is kept before each "Grabar", and how it is put back.

namespace {

namespace fs = std::filesystem;
using pruebas::Dicha;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using testing::SizeIs;

/// A cash entry of a type.
auto DeApunte(const std::string& tipo) {
  return AllOf(Field(&salvaguarda::Fila::Tabla, "CajaPagos"),
               Field(&salvaguarda::Fila::NConcepto, tipo));
}

class Copias : public testing::Test, protected pruebas::Oficina {
 protected:
  /// An invoice L1 of a concept, due in March, and an entry of the till without an invoice.
  void EntrarFacturaConApunte(const std::string& concepto, const std::string& tipo) {
    Otro("INSERT INTO ProvConceptos VALUES ('" + concepto +
         "', 'Luz'); INSERT INTO ProvFacturas (NConcepto, Factura, Año, Fecha, Total) VALUES ('" +
         concepto +
         "', 'L1', '2005', '20050301', 10); INSERT INTO ProvVencimientos (NConcepto, NFactura, "
         "Año, FechaVto, Importe) VALUES ('" +
         concepto +
         "', 'L1', '2005', '20050310', 10); INSERT OR IGNORE INTO CajaPagos (idSucursal, "
         "FechaHora, Tipo, Importe) VALUES ('01', '2005-02-20 10:00:00', " +
         tipo + ", 10)");
  }
  salvaguarda::Reposicion ComoSeria(const salvaguarda::Copia& copia) {
    return guardia->Comparar(copia);
  }
  void Reponer(const salvaguarda::Copia& copia) {
    const auto lectura = Negocio().AbrirDatos();
    salvaguarda::Copias copias(Carpeta() + "/copias");
    salvaguarda::Reponer(*almacen, *lectura, copia, copias, apoyo::kMarzo, "EVA");
  }
  /// Of the folder of copies, by the beginning of their names; without what tells whose they are.
  std::vector<std::string> Ficheros(const std::string& principio) {
    std::vector<std::string> nombres;
    for (const auto& entrada : fs::directory_iterator(Carpeta() + "/copias")) {
      const std::string nombre = entrada.path().filename();
      if (nombre.starts_with(principio)) nombres.push_back(nombre.substr(0, 25));
    }
    std::ranges::sort(nombres);
    return nombres;
  }
};

TEST_F(Copias, CadaGrabarDejaUna) {
  Cargar();
  Grabar();
  Cargar();
  Grabar();
  const auto copias = Guardadas();
  ASSERT_THAT(copias, SizeIs(2));
  EXPECT_EQ(copias[0].Usuario, "ANA");
  EXPECT_EQ(copias[0].Momento, apoyo::kMarzo);
  EXPECT_EQ(copias[0].Rango.Desde, "20050301");
  EXPECT_EQ(copias[0].Rango.Hasta, "20050331");
  EXPECT_EQ(copias[0].Facturas, 3);
  EXPECT_EQ(copias[0].Vencimientos, 9);
  EXPECT_THAT(Ficheros("filas-"),
              ElementsAre("filas-20050315-110000-001", "filas-20050315-110000-002"));
}

TEST_F(Copias, DevuelveTodoLoQueUnGrabarCambio) {
  Otro(
      "INSERT INTO ProvPrevisionPagos (NConcepto, Fecha1Vto, Cada, Tipo, Importe) VALUES ('7', "
      "'20050101', 1, 2, 50), ('8', '20050101', 1, 2, 50)");
  const auto antes = Todo();
  Cargar();
  TrabajarEnFacturas();
  Trabajar(
      "INSERT INTO TempProvVencimientos (NConcepto, NFactura, Año, FechaVto, Importe) VALUES ('1', "
      "'NUEVA', '2005', '20050407', 9);"
      "UPDATE TempProvPrevisionPagos SET Importe = 51 WHERE NConcepto = '7';"
      "DELETE FROM TempProvPrevisionPagos WHERE NConcepto = '8';"
      "INSERT INTO TempProvPrevisionPagos (NConcepto, Fecha1Vto) VALUES ('9', '20050302')");
  Grabar();
  const auto grabado = Todo();
  ASSERT_NE(grabado, antes);

  const auto copia = Guardadas().at(0);
  const salvaguarda::Reposicion seria = ComoSeria(copia);
  EXPECT_THAT(seria.Vuelven,
              AllOf(Contains(Dicha({"ProvFacturas", "2", "F000001", "2005"})),
                    Contains(Dicha({"ProvVencimientos", "2", "F000001", "2005", "20050302"})),
                    Contains(Dicha({"ProvPrevisionPagos", "8", "", "", "20050101"}))));
  EXPECT_THAT(seria.SeVan, AllOf(Contains(Dicha({"ProvFacturas", "1", "NUEVA", "2005"})),
                                 Contains(Dicha({"ProvPrevisionPagos", "9", "", "", "20050302"}))));
  EXPECT_THAT(
      seria.Cambian,
      AllOf(Contains(Dicha({"ProvVencimientos", "1", "F000000", "2005", "20050301"})),
            Contains(Dicha({"ProvPrevisionPagos", "7", "", "", "20050101"})),
            Contains(Field(&salvaguarda::Fila::Tabla, "CajaPagos")),
            Contains(Field(&salvaguarda::Fila::Importe, "50,00, ahora 51,00")),
            Contains(AllOf(Field(&salvaguarda::Fila::Importe, "107,15"),
                           Field(&salvaguarda::Fila::Motivo, "pagado 107,15, ahora 3,00")))));
  EXPECT_EQ(Todo(), grabado) << "mirar no cambia nada";

  Reponer(copia);
  EXPECT_EQ(Todo(), antes);
  EXPECT_EQ(ComoSeria(copia).Cuantas(), 0U);

  const auto despues = Guardadas();
  ASSERT_THAT(despues, SizeIs(2)) << "lo que había también se guardó";
  EXPECT_EQ(despues[0].Usuario, "EVA");
  Reponer(despues[0]);
  EXPECT_EQ(Todo(), grabado);
}

TEST_F(Copias, LoQueNoEsDeLaCopiaNoSeToca) {
  Cargar();
  Grabar();
  const auto copia = Guardadas().at(0);
  Otro(
      "INSERT INTO ProvFacturas (NConcepto, Factura, Año, Fecha, Total) VALUES ('1', 'DE-OTRO', "
      "'2005', '20050301', 10); INSERT INTO ProvVencimientos (NConcepto, NFactura, Año, FechaVto, "
      "Importe) VALUES ('1', 'DE-OTRO', '2005', '20050310', 10)");
  const auto antes = Todo();
  EXPECT_EQ(ComoSeria(copia).Cuantas(), 0U);
  Reponer(copia);
  EXPECT_EQ(Todo(), antes);
}

TEST_F(Copias, UnNumeroConOtrosBlancosYEnMinusculasEsElMismo) {
  Cargar();
  Grabar();
  Otro(
      "UPDATE ProvFacturas SET Factura = ' ' || lower(Factura) WHERE Factura = 'F000001';"
      "UPDATE ProvVencimientos SET NFactura = ' ' || lower(NFactura) WHERE NFactura = 'F000001'");
  const salvaguarda::Reposicion seria = ComoSeria(Guardadas().at(0));
  EXPECT_THAT(seria.Vuelven, IsEmpty());
  EXPECT_THAT(seria.SeVan, IsEmpty());
  EXPECT_THAT(seria.Cambian, SizeIs(4)) << "la factura y sus tres vencimientos";
}

/// Rows that other programs left.
constexpr const char* kGemelaDeF1 =
    "INSERT INTO ProvFacturas (NConcepto, Factura, Año, Fecha, Total) VALUES ('2', ' F000001', "
    "'2005', '20050301', 7); INSERT INTO ProvVencimientos (NConcepto, NFactura, Año, FechaVto, "
    "Importe) VALUES ('2', ' F000001', '2005', '20050302', 7), ('2', ' F000001', '2005', "
    "'20050312', 8)";

TEST_F(Copias, DosFacturasQueSoloSeDistinguenEnBlancosNoDifierenDeSiMismas) {
  Otro(kGemelaDeF1);
  Cargar();
  Grabar();
  const auto copia = Guardadas().at(0);
  EXPECT_EQ(ComoSeria(copia).Cuantas(), 0U);
  Otro("UPDATE ProvVencimientos SET Pagado = 5");
  Reponer(copia);
  EXPECT_EQ(ComoSeria(copia).Cuantas(), 0U);
}

TEST_F(Copias, DeDosFacturasQueSoloSeDistinguenEnBlancosSeDiceLoQueCambiaDeCadaUna) {
  Otro(kGemelaDeF1);
  Cargar();
  Grabar();
  Otro(
      "UPDATE ProvFacturas SET Total = Total + 1 WHERE trim(Factura) = 'F000001';"
      "DELETE FROM ProvVencimientos WHERE NFactura = ' F000001' AND FechaVto = '20050302';"
      "UPDATE ProvVencimientos SET Importe = 9 WHERE NFactura = 'F000001' AND FechaVto = "
      "'20050302'");
  const salvaguarda::Reposicion seria = ComoSeria(Guardadas().at(0));
  const auto por = [](const std::string& importe) {
    return Field(&salvaguarda::Fila::Importe, importe);
  };
  EXPECT_THAT(seria.Cambian,
              testing::UnorderedElementsAre(por("7,00, ahora 8,00"), por("322,45, ahora 323,45"),
                                            por("110,15, ahora 9,00")));
  EXPECT_THAT(seria.Vuelven, ElementsAre(por("7,00")));
  EXPECT_THAT(seria.SeVan, IsEmpty());
}

TEST_F(Copias, UnApunteQueOtroHaEnlazadoDespuesSeQuedaConEl) {
  Cargar();
  Grabar();
  Otro(
      "UPDATE CajaPagos SET Factura = 'DE-OTRO', Año = '2005' WHERE FechaHora = '2005-02-01 "
      "00:01:00'");
  const auto antes = Todo();
  EXPECT_EQ(ComoSeria(Guardadas().at(0)).Cuantas(), 0U);
  Reponer(Guardadas().at(0));
  EXPECT_EQ(Todo(), antes);
}

TEST_F(Copias, UnApunteDeUnConceptoConCerosDelanteSeDesenlaza) {
  EntrarFacturaConApunte("0400", "400");
  Cargar();
  Trabajar("UPDATE TempCajaPagos SET Factura = 'L1', Año = '2005' WHERE Tipo = 400");
  const auto antes = Todo();
  Grabar();
  ASSERT_NE(Todo(), antes);
  EXPECT_THAT(ComoSeria(Guardadas().at(0)).Cambian, ElementsAre(DeApunte("400")));
  Reponer(Guardadas().at(0));
  EXPECT_EQ(Todo(), antes);
}

/// Its number is that of an invoice of the copy, whose concept no entry can have.
TEST_F(Copias, UnConceptoQueNoEsUnNumeroNoEsElCeroNiElDeSusCifras) {
  for (const char* concepto : {"LUZ", "0x190", "400A"}) EntrarFacturaConApunte(concepto, "0");
  Otro(
      "INSERT INTO CajaPagos (idSucursal, FechaHora, Tipo, Importe) VALUES ('01', '2005-02-21', "
      "400, 10)");
  Cargar();
  Grabar();
  Otro("UPDATE CajaPagos SET Factura = 'L1', Año = '2005' WHERE Tipo IN (0, 400)");
  const auto antes = Todo();
  EXPECT_EQ(ComoSeria(Guardadas().at(0)).Cuantas(), 0U);
  Reponer(Guardadas().at(0));
  EXPECT_EQ(Todo(), antes);
}

TEST_F(Copias, LoQueLaCargaDejoFueraYGrabarBorroVuelve) {
  Otro("DELETE FROM ProvConceptos WHERE NConcepto = '2'");
  const auto antes = Todo();
  Cargar();
  Grabar();
  ASSERT_NE(Todo(), antes);
  Reponer(Guardadas().at(0));
  EXPECT_EQ(Todo(), antes);
}

TEST_F(Copias, UnaQueNoSePuedeReponerDejaTodoComoEstaba) {
  Cargar();
  Trabajar("DELETE FROM TempProvVencimientos WHERE NFactura = 'F000001'");
  Grabar();
  const auto copia = Guardadas().at(0);
  Otro(
      "CREATE TRIGGER No BEFORE INSERT ON ProvPrevisionPagos BEGIN SELECT RAISE(ABORT, 'no'); END;"
      "CREATE TRIGGER Tampoco BEFORE INSERT ON ProvVencimientos BEGIN SELECT RAISE(ABORT, 'no'); "
      "END");
  const auto antes = Todo();
  EXPECT_NE(apoyo::NumeroDeError([&] { Reponer(copia); }), 0);
  EXPECT_EQ(Todo(), antes);
  EXPECT_THAT(Guardadas(), SizeIs(1)) << "lo que no se repone no deja copia";
  Otro("UPDATE ProvFacturas SET Total = Total");  // nobody holds the file
}

TEST_F(Copias, UnaDeAntesDeQueLaTablaCambiaraSePuedeReponer) {
  Cargar();
  Trabajar("DELETE FROM TempProvVencimientos WHERE NFactura = 'F000001'");
  Grabar();
  Otro(
      "ALTER TABLE ProvVencimientos ADD COLUMN Nueva; ALTER TABLE ProvFacturas DROP COLUMN "
      "forpago");
  EXPECT_THAT(ComoSeria(Guardadas().at(0)).Vuelven, SizeIs(3));
  Reponer(Guardadas().at(0));
  EXPECT_EQ(ComoSeria(Guardadas().at(1)).Cuantas(), 0U);
}

TEST_F(Copias, SobreUnFicheroQueYaNoEstaNoSeRepone) {
  Cargar();
  Trabajar("DELETE FROM TempProvVencimientos WHERE NFactura = 'F000001'");
  Grabar();
  const auto copia = Guardadas().at(0);
  fs::remove(Negocio().FicheroDatos());
  EXPECT_EQ(apoyo::NumeroDeError([&] { Reponer(copia); }), services::error::FalloDeConexion);
}

TEST_F(Copias, LoQueNoEsUnaCopiaNoSeLista) {
  Cargar();
  Grabar();
  std::ofstream(Carpeta() + "/copias/filas-20990101-000000-001.sqlite")
      << "no es una base de datos";
  EXPECT_THAT(Guardadas(), SizeIs(1));
}

TEST_F(Copias, QuedanLasUltimasYLaPrimeraDeCadaDia) {
  salvaguarda::Copias copias(Carpeta() + "/copias");
  const auto lectura = sqlite::AbrirConexion(Negocio().FicheroDatos(), {.UnidadDeTrabajo = false});
  lectura->Ejecutar(
      "ATTACH ':memory:' AS foto; CREATE TABLE foto.Claves (NConcepto, Factura, Año); CREATE TABLE "
      "foto.DelRango (NConcepto, "
      "Factura, Año); CREATE TABLE foto.ProvPrevisionPagos "
      "(NConcepto); CREATE TABLE foto.CajaPagos (idSucursal, FechaHora, Tipo)");
  const auto guardar = [&](int dia, int cuantas) {
    for (int i = 0; i < cuantas; ++i) {
      services::FechaHora momento = apoyo::kMarzo;
      momento.Dias += dia;
      momento.Segundos += i;
      salvaguarda::CopiaEnCurso(copias, *lectura,
                                salvaguarda::CopiaDeGrabacion(*lectura, {"1", "0"}, {}),
                                {momento, "ANA", {"1", "0"}})
          .Terminar();
    }
  };
  for (int dia = 0; dia < 70; ++dia) guardar(dia, 2);
  guardar(70, 49);
  const auto quedan = Ficheros("filas-");
  // The last fifty, and the first of each of the sixty days before the last that has any.
  EXPECT_THAT(quedan, SizeIs(50 + 60 - 1));
  EXPECT_EQ(quedan.front(), "filas-20050326-110000-001");
  EXPECT_EQ(quedan.back(), "filas-20050524-110048-001");
}

TEST_F(Copias, LoQueDejoUnaMuerteEnMedioSeQuitaAlDiaSiguiente) {
  const fs::path viejo = Carpeta() + "/copias/filas-20050315-110000-001-7.sqlite.7.nuevo";
  const fs::path enCurso = Carpeta() + "/copias/filas-20050315-110000-002-8.sqlite.8.nuevo";
  fs::create_directories(viejo.parent_path());
  std::ofstream(viejo) << "a medias";
  std::ofstream(enCurso) << "a medias";
  fs::last_write_time(viejo, fs::file_time_type::clock::now() - std::chrono::hours(25));
  guardia->CopiarElDia();
  EXPECT_FALSE(fs::exists(viejo));
  EXPECT_TRUE(fs::exists(enCurso));
}

TEST_F(Copias, LaEnteraSeGuardaUnaVezAlDiaYQuedanDiez) {
  salvaguarda::Copias copias(Carpeta() + "/copias");
  services::FechaHora momento = apoyo::kMarzo;
  EXPECT_TRUE(copias.GuardarEntera(Negocio().FicheroDatos(), momento));
  EXPECT_FALSE(copias.GuardarEntera(Negocio().FicheroDatos(), momento));
  for (int i = 0; i < 11; ++i) {
    ++momento.Dias;
    EXPECT_TRUE(copias.GuardarEntera(Negocio().FicheroDatos(), momento));
  }
  const auto enteras = Ficheros("empresa-");
  EXPECT_THAT(enteras, SizeIs(10));
  const auto entera = sqlite::AbrirConexion(Carpeta() + "/copias/" + enteras.back());
  EXPECT_EQ(entera->Consultar("SELECT count(*) FROM ProvVencimientos").Filas.En(0, 0).Numero(), 9);
}

}  // namespace
