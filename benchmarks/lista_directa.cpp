#include "lista_directa.h"

#include <benchmark/benchmark.h>

namespace medidas {

ListaDirecta::ListaDirecta(const apoyo::NegocioDePrueba& negocio)
    : base_(negocio.FicheroTemp(), {.Durabilidad = sqlite::Sincronizacion::Normal}),
      vencimientos_(base_.Preparar("SELECT Descripcion, FechaVto, trim(NFactura), Importe, Pagado, "
                                   "NConcepto, Año FROM TempProvVencimientos WHERE Visible")),
      insercion_(base_.Preparar(
          "INSERT INTO TempTesvara (Concepto, FechaVto, NFactura, Importe, Pagado, NConcepto, Año) "
          "VALUES (?, ?, ?, ?, ?, ?, ?)")),
      lista_(base_.Preparar("SELECT * FROM TempTesvara ORDER BY FechaVto, Concepto, NConcepto")) {}

std::size_t ListaDirecta::Rehacer() {
  base_.Ejecutar("BEGIN IMMEDIATE; DELETE FROM TempTesvara");
  Escribir();
  const std::size_t filas = LeerEnOrden();
  base_.Ejecutar("COMMIT");
  return filas;
}

void ListaDirecta::Escribir() {
  while (sqlite3_step(vencimientos_.get()) == SQLITE_ROW) {
    for (int i = 0; i < sqlite3_column_count(vencimientos_.get()); ++i) {
      sqlite3_bind_value(insercion_.get(), i + 1, sqlite3_column_value(vencimientos_.get(), i));
    }
    if (sqlite3_step(insercion_.get()) != SQLITE_DONE) sqlite::Lanzar(base_.Motor());
    sqlite3_reset(insercion_.get());
  }
  sqlite3_reset(vencimientos_.get());
}

std::size_t ListaDirecta::LeerEnOrden() {
  std::size_t filas = 0;
  while (sqlite3_step(lista_.get()) == SQLITE_ROW) {
    ++filas;
    for (int i = 0; i < sqlite3_column_count(lista_.get()); ++i) {
      benchmark::DoNotOptimize(sqlite3_column_text(lista_.get(), i));
    }
  }
  sqlite3_reset(lista_.get());
  return filas;
}

}  // namespace medidas
