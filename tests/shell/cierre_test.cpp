#include <gmock/gmock.h>

#include "apoyo/componente_en_marcha.h"
#include "apoyo/negocio_de_prueba.h"
#include "forms/entrada.h"

// What a host can ask before it closes the screen: whether a yes to saving would save.

namespace {

using testing::HasSubstr;
using testing::StrEq;

class Cierre : public testing::Test {
 protected:
  std::string Motivo() {
    return services::Ref<services::IClassTesvara>(&componente.Clase())
        .Como<services::ICierre>()
        ->MotivoParaNoCerrar();
  }
  /// The paid amount of the first line, as its editor leaves it.
  void Pagar(const std::string& importe) {
    list::RejillaPagos& rejilla = componente.Pantalla().Rejilla;
    rejilla.Anotar(1, list::EntrarAlCerrar(rejilla.ReciboDe(1), importe));
  }

  apoyo::NegocioDePrueba negocio{apoyo::Tamano{2, 2}};
  apoyo::ComponenteEnMarcha componente{services::Ref<services::Conexion>(negocio.AbrirDatos()),
                                       services::Ref<services::Conexion>(negocio.AbrirTemp()),
                                       apoyo::kMarzo};
};

TEST_F(Cierre, SinPantallaNoHayMotivoNiSeHaceUna) {
  EXPECT_THAT(Motivo(), StrEq(""));
  EXPECT_TRUE(componente.Entorno().Pantallas().empty());
}

TEST_F(Cierre, LoQueSePuedeGrabarNoEsMotivo) {
  ASSERT_EQ(componente.Cargar(), "");
  EXPECT_THAT(Motivo(), StrEq(""));
  Pagar("1,00");
  ASSERT_EQ(componente.Pantalla().Edicion.PagosSinGrabar(), 1);
  EXPECT_THAT(Motivo(), StrEq(""));
}

TEST_F(Cierre, UnaEntradaAMedioHacerEsMotivoHastaQueSeCancela) {
  ASSERT_EQ(componente.Cargar(), "");
  services::entrada::Pulsar(componente.Pantalla().BotonNuevo);
  EXPECT_THAT(Motivo(), HasSubstr("una entrada a medio hacer"));
  services::entrada::Pulsar(componente.Pantalla().Campos.BtnCancelar);
  EXPECT_THAT(Motivo(), StrEq(""));
}

/// Closing would compare them with a snapshot that lacks them, and fail.
TEST_F(Cierre, UnaEntradaAceptadaEsMotivoHastaQueSeDeja) {
  ASSERT_EQ(componente.Cargar(), "");
  componente.Pantalla().Rejilla.MSFPagos.Rows = componente.Pantalla().Rejilla.MSFPagos.Rows + 1;
  EXPECT_THAT(Motivo(), HasSubstr("por entradas aceptadas"));
  services::entrada::Pulsar(componente.Pantalla().BotonCancelar);
  EXPECT_THAT(Motivo(), StrEq(""));
}

TEST_F(Cierre, UnPagoMayorQueSuReciboEsMotivoHastaQueSeCorrige) {
  ASSERT_EQ(componente.Cargar(), "");
  Pagar("99999,00");
  EXPECT_THAT(Motivo(), HasSubstr("tiene pagado más que su importe"));
  Pagar("1,00");
  EXPECT_THAT(Motivo(), StrEq(""));
}

TEST_F(Cierre, TambienElQueEstaAbiertoEnSuCelda) {
  ASSERT_EQ(componente.Cargar(), "");
  auto& lista = componente.Pantalla().Rejilla.MSFPagos;
  auto& editor = componente.Pantalla().Edicion.TxtMsf;
  lista.Row = 1;
  lista.Col = list::columna::Pagado;
  componente.Pantalla().Edicion.AbrirEdicionPagado();
  ASSERT_TRUE(editor.Visible);
  editor.Text = "99999";
  EXPECT_THAT(Motivo(), HasSubstr("tiene pagado más que su importe"));
  editor.Text = "1";
  EXPECT_THAT(Motivo(), StrEq(""));
  Pagar("99999,00");
  EXPECT_THAT(Motivo(), StrEq("")) << "lo abierto ocupará su lugar";
}

}  // namespace
