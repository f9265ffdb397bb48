#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

#include "apoyo/errores.h"
#include "jornada/partida.h"
#include "list/color_lista.h"
#include "valores/error.h"

// The main screen as it stands after its load: what no scenario prints of it.

namespace {

using services::IForm;
using services::IUnknown;
using services::MSFlexGrid;
using services::Ref;

const std::string kReloj = "reloj 2005-03-15 10:00:00\n";

/// One invoice with so many receipts in March, a day each, and one in April.
std::string Recibos(int cuantos) {
  return "datos INSERT INTO ProvConceptos VALUES ('400','Luz')\n"
         "datos INSERT INTO ProvFacturas (NConcepto,Factura,Año,Fecha) VALUES "
         "('400','F1','2005','20050110')\n"
         "datos WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
         std::to_string(cuantos) +
         ") INSERT INTO ProvVencimientos (NConcepto,NFactura,Año,FechaVto,Importe) SELECT '400', "
         "'F1', '2005', 20050300 + i, i FROM n\n"
         "datos INSERT INTO ProvVencimientos (NConcepto,NFactura,Año,FechaVto,Importe) VALUES "
         "('400','F1','2005','20050410',1)\n";
}

/// Two receipts of March 2005, of one invoice each.
std::string DosFacturas() {
  return "datos INSERT INTO ProvConceptos VALUES ('400','Luz')\n"
         "datos INSERT INTO ProvFacturas (NConcepto,Factura,Año,Fecha) VALUES "
         "('400','F1','2005','20050110'),('400','F2','2005','20050110')\n"
         "datos INSERT INTO ProvVencimientos (NConcepto,NFactura,Año,FechaVto,Importe) VALUES "
         "('400','F1','2005','20050310',100),('400','F2','2005','20050311',200)\n";
}

class Pantalla : public testing::Test {
 protected:
  shell::FrmTesvaraGastos& Cargar(const std::string& antes = "") {
    const auto jugada = partida.Jugar(kReloj + antes + "cargar\n");
    EXPECT_EQ(jugada.Estado, 0) << jugada.Errores;
    EXPECT_EQ(jugada.Salida, "");
    return partida.Pantalla();
  }
  void Jugar(const std::string& texto) {
    const auto jugada = partida.Jugar(texto);
    EXPECT_EQ(jugada.Estado, 0) << jugada.Errores;
    EXPECT_EQ(jugada.Salida, "");
  }
  static std::vector<int> Anchos(const MSFlexGrid& rejilla) {
    std::vector<int> anchos;
    for (int c = 0; c < rejilla.Cols(); ++c) anchos.push_back(rejilla.ColWidth(c));
    return anchos;
  }
  static std::vector<std::string> Titulos(const MSFlexGrid& rejilla) {
    std::vector<std::string> titulos;
    for (int c = 0; c < rejilla.Cols(); ++c) titulos.push_back(rejilla.TextMatrix(0, c));
    return titulos;
  }

