#include "store/copia.h"

#include <cstdint>
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

/// A copy of the rows left in a recordset, which may be written many at once.
class Copia {
 public:
  Copia(Recordset& origen, Recordset& destino, Tramo& tramo, const Columnas& columnas)
      : origen_(origen), destino_(destino), tramo_(tramo), columnas_(columnas) {}

  void Hacer();

 private:
  void CopiarFila();
  void Rehusada(std::int64_t posicion, const services::ErrorEjecucion& fallo);

  Recordset& origen_;
  Recordset& destino_;
  Tramo& tramo_;
  const Columnas& columnas_;
};

void Copia::Hacer() {
  tramo_.ConFila(&origen_);
  for (; !origen_.Eof(); origen_.MoveNext()) CopiarFila();
  if (destino_.State()) tramo_.Paso(Falta::Nada, [&] { destino_.EscribirPendientes(); });
  tramo_.ConPendientes(nullptr);
  tramo_.ConFila(nullptr);
}

void Copia::CopiarFila() {
  if (!tramo_.Paso(Falta::Fila, [&] { destino_.AddNew(); })) return;
  tramo_.ConPendientes(&destino_);
  AsignarColumnas(origen_, destino_, tramo_, columnas_);
  tramo_.Activar();
  const std::int64_t posicion = origen_.AbsolutePosition();
  const bool escrita = tramo_.Paso(Falta::Fila, [&] {
    destino_.UpdateLuego([this, posicion](const auto& fallo) { Rehusada(posicion, fallo); });
  });
  if (!escrita) tramo_.Paso(Falta::Nada, [&] { destino_.CancelUpdate(); });
}

/// Told of by the row that it was copied from, however far the copy has gone since.
void Copia::Rehusada(std::int64_t posicion, const services::ErrorEjecucion& fallo) {
  tramo_.ConPendientes(nullptr);
  const std::int64_t actual = origen_.AbsolutePosition();
  if (posicion != actual) origen_.AbsolutePosition(posicion);
  tramo_.Paso(Falta::Fila, [&] { throw services::ErrorEjecucion(fallo); });
  if (actual > 0 && posicion != actual) origen_.AbsolutePosition(actual);
  tramo_.ConPendientes(&destino_);
}

}  // namespace

void CopiarFilas(Recordset& origen, Recordset& destino, Tramo& tramo, const Columnas& columnas) {
  if (origen.State()) Copia(origen, destino, tramo, columnas).Hacer();
}

}  // namespace store
