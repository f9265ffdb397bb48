#include <gmock/gmock.h>

#include "apoyo/componente_en_marcha.h"
#include "apoyo/negocio_de_prueba.h"
#include "services/omision.h"
#include "store/copia_de_trabajo.h"
#include "valores/error.h"

// What a load and a commit tell of what they passed over: where, what is missing, of which row.

namespace {

using apoyo::kRangoDeMarzo;
using services::Omision;
using testing::ElementsAre;
using testing::IsEmpty;

std::string NombreDe(Omision::Falta falta) {
  switch (falta) {
    case Omision::Falta::Nada:
      return "nada";
    case Omision::Falta::Valor:
      return "valor";
    case Omision::Falta::Fila:
      return "fila";
    case Omision::Falta::Tabla:
      return "tabla";
    case Omision::Falta::Borrado:
      return "borrado";
  }
  return "";
}

/// When, what, where, and the first three values of the row.
std::string Dicha(const Omision& omision) {
  const bool carga = omision.Durante == Omision::Tarea::Carga;
  std::string dicha = (carga ? "carga: " : "grabación: ") + NombreDe(omision.Que) + " en " +
                      (omision.Tabla.empty() ? "ninguna" : omision.Tabla);
  for (std::size_t i = 0; i < omision.Fila.size() && i < 3; ++i) {
    dicha += " " + omision.Fila[i].Nombre + "=" + omision.Fila[i].Valor.Texto();
  }
  return dicha;
}

class Omisiones : public testing::Test {
 protected:
  std::vector<std::string> Dichas() {
    std::vector<std::string> dichas;
    for (const Omision& una : std::exchange(componente.Entorno().Omisiones, {})) {
      dichas.push_back(Dicha(una));
    }
    return dichas;
  }
  void Quitar(sqlite::Conexion& base, const std::string& tabla) {
    base.Ejecutar("ALTER TABLE " + tabla + " RENAME TO Quitada");
  }

  apoyo::NegocioDePrueba negocio{apoyo::Tamano{2, 4}};
  services::Ref<sqlite::Conexion> datos = negocio.AbrirDatos();
  services::Ref<sqlite::Conexion> temp = negocio.AbrirTemp();
  apoyo::ComponenteEnMarcha componente{services::Ref<services::Conexion>(datos),
                                       services::Ref<services::Conexion>(temp), apoyo::kMarzo};
  store::CopiaDeTrabajo copia{componente.RecibirSesion()};
};

TEST_F(Omisiones, NoHayNingunaCuandoTodoVaBien) {
  copia.Cargar(kRangoDeMarzo);
  copia.Grabar();
  EXPECT_THAT(Dichas(), IsEmpty());
}

TEST_F(Omisiones, UnaFilaQueNoSeCargaTraeSuClave) {
  temp->Ejecutar(
      "CREATE TRIGGER SinUna BEFORE INSERT ON TempProvVencimientos WHEN NEW.FechaVto = '20050302' "
      "BEGIN SELECT RAISE(ABORT, 'no'); END");
  copia.Cargar(kRangoDeMarzo);
  EXPECT_THAT(Dichas(), ElementsAre("carga: fila en TempProvVencimientos NConcepto=2 "
                                    "NFactura=F000001 Año=2005"));
  EXPECT_TRUE(copia.Rango()) << "la copia se puede grabar, sin esa fila";
}

TEST_F(Omisiones, CadaValorQueLaTablaDeTrabajoNoTieneSeDice) {
  Quitar(*temp, "TempProvBasesIva");
  temp->Ejecutar("CREATE TABLE TempProvBasesIva (NConcepto)");
  copia.Cargar(kRangoDeMarzo);
  const auto dichas = Dichas();
  ASSERT_EQ(dichas.size(), 4U * 6U) << "cuatro bases, de siete valores";
  EXPECT_EQ(dichas[0], "carga: valor en TempProvBasesIva NConcepto=1 NFactura=F000000 Año=2005");
}

TEST_F(Omisiones, LaTablaDeOrigenQueNoSeAbreDejaLaCopiaIncompleta) {
  Quitar(*datos, "ProvBasesIva");
  copia.Cargar(kRangoDeMarzo);
  EXPECT_THAT(Dichas(), ElementsAre("carga: tabla en TempProvBasesIva"));
  EXPECT_FALSE(copia.Rango());
}

TEST_F(Omisiones, UnaFilaQueNoSeGrabaTraeSuClave) {
  copia.Cargar(kRangoDeMarzo);
  datos->Ejecutar(
      "CREATE TRIGGER SinUna BEFORE INSERT ON ProvFacturas WHEN NEW.Factura = 'F000001' "
      "BEGIN SELECT RAISE(ABORT, 'no'); END");
  copia.Grabar();
  EXPECT_THAT(Dichas(), ElementsAre("grabación: fila en ProvFacturas NConcepto=2 "
                                    "Factura=F000001 Año=2005"));
}

TEST_F(Omisiones, LaTablaDeTrabajoQueNoSeAbreSeDice) {
  copia.Cargar(kRangoDeMarzo);
  Quitar(*temp, "TempProvVencimientos");
  copia.Grabar();
  EXPECT_THAT(Dichas(),
              ElementsAre("grabación: tabla en ProvVencimientos", "grabación: nada en ninguna"))
      << "y vaciarla tampoco se puede";
}

TEST_F(Omisiones, LaTablaAlmacenadaQueNoSeAbreDiceTambienCadaFilaPerdida) {
  copia.Cargar(kRangoDeMarzo);
  datos->Ejecutar("DROP TABLE ProvPrevisionPagos");
  temp->Ejecutar("INSERT INTO TempProvPrevisionPagos (NConcepto, Fecha1Vto) VALUES ('7', '2005')");
  copia.Grabar();
  EXPECT_THAT(Dichas(), ElementsAre("grabación: borrado en ProvPrevisionPagos",
                                    "grabación: tabla en ProvPrevisionPagos",
                                    "grabación: fila en ProvPrevisionPagos NConcepto=7 "
                                    "Fecha1Vto=2005 Cada="));
}

TEST_F(Omisiones, UnApunteQueNoSeEnlazaSeDice) {
  copia.Cargar(kRangoDeMarzo);
  datos->Ejecutar(
      "CREATE TRIGGER SinUno BEFORE UPDATE ON CajaPagos WHEN OLD.Factura = 'F000000' "
      "BEGIN SELECT RAISE(ABORT, 'no'); END");
  copia.Grabar();
  EXPECT_THAT(Dichas(), ElementsAre("grabación: fila en CajaPagos idSucursal=01 "
                                    "FechaHora=01/02/2005 Tipo=1"));
}

TEST(QuienOyeLasOmisiones, NoPuedeTraerOtroFallo) {
  int oidas = 0;
  services::Plataforma plataforma = headless::Entorno::Crear()->Plataforma();
  plataforma.PasadoPorAlto = [&](services::Sesion&, const Omision&) {
    ++oidas;
    throw services::ErrorEjecucion(services::error::Interno, "no queda sitio para anotarlo");
  };
  shell::DatosComunes sesion(plataforma);
  sesion.PasadoPorAlto(
      {Omision::Tarea::Carga, Omision::Falta::Nada, "", {}, {13, "no coinciden los tipos"}});
  EXPECT_EQ(oidas, 1);
}

}  // namespace
