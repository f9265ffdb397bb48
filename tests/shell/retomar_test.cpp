#include <gtest/gtest.h>

#include "apoyo/componente_en_marcha.h"
#include "apoyo/negocio_de_prueba.h"
#include "forms/entrada.h"

// A screen that opens on the working copy that an earlier program left.

namespace {

class Retomar : public testing::Test {
 protected:
  /// A program that loads March and ends without saving what it did then.
  void Dejar(const std::string& hecho) {
    apoyo::ComponenteEnMarcha anterior(services::Ref<services::Conexion>(datos),
                                       services::Ref<services::Conexion>(temp), apoyo::kMarzo);
    ASSERT_EQ(anterior.Cargar(), "");
    temp->Ejecutar(hecho);
  }

  /// The paid cell of the line of a due date.
  std::string PagadoEl(const std::string& fecha) {
    const services::MSFlexGrid& lista = componente.Pantalla().Rejilla.MSFPagos;
    for (int fila = 1; fila < lista.Rows; ++fila) {
      if (lista.TextMatrix(fila, 0) == fecha) return lista.TextMatrix(fila, 4);
    }
    return "no está";
  }

  apoyo::NegocioDePrueba negocio{apoyo::Tamano{2, 2}};
  services::Ref<sqlite::Conexion> datos = negocio.AbrirDatos();
  services::Ref<sqlite::Conexion> temp = negocio.AbrirTemp();
  /// In April.
  apoyo::ComponenteEnMarcha componente{services::Ref<services::Conexion>(datos),
                                       services::Ref<services::Conexion>(temp),
                                       services::HacerFecha(2005, 4, 2, 9)};
};

TEST_F(Retomar, LaPantallaSeAbreComoEstabaYSePuedeGrabar) {
  Dejar("UPDATE TempProvVencimientos SET Pagado = 3 WHERE FechaVto = '20050302'");
  componente.Contexto().PorRetomar = apoyo::kRangoDeMarzo;
  ASSERT_EQ(componente.Cargar(), "");
  shell::FrmTesvaraGastos& pantalla = componente.Pantalla();
  EXPECT_EQ(pantalla.Rango.TxtFPrevisionD.Text(), "01/03/2005");
  EXPECT_EQ(pantalla.Rango.TxtFPrevision.Text(), "31/03/2005");
  EXPECT_EQ(PagadoEl("02/03/2005"), "3,00");
  pantalla.ComprobarCambios();
  EXPECT_FALSE(pantalla.Modificado) << "lo que se ve es lo retomado";

  services::entrada::Pulsar(pantalla.BotonAceptar);
  EXPECT_EQ(datos->Consultar("SELECT Pagado FROM ProvVencimientos WHERE FechaVto = '20050302'")
                .Filas.En(0, 0)
                .Numero(),
            3);
}

TEST_F(Retomar, SinNadaQueRetomarSeCargaElMes) {
  Dejar("UPDATE TempProvVencimientos SET Pagado = 3 WHERE FechaVto = '20050302'");
  ASSERT_EQ(componente.Cargar(), "");
  EXPECT_EQ(componente.Pantalla().Rango.TxtFPrevisionD.Text(), "01/04/2005");
  EXPECT_EQ(temp->Consultar("SELECT count(*) FROM TempProvVencimientos").Filas.En(0, 0).Numero(),
            0);
}

TEST_F(Retomar, UnRangoQueNoLoEsNoSeAbre) {
  componente.Contexto().PorRetomar = store::Intervalo{"20050301", ""};
  EXPECT_NE(componente.Cargar(), "");
}

}  // namespace
