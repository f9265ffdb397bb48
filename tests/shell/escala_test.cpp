#include "shell/escala.h"

#include <gtest/gtest.h>

#include "apoyo/errores.h"
#include "apoyo/plataforma_de_prueba.h"
#include "forms/controles.h"
#include "valores/error.h"

namespace {

class Pantalla final : public services::Form {
 public:
  explicit Pantalla(services::Escritorio& e) : Form(e, "Pantalla", 15360, 11520) {}
  services::Cintilla Barra1{*this, "Barra1", "", {.Width = 15360, .Height = 420}};
  services::Label Etiqueta{
      *this, "Etiqueta", "", {.Left = 101, .Top = 103, .Width = 1001, .Height = 303}};
  services::OptionButton Opcion{
      *this, "Opcion", "", {.Left = 100, .Top = 100, .Width = 1000, .Height = 300}};
  services::CheckBox Casilla{
      *this, "Casilla", "", {.Left = 100, .Top = 100, .Width = 1000, .Height = 300}};
  services::TextBox Caja{
      *this, "Caja", {.Left = 100, .Top = 100, .Width = 1000, .Height = 900, .FontSize = 10}};
  services::ComboBox Lista{
      *this, "Lista", {}, {.Left = 100, .Top = 100, .Width = 1000, .Height = 300, .FontSize = 9}};
  services::Image Imagen{*this, "Imagen", "", {.Width = 100, .Height = 100}};
  services::Line Linea{*this, "Linea", 101, 103, 1001, 303};
};

class Escala : public testing::Test {
 protected:
  void Escalar() { shell::EscalarControles(f, 12000, 9000, 15360, 11520); }

  apoyo::PlataformaDePrueba p;
  services::Ref<Pantalla> form = services::Crear<Pantalla>(p.escritorio);
  Pantalla& f = *form;
};

TEST_F(Escala, LosProductosSeCortanHaciaCero) {
  Escalar();
  EXPECT_EQ(f.Etiqueta.Left, 78);          // 101 * 12000 / 15360 = 78,9
  EXPECT_EQ(f.Etiqueta.Top, 80);           // 103 * 9000 / 11520 = 80,5
  EXPECT_EQ(f.Etiqueta.Width, 782);        // 1001 * 0,78125 = 782,0
  EXPECT_EQ(f.Etiqueta.Height, 236 + 80);  // 303 * 0,78125 = 236,7
}

TEST_F(Escala, LaBarraDeTituloQuedaComoEsta) {
  Escalar();
  EXPECT_EQ(f.Barra1.Width, 15360);
  EXPECT_EQ(f.Barra1.Height, 420);
}

TEST_F(Escala, UnaListaGuardaSuAlto) {
  Escalar();
  EXPECT_EQ(f.Lista.Left, 78);
  EXPECT_EQ(f.Lista.Top, 78);
  EXPECT_EQ(f.Lista.Width, 781);
  EXPECT_EQ(f.Lista.Height, 300);
}

TEST_F(Escala, UnaLineaMueveSusDosExtremos) {
  Escalar();
  EXPECT_EQ(f.Linea.X1, 78);
  EXPECT_EQ(f.Linea.Y1, 80);
  EXPECT_EQ(f.Linea.X2, 782);
  EXPECT_EQ(f.Linea.Y2, 236);
}

TEST_F(Escala, LasLetrasEncogenSeaCualSeaLaRazon) {
  shell::EscalarControles(f, 30720, 23040, 15360, 11520);
  EXPECT_DOUBLE_EQ(f.Etiqueta.FontSize(), 6.25);
  EXPECT_DOUBLE_EQ(f.Opcion.FontSize(), 5.25);
  EXPECT_DOUBLE_EQ(f.Casilla.FontSize(), 5.25);
  EXPECT_DOUBLE_EQ(f.Caja.FontSize(), 9);
  EXPECT_DOUBLE_EQ(f.Lista.FontSize(), 8);
  EXPECT_EQ(f.Etiqueta.Height, 606 + 80);
  EXPECT_EQ(f.Opcion.Height, 600 - 30);
  EXPECT_EQ(f.Casilla.Height, 600 - 30);
}

TEST_F(Escala, UnaCajaQuedaAlAltoDeSuLinea) {
  Escalar();
  EXPECT_EQ(f.Caja.Height, services::TextBox::AltoDeLinea(9));
}

TEST_F(Escala, UnaImagenSeEstira) {
  Escalar();
  EXPECT_TRUE(f.Imagen.Stretch);
}

TEST_F(Escala, SinMedidaDeReferenciaEsUnaDivisionPorCero) {
  EXPECT_EQ(apoyo::NumeroDeError([&] { shell::EscalarControles(f, 12000, 9000, 0, 0); }),
            services::error::DivisionPorCero);
}

}  // namespace
