#include "store/copia.h"

#include <utility>

namespace store {
namespace {

using services::Recordset;
using services::Valor;
using Falta = Tramo::Falta;

void AsignarColumnas(Recordset& origen, Recordset& destino, Tramo& tramo,
                     const Columnas& columnas) {
  for (std::size_t i = 0; i <= columnas.Ultima; ++i) {
    tramo.Paso(Falta::Valor, [&] {
      Valor valor = origen.Fields(i).Value;
      if (columnas.Filtrar) valor = columnas.Filtrar(i, std::move(valor));
      destino.Fields(i).Value = valor;
    });
  }
  if (columnas.Rematar) tramo.Paso(Falta::Valor, [&] { columnas.Rematar(origen, destino); });
}

void CopiarFila(Recordset& origen, Recordset& destino, Tramo& tramo, const Columnas& columnas) {
  if (!tramo.Paso(Falta::Fila, [&] { destino.AddNew(); })) return;
  AsignarColumnas(origen, destino, tramo, columnas);
  tramo.Activar();
  if (tramo.Paso(Falta::Fila, [&] { destino.Update(); })) return;
  tramo.Paso(Falta::Nada, [&] { destino.CancelUpdate(); });
}

}  // namespace

void CopiarFilas(Recordset& origen, Recordset& destino, Tramo& tramo, const Columnas& columnas) {
  if (!origen.State()) return;
  tramo.ConFila(&origen);
  for (; !origen.Eof(); origen.MoveNext()) CopiarFila(origen, destino, tramo, columnas);
  tramo.ConFila(nullptr);
}

}  // namespace store
