#include <gmock/gmock.h>

#include "apoyo/errores.h"
#include "host/salvaguarda/oficina.h"

// What was accepted and is let go of without saving is kept aside.

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class LoQueSeDeja : public testing::Test, protected pruebas::Oficina {
 protected:
  void Modificar() {
    Trabajar("UPDATE TempProvBasesIva SET Base = 5 WHERE NFactura = 'F000001' AND Tipo = '1'");
  }
};

TEST_F(LoQueSeDeja, SinCambiosNoSeGuardaNada) {
  Cargar();
  Cargar();
  Grabar();
  Cargar();
  EXPECT_THAT(Dejado, IsEmpty());
}

TEST_F(LoQueSeDeja, LoQueNoSeVeEnNingunaCeldaTambien) {
  Cargar();
  Modificar();
  Cargar();
  EXPECT_THAT(Dejado, ElementsAre(HasSubstr("Se han dejado sin grabar 1 base de IVA. La copia de "
                                            "trabajo queda guardada en aparte.sqlite")));
  EXPECT_THAT(Apartadas, ElementsAre(9U)) << "antes de vaciarla";
}

TEST_F(LoQueSeDeja, LoGrabadoYVueltoACargarNo) {
  Cargar();
  Modificar();
  GrabarYCargar();
  Cargar();
  EXPECT_THAT(Dejado, IsEmpty());
}

TEST_F(LoQueSeDeja, LoQueOtroCambioMientrasNo) {
  Cargar();
  Otro("UPDATE ProvVencimientos SET Pagado = 1");
  Cargar();
  EXPECT_THAT(Dejado, IsEmpty());
}

/// The load that follows a commit would take what it could not write.
TEST_F(LoQueSeDeja, LoQueGrabarNoPudoEscribirSi) {
  Cargar();
  Modificar();
  GrabarYCargar([this] {
    guardia->PasadoPorAlto({services::Omision::Tarea::Grabacion,
                            services::Omision::Falta::Tabla,
                            "ProvBasesIva",
                            {},
                            {1, "no se abre"}});
  });
  EXPECT_THAT(Dejado, ElementsAre(HasSubstr("No se ha podido grabar todo")));
}

/// The other year's due dates come with the load, can't be written twice, and are stored all the
/// same.
TEST_F(LoQueSeDeja, LoQueGrabarNoEscribioYEstaGrabadoNo) {
  Otro(
      "INSERT INTO ProvFacturas (NConcepto, Factura, Año, Fecha, Total) VALUES ('1', 'F000000 ', "
      "'2004', '20040201', 10); INSERT INTO ProvVencimientos (NConcepto, NFactura, Año, FechaVto, "
      "Importe) VALUES ('1', 'F000000', '2004', '20040310', 10)");
  Cargar();
  std::size_t omisiones = 0;
  GrabarYCargar([&] { omisiones = PasarOmisiones(); });
  EXPECT_GT(omisiones, 0U);
  EXPECT_THAT(Dejado, IsEmpty());
}

TEST_F(LoQueSeDeja, TrasUnGrabarQueFallaSigueSinGrabar) {
  Cargar();
  Modificar();
  Otro("UPDATE ProvFacturas SET Total = 99.5");
  Respuesta = false;
  EXPECT_NE(apoyo::NumeroDeError([this] { Grabar(); }), 0);
  Cargar();
  EXPECT_THAT(Dejado, ElementsAre(HasSubstr("Se han dejado sin grabar")));
}

TEST_F(LoQueSeDeja, TrasUnNoLoQueOtroCambioNoEsDelUsuario) {
  Cargar();
  Trabajar("UPDATE TempProvBasesIva SET Base = Base");
  Otro("UPDATE ProvVencimientos SET Pagado = 1 WHERE NFactura <> 'F000001'");
  Respuesta = false;
  EXPECT_NE(apoyo::NumeroDeError([this] { Grabar(); }), 0);
  Cargar();
  EXPECT_THAT(Dejado, IsEmpty());
}

}  // namespace
