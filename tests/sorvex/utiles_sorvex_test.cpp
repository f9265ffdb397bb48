#include "sorvex/utiles_sorvex.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "apoyo/errores.h"
#include "apoyo/hoja_de_prueba.h"
#include "apoyo/plataforma_de_prueba.h"
#include "forms/controles.h"
#include "services/datos/conexion_falsa.h"

namespace {

using pruebas::TablaFalsa;
using services::TipoColumna;
using services::Valor;
using testing::ElementsAre;

/// The connection that holds `SorvexBorrados`, and what was opened on it.
class ConexionDeBorrados final : public services::ObjetoContado<services::Conexion> {
 public:
  explicit ConexionDeBorrados(std::shared_ptr<TablaFalsa> tabla) : tabla_(std::move(tabla)) {}

  std::unique_ptr<services::Cursor> Abrir(std::string_view sentencia,
                                          services::ModoApertura modo) override {
    abiertas.emplace_back(sentencia);
    modos.push_back(modo);
    return std::make_unique<pruebas::CursorFalso>(tabla_);
  }
  void TerminarUnidad() override {}
  void AbandonarUnidad() noexcept override {}

  std::vector<std::string> abiertas;
  std::vector<services::ModoApertura> modos;

 private:
  std::shared_ptr<TablaFalsa> tabla_;
};

class UtilesTest : public testing::Test {
 protected:
  std::string usuario = "ANA";
  services::FechaHora ahora = services::HacerFecha(2005, 3, 15, 10, 4, 9);
  sorvex::Utiles utiles{[this] { return usuario; }, [this] { return ahora; }};