  jornada::Partida partida;
};

TEST_F(Pantalla, LaRejillaTieneSusColumnasYSuLetra) {
  const MSFlexGrid& rejilla = Cargar().Rejilla.MSFPagos;
  EXPECT_EQ(Titulos(rejilla), (std::vector<std::string>{"Fecha Vto", "Concepto", "NºFactura",
                                                        "Importe", "Pagado", "*", "", ""}));
  const int resto = rejilla.Width - 4 * 1600 - 340;
  EXPECT_EQ(Anchos(rejilla), (std::vector<int>{1600, resto, 1600, 1600, 1600, 340, 0, 0}));
  EXPECT_EQ(rejilla.Rows, 22);
  EXPECT_EQ(rejilla.RowHeightMin, 340);
  EXPECT_DOUBLE_EQ(rejilla.FontSize, 10);
  EXPECT_TRUE(rejilla.FontBold);
  EXPECT_DOUBLE_EQ(rejilla.CuerpoDe(0, 0), 12);
  EXPECT_TRUE(rejilla.NegritaDe(0, 0));
  EXPECT_DOUBLE_EQ(rejilla.CuerpoDe(0, 1), 10);
  EXPECT_DOUBLE_EQ(rejilla.CuerpoDe(1, 0), 10);
  for (int c = 0; c <= 5; ++c) EXPECT_EQ(rejilla.FixedAlignment(c), 4) << c;
  EXPECT_NE(rejilla.FixedAlignment(6), 4);
  EXPECT_EQ(rejilla.ColAlignment(2), 2);
  EXPECT_EQ(rejilla.AlineacionDe(1, 2), 2);
  EXPECT_NE(rejilla.ColAlignment(3), 2);
}

TEST_F(Pantalla, LaColumnaVariableCambiaConElOrden) {
  const MSFlexGrid& rejilla = Cargar(Recibos(3)).Rejilla.MSFPagos;
  const int resto = rejilla.Width - 4 * 1600 - 340;
  Jugar("pulsar OptConcepto\n");
  EXPECT_EQ(Anchos(rejilla), (std::vector<int>{resto, 1600, 1600, 1600, 1600, 340, 0, 0}));
  EXPECT_EQ(Titulos(rejilla), (std::vector<std::string>{"Concepto", "Fecha Vto", "NºFactura",
                                                        "Importe", "Pagado", "*", "", ""}));
  Jugar("pulsar OptFecha\n");
  EXPECT_EQ(Anchos(rejilla), (std::vector<int>{1600, resto, 1600, 1600, 1600, 340, 0, 0}));
}

TEST_F(Pantalla, ConVeintidosFilasCabeSinBarra) {
  const MSFlexGrid& rejilla = Cargar(Recibos(21)).Rejilla.MSFPagos;
  ASSERT_EQ(rejilla.Rows, 22);
  EXPECT_EQ(rejilla.ColWidth(1), rejilla.Width - 4 * 1600 - 340);
}

TEST_F(Pantalla, ConMasDeVeintidosFilasSeDejaSitioALaBarra) {
  const MSFlexGrid& rejilla = Cargar(Recibos(22)).Rejilla.MSFPagos;
  ASSERT_EQ(rejilla.Rows, 23);
  const int resto = rejilla.Width - 4 * 1600 - 340 - 300;
  EXPECT_EQ(rejilla.ColWidth(1), resto);
  Jugar("pulsar OptConcepto\n");
  EXPECT_EQ(rejilla.ColWidth(0), resto);
  EXPECT_EQ(rejilla.ColWidth(1), 1600);
  // The list gets shorter, and the place comes back.
  Jugar("pulsar ChkPagados\n");
  ASSERT_EQ(rejilla.Rows, 22);
  EXPECT_EQ(rejilla.ColWidth(0), resto + 300);
}

TEST_F(Pantalla, TomaElSitioDelMarco) {
  partida.Anfitrion().FrmMarco().Area = {300, 200, 14000, 10000};
  const shell::FrmTesvaraGastos& pantalla = Cargar();
  EXPECT_EQ(pantalla.Left, 300);
  EXPECT_EQ(pantalla.Top, 200);
  EXPECT_EQ(pantalla.Width, 14000);
  EXPECT_EQ(pantalla.Height, 10000);
  EXPECT_EQ(pantalla.Barra1.Width, 14000);
  EXPECT_EQ(pantalla.PicPagos.Width, 14000);
  EXPECT_EQ(pantalla.PicTexto.Left, (14000 - pantalla.PicTexto.Width) / 2);
  EXPECT_EQ(pantalla.PicTexto.Top, (10000 - pantalla.PicTexto.Height) / 2);
  EXPECT_EQ(pantalla.Campos.PicNuevo.Left, (14000 - pantalla.Campos.PicNuevo.Width) / 2);
}

/// A screen of another size than the one of reference.
struct Otra {
  const char* Texto;
  int Ancho;
  int Referencia;
};
void PrintTo(const Otra& otra, std::ostream* salida) {
  *salida << otra.Ancho << " de " << otra.Referencia;
}

class OtraPantalla : public Pantalla, public testing::WithParamInterface<Otra> {
 protected:
  static int A(int medida) { return medida * GetParam().Ancho / GetParam().Referencia; }
};

TEST_P(OtraPantalla, SeAjustanLetrasAltosYAnchos) {
  jornada::Partida normal;
  ASSERT_EQ(normal.Jugar(kReloj + "cargar\n").Estado, 0);
  const shell::FrmTesvaraGastos& antes = normal.Pantalla();
  const shell::FrmTesvaraGastos& pantalla = Cargar(GetParam().Texto);

  EXPECT_DOUBLE_EQ(pantalla.Rejilla.MSFPagos.FontSize, antes.Rejilla.MSFPagos.FontSize - 2);
  const auto campos = [](const shell::FrmTesvaraGastos& f) {
    return std::vector<const services::TextBox*>{&f.Rango.TxtFPrevisionD, &f.Rango.TxtFPrevision};
  };
  for (std::size_t i = 0; i < 2; ++i) {
    const services::TextBox& campo = *campos(pantalla)[i];
    const double cuerpo = campos(antes)[i]->FontSize - 1;
    EXPECT_DOUBLE_EQ(campo.FontSize, cuerpo - 1.5);
    // No box is lower than its line.
    EXPECT_EQ(campo.Height, std::max(services::TextBox::AltoDeLinea(cuerpo) - 40,
                                     services::TextBox::AltoDeLinea(cuerpo - 1.5)));
  }
  EXPECT_DOUBLE_EQ(pantalla.Rejilla.TxtTotal.FontSize, antes.Rejilla.TxtTotal.FontSize - 1);
  EXPECT_EQ(pantalla.Lista.OptFecha.Width, A(antes.Lista.OptFecha.Width) - 130);
  EXPECT_EQ(pantalla.Lista.OptConcepto.Width, A(antes.Lista.OptConcepto.Width) - 50);
  EXPECT_EQ(pantalla.Lista.ChkPagados.Width, A(antes.Lista.ChkPagados.Width) - 100);
  EXPECT_EQ(pantalla.Lista.ChkPrevisiones.Width, A(antes.Lista.ChkPrevisiones.Width));
  EXPECT_EQ(pantalla.Lista.OptFecha.Left, A(antes.Lista.OptFecha.Left));
  EXPECT_EQ(pantalla.Barra1.Height, antes.Barra1.Height);
}

TEST_P(OtraPantalla, CabenDieciseisFilas) {
  const MSFlexGrid& rejilla = Cargar(GetParam().Texto + Recibos(15)).Rejilla.MSFPagos;
  ASSERT_EQ(rejilla.Rows, 16);
  EXPECT_EQ(rejilla.Width, A(15000));
  EXPECT_EQ(Anchos(rejilla),
            (std::vector<int>{1600, A(15000) - 4 * 1600 - 340, 1600, 1600, 1600, 340, 0, 0}));
}

TEST_P(OtraPantalla, ConMasDeDieciseisFilasSeDejaSitioALaBarra) {
  const MSFlexGrid& rejilla = Cargar(GetParam().Texto + Recibos(16)).Rejilla.MSFPagos;
  ASSERT_EQ(rejilla.Rows, 17);
  EXPECT_EQ(rejilla.ColWidth(1), A(15000) - 4 * 1600 - 340 - 300);
  Jugar("pulsar OptConcepto\n");
  EXPECT_EQ(rejilla.ColWidth(0), A(15000) - 4 * 1600 - 340 - 300);
}

TEST_P(OtraPantalla, ElEditorQuedaUnPocoMasALaIzquierda) {
  const shell::FrmTesvaraGastos& pantalla = Cargar(GetParam().Texto + Recibos(3));
  Jugar("doble MSFPagos 2 4\n");
  const MSFlexGrid& rejilla = pantalla.Rejilla.MSFPagos;
  const services::TextBox& editor = pantalla.Edicion.TxtMsf;
  EXPECT_EQ(editor.Left, rejilla.Left + rejilla.CellLeft() - 20);
  EXPECT_EQ(editor.Top, rejilla.Top + rejilla.CellTop() - 20);
}

INSTANTIATE_TEST_SUITE_P(DeOtraMedida, OtraPantalla,
                         testing::Values(Otra{"pantalla 12000 9000\n", 12000, 15360},
                                         Otra{"referencia 12000 9000\n", 15360, 12000}),
                         [](const auto& una) {
                           return una.param.Ancho < una.param.Referencia ? "Menor" : "Mayor";
                         });

TEST_F(Pantalla, ElEditorCubreSuCelda) {
  const shell::FrmTesvaraGastos& pantalla = Cargar(Recibos(3));
  Jugar("doble MSFPagos 2 4\n");
  const MSFlexGrid& rejilla = pantalla.Rejilla.MSFPagos;
  const services::TextBox& editor = pantalla.Edicion.TxtMsf;
  EXPECT_EQ(editor.Left, rejilla.Left + rejilla.CellLeft() - 10);
  EXPECT_EQ(editor.Top, rejilla.Top + rejilla.CellTop() - 20);
  EXPECT_EQ(editor.Width, 1630);
  EXPECT_EQ(editor.Height, 370);
}

TEST_F(Pantalla, ConElPanelAbiertoLaListaNoHaceNada) {
  auto& pantalla = Cargar(DosFacturas());
  auto& rejilla = pantalla.Rejilla.MSFPagos;
  Jugar("celda MSFPagos 1 3\n");
  const int fondo = rejilla.FondoDe(1, 0);
  pantalla.Campos.PicNuevo.Visible = true;
  // Each of the four events, and the deletion, which would ask.
  Jugar("celda MSFPagos 2 5\ndoble MSFPagos 2 4\npulsar BotonBorrar\nespera sin avisos\n");
  EXPECT_EQ(rejilla.ImagenDe(2, list::columna::Marca), "");
  EXPECT_EQ(rejilla.TextMatrix(2, list::columna::Pagado), "");
  EXPECT_FALSE(pantalla.Edicion.TxtMsf.Visible);
  EXPECT_EQ(rejilla.FondoDe(1, 0), fondo) << "la fila que se deja no se despinta";
  EXPECT_NE(rejilla.FondoDe(2, 0), fondo) << "la fila a la que se llega no se pinta";
  pantalla.Campos.PicNuevo.Visible = false;
  Jugar("celda MSFPagos 2 5\nespera marca MSFPagos 2 5 1\n");
}

TEST_F(Pantalla, ElDobleClicDondeNoHayRecibosPulsaModificar) {
  auto& pantalla = Cargar(
      "datos INSERT INTO ProvConceptos VALUES ('400','Luz')\n"
      "datos INSERT INTO ProvPrevisionPagos (NConcepto,Fecha1Vto,Cada,Tipo,Importe) VALUES "
      "('400','20050310',1,2,100)\n");
  int pulsado = 0;
  pantalla.BotonModificar.Click = [&] { ++pulsado; };
  Jugar("doble MSFPagos 1 3\n");
  EXPECT_EQ(pulsado, 0);
  Jugar("doble MSFPagos 1 4\ndoble MSFPagos 1 5\n");
  EXPECT_EQ(pulsado, 2) << "en la previsión";
  Jugar("doble MSFPagos 2 4\ndoble MSFPagos 2 5\n");
  EXPECT_EQ(pulsado, 4) << "en el relleno";
}

TEST_F(Pantalla, SusCajasAdmitenLoQueCabeEnEllas) {
  const auto& pantalla = Cargar();
  EXPECT_EQ(pantalla.Rango.TxtFPrevisionD.MaxLength, 10);
  EXPECT_EQ(pantalla.Rango.TxtFPrevision.MaxLength, 10);
  EXPECT_EQ(pantalla.Edicion.TxtMsf.MaxLength, 15);
  EXPECT_TRUE(pantalla.Rejilla.TxtTotal.Locked);
  EXPECT_FALSE(pantalla.Edicion.TxtMsf.Locked);
}

TEST_F(Pantalla, AlTomarTamanoRestauraLaVentanaPrincipal) {
  guion::FormAnfitrion& principal = partida.Anfitrion().FrmPrincipal();
  principal.PonerWindowState(1);
  shell::FrmTesvaraGastos& pantalla = Cargar();
  EXPECT_EQ(principal.WindowState(), 0);
  principal.PonerWindowState(2);
  pantalla.Form_Resize();
  EXPECT_EQ(principal.WindowState(), 2);
  principal.PonerWindowState(1);
  pantalla.Form_Resize();
  EXPECT_EQ(principal.WindowState(), 0);
}

TEST_F(Pantalla, AlRepintarseVaElPrimeroYDetrasLaVentanaPrincipal) {
  std::vector<IForm*> repintados;
  partida.Anfitrion().AlRepintar = [&](Ref<IUnknown>& form) {
    repintados.push_back(form.Como<IForm>().get());
  };
  shell::FrmTesvaraGastos& pantalla = Cargar();
  const std::vector<IForm*> losDos{&pantalla, &partida.Anfitrion().FrmPrincipal()};
  EXPECT_EQ(repintados, losDos);
  repintados.clear();
  pantalla.Form_Paint();
  EXPECT_EQ(repintados, losDos);
}

TEST_F(Pantalla, LaVentanaPrincipalQueSeDevuelveTomaSuSitio) {
  const auto otra = services::Crear<guion::FormAnfitrion>();
  IForm* principal = &partida.Anfitrion().FrmPrincipal();
  partida.Anfitrion().AlRepintar = [&](Ref<IUnknown>& form) {
    if (form.Como<IForm>().get() == principal) form = Ref<IUnknown>(otra);
  };
  shell::FrmTesvaraGastos& pantalla = Cargar();
  otra->PonerWindowState(1);
  pantalla.Form_Resize();
  EXPECT_EQ(otra->WindowState(), 0);
}

TEST_F(Pantalla, DevolverOtroFormularioPorElSuyoEsUnError) {
  shell::FrmTesvaraGastos& pantalla = Cargar();
  int repintados = 0;
  const auto pedir = [&](const Ref<IUnknown>& devuelto) {
    partida.Anfitrion().AlRepintar = [&repintados, devuelto](Ref<IUnknown>& form) {
      ++repintados;
      form = devuelto;
    };
    return apoyo::NumeroDeError([&] { pantalla.Form_Paint(); });
  };
  EXPECT_EQ(pedir(Ref<IUnknown>(services::Crear<guion::FormAnfitrion>())),
            services::error::InterfazNoDisponible);
  EXPECT_EQ(pedir(nullptr), services::error::InterfazNoDisponible);
  // Neither got as far as the host's own form.
  EXPECT_EQ(repintados, 2);
}

/// How many receipts there are, and which line is taken out.
struct Quitada {
  int Recibos;
  int Linea;
};
void PrintTo(const Quitada& quitada, std::ostream* salida) {
  *salida << "la " << quitada.Linea << " de " << quitada.Recibos;
}

class Franjas : public Pantalla, public testing::WithParamInterface<Quitada> {};

TEST_P(Franjas, SiguenAlternandoTrasQuitarUnaLinea) {
  const auto [recibos, linea] = GetParam();
  const MSFlexGrid& rejilla = Cargar(Recibos(recibos)).Rejilla.MSFPagos;
  const int filas = rejilla.Rows;
  Jugar("celda MSFPagos " + std::to_string(linea) + " 3\nresponder no\npulsar BotonBorrar\n");
  ASSERT_EQ(rejilla.Rows, filas);
  for (int fila = 1; fila < filas; ++fila) {
    const int fondo = fila % 2 == 1 ? list::color::FranjaA : list::color::FranjaB;
    const int texto = fila < recibos ? list::color::Texto : list::color::TextoPrevision;
    for (int c = 0; c < rejilla.Cols(); ++c) {
      ASSERT_EQ(rejilla.FondoDe(fila, c), fondo) << fila << ", " << c;
      ASSERT_EQ(rejilla.ColorDe(fila, c), texto) << fila << ", " << c;
    }
  }
  // The line left out is the one that was chosen.
  const std::string importe = std::to_string(linea < recibos ? linea + 1 : linea - 1) + ",00";
  EXPECT_EQ(rejilla.TextMatrix(std::min(linea, recibos - 1), 3), importe);
}

std::vector<Quitada> PrimeraMediaYUltima() {
  std::vector<Quitada> casos;
  for (const int recibos : {4, 5, 20, 21, 22, 23, 24}) {
    for (const int linea : {1, recibos / 2, recibos}) casos.push_back({recibos, linea});
  }
  return casos;
}

INSTANTIATE_TEST_SUITE_P(DeCadaLargo, Franjas, testing::ValuesIn(PrimeraMediaYUltima()),
                         [](const auto& una) {
                           return std::to_string(una.param.Recibos) + "Recibos" +
                                  std::to_string(una.param.Linea);
                         });

}  // namespace
