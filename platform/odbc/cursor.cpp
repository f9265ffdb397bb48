#include "odbc/cursor.h"

#include <algorithm>

#include "datos/orden_filas.h"
#include "dialecto/escritura.h"
#include "valores/error.h"

namespace odbc {

using services::Asignacion;
using services::ErrorEjecucion;
using services::Filas;
using services::ModoApertura;
using services::TipoColumna;
using services::Valor;
namespace error = services::error;

namespace {

std::vector<std::string_view> Nombres(std::span<const Asignacion> valores,
                                      const std::vector<std::string>& origenes) {
  std::vector<std::string_view> nombres;
  for (const Asignacion& valor : valores) nombres.emplace_back(origenes[valor.Posicion]);
  return nombres;
}

std::vector<std::string> NombresPropios(std::span<const Asignacion> valores,
                                        const std::vector<std::string>& origenes) {
  std::vector<std::string> nombres;
  for (const Asignacion& valor : valores) nombres.push_back(origenes[valor.Posicion]);
  return nombres;
}

}  // namespace

Cursor::Cursor(Conexion& conexion, std::string texto, dialecto::Sentencia sentencia,
               ModoApertura modo, std::optional<Filas> halladas)
    : conexion_(&conexion),
      texto_(std::move(texto)),
      sentencia_(std::move(sentencia)),
      modo_(modo),
      leidas_(sentencia_.Traducida->Columnas),
      halladas_(std::move(halladas)) {
  const auto& detras = sentencia_.Traducida->Detras;
  leidas_.insert(leidas_.end(), detras.begin(), detras.end());
}

Filas Cursor::Leer() {
  if (halladas_) {
    Filas filas = std::move(*halladas_);
    halladas_.reset();
    return filas;
  }
  Parametros parametros = ParametrosDe(sentencia_);
  Filas filas = conexion_->Leer(texto_, parametros, leidas_);
  services::Ordenar(filas, sentencia_.Traducida->Orden);
  return filas;
}

void Cursor::ExigirTabla(std::span<const Asignacion> valores) const {
  const bool escribible = modo_ != ModoApertura::Lectura && !Tabla().empty() &&
                          std::ranges::none_of(valores, [&](const Asignacion& valor) {
                            return Origenes()[valor.Posicion].empty();
                          });
  if (escribible) return;
  throw ErrorEjecucion(error::NoDisponible, "La sentencia no deja escribir en sus filas");
}

std::string Cursor::TextoDeInsercion(std::span<const Asignacion> valores, std::size_t filas) const {
  return dialecto::TextoDeInsercion(conexion_->Motor().Dialecto, Tabla(),
                                    Nombres(valores, Origenes()), filas);
}

Parametros Cursor::Nuevos(std::span<const Asignacion> valores) const {
  Parametros parametros;
  for (const Asignacion& valor : valores) parametros.Anadir(*valor.Nuevo, TipoDe(valor.Posicion));
  return parametros;
}

void Cursor::Insertar(std::span<const Asignacion> valores) {
  ExigirTabla(valores);
  Parametros parametros = Nuevos(valores);
  conexion_->Escribir(TextoDeInsercion(valores, 1), parametros);
  Recordar(valores);
}

void Cursor::InsertarLuego(std::span<const Asignacion> valores,
                           const services::AlNoInsertar& alNoInsertar) {
  if (!conexion_->unidad_.Agrupa() || valores.empty()) {
    return services::Cursor::InsertarLuego(valores, alNoInsertar);
  }
  ExigirTabla(valores);
  conexion_->pendientes_.Insertar(Insercion(valores), Nuevos(valores), alNoInsertar);
  Recordar(valores);
}

/// The same for rows of the same columns, as all are that one loop adds.
const std::shared_ptr<const Pendientes::Sentencia>& Cursor::Insercion(
    std::span<const Asignacion> valores) {
  const bool lasMismas =
      insercion_ && std::ranges::equal(valores, columnasDeInsercion_, {}, &Asignacion::Posicion);
  if (lasMismas) return insercion_;
  columnasDeInsercion_.clear();
  for (const Asignacion& valor : valores) columnasDeInsercion_.push_back(valor.Posicion);
  const auto varias = [motor = &conexion_->Motor().Dialecto, tabla = Tabla(),
                       columnas = NombresPropios(valores, Origenes())](std::size_t filas) {
    const std::vector<std::string_view> nombres(columnas.begin(), columnas.end());
    return dialecto::TextoDeInsercion(*motor, tabla, nombres, filas);
  };
  insercion_ = std::make_shared<const Pendientes::Sentencia>(
      Pendientes::Sentencia{Tabla(), varias(1), varias});
  return insercion_;
}

void Cursor::Recordar(std::span<const Asignacion> valores) {
  insertada_.clear();
  for (const Asignacion& valor : valores) insertada_.push_back({valor.Posicion, *valor.Nuevo});
}

/// The places of its table's key among what is selected.
std::vector<std::size_t> Cursor::Clave() const {
  const dialecto::Tabla& tabla = conexion_->catalogo_.Exigir(Tabla());
  std::vector<std::size_t> clave;
  for (const int columna : tabla.Clave) {
    const auto& nombre = tabla.Columnas[static_cast<std::size_t>(columna)].Nombre;
    const auto origen = std::ranges::find(Origenes(), nombre);
    if (origen != Origenes().end()) {
      clave.push_back(static_cast<std::size_t>(origen - Origenes().begin()));
    }
  }
  if (!clave.empty() && clave.size() == tabla.Clave.size()) return clave;
  throw ErrorEjecucion(error::NoDisponible,
                       "Sin una clave no se halla de nuevo una fila de " + Tabla());
}

/// That a column still holds what it held, a Null also.
std::string Cursor::SigueSiendo(std::size_t posicion, const Valor& antes) const {
  const Servidor& motor = conexion_->Motor();
  const std::string columna = dialecto::EntreComillas(motor.Dialecto, Origenes()[posicion]);
  if (antes.EsNulo()) return " AND " + columna + " IS NULL";
  if (TipoDe(posicion) != TipoColumna::Texto) return " AND " + columna + " = ?";
  return " AND " + (std::string(motor.MismoTexto.Antes) + columna).append(motor.MismoTexto.Despues);
}

/// Found by the key's own comparison, of which it has an index.
std::string Cursor::DondeLaClave(const std::vector<std::size_t>& clave) const {
  std::string texto = " WHERE ";
  for (const std::size_t posicion : clave) {
    if (posicion != clave.front()) texto += " AND ";
    texto += dialecto::EntreComillas(conexion_->Motor().Dialecto, Origenes()[posicion]) + " = ?";
  }
  return texto;
}

Filas Cursor::LeerInsertada() {
  std::string texto = "SELECT ";
  for (const std::string& origen : Origenes()) {
    if (&origen != &Origenes().front()) texto += ", ";
    texto += origen.empty() ? "NULL" : dialecto::EntreComillas(conexion_->Motor().Dialecto, origen);
  }
  const auto clave = Clave();
  Parametros parametros;
  for (const std::size_t posicion : clave) {
    const auto valor = std::ranges::find(insertada_, posicion, &Insertado::Posicion);
    parametros.Anadir(valor == insertada_.end() ? Valor() : valor->Nuevo, TipoDe(posicion));
  }
  texto += " FROM " + dialecto::EntreComillas(conexion_->Motor().Dialecto, Tabla());
  Filas filas = conexion_->Leer(texto + DondeLaClave(clave), parametros, Columnas());
  if (filas.Cuantas() == 1) return filas;
  throw ErrorEjecucion(error::FilaCambiada, "Otro programa ha borrado la fila añadida");
}

void Cursor::Bloquear(const Filas& filas, std::size_t fila) {
  const bool seGuarda = conexion_->unidad_.Agrupa() && !conexion_->Motor().ParaCambiar.empty();
  if (!seGuarda || Tabla().empty()) return;
  const auto clave = Clave();
  Parametros parametros;
  for (const std::size_t posicion : clave) {
    parametros.Anadir(filas.En(fila, posicion), TipoDe(posicion));
  }
  std::string texto = "SELECT 1 FROM " +
                      dialecto::EntreComillas(conexion_->Motor().Dialecto, Tabla()) +
                      DondeLaClave(clave);
  conexion_->Escribir(texto.append(conexion_->Motor().ParaCambiar), parametros);
}

void Cursor::Actualizar(const Filas& filas, std::size_t fila, std::span<const Asignacion> valores) {
  ExigirTabla(valores);
  const auto clave = Clave();
  std::string texto =
      dialecto::TextoDeCambio(conexion_->Motor().Dialecto, Tabla(), Nombres(valores, Origenes())) +
      DondeLaClave(clave);
  Parametros parametros;
  for (const Asignacion& valor : valores) parametros.Anadir(*valor.Nuevo, TipoDe(valor.Posicion));
  for (const std::size_t posicion : clave) {
    parametros.Anadir(filas.En(fila, posicion), TipoDe(posicion));
  }
  if (modo_ == ModoApertura::Optimista) {
    for (const Asignacion& valor : valores) {
      const Valor antes = filas.En(fila, valor.Posicion);
      texto += SigueSiendo(valor.Posicion, antes);
      if (!antes.EsNulo()) parametros.Anadir(antes, TipoDe(valor.Posicion));
    }
  }
  if (conexion_->Escribir(texto, parametros) > 0) return;
  throw ErrorEjecucion(error::FilaCambiada, "Otro programa ha cambiado o borrado la fila");
}

}  // namespace odbc
