#include <gmock/gmock.h>

#include <chrono>

#include "host/salvaguarda/oficina.h"
#include "salvaguarda/recuperacion.h"
#include "salvaguarda/rescate.h"

// What the guard does with the invoices of a supplier who has thousands of them in a year: these
// differ in their number alone. Looking through all of them for each takes minutes.

namespace {

using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

constexpr int kDeUnProveedor = 10'000;
constexpr std::chrono::seconds kEnseguida(5);

/// Tells of all of them, of the first one that.
auto DiceDeTodas(const std::string& motivo) {
  return AllOf(HasSubstr("(" + std::to_string(kDeUnProveedor) + " facturas):"),
               HasSubstr("factura F1 de 2005 de Proveedor número 0 (1), " + motivo));
}

class MuchasDeUnProveedor : public testing::Test, protected pruebas::Oficina {
 protected:
  MuchasDeUnProveedor() : Oficina({0, 0}) {
    const std::string filas =
        "WITH RECURSIVE s(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM s WHERE i < " +
        std::to_string(kDeUnProveedor) + ") INSERT INTO ";
    Otro("BEGIN;" + filas +
         "ProvFacturas (NConcepto, Factura, Año, Fecha, Total) SELECT '1', 'F' || i, '2005', "
         "'20050301', 100 FROM s;" +
         filas +
         "ProvVencimientos (NConcepto, NFactura, Año, FechaVto, Importe, Fechapago) SELECT '1', "
         "'F' || i, '2005', '20050315', 100, '' FROM s; COMMIT");
    Cargar();
  }
  /// What that gives; it must not take long.
  template <class Accion>
  static auto Enseguida(Accion&& accion) {
    const auto desde = std::chrono::steady_clock::now();
    auto resultado = accion();
    EXPECT_LT(std::chrono::steady_clock::now() - desde, kEnseguida);
    return resultado;
  }
  /// What the guard asks before a "Grabar".
  std::vector<std::string> Preguntado() {
    datos->TerminarUnidad();
    temp->TerminarUnidad();
    return Enseguida([&] {
      guardia->AlComenzar({salvaguarda::Comienzo::Tarea::Grabacion, {"20050301", "20050331"}});
      datos->AbandonarUnidad();
      return Preguntas;
    });
  }
  salvaguarda::Reposicion ComoSeria() {
    const auto copia = Guardadas().at(0);
    return Enseguida([&] { return guardia->Comparar(copia); });
  }
};

TEST_F(MuchasDeUnProveedor, UnaCopiaSeComparaEnseguida) {
  Grabar();
  EXPECT_EQ(ComoSeria().Cuantas(), 0U);
  Otro("UPDATE ProvVencimientos SET Importe = 90, Pagado = 5");
  const salvaguarda::Reposicion cambiados = ComoSeria();
  EXPECT_THAT(cambiados.Vuelven, IsEmpty());
  EXPECT_THAT(cambiados.SeVan, IsEmpty());
  EXPECT_THAT(cambiados.Cambian, SizeIs(kDeUnProveedor));
  EXPECT_THAT(cambiados.Cambian,
              Each(AllOf(Field(&salvaguarda::Fila::Importe, "100,00, ahora 90,00"),
                         Field(&salvaguarda::Fila::Motivo, "pagado nada, ahora 5,00"))));
}

TEST_F(MuchasDeUnProveedor, UnaCopiaConOtrasFechasSeComparaEnseguida) {
  Grabar();
  Otro("UPDATE ProvVencimientos SET FechaVto = '20050316', Pagado = 5");
  const salvaguarda::Reposicion movidos = ComoSeria();
  EXPECT_THAT(movidos.Cambian, IsEmpty());
  EXPECT_THAT(movidos.Vuelven, SizeIs(kDeUnProveedor));
  EXPECT_THAT(movidos.SeVan, SizeIs(kDeUnProveedor));
  EXPECT_THAT(movidos.SeVan, Each(AllOf(Field(&salvaguarda::Fila::Importe, "100,00"),
                                        Field(&salvaguarda::Fila::Motivo, ""))));
}

TEST_F(MuchasDeUnProveedor, SiOtroLasCambiaTodasSePreguntaEnseguida) {
  Otro("UPDATE ProvFacturas SET Total = 99; UPDATE ProvVencimientos SET Importe = 99");
  EXPECT_THAT(Preguntado(),
              ElementsAre(DiceDeTodas("por 99,00, antes 100,00: la ha cambiado otro usuario, y "
                                      "quedaría como está en la lista\n")));
}

TEST_F(MuchasDeUnProveedor, SiOtroLasDejaSinSuFacturaSePreguntaEnseguida) {
  Otro("DELETE FROM ProvFacturas");
  EXPECT_THAT(
      Preguntado(),
      ElementsAre(DiceDeTodas("por 100,00: otro usuario la ha borrado, y se volvería a grabar\n")));
}

TEST_F(MuchasDeUnProveedor, SiNoEstanEnLaListaSePreguntaEnseguida) {
  Trabajar("DELETE FROM TempProvFacturas; DELETE FROM TempProvVencimientos");
  Otro("UPDATE ProvFacturas SET Total = 99");
  EXPECT_THAT(Preguntado(),
              ElementsAre(DiceDeTodas(
                  "por 99,00, antes 100,00: la ha cambiado otro usuario, y se borraría\n")));
}

TEST_F(MuchasDeUnProveedor, LosVencimientosBorradosDeUnaCopiaAbandonadaSeHallanEnseguida) {
  Trabajar("DELETE FROM TempProvVencimientos");
  Otro(
      "INSERT INTO ProvVencimientos (NConcepto, NFactura, Año, FechaVto, Importe) VALUES ('1', "
      "'F1', '2005', '20050317', 3)");
  temp->TerminarUnidad();
  const auto rescate = Enseguida(
      [&] { return salvaguarda::BuscarRescate(*temp, Negocio().FicheroDatos(), Foto()); });
  ASSERT_TRUE(rescate);
  EXPECT_THAT(rescate->Filas, SizeIs(kDeUnProveedor)) << "el que otro ha añadido no lo borró nadie";
}

}  // namespace
