#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "forms/entrada.h"
#include "jornada/partida.h"

// Whatever is pasted into a field of the panel: it is left, accepted, cancelled, and the screen
// goes on. Nothing is written but what an acceptance may write.

namespace {

using jornada::Partida;
namespace entrada = services::entrada;

const std::string kTresFilas = R"(
reloj 2005-03-15 10:00:00
datos INSERT INTO ProvConceptos VALUES('12','Papelería'),('20','Alquiler')
datos INSERT INTO ProvFacturas VALUES('12','F1','2005','20050301',116,'2',2,9,10,0,0,0,'x','y')
datos INSERT INTO ProvBasesIva VALUES('12','F1','2005','1',100,16,0,'x','y')
datos INSERT INTO ProvVencimientos VALUES('12','F1','2005','20050310',58,58,'','x','y'),('12','F1','2005','20050320',58,NULL,'','x','y')
datos INSERT INTO ProvPrevisionPagos VALUES('20','20050305',1,2,600,'x','y')
)";

/// With all its fields in use, and right: 100 + 16 + 100 + 7 + 25 + 1 + 10 - 15.
const std::string kNueva = R"(
pulsar BotonNuevo
teclear TxtConcepto "12"
teclear TxtNFra "N1"
teclear TxtIFra "244"
foco TxtNFra
pulsar Chk7
teclear TxtB7 "100"
pulsar Chk4
teclear TxtB4 "25"
pulsar Chk0
teclear TxtB0 "10"
pulsar Chk15
teclear TxtBIRPF "100"
teclear TxtB16 "100"
pulsar OptGenerar
teclear TxtCada "1"
elegir CboPlazo "Meses"
foco TxtNFra
)";
const std::string kAplazada = kNueva + R"(
pulsar OptAplazado
teclear TxtNRecibos "3"
tecla Intro
teclear TxtDias "10"
tecla Intro
teclear TxtCadencia "10"
tecla Intro
foco TxtNFra
)";
const std::string kFactura = "celda MSFPagos 2 1\npulsar BotonModificar\n";
const std::string kPrevision = "celda MSFPagos 1 1\npulsar BotonModificar\n";

/// Concepts, numbers and dates that an entry can have, amounts that the list can add up, and no row
/// without its invoice.
const std::string kSanas = R"sql(
espera consulta local "SELECT Factura FROM TempProvFacturas WHERE NConcepto NOT IN ('12','20') OR length(Fecha) <> 8 OR CAST(Año AS INTEGER) <> CAST(substr(Fecha, 1, 4) AS INTEGER) OR Total IS NULL"
espera consulta local "SELECT v.NFactura FROM TempProvVencimientos v WHERE v.Importe < 0 OR v.Importe >= 1e12 OR v.Pagado < 0 OR v.Pagado >= 1e12 OR length(v.FechaVto) <> 8 OR NOT EXISTS (SELECT 1 FROM TempProvFacturas f WHERE f.NConcepto = v.NConcepto AND f.Factura = v.NFactura AND f.Año = v.Año)"
espera consulta local "SELECT b.NFactura FROM TempProvBasesIva b WHERE NOT EXISTS (SELECT 1 FROM TempProvFacturas f WHERE f.NConcepto = b.NConcepto AND f.Factura = b.NFactura AND f.Año = b.Año)"
espera consulta local "SELECT NConcepto FROM TempProvPrevisionPagos WHERE NConcepto NOT IN ('12','20') OR Importe < 0 OR Importe >= 1e12 OR length(Fecha1Vto) <> 8"
espera consulta datos "SELECT count(*) FROM ProvFacturas" "1"
)sql";

std::vector<std::string> Raros() {
  return {"",
          " ",
          "-",
          ",",
          "0",
          "-0,01",
          "999",
          "999999999999,99",
          "123456789012345",
          "1e300",
          "1e9",
          "0,0000001",
          "1.2.3,4,5",
          "Infinity",
          "NaN",
          "'",
          "' OR '1'='1",
          "\";--",
          "%_*",
          "a\tb",
          "a\r\nb",
          std::string("a\0b", 3),
          "\xC3",
          "\xF0\x9F\x98\x80\xE2\x80\xAE\xD8\xA7",
          "01/01/0000",
          "31/12/9999",
          "01/01/0100",
          "29/02/2005",
          "99/99/9999",
          "10:30",
          "2005-03-15",
          std::string(10000, '9'),
          std::string(10000, 'x')};
}

class TextosRaros : public testing::TestWithParam<std::string> {
 protected:
  /// Whatever it says and asks: `respuesta` to all of it.
  std::string Jugar(const std::string& texto, const std::string& respuesta = "si") {
    std::string respuestas = "responder";
    for (int i = 0; i < 20; ++i) respuestas += " " + respuesta;
    const Partida::Jugada jugada = partida.Jugar(respuestas + "\n" + texto);
    EXPECT_EQ(jugada.Estado, 0) << jugada.Errores << jugada.Salida;
    return jugada.Salida;
  }

  std::vector<services::TextBox*> Cajas() {
    std::vector<services::TextBox*> cajas;
    for (services::Widget* widget : partida.Pantalla().Widgets()) {
      auto* caja = dynamic_cast<services::TextBox*>(widget);
      if (caja && caja->Alcanzable()) cajas.push_back(caja);
    }
    return cajas;
  }

  void ExigirTablasSanas(const std::string& caso) {
    const std::string salida = partida.Jugar(kSanas).Salida;
    EXPECT_EQ(salida, "") << caso;
  }

  Partida partida;
};

TEST_P(TextosRaros, EnCadaCampoSeDejanSeAceptanYSeCancelan) {
  Jugar(kTresFilas + "cargar\n" + GetParam());
  const std::size_t cuantas = Cajas().size();
  int aceptadas = 0;
  const auto raros = Raros();
  for (std::size_t n = 0; n < cuantas; ++n) {
    for (std::size_t r = 0; r < raros.size(); ++r) {
      Jugar("pulsar BtnCancelar\npulsar BotonCancelar\n" + GetParam());
      services::TextBox& caja = *Cajas().at(n);
      const std::string caso = caja.Nombre() + " " + std::to_string(r);
      entrada::Enfocar(caja);
      entrada::CambiarTexto(caja, raros[r]);
      const std::string respuesta = (n + r) % 2 == 0 ? "si" : "no";
      Jugar("foco TxtNFra\nfoco MSFVencimientos\npulsar BtnAceptar\npulsar BtnAceptar\navisos\n",
            respuesta);
      aceptadas += partida.Pantalla().Campos.PicNuevo.Visible ? 0 : 1;
      Jugar("pulsar BtnCancelar\n");
      EXPECT_EQ(Jugar("espera PicNuevo.Visible 0\nespera BotonNuevo.Enabled 1\n"), "") << caso;
      ExigirTablasSanas(caso);
    }
  }
  // Most fields take some of them; the rest is stopped with a message.
  EXPECT_GT(aceptadas, static_cast<int>(cuantas));
  EXPECT_LT(aceptadas, static_cast<int>(cuantas * raros.size()));
  // And the day ends as any other.
  EXPECT_EQ(Jugar("pulsar BotonCancelar\ncerrar\n"), "");
}

INSTANTIATE_TEST_SUITE_P(EnCadaEntrada, TextosRaros,
                         testing::Values(kNueva, kAplazada, kFactura, kPrevision));

}  // namespace
