#include "odbc/almacen.h"

#include "valores/error.h"

namespace odbc {

using services::Filas;

namespace {

constexpr std::size_t kMasOrdenes = 1'000;

}  // namespace

Orden::Orden(Enlace& enlace, std::string_view texto)
    : enlace_(&enlace), orden_(enlace.NuevaOrden()) {
  const std::string copia(texto);
  enlace.ContarViaje();
  enlace.Comprobar(SQLPrepare(orden_.get(), Texto(copia.c_str()), SQL_NTS), orden_.Suyo);
}

void Orden::Correr(Parametros& parametros) {
  enlace_->Comprobar(parametros.Enlazar(orden_.get()), orden_.Suyo);
  enlace_->ContarViaje();
  enlace_->Comprobar(SQLExecute(orden_.get()), orden_.Suyo);
}

std::size_t Orden::Ejecutar(Parametros& parametros) {
  Correr(parametros);
  SQLLEN filas = 0;
  SQLRowCount(orden_.get(), &filas);
  SQLFreeStmt(orden_.get(), SQL_CLOSE);
  return filas > 0 ? static_cast<std::size_t>(filas) : 0;
}

/// A server may have understood it anew, of a table that has others now.
void Orden::ExigirColumnas(std::size_t cuantas) {
  SQLSMALLINT hay = 0;
  enlace_->Comprobar(SQLNumResultCols(orden_.get(), &hay), orden_.Suyo);
  if (static_cast<std::size_t>(hay) != cuantas) throw TablasCambiadas();
}

// What is prepared and looked up goes with the connection, so that they can be opened again.
Filas Orden::Leer(Parametros& parametros, const std::vector<services::Columna>& columnas) try {
  if (!celdas_) {
    celdas_ = std::make_unique<Celdas>(columnas);
    enlace_->Comprobar(celdas_->Enlazar(orden_.get()), orden_.Suyo);
  }
  Correr(parametros);
  struct AlSalir {
    SQLHSTMT orden;
    ~AlSalir() { SQLFreeStmt(orden, SQL_CLOSE); }
  } const alSalir{orden_.get()};
  ExigirColumnas(columnas.size());
  Filas filas(columnas.size());
  SQLRETURN resultado = SQL_SUCCESS;
  do {
    resultado = celdas_->Traer(orden_.get(), filas);
    enlace_->Comprobar(resultado, orden_.Suyo);
  } while (resultado != SQL_NO_DATA);
  return filas;
} catch (const TablasCambiadas&) {
  enlace_->Perder();
  throw;
}

Orden& Almacen::Tomar(const std::string& texto) {
  enlace_.Exigir();
  if (vez_ != enlace_.Vez()) {
    ordenes_.clear();
    vez_ = enlace_.Vez();
  }
  const auto hallada = ordenes_.find(texto);
  if (hallada != ordenes_.end()) return hallada->second;
  // Where their values stand in them there is no end of them.
  if (ordenes_.size() >= kMasOrdenes) ordenes_.clear();
  Orden nueva(enlace_, texto);
  ++preparadas_;
  return ordenes_.emplace(texto, std::move(nueva)).first->second;
}

}  // namespace odbc
