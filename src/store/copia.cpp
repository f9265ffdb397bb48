#include "store/copia.h"

#include <utility>

namespace store {
namespace {

using services::ModoReanudar;
using services::Recordset;
using services::Valor;

void AsignarColumnas(Recordset& origen, Recordset& destino, ModoReanudar& modo,
                     const Columnas& columnas) {
  for (std::size_t i = 0; i <= columnas.Ultima; ++i) {
    modo.Paso([&] {
      Valor valor = origen.Fields(i).Value;
      if (columnas.Filtrar) valor = columnas.Filtrar(i, std::move(valor));
      destino.Fields(i).Value = valor;
    });
  }
  if (columnas.Rematar) modo.Paso([&] { columnas.Rematar(origen, destino); });
}

/// Whether a row is left to copy; in resume-next mode a source that didn't open has none.
bool Queda(Recordset& origen, ModoReanudar& modo) {
  bool queda = false;
  modo.Paso([&] { queda = !origen.Eof(); });
  return queda;
}

}  // namespace

void CopiarFilas(Recordset& origen, Recordset& destino, ModoReanudar& modo,
                 const Columnas& columnas) {
  while (Queda(origen, modo)) {
    modo.Paso([&] { destino.AddNew(); });
    AsignarColumnas(origen, destino, modo, columnas);
    modo.Activar();
    modo.Paso([&] { destino.Update(); });
    if (modo.Numero() != 0) {
      modo.Paso([&] { destino.CancelUpdate(); });
      modo.Limpiar();
    }
    origen.MoveNext();
  }
}

}  // namespace store
