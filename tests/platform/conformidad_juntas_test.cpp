#include "platform/conformidad.h"

namespace pruebas {
namespace {

namespace error = services::error;
using services::BorradosJuntos;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

/// What a driver may put off, and do for many rows at once: nobody sees the difference.
class Juntas : public Conformidad {
 protected:
  /// Adds one that may wait, and notes it when it is refused.
  void Dejar(services::Recordset& rs, const Texto& factura) {
    rs.AddNew();
    rs.Collect("NConcepto") = "1";
    rs.Collect("NFactura") = factura;
    rs.Collect("Año") = "2005";
    rs.Collect("FechaVto") = "20050315";
    rs.UpdateLuego([this, factura](const services::ErrorEjecucion& fallo) {
      rehusadas.push_back(factura);
      numeros.push_back(fallo.Numero());
    });
  }
  void Borrar(const Texto& factura) {
    Abrir(*conexion, DeFactura("DELETE From", factura), Modo::Optimista);
  }
  static Texto DeFactura(const Texto& verbo, const Texto& factura) {
    return verbo + " ProvVencimientos WHERE ProvVencimientos.NConcepto like '1' and " +
           "ProvVencimientos.Año like '2005' and RTRIM(LTRIM(ProvVencimientos.NFactura)) like '" +
           factura + "'";
  }
  static Texto Consulta(const Texto& factura) {
    return DeFactura("SELECT ProvVencimientos.* FROM", factura);
  }
  std::vector<Texto> Guardadas() { return Primeros("SELECT NFactura FROM ProvVencimientos"); }
  services::Ref<services::Recordset> Almacenados() {
    return Abrir(*conexion, "SELECT ProvVencimientos.* FROM ProvVencimientos", Modo::Optimista);
  }

