#include "sqlite/cursor.h"

#include <algorithm>

#include "datos/orden_filas.h"
#include "dialecto/escritura.h"
#include "sqlite/celdas.h"
#include "sqlite/dialecto_sqlite.h"
#include "valores/error.h"

namespace sqlite {

using services::Asignacion;
using services::ErrorEjecucion;
using services::Filas;
using services::ModoApertura;
using services::TipoColumna;
using services::Valor;
namespace error = services::error;

Cursor::Cursor(Conexion& conexion, std::shared_ptr<Entrada> entrada, dialecto::Sentencia sentencia,
               ModoApertura modo)
    : conexion_(&conexion),
      entrada_(std::move(entrada)),
      sentencia_(std::move(sentencia)),
      modo_(modo) {}

Filas Cursor::Leer() {
  const Prestada sentencia = conexion_->almacen_.Tomar(entrada_);
  int indice = 0;
  for (const Valor& valor : sentencia_.Parametros) Enlazar(sentencia.get(), ++indice, valor);
  Filas filas = Recorrer(sentencia.get());
  services::Ordenar(filas, sentencia_.Traducida->Orden);
  return filas;
}

Filas Cursor::Recorrer(sqlite3_stmt* sentencia) const {
  const bool conNumero = modo_ != ModoApertura::Lectura && !Tabla().empty();
  const bool conPuesto = sentencia_.Traducida->Orden.Puesto.has_value();
  Filas filas(Columnas().size() + (conNumero || conPuesto ? 1 : 0));
  int codigo = SQLITE_OK;
  while ((codigo = sqlite3_step(sentencia)) == SQLITE_ROW) {
    if (static_cast<std::size_t>(sqlite3_column_count(sentencia)) != filas.Columnas()) {
      throw ErrorEjecucion(error::FalloDeConexion,
                           "Otro programa ha cambiado las tablas; hay que abrirlas de nuevo");
    }
    AnadirFila(sentencia, Columnas(), filas);
  }
  if (codigo != SQLITE_DONE) Lanzar(conexion_->base_.Motor());
  return filas;
}

void Cursor::ExigirTabla(std::span<const Asignacion> valores) const {
  const bool escribible =
      modo_ != ModoApertura::Lectura && !Tabla().empty() &&
      std::none_of(valores.begin(), valores.end(),
                   [&](const Asignacion& valor) { return Origenes()[valor.Posicion].empty(); });
  if (escribible) return;
  throw ErrorEjecucion(error::NoDisponible, "La sentencia no deja escribir en sus filas");
}

void Cursor::PonerColumna(std::string& texto, std::size_t posicion) const {
  texto += '"';
  texto += Origenes()[posicion];
  texto += '"';
}

std::vector<std::string_view> Cursor::Nombres(std::span<const Asignacion> valores) const {
  std::vector<std::string_view> nombres;
  for (const Asignacion& valor : valores) nombres.emplace_back(Origenes()[valor.Posicion]);
  return nombres;
}

void Cursor::PrepararInsercion(std::span<const Asignacion> valores) {
  const bool misma = insercion_ && std::equal(valores.begin(), valores.end(), posiciones_.begin(),
                                              posiciones_.end(),
                                              [](const Asignacion& valor, std::size_t posicion) {
                                                return valor.Posicion == posicion;
                                              });
  if (misma) return;
  ExigirTabla(valores);
  insercion_ = conexion_->almacen_.Tomar(
      dialecto::TextoDeInsercion(DialectoSqlite, Tabla(), Nombres(valores)));
  posiciones_.clear();
  for (const Asignacion& valor : valores) posiciones_.push_back(valor.Posicion);
}

void Cursor::Insertar(std::span<const Asignacion> valores) {
  PrepararInsercion(valores);
  int indice = 0;
  for (const Asignacion& valor : valores) Enlazar(insercion_.get(), ++indice, *valor.Nuevo);
  conexion_->unidad_.Escribir(insercion_.get());
  insertada_ = sqlite3_last_insert_rowid(conexion_->base_.Motor());
}

std::string Cursor::TextoDeInsertada() const {
  std::string texto = "SELECT ";
  for (std::size_t i = 0; i < Origenes().size(); ++i) {
    if (Origenes()[i].empty()) {
      texto += "NULL";
    } else {
      PonerColumna(texto, i);
    }
    texto += ", ";
  }
  return texto + "rowid FROM \"" + Tabla() + "\" WHERE rowid = ?";
}

Filas Cursor::LeerInsertada() {
  const Prestada sentencia = conexion_->almacen_.Tomar(TextoDeInsertada());
  sqlite3_bind_int64(sentencia.get(), 1, insertada_);
  Filas filas = Recorrer(sentencia.get());
  if (filas.Cuantas() == 1) return filas;
  throw ErrorEjecucion(error::FilaCambiada, "Otro programa ha borrado la fila añadida");
}

/// The values that aren't what the row has, where it is looked whether it still has it; one in any
/// case. To write a column is to take it out of its indexes and put it back. A Boolean is written
/// even so: another program may have stored it as a number that no condition finds.
std::vector<Asignacion> Cursor::LosQueCambian(const Filas& filas, std::size_t fila,
                                              std::span<const Asignacion> valores) const {
  std::vector<Asignacion> cambian(valores.begin(), valores.end());
  if (modo_ != ModoApertura::Optimista) return cambian;
  std::erase_if(cambian, [&](const Asignacion& valor) {
    const bool logico = Columnas()[valor.Posicion].Tipo == TipoColumna::Logico;
    return !logico && filas.En(fila, valor.Posicion) == *valor.Nuevo;
  });
  if (cambian.empty()) cambian.push_back(valores.back());
  return cambian;
}

// Two Booleans are the same when both are true, whatever number another program wrote for it; the
// rest must not have changed by as much as a letter's case.
std::string Cursor::TextoDeCambio(std::span<const Asignacion> cambian,
                                  std::span<const Asignacion> valores) const {
  std::string texto =
      dialecto::TextoDeCambio(DialectoSqlite, Tabla(), Nombres(cambian)) + " WHERE rowid = ?";
  if (modo_ != ModoApertura::Optimista) return texto;
  for (const Asignacion& valor : valores) {
    const bool logico = Columnas()[valor.Posicion].Tipo == TipoColumna::Logico;
    texto += logico ? " AND (" : " AND ";
    PonerColumna(texto, valor.Posicion);
    texto += logico ? " <> 0) IS ?" : " IS ? COLLATE BINARY";
  }
  return texto;
}

void Cursor::Actualizar(const Filas& filas, std::size_t fila, std::span<const Asignacion> valores) {
  ExigirTabla(valores);
  const std::vector<Asignacion> cambian = LosQueCambian(filas, fila, valores);
  const Prestada cambio = conexion_->almacen_.Tomar(TextoDeCambio(cambian, valores));
  std::vector<Valor> antes;
  antes.reserve(valores.size());
  int indice = 0;
  for (const Asignacion& valor : cambian) Enlazar(cambio.get(), ++indice, *valor.Nuevo);
  sqlite3_bind_int64(cambio.get(), ++indice, filas.Entero(fila, Columnas().size()));
  if (modo_ == ModoApertura::Optimista) {
    for (const Asignacion& valor : valores) {
      antes.push_back(filas.En(fila, valor.Posicion));
      Enlazar(cambio.get(), ++indice, antes.back());
    }
  }
  conexion_->unidad_.Escribir(cambio.get());
  if (sqlite3_changes(conexion_->base_.Motor()) == 0) {
    throw ErrorEjecucion(error::FilaCambiada, "Otro programa ha cambiado o borrado la fila");
  }
}

}  // namespace sqlite
