#include <gmock/gmock.h>

#include "salvaguarda/relato.h"
#include "salvaguarda/reparos.h"

// What is asked and what is told, as texts made of values.

namespace {

using salvaguarda::Fila;
using salvaguarda::Noticia;
using salvaguarda::Omitidas;
using salvaguarda::ParaLeer;
using salvaguarda::Reparos;
using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;
using testing::IsEmpty;

const Fila kFactura{"ProvFacturas", "400", "F-1", "2005", "", "no cabe"};
const Fila kApunte{"CajaPagos", "400", "", "", "2005-03-02 09:30:00", "no cabe"};

auto Dice(const std::string& frase) {
  return Field(&Noticia::Frase, HasSubstr(frase));
}

TEST(ReparosAGrabar, SinNingunoNoSePreguntaNada) {
  EXPECT_TRUE(Reparos().Ninguno());
  EXPECT_THAT(Noticias(Reparos()), IsEmpty());
}

TEST(ReparosAGrabar, CadaUnoSeDice) {
  Reparos reparos;
  reparos.SinCopia = "disco lleno";
  reparos.SinFoto = true;
  reparos.DeOtros = {kFactura};
  reparos.NoCargadas = {kFactura};
  EXPECT_FALSE(reparos.Ninguno());
  EXPECT_THAT(Noticias(reparos),
              ElementsAre(Dice("disco lleno"), Dice("no se sabe si otro usuario"),
                          Dice("Otro usuario ha cambiado"), Dice("que se borrarían")));
}

TEST(RelatoDeLoOmitido, DeUnaGrabacion) {
  Omitidas omitidas;
  EXPECT_THAT(NoticiasDeGrabacion(omitidas), IsEmpty());
  omitidas.Tablas = {{"ProvBasesIva", "", "", "", "", "no se abre"}};
  omitidas.Filas = {kFactura};
  omitidas.Incompletas = {kFactura};
  EXPECT_THAT(NoticiasDeGrabacion(omitidas),
              ElementsAre(Dice("No se ha podido grabar nada de ProvBasesIva: no se abre"),
                          Dice("ya no están entre lo grabado"), Dice("sin alguno de sus valores")));
}

TEST(RelatoDeLoOmitido, DeUnaCarga) {
  Omitidas omitidas;
  EXPECT_THAT(NoticiasDeCarga(omitidas), IsEmpty());
  omitidas.Tablas = {{"ProvBasesIva", "", "", "", "", "no se abre"}};
  omitidas.SinApuntes = {kFactura};
  omitidas.Incompletas = {kFactura};
  omitidas.Apuntes = {kApunte};
  EXPECT_THAT(NoticiasDeCarga(omitidas),
              ElementsAre(Dice("no se podrá grabar"), Dice("Grabar fallará con ellas"),
                          Dice("sin alguno de sus valores"), Dice("estos apuntes de caja")));
  EXPECT_THAT(salvaguarda::NoticiaDeNoCargadas({kFactura}), Dice("que Grabar borraría"));
}

TEST(NoticiaDicha, CuentaSusFilasYDiceDondeEstanLasQueNoSeVen) {
  EXPECT_EQ(ParaLeer({"Nada que listar"}), "Nada que listar");
  const Noticia corta{"Faltan", std::vector<Fila>(100, kFactura)};
  EXPECT_THAT(ParaLeer(corta), testing::StartsWith("Faltan (100 facturas):\n· factura F-1"));
  EXPECT_THAT(ParaLeer(corta), testing::Not(HasSubstr("registro.txt")));
  const Noticia larga{"Faltan", std::vector<Fila>(101, kFactura)};
  EXPECT_THAT(ParaLeer(larga), testing::EndsWith("… y 1 más, que están en registro.txt"));
}

}  // namespace
