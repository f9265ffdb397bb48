#include <gtest/gtest.h>

#include "apoyo/componente_en_marcha.h"
#include "apoyo/negocio_de_prueba.h"
#include "forms/entrada.h"

// Both cash screens over their own connections: where their rows lie, what they ask of the engine,
// and how far the progress bar goes.

namespace {

namespace entrada = services::entrada;

class PantallasDeCaja : public testing::Test {
 protected:
  PantallasDeCaja() { EXPECT_EQ(enMarcha.Cargar(), ""); }
  [[nodiscard]] shell::FrmTesvaraGastos& Principal() { return enMarcha.Pantalla(); }

  /// So many entries of one concept, a minute from each other.
  void Apuntes(int cuantos, const char* concepto) {
    if (cuantos == 0) return;
    temp->Ejecutar(
        "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i + 1 < " +
        std::to_string(cuantos) +
        ") INSERT INTO TempCajaPagos (idSucursal, FechaHora, Tipo, Importe) SELECT '01', "
        "datetime('2005-01-01', '+' || i || ' minutes'), " +
        concepto + ", 2 FROM n");
  }
  services::Ref<cash::FrmPagosCaja> Cargar(const char* concepto) {
    Principal().Campos.TxtNConcepto.Text = concepto;
    auto pantalla =
        services::Crear<cash::FrmPagosCaja>(enMarcha.Sesion().Escritorio(), enMarcha.Sesion(),
                                            Principal().Campos, Principal().Entrada.Terminos);
    pantalla->Load();
    return pantalla;
  }
  services::Ref<cash::FrmFraAutomaticas> Generar() {
    auto pantalla = services::Crear<cash::FrmFraAutomaticas>(
        enMarcha.Sesion().Escritorio(), enMarcha.Sesion(), enMarcha.Pantalla().Lista);
    pantalla->Show();
    entrada::Pulsar(pantalla->Campos.BtnAceptar);
    EXPECT_TRUE(pantalla->Descargado());
    return pantalla;
  }
  /// Statements prepared on both connections while an invoice of all entries of a concept is
  /// entered: their sum, and their stamps at the acceptance.
  std::size_t PreparadasAlFacturar(const char* concepto) {
    entrada::Pulsar(Principal().BotonNuevo);
    entrada::Enfocar(Principal().Campos.TxtConcepto);
    entrada::CambiarTexto(Principal().Campos.TxtConcepto, concepto);
    entrada::Enfocar(Principal().Campos.TxtNFra);
    entrada::CambiarTexto(Principal().Campos.TxtNFra, std::string("C") + concepto);
    enMarcha.Entorno().AlEsperarModal = [](services::Form& form) {
      auto& caja = dynamic_cast<cash::FrmPagosCaja&>(form);
      for (int i = 0; i < caja.DivFondo.Count(); ++i) entrada::Pulsar(caja.LblSeleccion(i));
      entrada::Pulsar(caja.BtnFacturar);
    };
    const std::size_t antes = Preparadas();
    entrada::Pulsar(Principal().Campos.BotonCaja);
    entrada::Pulsar(Principal().Campos.BtnAceptar);
    EXPECT_FALSE(Principal().Campos.PicNuevo.Visible);
    return Preparadas() - antes;
  }
  [[nodiscard]] std::size_t Preparadas() const {
    return datos->Cuenta().Preparadas + temp->Cuenta().Preparadas;
  }
  std::string Consultar(const char* sql) { return temp->Consultar(sql).Filas.En(0, 0).Texto(); }

