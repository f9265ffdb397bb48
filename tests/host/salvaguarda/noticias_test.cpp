#include <gmock/gmock.h>

#include "salvaguarda/cambio.h"
#include "salvaguarda/relato.h"
#include "salvaguarda/reparos.h"

// What is asked and what is told, as texts made of values.

namespace {

using salvaguarda::Fila;
using salvaguarda::Noticia;
using salvaguarda::Omitidas;
using salvaguarda::ParaLeer;
using salvaguarda::Reparos;
using testing::AllOf;
using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

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
  EXPECT_THAT(NoticiasDeGrabacion(omitidas, true), IsEmpty());
  omitidas.Tablas = {{"ProvBasesIva", "no se abre", {{"ProvBasesIva", "400", "F-1", "2005", "2"}}},
                     {"ProvFacturas", "no se abre"}};
  omitidas.Filas = {kFactura};
  omitidas.Repetidas = {kFactura};
  omitidas.SinEnlazar = {kApunte};
  omitidas.Incompletas = {kFactura};
  EXPECT_THAT(
      NoticiasDeGrabacion(omitidas, true),
      ElementsAre(
          AllOf(Dice("No se ha podido grabar nada de bases de IVA (ProvBasesIva): no se abre. "
                     "No están entre lo grabado"),
                Field(&Noticia::Filas, SizeIs(1))),
          Field(&Noticia::Frase,
                "No se ha podido grabar nada de facturas (ProvFacturas): no se abre"),
          Dice("No están entre lo grabado"), Dice("siguen como estaban"),
          Dice("poner su factura a estos apuntes"), Dice("sin alguno de sus valores")));
}

TEST(RelatoDeLoOmitido, SinCopiaNoSeDiceQueLaHaya) {
  Omitidas omitidas;
  omitidas.Tablas = {{"ProvFacturas", "no se abre", {kFactura}}};
  omitidas.Filas = {kFactura};
  EXPECT_THAT(NoticiasDeGrabacion(omitidas, true),
              testing::Each(Dice("entre lo grabado; lo que había antes está en Archivo")));
  EXPECT_THAT(
      NoticiasDeGrabacion(omitidas, false),
      testing::Each(Field(&Noticia::Frase, testing::EndsWith("No están entre lo grabado"))));
}

TEST(RelatoDeLoOmitido, DeUnaCarga) {
  Omitidas omitidas;
  EXPECT_THAT(NoticiasDeCarga(omitidas), IsEmpty());
  omitidas.Tablas = {{"ProvBasesIva", "no se abre"}};
  omitidas.SinApuntes = {kFactura};
  omitidas.Incompletas = {kFactura};
  omitidas.Apuntes = {kApunte};
  EXPECT_THAT(NoticiasDeCarga(omitidas),
              ElementsAre(Dice("no se podrá grabar"), Dice("Grabar fallará con ellas"),
                          Dice("sin alguno de sus valores"), Dice("estos apuntes de caja")));
  EXPECT_THAT(salvaguarda::NoticiaDeNoCargadas({kFactura}), Dice("que Grabar borraría"));
}

TEST(NoticiaDicha, CuentaSusFilasYDiceDondeEstanLasQueNoSeVen) {
  EXPECT_EQ(ParaLeer({"Nada que listar"}, {}), "Nada que listar");
  const Noticia corta{"Faltan", std::vector<Fila>(100, kFactura)};
  EXPECT_THAT(ParaLeer(corta, {}), testing::StartsWith("Faltan (100 facturas):\n· factura F-1"));
  EXPECT_THAT(ParaLeer(corta, {}), testing::Not(HasSubstr("registro.txt")));
  const Noticia larga{"Faltan", std::vector<Fila>(101, kFactura)};
  EXPECT_THAT(ParaLeer(larga, {}), testing::EndsWith("… y 1 más, que están en registro.txt"));
}

