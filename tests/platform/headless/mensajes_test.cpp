#include "headless/mensajes.h"

#include <gtest/gtest.h>

#include "services/utiles.h"

namespace mensaje = services::mensaje;
using headless::Mensajes;
using headless::PreguntaSinRespuesta;

namespace {

TEST(Mensajes, LasRespuestasSeGastanEnOrden) {
  Mensajes mensajes;
  mensajes.Responder(mensaje::Si);
  mensajes.Responder(mensaje::No);
  mensajes.Responder(mensaje::Cancelar);
  EXPECT_EQ(mensajes.Mostrar("¿Una?", mensaje::SiNo, "Atención"), mensaje::Si);
  EXPECT_EQ(mensajes.Mostrar("¿Dos?", mensaje::SiNo, "Atención"), mensaje::No);
  EXPECT_EQ(mensajes.Mostrar("¿Tres?", mensaje::SiNoCancelar, ""), mensaje::Cancelar);
}

TEST(Mensajes, UnAvisoSimpleSeAceptaSolo) {
  Mensajes mensajes;
  EXPECT_EQ(mensajes.Mostrar("Fecha incorrecta", mensaje::Alto, "Atención"), mensaje::Aceptar);
  ASSERT_EQ(mensajes.Mostrados().size(), 1U);
  EXPECT_EQ(mensajes.Mostrados()[0].Texto, "Fecha incorrecta");
  EXPECT_EQ(mensajes.Mostrados()[0].Flags, mensaje::Alto);
  EXPECT_EQ(mensajes.Mostrados()[0].Titulo, "Atención");
}

TEST(Mensajes, UnAvisoSimpleDejaLaRespuestaDeLaPregunta) {
  Mensajes mensajes;
  mensajes.Responder(mensaje::Aceptar);
  mensajes.Responder(mensaje::Si);
  mensajes.Mostrar("Uno", mensaje::Alto, "");
  mensajes.Mostrar("Otro", mensaje::Simple, "");
  EXPECT_EQ(mensajes.Mostrar("¿Seguro?", mensaje::SiNo, ""), mensaje::Si);
}

TEST(Mensajes, UnaPreguntaSinRespuestaNoPasaEnSilencio) {
  Mensajes mensajes;
  EXPECT_FALSE(mensajes.SinRespuesta());
  EXPECT_THROW(mensajes.Mostrar("¿Seguro?", mensaje::SiNo, ""), PreguntaSinRespuesta);
  EXPECT_EQ(mensajes.SinRespuesta(), "pregunta sin respuesta: ¿Seguro?");
  EXPECT_TRUE(mensajes.Mostrados().empty());
}

TEST(Mensajes, UnaRespuestaQueNoSeOfreceNoVale) {
  Mensajes mensajes;
  mensajes.Responder(mensaje::Cancelar);
  EXPECT_THROW(mensajes.Mostrar("¿Seguro?", mensaje::SiNo, ""), PreguntaSinRespuesta);
  Mensajes otros;
  otros.Responder(mensaje::Aceptar);
  EXPECT_THROW(otros.Mostrar("¿Seguro?", mensaje::SiNoCancelar, ""), PreguntaSinRespuesta);
}

}  // namespace
