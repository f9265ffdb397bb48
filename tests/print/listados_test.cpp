#include <cmath>

#include "print/con_impresion.h"
#include "print/vista.h"

namespace {

using print::frmListados;
namespace entrada = services::entrada;

/// 240 due dates: several pages.
class Listados : public pruebas::ConImpresion {
 protected:
  Listados() : ConImpresion(80) {}

  static int V(const frmListados& f) { return f.Height - f.Barra1.Height - f.PicOpc.Height - 200; }
  static int B(const frmListados& f) { return f.PicTapa.Top + f.PicTapa.Height; }
};

class ListadosDeUnaPagina : public pruebas::ConImpresion {
 protected:
  void EnPantallaDe(int alto) { enMarcha.Entorno().Pantalla = {.Ancho = 15360, .Alto = alto}; }
};

TEST_F(ListadosDeUnaPagina, EnUnaPantallaMasAltaNoHayBarraYQuedaCentrada) {
  EnPantallaDe(19200);
  Cargar();
  VerEnPantalla([](frmListados& f) {
    EXPECT_EQ(f.CbxPor.Text, "100 %");
    EXPECT_FALSE(f.Scroll.Visible);
    EXPECT_EQ(f.Listado.Height, 16838);
    EXPECT_EQ(f.Listado.Width, 11906);
    EXPECT_EQ(f.Listado.Left, (f.Width - 11906) / 2);
    EXPECT_EQ(f.Listado.Pintadas().size(), 1U);
  });
  EXPECT_EQ(vistas, 1);
}

TEST_F(ListadosDeUnaPagina, LaHojaSePreparaYLasPantallasSeSueltan) {
  Cargar();
  VerEnPantalla([this](frmListados& f) {
    const services::HojaInforme& hoja = f.PicList(0).Hoja();
    EXPECT_EQ(hoja.ScaleMode, 7);
    EXPECT_EQ(hoja.FillStyle, 1);
    EXPECT_TRUE(hoja.FontTransparent);
    EXPECT_EQ(soltadas, std::vector<std::string>{"frmBuscoImpresora"});
  });
  EXPECT_EQ(soltadas, (std::vector<std::string>{"frmBuscoImpresora", "frmListados"}));
}

TEST_F(ListadosDeUnaPagina, TomaTodaLaPantalla) {
  Cargar();
  VerEnPantalla([](frmListados& f) {
    EXPECT_EQ(f.Width, 15360);
    EXPECT_EQ(f.Height, 11520);
    EXPECT_EQ(f.PicFondo.Height, f.Height());
    EXPECT_EQ(f.Barra1.Left, 0);
    EXPECT_EQ(f.Barra1.Width, f.Width());
    EXPECT_EQ(f.PicOpc.Width, f.Width());
    EXPECT_EQ(f.PicTapa.Width, f.Width());
    EXPECT_EQ(f.PicTapa.BackColor, 10865355);
    EXPECT_EQ(f.Scroll.Left + f.Scroll.Width, f.Width - 90);
    EXPECT_EQ(f.Scroll.Top, f.PicOpc.Top + f.PicOpc.Height + 30);
    EXPECT_EQ(f.Scroll.Top + f.Scroll.Height, f.Height - 90);
    EXPECT_EQ(f.DivScroll.Left, f.Scroll.Left - 60);
    EXPECT_EQ(f.DivScroll.Width, f.Scroll.Width + 120);
    EXPECT_EQ(f.DivScroll.Top, f.Scroll.Top - 60);
    EXPECT_EQ(f.DivScroll.Height, f.Scroll.Height + 120);
    EXPECT_EQ(f.PicList(0).Width, 11906);
    EXPECT_EQ(f.PicList(0).Left, (15360 - 11906) / 2);
    EXPECT_EQ(f.PicList(0).Top, 10);
    EXPECT_FALSE(f.PicList(0).Visible);
  });
}

TEST_F(ListadosDeUnaPagina, EnOtraPantallaSeEscalaYLasLetrasConEllo) {
  EnPantallaDe(17280);  // half as high again
  enMarcha.Entorno().Pantalla.Ancho = 23040;
  Cargar();
  VerEnPantalla([](frmListados& f) {
    EXPECT_EQ(f.Width, 23040);
    EXPECT_EQ(f.Height, 17280);
    EXPECT_EQ(f.Barra1.Height, 420) << "la barra se queda";
    EXPECT_EQ(f.PicOpc.Top, 630);
    EXPECT_EQ(f.PicOpc.Height, 720);
    EXPECT_EQ(f.CbxPor.Height, 315) << "el alto de una lista se queda";
    EXPECT_EQ(f.CbxPor.FontSize, 12) << "de 8,25, sin decimales";
    EXPECT_EQ(f.LineAbajo.X2, 23040);
    EXPECT_EQ(f.LineAbajo.Y1, 1350);
  });
}

TEST_F(Listados, LasPaginasVanUnaBajoOtraConSuHueco) {
  Cargar();
  VerEnPantalla([this](frmListados& f) {
    const int paginas = f.PicList.Count();
    ASSERT_EQ(paginas, Paginas());
    ASSERT_GT(paginas, 3);
    EXPECT_EQ(f.Listado.Height, paginas * 16838 + (paginas - 1) * 100);
    for (int i = 0; i < paginas; ++i) {
      const auto& pintada = f.Listado.Pintadas()[static_cast<std::size_t>(i)];
      EXPECT_EQ(pintada.X, 0);
      EXPECT_EQ(pintada.Y, i * (16838 + 100));
      EXPECT_EQ(pintada.Ancho, 11906);
      EXPECT_EQ(pintada.Alto, 16838);
      EXPECT_EQ(pintada.Imagen, f.PicList(i).Hoja().Image());
    }
  });
}

TEST_F(Listados, EncajarHaceCadaPaginaComoLaVistaYSeSigueRecorriendo) {
  Cargar();
  VerEnPantalla([](frmListados& f) {
    entrada::Elegir(f.CbxPor, 2);
    const int paginas = f.PicList.Count();
    EXPECT_EQ(f.Listado.Pintadas().back().Alto, V(f));
    EXPECT_EQ(f.Listado.Height, paginas * V(f) + (paginas - 1) * 100);
    EXPECT_EQ(f.Listado.Width, std::lround(double(V(f)) * 11906 / 16838));
    EXPECT_TRUE(f.Scroll.Visible);
  });
}

TEST_F(Listados, ElegirVuelveALaPrimeraPagina) {
  Cargar();
  VerEnPantalla([](frmListados& f) {
    entrada::Mover(f.Scroll, 12);
    EXPECT_EQ(f.Listado.Top, B(f) - V(f) * 12 / 10);
    entrada::Elegir(f.CbxPor, 0);
    EXPECT_EQ(f.Scroll.Value, 0);
    EXPECT_EQ(f.Listado.Top, B(f));
    EXPECT_EQ(f.Listado.Pintadas().front().Alto, 8419);
  });
}

TEST_F(Listados, ElUltimoPasoDejaLaUltimaPaginaAlRasDeLaVista) {
  Cargar();
  VerEnPantalla([](frmListados& f) {
    for (int zoom = 0; zoom < 3; ++zoom) {
      entrada::Elegir(f.CbxPor, zoom);
      EXPECT_EQ(f.Scroll.Max, static_cast<int>((f.Listado.Height - V(f)) / (V(f) / 10.0)));
      entrada::Mover(f.Scroll, f.Scroll.Max);
      EXPECT_EQ(f.Listado.Top + f.Listado.Height, B(f) + V(f));
      entrada::Mover(f.Scroll, 0);
      EXPECT_EQ(f.Listado.Top, B(f));
    }
  });
}

TEST_F(Listados, AcercarYAlejarVanPorComoSalenLasPaginas) {
  Cargar();
  VerEnPantalla([](frmListados& f) {
    // On this screen the view is lower than a sheet and higher than half of one.
    ASSERT_EQ(f.CbxPor.Text, "100 %");
    entrada::Acercar(f, 1);
    EXPECT_EQ(f.CbxPor.Text, "100 %");
    entrada::Acercar(f, -1);
    EXPECT_EQ(f.CbxPor.Text, "Encajar en Pantalla");
    entrada::Acercar(f, -1);
    EXPECT_EQ(f.CbxPor.Text, "50 %");
    entrada::Acercar(f, 1);
    EXPECT_EQ(f.CbxPor.Text, "Encajar en Pantalla");
  });
}

TEST_F(Listados, OtroTamanoDeVentanaDejaALaVistaLaMismaParte) {
  Cargar();
  VerEnPantalla([](frmListados& f) {
    entrada::Mover(f.Scroll, f.Scroll.Max / 2);
    const double antes = static_cast<double>(f.Scroll.Value()) / f.Scroll.Max();
    f.Height = 15000;
    f.Form_Resize();
    EXPECT_NEAR(static_cast<double>(f.Scroll.Value()) / f.Scroll.Max(), antes, 0.03);
    EXPECT_EQ(f.Scroll.Max, static_cast<int>((f.Listado.Height - V(f)) / (V(f) / 10.0)));
    EXPECT_EQ(f.Scroll.Top + f.Scroll.Height, f.Height - 90);
  });
}

TEST_F(Listados, EscapeLaCierraYLaSiguienteEmpiezaVacia) {
  Cargar();
  VerEnPantalla([](frmListados& f) {
    entrada::Tecla(f.CbxPor, services::tecla::Escape);
    EXPECT_FALSE(f.Cargado());
  });
  EXPECT_EQ(vistas, 1);
  VerEnPantalla([this](frmListados& f) {
    EXPECT_EQ(f.PicList.Count(), Paginas());
    EXPECT_EQ(f.CbxPor.Text, "100 %");
  });
  EXPECT_EQ(enMarcha.Entorno().Buscar("frmListados"), nullptr);
}

/// Two pages at half their size are a little higher than this screen: the bar has no step.
TEST_F(Listados, ElegirVuelveAlPrincipioTambienDondeLaBarraNoTienePasos) {
  enMarcha.Entorno().Pantalla = {.Ancho = 15360, .Alto = 17100};
  Cargar();
  VerEnPantalla([](frmListados& f) {
    entrada::Mover(f.Scroll, 5);
    entrada::Elegir(f.CbxPor, 0);
    const int sobra = f.Listado.Height - V(f);
    EXPECT_EQ(f.Scroll.Value, 0);
    EXPECT_EQ(f.Listado.Top, B(f)) << sobra;
  });
}

TEST_F(Listados, UnElementoConOtroTextoNoEnsenaNada) {
  Cargar();
  VerEnPantalla([](frmListados& f) {
    f.CbxPor.Clear();
    for (const char* texto : {"50%", "100%", "Ajustar"}) f.CbxPor.AddItem(texto);
    entrada::Elegir(f.CbxPor, 1);
    EXPECT_TRUE(f.Listado.Pintadas().empty());
    EXPECT_FALSE(f.Scroll.Visible);
  });
}

TEST_F(Listados, UnaPaginaCuestaPoco) {
  Cargar();
  VerEnPantalla([](frmListados& f) {
    const auto& lamina = dynamic_cast<const services::LaminaInforme&>(*f.PicList(0).Hoja().Image());
    std::size_t bytes = lamina.Trazos.capacity() * sizeof(services::Trazo);
    for (const auto& trazo : lamina.Trazos) {
      bytes += trazo.Texto.capacity() + trazo.Letra.Nombre.capacity();
    }
    EXPECT_LT(bytes, 100U * 1024) << "y una imagen de sus puntos son tres megas y medio";
  });
}

}  // namespace