  std::vector<Texto> rehusadas;
  std::vector<std::int32_t> numeros;
};

INSTANTIATE_TEST_SUITE_P(Motores, Juntas, testing::ValuesIn(Motores()), NombreDelMotor);

TEST_P(Juntas, LaQueSeRehusaFallaSolaYSeDice) {
  const auto rs = Almacenados();
  std::vector<Texto> buenas;
  for (int i = 0; i < 150; ++i) {
    const Texto factura = i % 50 == 7 ? "F0" : "F" + std::to_string(i);
    if (i % 50 != 7) buenas.push_back(factura);
    Dejar(*rs, factura);
  }
  rs->EscribirPendientes();
  EXPECT_THAT(rehusadas, ElementsAre("F0", "F0", "F0"));
  EXPECT_THAT(numeros, testing::Each(error::RepetidoONoCabe));
  EXPECT_THAT(Guardadas(), testing::UnorderedElementsAreArray(buenas));
  conexion->TerminarUnidad();
  EXPECT_EQ(Cuantas(*banco->Conectar(), "ProvVencimientos"), 147);
}

/// More than wait at a time, and than are fetched at a time.
TEST_P(Juntas, MuchasSeGuardanYSeLeenTodas) {
  const auto rs = Almacenados();
  std::vector<Texto> buenas;
  for (int i = 0; i < 1'300; ++i) {
    const Texto factura = "F" + std::to_string(i == 1'200 ? 1'100 : i);
    if (i != 1'200) buenas.push_back(factura);
    Dejar(*rs, factura);
  }
  EXPECT_THAT(Guardadas(), testing::UnorderedElementsAreArray(buenas));
  EXPECT_THAT(rehusadas, ElementsAre("F1100"));
}

/// However little of it comes at a time.
TEST_P(Juntas, UnTextoLargoSeGuardaEntero) {
  const auto rs = Abrir(*conexion, "SELECT TempTesvara.* FROM TempTesvara", Modo::Optimista);
  std::vector<Texto> textos;
  for (const int cuantos : {1'365, 1'366, 2'048, 5'000, 20'000}) {
    Texto& texto = textos.emplace_back(std::to_string(cuantos));
    for (int i = 0; i < cuantos; ++i) texto += "€";
  }
  for (const Texto& texto : textos) {
    rs->AddNew();
    rs->Collect("Concepto") = texto;
    rs->Collect("NFactura") = "F";
    rs->UpdateLuego([](const auto& fallo) { throw services::ErrorEjecucion(fallo); });
  }
  EXPECT_THAT(Primeros("SELECT Concepto FROM TempTesvara"),
              testing::UnorderedElementsAreArray(textos));
}

TEST_P(Juntas, LoQueNoSeConvierteSeDiceEnSeguida) {
  const auto rs = Almacenados();
  rs->AddNew();
  rs->Collect("Importe") = "diez";
  EXPECT_EQ(apoyo::NumeroDeError([&] { rs->UpdateLuego([](const auto&) { FAIL(); }); }),
            error::RepetidoONoCabe);
  rs->CancelUpdate();
}

TEST_P(Juntas, LoDejadoSeVeAlLeer) {
  const auto rs = Almacenados();
  Dejar(*rs, "A");
  EXPECT_EQ(rs->Fields("NFactura").Value.Texto(), "A");
  Dejar(*rs, "B");
  EXPECT_THAT(Guardadas(), UnorderedElementsAre("A", "B"));
}

TEST_P(Juntas, ElFinDeLaUnidadEscribeLoDejadoYAbandonarlaLoDejaSinEscribir) {
  const auto rs = Almacenados();
  Dejar(*rs, "A");
  conexion->TerminarUnidad();
  Dejar(*rs, "B");
  conexion->AbandonarUnidad();
  EXPECT_THAT(Guardadas(), ElementsAre("A"));
}

TEST_P(Juntas, SinUnidadSeEscribeEnSeguida) {
  const auto suelta = banco->Conectar(false);
  const auto rs =
      Abrir(*suelta, "SELECT ProvVencimientos.* FROM ProvVencimientos", Modo::Optimista);
  Dejar(*rs, "A");
  Dejar(*rs, "a");
  EXPECT_THAT(rehusadas, ElementsAre("a"));
  EXPECT_THAT(Guardadas(), ElementsAre("A"));
}

TEST_P(Juntas, LosBorradosSonLosQueSeHanPedido) {
  const auto rs = Almacenados();
  for (int i = 0; i < 200; ++i) Dejar(*rs, "F" + std::to_string(i));
  {
    BorradosJuntos juntos(*conexion);
    for (int i = 0; i < 200; ++i) {
      if (i % 10 != 3) Borrar("f" + std::to_string(i));
    }
    juntos.Terminar();
  }
  EXPECT_EQ(Cuantas(*conexion, "ProvVencimientos"), 20);
  conexion->TerminarUnidad();
  EXPECT_EQ(Cuantas(*banco->Conectar(), "ProvVencimientos"), 20);
}

TEST_P(Juntas, LoQueFallaSinQueNadieLoOigaNoSeLlevaLoDemas) {
  const auto rs = Almacenados();
  Dejar(*rs, "A");
  rs->EscribirPendientes();
  const auto conceptos =
      Abrir(*conexion, "SELECT ProvConceptos.* FROM ProvConceptos", Modo::Optimista);
  int fallos = 0;
  const auto intentar = [&](const std::function<void()>& accion) {
    fallos += apoyo::NumeroDeError(accion) == error::RepetidoONoCabe ? 1 : 0;
  };
  intentar([&] {
    rs->AddNew();
    for (const auto& [campo, valor] :
         {std::pair("NConcepto", "1"), std::pair("NFactura", "a"), std::pair("Año", "2005"),
          std::pair("FechaVto", "20050315")}) {
      rs->Collect(campo) = valor;
    }
    rs->UpdateLuego([](const auto& fallo) { throw services::ErrorEjecucion(fallo); });
  });
  conceptos->AddNew();
  conceptos->Collect("NConcepto") = "1";
  conceptos->UpdateLuego([](const auto&) { FAIL(); });
  intentar([&] { conexion->EscribirPendientes(); });
  EXPECT_EQ(fallos, 1) << "una vez, en seguida o al escribirlo";
  EXPECT_EQ(Cuantas(*conexion, "ProvConceptos"), 1);
}

TEST_P(Juntas, LoBorradoYLoEscritoDeUnaTablaVaEnSuOrden) {
  const auto rs = Almacenados();
  BorradosJuntos juntos(*conexion);
  Dejar(*rs, "A");
  Borrar("A");
  Dejar(*rs, "A");
  Dejar(*rs, "B");
  Borrar("B");
  juntos.Terminar();
  EXPECT_THAT(rehusadas, IsEmpty());
  EXPECT_THAT(Guardadas(), ElementsAre("A"));
}

TEST_P(Juntas, SinTerminarlosSeBorraIgual) {
  Dejar(*Almacenados(), "A");
  {
    const BorradosJuntos juntos(*conexion);
    Borrar("A");
  }
  EXPECT_THAT(Guardadas(), IsEmpty());
}

TEST_P(Juntas, LoAnticipadoDaLasMismasFilas) {
  const auto rs = Almacenados();
  for (int i = 0; i < 150; ++i) Dejar(*rs, "F" + std::to_string(i));
  Dejar(*rs, " F3");
  std::vector<Texto> sentencias;
  for (int i = -1; i < 151; ++i) sentencias.push_back(Consulta("f" + std::to_string(i)));
  conexion->Anticipar([&] { return sentencias; }, Modo::Lectura);
  int filas = 0;
  for (std::size_t i = 0; i < sentencias.size(); ++i) {
    const int factura = static_cast<int>(i) - 1;
    const auto leido = Abrir(*conexion, sentencias[i]);
    const bool hay = factura >= 0 && factura < 150;
    ASSERT_EQ(leido->RecordCount(), !hay ? 0 : factura == 3 ? 2 : 1) << factura;
    EXPECT_EQ(hay ? leido->Fields("FechaVto").Value.Texto() : "20050315", "20050315");
    filas += static_cast<int>(leido->RecordCount());
  }
  EXPECT_EQ(filas, 151);
}

TEST_P(Juntas, LoAnticipadoQueNoSeAbreNoEstorba) {
  Dejar(*Almacenados(), "A");
  conexion->Anticipar(
      [] {
        return std::vector<Texto>{Consulta("B"), Consulta("A")};
      },
      Modo::Lectura);
  EXPECT_EQ(Abrir(*conexion, Consulta("A"))->RecordCount(), 1) << "no es la primera";
  EXPECT_EQ(Abrir(*conexion, Consulta("B"))->RecordCount(), 0);
  Dejar(*Almacenados(), "C");
  EXPECT_EQ(Abrir(*conexion, Consulta("C"))->RecordCount(), 1);
}

TEST_P(Juntas, LoAnticipadoSePuedeCambiar) {
  const auto rs = Almacenados();
  for (const char* factura : {"A", "B", "C"}) Dejar(*rs, factura);
  const auto todas = [] { return std::vector<Texto>{Consulta("A"), Consulta("B"), Consulta("C")}; };
  conexion->Anticipar(todas, Modo::Optimista);
  for (const Texto& sentencia : todas()) {
    const auto una = Abrir(*conexion, sentencia, Modo::Optimista);
    ASSERT_FALSE(una->Eof());
    una->Fields("Pagado").Value = 7.5;
    una->Update();
  }
  conexion->TerminarUnidad();
  EXPECT_THAT(Primeros("SELECT Pagado FROM ProvVencimientos"), ElementsAre("7,5", "7,5", "7,5"));
}

TEST_P(Juntas, UnaAnticipadaQueNoSeEntiendeNoSeLlevaLasDemas) {
  Dejar(*Almacenados(), "A");
  const std::vector<Texto> sentencias = {Consulta("A"), "SELECT Nada.* FROM Nada", Consulta("A")};
  conexion->Anticipar([&] { return sentencias; }, Modo::Lectura);
  EXPECT_EQ(Abrir(*conexion, sentencias[0])->RecordCount(), 1);
  EXPECT_EQ(ErrorAlAbrir(sentencias[1]), error::TablaDesconocida);
  EXPECT_EQ(Abrir(*conexion, sentencias[2])->RecordCount(), 1);
}

}  // namespace
}  // namespace pruebas
