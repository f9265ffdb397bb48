#include "apoyo/componente_en_marcha.h"
#include "host/muestra/negocio_lleno.h"
#include "list/rejilla_pagos.h"

namespace {

struct Lista {
  int Recibos = 0;
  int Previsiones = 0;
};

/// What the component lists in the month of the day that the sample was made around.
Lista ListaDelMes(services::FechaHora hoy) {
  pruebas::NegocioLleno negocio(hoy);
  auto datos = sqlite::AbrirConexion(negocio.carpeta.Fichero("datos.db"));
  auto temp = sqlite::AbrirConexion(negocio.carpeta.Fichero("temp.db"), {.Crear = true});
  esquema::CrearDeTrabajo(*temp);
  apoyo::ComponenteEnMarcha componente(services::Ref<services::Conexion>(datos),
                                       services::Ref<services::Conexion>(temp), hoy);
  EXPECT_EQ(componente.Cargar(), "");
  const auto& rejilla = componente.Pantalla().Rejilla;
  Lista lista;
  for (int fila = 1; fila < rejilla.MSFPagos.Rows; ++fila) {
    if (rejilla.MSFPagos.TextMatrix(fila, list::columna::NConcepto).empty()) continue;
    ++(rejilla.EsPagable(fila) ? lista.Recibos : lista.Previsiones);
  }
  EXPECT_EQ(componente.Cerrar(), "");
  return lista;
}

TEST(MesEnLaLista, CadaMesMuestraEntreCuarentaYSesentaLineas) {
  for (int mes = 0; mes < 24; ++mes) {
    const int dia = 1 + mes * 11 % 28;
    const Lista lista = ListaDelMes(services::HacerFecha(2004 + mes / 12, mes % 12 + 1, dia));
    SCOPED_TRACE(mes);
    EXPECT_GE(lista.Recibos + lista.Previsiones, 40);
    EXPECT_LE(lista.Recibos + lista.Previsiones, 60);
    EXPECT_GE(lista.Previsiones, 8);
  }
}

}  // namespace
