#include "odbc/unidad.h"

#include <utility>

namespace odbc {

using services::ErrorEjecucion;
using services::Filas;

namespace {

constexpr int kIntentos = 10;
constexpr const char* kGuardar = "SAVEPOINT Fila";
constexpr const char* kGuardarDeNuevo = "RELEASE SAVEPOINT Fila; SAVEPOINT Fila";
constexpr const char* kVolver = "ROLLBACK TO SAVEPOINT Fila";
// The state of one that another's unit has undone.
constexpr const char* kDeshecha = "40001";
// It goes with the unit in which it was made.
constexpr const char* kMarcar = "SAVEPOINT Unidad";
constexpr const char* kQuitarMarca = "RELEASE SAVEPOINT Unidad";

ErrorEjecucion SinGuardar(const ErrorEjecucion& fallo) {
  return {fallo.Numero(),
          "No se ha guardado ninguno de los últimos cambios. " + fallo.Descripcion()};
}

}  // namespace

template <class Accion>
auto Unidad::Intentar(Accion accion) {
  try {
    return accion();
  } catch (const ErrorEjecucion& fallo) {
    if (agrupa_ && fallo.Numero() == services::error::FalloDeConexion) DarPorPerdida(fallo);
    throw;
  }
}

/// Throws: whoever hears of it, at once or at the unit's end, is told what has become of the unit.
void Unidad::DarPorPerdida(const ErrorEjecucion& fallo) {
  perdida_ = SinGuardar(fallo);
  throw ErrorEjecucion(*perdida_);
}

void Unidad::AlFallarOtraCosa(const ErrorEjecucion& fallo) {
  if (enCurso_ && fallo.Numero() == services::error::FalloDeConexion) DarPorPerdida(fallo);
}

void Unidad::PonerConfirmacion(bool porSentencia) {
  const SQLULEN valor = porSentencia ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF;
  enlace_.Comprobar(SQLSetConnectAttr(enlace_.Conexion().get(), SQL_ATTR_AUTOCOMMIT,
                                      ComoPuntero(valor), SQL_IS_UINTEGER),
                    enlace_.Conexion());
}

/// A connection that was lost took the unit with it, though another has taken its place.
void Unidad::ExigirUnidad() {
  const bool suya = !enlace_.Perdido() && enlace_.Vez() == vez_;
  if (enCurso_ && !suya && !perdida_) {
    DarPorPerdida({services::error::FalloDeConexion, "Se ha perdido la conexión con el servidor"});
  }
  if (perdida_) throw ErrorEjecucion(*perdida_);
}

void Unidad::AntesDeEscribir() {
  ExigirUnidad();
  if (enCurso_) return;
  TerminarLectura();
  Intentar([this] {
    enlace_.Exigir();
    if (agrupa_) PonerConfirmacion(false);
  });
  vez_ = enlace_.Vez();
  enCurso_ = agrupa_;
  guardado_ = false;
  ++transacciones_;
  if (enCurso_) EmpezarEnTurno();
}

/// What a server can't put in an order with what others do it undoes; so little of it is tried
/// anew. The mark comes first: nothing is undone before the turn, which others change too.
void Unidad::EmpezarEnTurno() try {
  for (int quedan = kIntentos;; --quedan) {
    try {
      Marcar();
      return TomarTurno();
    } catch (const UnidadDeshecha&) {
      if (quedan == 1) throw;
      enlace_.Comprobar(SQLEndTran(SQL_HANDLE_DBC, enlace_.Conexion().get(), SQL_ROLLBACK),
                        enlace_.Conexion());
    }
  }
} catch (const ErrorEjecucion& fallo) {
  // Nothing is written out of one's turn, nor without the mark.
  DarPorPerdida(fallo);
}

void Unidad::TomarTurno() {
  if (alEmpezar_.empty()) return;
  Parametros ninguno;
  if (almacen_.Tomar(alEmpezar_).Ejecutar(ninguno) > 0) return;
  throw ErrorEjecucion(services::error::FalloDeConexion,
                       "Falta en la base de datos la fila por la que se guarda el turno de los que "
                       "escriben (" +
                           alEmpezar_ + ")");
}

void Unidad::Marcar() {
  if (enlace_.Motor().DeshaceSinDecirlo) enlace_.Ejecutar(kMarcar);
}

/// What is to be made durable is what has been written since the unit began, and not since its
/// server has undone that without a word.
void Unidad::ExigirMarca() {
  if (!enlace_.Motor().DeshaceSinDecirlo) return;
  try {
    enlace_.Ejecutar(kQuitarMarca);
  } catch (const ErrorEjecucion& fallo) {
    if (fallo.Numero() == services::error::FalloDeConexion) DarPorPerdida(fallo);
    // What it would have said.
    DarPorPerdida(ErrorDe({kDeshecha, 0, kQuitarMarca}, enlace_.Motor().Nombre));
  }
}

/// Before each step, where a failure would take what came before it.
void Unidad::Guardar() {
  if (!enCurso_ || !enlace_.Motor().FalloSeLoLlevaTodo) return;
  enlace_.Ejecutar(std::exchange(guardado_, true) ? kGuardarDeNuevo : kGuardar);
}

void Unidad::Deshacer(const ErrorEjecucion& fallo) {
  const bool delServidor = fallo.Numero() == services::error::FalloDeConexion;
  if (!enCurso_ || delServidor || !enlace_.Motor().FalloSeLoLlevaTodo) return;
  enlace_.Ejecutar(kVolver);
}

/// A step of the unit, which when it fails leaves what came before it.
template <class Accion>
auto Unidad::Paso(Accion accion) {
  return Intentar([&] {
    Guardar();
    try {
      return accion();
    } catch (const ErrorEjecucion& fallo) {
      Deshacer(fallo);
      throw;
    }
  });
}

std::size_t Unidad::Escribir(const std::string& texto, Parametros& parametros) {
  AntesDeEscribir();
  try {
    return Paso([&] { return almacen_.Tomar(texto).Ejecutar(parametros); });
  } catch (const ErrorEjecucion& fallo) {
    // No row is at fault: what was deleted before it would not come back.
    const bool ninguna = fallo.Numero() == services::error::SentenciaRechazada;
    if (agrupa_ && ninguna) DarPorPerdida(fallo);
    throw;
  }
}

Filas Unidad::Leer(const std::string& texto, Parametros& parametros,
                   const std::vector<services::Columna>& columnas) {
  const auto leer = [&] { return almacen_.Tomar(texto).Leer(parametros, columnas); };
  if (enCurso_) {
    ExigirUnidad();
    return Paso(leer);
  }
  try {
    return leer();
  } catch (const ErrorEjecucion&) {
    // The moment is over where the server would refuse whatever is asked after it.
    if (enlace_.Motor().FalloSeLoLlevaTodo) TerminarLectura();
    throw;
  }
}

// What comes after its end changes nothing of it: a connection that fails there isn't used again.
void Unidad::Acabar(SQLSMALLINT como) {
  enlace_.ContarViaje();
  enlace_.Comprobar(SQLEndTran(SQL_HANDLE_DBC, enlace_.Conexion().get(), como), enlace_.Conexion());
  try {
    PonerConfirmacion(true);
  } catch (const ErrorEjecucion&) {
    enlace_.Perder();
  }
}

// Where the connection is lost while the server was to make it durable, nobody here knows whether
// it did.
void Unidad::Terminar() {
  try {
    ExigirUnidad();
    if (!enCurso_) return;
    ExigirMarca();
  } catch (const ErrorEjecucion&) {
    Abandonar();
    throw;
  }
  try {
    Acabar(SQL_COMMIT);
    enCurso_ = false;
  } catch (const ErrorEjecucion& fallo) {
    const bool perdido = enlace_.Perdido();
    Abandonar();
    if (!perdido) throw SinGuardar(fallo);
    throw ErrorEjecucion(fallo.Numero(),
                         "Se ha perdido la conexión mientras el servidor guardaba los últimos "
                         "cambios, y no se sabe si los ha guardado. " +
                             fallo.Descripcion());
  }
}

void Unidad::Abandonar() noexcept {
  if (enCurso_ && !enlace_.Perdido() && enlace_.Vez() == vez_) {
    try {
      Acabar(SQL_ROLLBACK);
    } catch (const ErrorEjecucion&) {
      // Its end is the end of what it wrote, too.
    }
  }
  enCurso_ = false;
  perdida_.reset();
}

bool Unidad::EmpezarLectura() noexcept {
  if (leyendo_ || enCurso_ || enlace_.Motor().AlLeerDeUnMomento.empty()) return false;
  try {
    for (const std::string_view paso : enlace_.Motor().AlLeerDeUnMomento) {
      enlace_.Ejecutar(std::string(paso));
    }
    leyendo_ = true;
  } catch (const ErrorEjecucion&) {
    leyendo_ = false;  // what reads next says why
  }
  return leyendo_;
}

void Unidad::TerminarLectura() noexcept {
  if (!std::exchange(leyendo_, false) || enlace_.Perdido()) return;
  try {
    enlace_.Ejecutar("ROLLBACK");
  } catch (const ErrorEjecucion&) {
    // There is nothing to be made durable.
  }
}

void Unidad::Agrupar(bool agrupa) {
  Terminar();
  agrupa_ = agrupa;
}

}  // namespace odbc