  apoyo::NegocioDePrueba negocio{apoyo::Tamano{1, 0}};
  services::Ref<sqlite::Conexion> datos = negocio.AbrirDatos();
  services::Ref<sqlite::Conexion> temp = negocio.AbrirTemp();
  apoyo::ComponenteEnMarcha enMarcha{services::Ref<services::Conexion>(datos),
                                     services::Ref<services::Conexion>(temp), apoyo::kMarzo};
};

TEST_F(PantallasDeCaja, CadaFilaEstaBajoLaAnterior) {
  Apuntes(3, "7");
  const auto pantalla = Cargar("7");
  cash::FrmPagosCaja& f = *pantalla;
  ASSERT_EQ(f.DivFondo.Count(), 3);
  for (int i = 1; i < 3; ++i) {
    EXPECT_EQ(f.DivFondo(i).Top, f.LblTxt2(i - 1).Top + f.LblTxt2(i - 1).Height + 90);
    EXPECT_EQ(f.LblTxt(i).Top, f.DivFondo(i).Top);
    EXPECT_EQ(f.LblTxt2(i).Top, f.LblTxt(i).Top + f.LblTxt(i).Height + 90);
    EXPECT_EQ(f.LblSeleccion(i).Top, f.DivFondo(i).Top);
    EXPECT_EQ(f.DivSel(i).Top, f.DivFondo(i).Top + 90);
  }
}

TEST_F(PantallasDeCaja, UnaListaQueCabeDejaBarraYPanelComoSeDisenaron) {
  Apuntes(11, "7");
  const auto pantalla = Cargar("7");
  EXPECT_EQ(pantalla->VScroll1.Max, 0);
  EXPECT_EQ(pantalla->PicScroll.Height, 6400);
  EXPECT_EQ(pantalla->PicScroll.Top, 555);
}

TEST_F(PantallasDeCaja, UnaQueNoCabeLosAgranda) {
  Apuntes(20, "7");
  const auto pantalla = Cargar("7");
  EXPECT_EQ(pantalla->VScroll1.Max, 10);
  EXPECT_EQ(pantalla->PicScroll.Height, 19 * 180 + (19 + 19 + 2) * 90 + 540 + 20 * 180);
  pantalla->VScroll1.Value = 4;
  EXPECT_EQ(pantalla->PicScroll.Top, 555 - 4 * 540);
  pantalla->VScroll1.Value = 10;
  EXPECT_EQ(pantalla->PicScroll.Top, 555 - (pantalla->PicScroll.Height - 6400));
}

TEST_F(PantallasDeCaja, LaCargaPoneACeroLoPagadoEnCaja) {
  Principal().Campos.ImporteCaja = 5;
  const auto pantalla = Cargar("7");
  EXPECT_EQ(Principal().Campos.ImporteCaja, 0);
}

TEST_F(PantallasDeCaja, FacturarMuchosApuntesPreparaLoQueFacturarPocos) {
  Apuntes(2, "7");
  Apuntes(300, "8");
  const std::size_t pocos = PreparadasAlFacturar("7");
  EXPECT_EQ(Consultar("SELECT count(*) FROM TempCajaPagos WHERE Factura = 'C7'"), "2");
  // What the first one prepared is there for the second: it asks for no more.
  EXPECT_LE(PreparadasAlFacturar("8"), pocos);
  EXPECT_EQ(Consultar("SELECT count(*) FROM TempCajaPagos WHERE Factura = 'C8'"), "300");
  EXPECT_EQ(Consultar("SELECT Total FROM TempProvFacturas WHERE Factura = 'C8'"), "600");
}

TEST_F(PantallasDeCaja, SinGruposLaBarraVaDeUnoAUnoYUnDecimo) {
  const auto pantalla = Generar();
  EXPECT_EQ(pantalla->Campos.ProgressBar.Min, 1);
  EXPECT_DOUBLE_EQ(pantalla->Campos.ProgressBar.Max, 1.1);
  EXPECT_DOUBLE_EQ(pantalla->Campos.ProgressBar.Value, 1.1);
  EXPECT_EQ(Consultar("SELECT count(*) FROM TempProvFacturas WHERE Factura = '02/2005'"), "0");
}

TEST_F(PantallasDeCaja, UnaHoraPegadaEnLaFechaNoEsUnDia) {
  Apuntes(1, "7");
  std::string dicho;
  enMarcha.Entorno().AlFallar = [&](const services::ErrorEjecucion& fallo) {
    dicho = fallo.Descripcion();
  };
  for (const char* texto : {"9:00", "99"}) {
    const auto pantalla = services::Crear<cash::FrmFraAutomaticas>(
        enMarcha.Sesion().Escritorio(), enMarcha.Sesion(), Principal().Lista);
    pantalla->Show();
    pantalla->Campos.TxtFFra.Text = texto;
    entrada::Pulsar(pantalla->Campos.BtnAceptar);
    EXPECT_EQ(dicho, std::string("No coinciden los tipos: «") + texto + "» no es una fecha");
    EXPECT_TRUE(pantalla->Campos.TxtFFra.TieneFoco());
    EXPECT_TRUE(pantalla->Cargado());
    pantalla->Unload();
  }
  EXPECT_EQ(Consultar("SELECT count(*) FROM TempProvFacturas WHERE NConcepto = '7'"), "0");
}

TEST_F(PantallasDeCaja, ConGruposLlegaHastaElUltimo) {
  Apuntes(1, "7");
  Apuntes(1, "8");
  const auto pantalla = Generar();
  EXPECT_EQ(pantalla->Campos.ProgressBar.Min, 1);
  EXPECT_DOUBLE_EQ(pantalla->Campos.ProgressBar.Max, 2.1);
  EXPECT_EQ(pantalla->Campos.ProgressBar.Value, 2);
}

}  // namespace
