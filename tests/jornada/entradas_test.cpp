#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>

#include "jornada/partida.h"

// What holds of any entry that is accepted, tried with entries at random.

namespace {

using jornada::Partida;

#if defined(TESVARA_SANITIZADO)
constexpr int kEntradas = 15;
#else
constexpr int kEntradas = 80;
#endif

const std::string kConceptos = R"(
reloj 2005-03-15 10:00:00
datos INSERT INTO ProvConceptos VALUES('12','Papelería'),('20','Alquiler'),('31','Ñandú')
cargar
)";

/// Types entries as a user does who makes no mistakes: cents as whole numbers, so that what is due
/// is known without the component's own arithmetic.
class Usuario {
 public:
  explicit Usuario(unsigned semilla) : azar_(semilla) {}

  std::string Entrada(int numero) {
    const std::string concepto = Uno({"12", "20", "31"});
    std::string texto = "pulsar BotonNuevo\nteclear TxtConcepto \"" + concepto +
                        "\"\nteclear TxtFFra \"" + Fecha() + "\"\nteclear TxtNFra \"E" +
                        std::to_string(numero) + "\"\n";
    texto += Importes();
    if (Entero(0, 1) == 1) texto += Plazos();
    return texto + "foco TxtNFra\npulsar BtnAceptar\n";
  }

 private:
  int Entero(int desde, int hasta) { return std::uniform_int_distribution(desde, hasta)(azar_); }
  std::string Uno(std::initializer_list<const char*> textos) {
    return *(textos.begin() + Entero(0, static_cast<int>(textos.size()) - 1));
  }
  std::string Fecha() {
    const int mes = Entero(1, 12);
    return std::to_string(Entero(10, 28)) + (mes < 10 ? "/0" : "/") + std::to_string(mes) + "/2005";
  }
  static std::string Texto(std::int64_t centimos) {
    const std::string resto = std::to_string(centimos % 100);
    return std::to_string(centimos / 100) + (resto.size() < 2 ? ",0" : ",") + resto;
  }
  static std::string Teclear(const std::string& campo, const std::string& texto) {
    return "teclear " + campo + " \"" + texto + "\"\nfoco TxtNFra\n";
  }
  std::int64_t Centimos(int hasta) { return Entero(1, hasta); }

  std::string Importes() {
    switch (Entero(0, 4)) {
      case 0:
        return Teclear("TxtIFra", Texto(Centimos(99'999'999)));
      case 1:
        return "pulsar Chk16\npulsar Chk" + Uno({"7", "4", "0"}) + "\n" +
               Teclear("TxtIFra", Texto(Centimos(99'999'999)));
      case 2:
        return VariosTipos();
      default:
        return ConRetencion();
    }
  }
  /// The first rate takes what the lower one and the exempt part leave.
  std::string VariosTipos() {
    const std::int64_t total = 1000 + Centimos(9'999'999);
    return Teclear("TxtIFra", Texto(total)) + "pulsar Chk4\n" +
           Teclear("TxtB4", Texto(total / Entero(2, 9))) + "pulsar Chk0\n" +
           Teclear("TxtB0", Texto(total / Entero(10, 99))) + "foco TxtIFra\nfoco TxtNFra\n";
  }
  std::string ConRetencion() {
    const std::int64_t base = 100 * Centimos(99'999);
    const std::int64_t total = base + base * 16 / 100 - base * 15 / 100;
    return Teclear("TxtIFra", Texto(total)) + "pulsar Chk15\n" + Teclear("TxtBIRPF", Texto(base)) +
           Teclear("TxtB16", Texto(base));
  }
  std::string Plazos() {
    return "pulsar OptAplazado\nteclear TxtNRecibos \"" + std::to_string(Entero(1, 9)) +
           "\"\ntecla Intro\nteclear TxtDias \"" + std::to_string(Entero(1, 90)) +
           "\"\ntecla Intro\nteclear TxtCadencia \"" + std::to_string(Entero(1, 60)) +
           "\"\ntecla Intro\n";
  }

  std::mt19937 azar_;
};

const std::string kFilas = R"(
consulta local SELECT * FROM TempProvFacturas ORDER BY NConcepto, Factura, Año
consulta local SELECT * FROM TempProvBasesIva ORDER BY NConcepto, NFactura, Año, Tipo
consulta local SELECT * FROM TempProvVencimientos ORDER BY NConcepto, NFactura, Año, FechaVto
consulta local SELECT * FROM TempProvPrevisionPagos ORDER BY NConcepto
)";