  std::shared_ptr<TablaFalsa> tabla =
      std::make_shared<TablaFalsa>(TablaFalsa{{{"Clave", TipoColumna::Texto, 20, true},
                                               {"Momento", TipoColumna::FechaHora, 0, true},
                                               {"Usuario", TipoColumna::Texto, 30, true},
                                               {"Sentencia", TipoColumna::Texto, 0, true}},
                                              {}});
  services::Ref<ConexionDeBorrados> borrados = services::Crear<ConexionDeBorrados>(tabla);
  services::Ref<services::Conexion> conexion = borrados;
};

TEST_F(UtilesTest, AnotarBorradoAnadeUnaFila) {
  utiles.AnotarBorrado("TESVARA", conexion, "DELETE FROM ProvFacturas WHERE Factura='7'");
  EXPECT_THAT(tabla->FilasGuardadas,
              ElementsAre(ElementsAre(Valor("TESVARA"), Valor(ahora), Valor("ANA"),
                                      Valor("DELETE FROM ProvFacturas WHERE Factura='7'"))));
  EXPECT_EQ(conexion.get(), borrados.get());
}

TEST_F(UtilesTest, AnotarBorradoPreguntaQuienYCuandoCadaVez) {
  utiles.AnotarBorrado("A", conexion, "DELETE 1");
  usuario = "EVA";
  ahora.Segundos += 1;
  utiles.AnotarBorrado("A", conexion, "DELETE 2");
  ASSERT_EQ(tabla->FilasGuardadas.size(), 2U);
  EXPECT_EQ(tabla->FilasGuardadas[1][1], Valor(ahora));
  EXPECT_EQ(tabla->FilasGuardadas[1][2], Valor("EVA"));
}

TEST_F(UtilesTest, AnotarBorradoNoLeeLosAnteriores) {
  for (int i = 0; i < 3; ++i) utiles.AnotarBorrado("A", conexion, "DELETE");
  EXPECT_EQ(tabla->Lecturas, 0);
  EXPECT_THAT(borrados->modos, testing::Each(services::ModoApertura::Optimista));
  EXPECT_THAT(borrados->abiertas, testing::Each("SELECT SorvexBorrados.* FROM SorvexBorrados"));
}

TEST_F(UtilesTest, AnotarBorradoSinConexionEsError91) {
  conexion = nullptr;
  EXPECT_EQ(apoyo::NumeroDeError([&] { utiles.AnotarBorrado("A", conexion, "DELETE"); }),
            services::error::ObjetoNoEstablecido);
}

TEST_F(UtilesTest, ElFalloAlAnotarUnBorradoLlegaAQuienLlama) {
  tabla->FalloAlEscribir = services::error::RepetidoONoCabe;
  EXPECT_EQ(apoyo::NumeroDeError([&] { utiles.AnotarBorrado("A", conexion, "DELETE"); }),
            services::error::RepetidoONoCabe);
  EXPECT_TRUE(tabla->FilasGuardadas.empty());
}

TEST_F(UtilesTest, FechaActualizadoOrdenaComoLosMomentos) {
  EXPECT_EQ(utiles.FechaActualizado(ahora), "2005-03-15 10:04:09");
  EXPECT_EQ(utiles.FechaActualizado(services::HacerFecha(2005, 12, 1)), "2005-12-01 00:00:00");
  EXPECT_EQ(utiles.FechaActualizado(services::HacerFecha(999, 1, 2, 23, 59, 59)),
            "0999-01-02 23:59:59");
  EXPECT_EQ(utiles.FechaActualizado({}), "1899-12-30 00:00:00");
}

TEST_F(UtilesTest, ImprimirAlineadoPoneElBordeIzquierdoEnX) {
  apoyo::HojaDePrueba hoja;
  utiles.ImprimirAlineado(hoja, 1.5, "Concepto", "I", false);
  ASSERT_EQ(hoja.Trazos().size(), 1U);
  EXPECT_EQ(hoja.Trazos()[0].Texto, "Concepto");
  EXPECT_DOUBLE_EQ(hoja.Trazos()[0].X1, 1.5);
  EXPECT_DOUBLE_EQ(hoja.CurrentY, 0);
}

TEST_F(UtilesTest, ImprimirAlineadoPoneElBordeDerechoEnX) {
  apoyo::HojaDePrueba hoja;
  utiles.ImprimirAlineado(hoja, 9, "1,50", "D", false);
  ASSERT_EQ(hoja.Trazos().size(), 1U);
  EXPECT_DOUBLE_EQ(hoja.Trazos()[0].X1, 7);
  EXPECT_DOUBLE_EQ(hoja.CurrentX, 9);
}

TEST_F(UtilesTest, ImprimirAlineadoTerminaLaLineaSiSePide) {
  apoyo::HojaDePrueba hoja;
  utiles.ImprimirAlineado(hoja, 3, "", "I", true);
  EXPECT_TRUE(hoja.Trazos().empty());
  utiles.ImprimirAlineado(hoja, 3, "ab", "D", true);
  EXPECT_DOUBLE_EQ(hoja.Trazos().at(0).Y1, 1);
  EXPECT_DOUBLE_EQ(hoja.CurrentX, 0);
  EXPECT_DOUBLE_EQ(hoja.CurrentY, 2);
}

TEST_F(UtilesTest, SoltarFormVaciaLaReferenciaYElFormSigueConSuDueno) {
  apoyo::PlataformaDePrueba p;
  auto dueno = services::Crear<services::Form>(p.escritorio, "frmListados", 100, 100);
  services::Ref<services::Form> referencia = dueno;
  utiles.SoltarForm(referencia);
  EXPECT_FALSE(referencia);
  EXPECT_EQ(dueno->Nombre(), "frmListados");
  utiles.SoltarForm(referencia);
  EXPECT_FALSE(referencia);
}

TEST_F(UtilesTest, ConvertirFechaEnSusCuatroUsos) {
  EXPECT_EQ(utiles.ConvertirFecha("15/03/2005 10:04:09", 2, "D", "R"), "20050315");
  EXPECT_EQ(utiles.ConvertirFecha("20050315", 1, "R", "D"), "15/03/2005");
  EXPECT_EQ(utiles.ConvertirFecha("31/02/2005", 1, "D", "D"), "28/02/2005");
  EXPECT_EQ(utiles.ConvertirFecha("20050315", 2, "R", "R"), "20050315");
}

TEST_F(UtilesTest, LasTeclasPasanPorSusFiltros) {
  apoyo::PlataformaDePrueba p;
  const auto form = services::Crear<services::Form>(p.escritorio, "Pantalla", 100, 100);
  services::TextBox caja(*form, "Caja", {});
  EXPECT_EQ(utiles.TeclaFecha(caja, '.'), 0);
  EXPECT_EQ(utiles.TeclaImporte(caja, '.', false), ',');
  EXPECT_EQ(utiles.TeclaImporte(caja, '.', true), 0);
}

}  // namespace