TEST(NoticiaDicha, LoQueNoCabeEnUnaLineaDelRegistroNoSePrometeAhi) {
  const Noticia enorme{"Faltan", std::vector<Fila>(20'000, kFactura)};
  const std::string anotada = ParaAnotar(enorme, {});
  EXPECT_LT(anotada.size(), 20'200U);
  EXPECT_THAT(anotada, testing::ContainsRegex("… y 19[0-9]+ más$"));
  EXPECT_THAT(ParaLeer(enorme, {}),
              testing::EndsWith("… y 19900 más; las primeras están en registro.txt"));
}

const Fila kVencimiento{"ProvVencimientos", "400", "F-1", "2005", "20050310"};

salvaguarda::Cambio CambioDe(double antes, double ahora) {
  salvaguarda::Cambio cambio;
  cambio.Fila = {"ProvFacturas", "400", "F-1", "2005"};
  cambio.Estaba = cambio.Esta = true;
  cambio.Importe = {antes, ahora};
  cambio.Quien = "EVA";
  cambio.EnLaLista = true;
  return cambio;
}

TEST(CambioDeOtro, DiceSuImporteYElDeAntesSiEraOtro) {
  EXPECT_EQ(ComoFila(CambioDe(1234.5, 1234.5)).Importe, "1.234,50");
  EXPECT_EQ(ComoFila(CambioDe(100, 121)).Importe, "121,00, antes 100,00");
  EXPECT_EQ(ComoFila(CambioDe(100, 121)).Motivo,
            "la ha cambiado EVA, y quedaría como está en la lista");
}

TEST(CambioDeOtro, DiceLosVencimientosSiElTotalEsElMismo) {
  auto cambio = CambioDe(121, 121);
  cambio.Vencimientos = {{kVencimiento, true, true, {60.5, 60.5}, {services::Valor(), 60.5}}};
  EXPECT_EQ(ComoFila(cambio).Motivo,
            "la ha cambiado EVA (vencimiento 10/03/2005 por 60,50: pagado 60,50, antes nada), y "
            "quedaría como está en la lista");
  cambio.Vencimientos[0].Pagado = {60.5, 60.5};
  cambio.Vencimientos[0].Importe = {50.0, 60.5};
  EXPECT_THAT(ComoFila(cambio).Motivo,
              HasSubstr("(vencimiento 10/03/2005 por 60,50, antes 50,00)"));
  cambio.Vencimientos[0].Estaba = false;
  EXPECT_THAT(ComoFila(cambio).Motivo, HasSubstr(": añadido)"));
  cambio.Vencimientos[0].Estaba = true;
  cambio.Vencimientos[0].Esta = false;
  EXPECT_THAT(ComoFila(cambio).Motivo, HasSubstr(": borrado)"));
  cambio.Vencimientos.resize(5, cambio.Vencimientos[0]);
  EXPECT_THAT(ComoFila(cambio).Motivo, HasSubstr("borrado; y 2 más)"));
  cambio.Importe.Antes = 120.0;
  EXPECT_THAT(ComoFila(cambio).Motivo, testing::Not(HasSubstr("vencimiento")));
}

TEST(LoOmitido, DeMuchasIncompletasQuedaUnaPorFila) {
  constexpr int kCuantas = 2'000;
  std::vector<salvaguarda::Oida> oidas;
  for (int i = 0; i < 2 * kCuantas; ++i) {
    oidas.push_back({{services::Omision::Tarea::Carga,
                      services::Omision::Falta::Valor,
                      "TempProvFacturas",
                      {{"NConcepto", "1"}, {"Factura", std::to_string(i / 2)}, {"Año", "2005"}},
                      {1, "no cabe"}}});
  }
  const auto base = sqlite::AbrirConexion(":memory:", {.Crear = true});
  const Omitidas omitidas = salvaguarda::Clasificar(oidas, services::Omision::Tarea::Carga, *base);
  EXPECT_THAT(omitidas.Incompletas, SizeIs(kCuantas));
}

}  // namespace