class Entradas : public testing::TestWithParam<unsigned> {
 protected:
  void SetUp() override {
    Usuario usuario(GetParam());
    Jugar(kConceptos);
    for (int i = 1; i <= kEntradas; ++i) {
      const std::string entrada = usuario.Entrada(i);
      Jugar(entrada + "espera sin avisos\nespera PicNuevo.Visible 0\n", entrada);
    }
  }
  void Jugar(const std::string& texto, const std::string& caso = "") {
    const Partida::Jugada jugada = partida.Jugar(texto);
    ASSERT_EQ(jugada.Estado, 0) << jugada.Salida << jugada.Errores << caso;
    ASSERT_EQ(jugada.Salida, "") << caso;
  }

  Partida partida;
};

TEST_P(Entradas, BasesIvaYExentoMenosRetencionSonElTotalAUnCentimo) {
  Jugar(
      "espera consulta local \"SELECT count(*) FROM TempProvFacturas\" \"" +
      std::to_string(kEntradas) +
      "\"\n"
      "espera consulta local \"SELECT f.Factura, f.Total FROM TempProvFacturas f WHERE "
      "abs(round(100 * (coalesce((SELECT sum(coalesce(b.Base, 0) + coalesce(b.Importe, 0) + "
      "coalesce(b.Exento, 0)) FROM TempProvBasesIva b WHERE b.NFactura = f.Factura), 0) - f.IRPF - "
      "f.Total))) > 1\"\n"
      "espera consulta local \"SELECT DISTINCT IRPF > 0 FROM TempProvFacturas ORDER BY 1\" \"0\" "
      "\"1\"\n");
}

TEST_P(Entradas, LosRecibosSumanElTotalJusto) {
  Jugar(
      "espera consulta local \"SELECT f.Factura, f.Total FROM TempProvFacturas f WHERE "
      "round(100 * f.Total) <> (SELECT sum(round(100 * v.Importe)) FROM TempProvVencimientos v "
      "WHERE v.NFactura = f.Factura)\"\n"
      "espera consulta local \"SELECT f.Factura FROM TempProvFacturas f WHERE f.NRecibos <> "
      "(SELECT count(*) FROM TempProvVencimientos v WHERE v.NFactura = f.Factura)\"\n");
}

TEST_P(Entradas, AceptadaSinCambiosDejaSusMismasFilas) {
  const std::string antes = partida.Jugar(kFilas).Salida;
  const int lineas = partida.Pantalla().Rejilla.MSFPagos.Rows;
  int facturas = 0;
  for (int fila = 1; fila < lineas && !::testing::Test::HasFatalFailure(); ++fila) {
    if (!partida.Pantalla().Rejilla.EsPagable(fila)) continue;
    const std::string caso = "celda MSFPagos " + std::to_string(fila) + " 1\n";
    Jugar(caso +
          "pulsar BotonModificar\nespera Label1.Caption \"Modificar Tesvara\"\npulsar BtnAceptar\n"
          "espera sin avisos\nespera PicNuevo.Visible 0\n");
    ++facturas;
  }
  EXPECT_GE(facturas, kEntradas);
  EXPECT_EQ(partida.Jugar(kFilas).Salida, antes);
}

INSTANTIATE_TEST_SUITE_P(AlAzar, Entradas, testing::Values(1U, 2U, 3U));

/// The statements of one acceptance after so many others.
std::string Sentencias(int cuantas) {
  Partida partida;
  Usuario usuario(7);
  partida.Jugar(kConceptos);
  for (int i = 1; i <= cuantas; ++i) partida.Jugar(usuario.Entrada(i));
  EXPECT_EQ(partida.Jugar("consulta local SELECT count(*) FROM TempProvFacturas\n").Salida,
            std::to_string(cuantas) + "\n(1 filas)\n");
  // The year of the line that the list stands on is part of one of them.
  const Partida::Jugada ultima = partida.Jugar(
      "celda MSFPagos 1 1\npulsar BotonNuevo\nteclear TxtConcepto \"12\"\nteclear TxtNFra "
      "\"U\"\nteclear TxtIFra "
      "\"116\"\nfoco TxtNFra\nsentencias\npulsar BtnAceptar\nespera PicNuevo.Visible 0\n");
  EXPECT_EQ(ultima.Estado, 0) << ultima.Salida;
  return partida.Jugar("sentencias\n").Salida;
}

TEST(SentenciasDeUnaEntrada, SonLasMismasConLasTablasLlenas) {
  const std::string pocas = Sentencias(1);
  EXPECT_NE(pocas.find("TempProvFacturas"), std::string::npos);
  // Of the list's rebuilding as well, which reads all rows with one statement.
  EXPECT_EQ(Sentencias(kEntradas), pocas);
}

}  // namespace
