#include "store/copia_de_trabajo.h"

#include <gtest/gtest.h>

#include "apoyo/componente_en_marcha.h"
#include "apoyo/errores.h"
#include "apoyo/negocio_de_prueba.h"
#include "store/grabacion.h"
#include "store/tablas.h"
#include "valores/error.h"

namespace {

using apoyo::kRangoDeMarzo;

class CopiaDeTrabajo : public testing::Test {
 protected:
  int EnTrabajo(const std::string& tabla) {
    return static_cast<int>(
        temp->Consultar("SELECT count(*) FROM " + tabla).Filas.En(0, 0).Numero());
  }

  apoyo::NegocioDePrueba negocio{apoyo::Tamano{5, 10}};
  services::Ref<sqlite::Conexion> datos = negocio.AbrirDatos();
  services::Ref<sqlite::Conexion> temp = negocio.AbrirTemp();
  apoyo::ComponenteEnMarcha componente{services::Ref<services::Conexion>(datos),
                                       services::Ref<services::Conexion>(temp), apoyo::kMarzo};
  store::CopiaDeTrabajo copia{componente.RecibirSesion()};
};

TEST_F(CopiaDeTrabajo, SabeQueRangoTiene) {
  EXPECT_FALSE(copia.Rango());
  copia.Cargar(kRangoDeMarzo);
  ASSERT_TRUE(copia.Rango());
  EXPECT_EQ(copia.Rango()->Desde, kRangoDeMarzo.Desde);
  EXPECT_EQ(copia.Rango()->Hasta, kRangoDeMarzo.Hasta);
  EXPECT_EQ(EnTrabajo("TempProvFacturas"), 5);
}

TEST_F(CopiaDeTrabajo, SinRangoNoGrabaNiTocaNada) {
  EXPECT_EQ(apoyo::NumeroDeError([&] { copia.Grabar(); }), services::error::ObjetoNoEstablecido);
  EXPECT_EQ(datos->Consultar("SELECT count(*) FROM ProvFacturas").Filas.En(0, 0).Numero(), 5);
}

TEST_F(CopiaDeTrabajo, GrabadaYaNoTieneRangoNiFilas) {
  copia.Cargar(kRangoDeMarzo);
  copia.Grabar();
  EXPECT_FALSE(copia.Rango());
  EXPECT_EQ(EnTrabajo("TempProvFacturas"), 0);
  EXPECT_EQ(datos->Consultar("SELECT count(*) FROM ProvFacturas WHERE ModificadoPor = 'ANA'")
                .Filas.En(0, 0)
                .Numero(),
            5);
  EXPECT_NE(apoyo::NumeroDeError([&] { copia.Grabar(); }), 0);
}

/// Who kills the program there finds both sides saying the same: nothing is left to be saved.
TEST_F(CopiaDeTrabajo, AlQuedarGrabadaLoDeTrabajoDiceLoMismoEnSuFichero) {
  copia.Cargar(kRangoDeMarzo);
  temp->TerminarUnidad();
  temp->EmpezarUnidad();
  temp->Ejecutar("UPDATE TempProvVencimientos SET Pagado = 7");
  const auto sieteEn = [](sqlite::Conexion& fichero, const std::string& tabla) {
    return fichero.Consultar("SELECT count(*) FROM " + tabla + " WHERE Pagado = 7")
        .Filas.En(0, 0)
        .Numero();
  };
  bool grabado = false;
  store::GrabarTemporales(componente.Sesion(), kRangoDeMarzo, [&] {
    grabado = true;
    EXPECT_EQ(sieteEn(*negocio.AbrirDatos(), "ProvVencimientos"), 15);
    EXPECT_EQ(sieteEn(*negocio.AbrirTemp(), "TempProvVencimientos"), 15);
  });
  EXPECT_TRUE(grabado);
}

TEST_F(CopiaDeTrabajo, VaciadaTampocoTieneRango) {
  copia.Cargar(kRangoDeMarzo);
  copia.Vaciar();
  EXPECT_FALSE(copia.Rango());
  EXPECT_EQ(EnTrabajo("TempProvVencimientos"), 0);
}

TEST_F(CopiaDeTrabajo, UnRangoSinUnaDeSusFechasNoSeCarga) {
  copia.Cargar(kRangoDeMarzo);
  for (const store::Intervalo& medio : {store::Intervalo{"", "20050331"}, {"20050301", ""}}) {
    EXPECT_EQ(apoyo::NumeroDeError([&] { copia.Cargar(medio); }),
              services::error::TiposNoCoinciden);
  }
  EXPECT_EQ(EnTrabajo("TempProvFacturas"), 5) << "la copia que había sigue";
  EXPECT_TRUE(copia.Rango());
}

/// Load and commit copy by these positions.
TEST_F(CopiaDeTrabajo, LasPosicionesSonLasDeLasTablas) {
  const auto nombre = [this](const char* tabla, std::size_t posicion) {
    return datos->ColumnasDe(tabla).at(posicion).Nombre;
  };
  using namespace store::tabla;
  EXPECT_EQ(nombre("ProvFacturas", ProvFacturas::BIRPF), "BIRPF");
  EXPECT_EQ(nombre("ProvFacturas", ProvFacturas::IRPF), "IRPF");
  EXPECT_EQ(nombre("ProvFacturas", ProvFacturas::Cadencia), "Cadencia");
  EXPECT_EQ(nombre("ProvFacturas", ProvFacturas::Actualizado), "Actualizado");
  EXPECT_EQ(nombre("ProvBasesIva", ProvBasesIva::Exento), "Exento");
  EXPECT_EQ(nombre("ProvVencimientos", ProvVencimientos::Fechapago), "Fechapago");
  EXPECT_EQ(nombre("ProvVencimientos", ProvVencimientos::Actualizado), "Actualizado");
  EXPECT_EQ(nombre("CajaPagos", CajaPagos::ModificadoPor), "ModificadoPor");
  EXPECT_EQ(
      temp->ColumnasDe("TempProvPrevisionPagos").at(TempProvPrevisionPagos::Descripcion).Nombre,
      "Descripcion");
}

}  // namespace
