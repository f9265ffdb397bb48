#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "datos/filas.h"
#include "valores/error.h"
#include "valores/objeto.h"
#include "valores/valor.h"

// What a database driver implements. The rules of recordsets live in `Recordset`, once; a driver
// only understands a statement, fetches its rows in their order, and inserts and updates them one
// by one. Everything here fails by throwing `ErrorEjecucion`, its description ending in the
// engine's own code and text.

namespace services {

enum class TipoColumna {
  Texto,
  Entero,  ///< 32 bits
  Moneda,  ///< decimal with 2 places, a Double here
  Numero,  ///< any other number, such as a sum
  Logico,
  FechaHora,
};

struct Columna {
  std::string Nombre;
  TipoColumna Tipo = TipoColumna::Texto;
  /// Most characters of a text, as its table declares them; 0 where it tells no limit.
  int Longitud = 0;
  bool AdmiteNulo = true;
};

/// Static read-only; dynamic with optimistic locking; dynamic with pessimistic locking.
enum class ModoApertura { Lectura, Optimista, Pesimista };

/// One value on its way to a column, by its position in `Cursor::Columnas`. Already of the
/// column's type, or Null.
struct Asignacion {
  std::size_t Posicion;
  const Valor* Nuevo;
};

/// Told of a row that could not be added.
using AlNoInsertar = std::function<void(const ErrorEjecucion& fallo)>;

/// An open SELECT.
class Cursor {
 public:
  virtual ~Cursor() = default;

  /// The columns that the statement selects, in its order. Known from the opening on.
  [[nodiscard]] virtual const std::vector<Columna>& Columnas() const = 0;

  /// Runs the statement and fetches all its rows as they are at this moment; later writes don't
  /// show in them. Each row has a cell per column and may have more behind them, by which the
  /// driver finds the row again.
  [[nodiscard]] virtual Filas Leer() = 0;

  /// Adds a row to the one table that the statement selects from; columns not assigned take their
  /// default. Throws 0x80040E21 for a key that repeats or a value that doesn't fit, and the row
  /// then isn't there; rows written before stay.
  virtual void Insertar(std::span<const Asignacion> valores) = 0;

  /// The same for one of many: it may be written later, together with others, at the latest before
  /// its connection reads or ends the unit. `alNoInsertar` is told, then or now, when it can't be
  /// added; it then isn't there, and the rest are.
  virtual void InsertarLuego(std::span<const Asignacion> valores,
                             const AlNoInsertar& alNoInsertar) {
    try {
      Insertar(valores);
    } catch (const ErrorEjecucion& fallo) {
      alNoInsertar(fallo);
    }
  }

  /// The row that the last successful `Insertar` added, as `Leer` gives rows: its defaults filled
  /// in, and fit for `Actualizar`. Throws 0x80040E38 when it is gone.
  [[nodiscard]] virtual Filas LeerInsertada() = 0;

  /// Keeps others from changing a row that is about to be changed, as `Actualizar` takes it, until
  /// the unit ends, where the driver locks rows. One that is gone is told by `Actualizar`.
  virtual void Bloquear(const Filas&, std::size_t) {}

  /// Changes row `fila` of `filas`, which came from `Leer` or `LeerInsertada` of this cursor, its
  /// cells of columns perhaps changed since to what was written in them. Throws 0x80040E38 when
  /// the row is gone or, with optimistic locking, when one of the columns assigned no longer holds
  /// what `filas` tells.
  virtual void Actualizar(const Filas& filas, std::size_t fila,
                          std::span<const Asignacion> valores) = 0;
};

/// A connection to a database. Counted: whoever keeps it holds a count.
class Conexion : public IUnknown {
 public:
  static constexpr GUID IID{
      0x2A4E9C10, 0x7D3B, 0x4F6E, {0xA1, 0x0C, 0x55, 0x9E, 0x83, 0x21, 0x6B, 0x04}};

  /// Takes one SELECT or one DELETE. A SELECT is understood but not yet run, and gives its cursor;
  /// a DELETE runs at once and gives none. Anything else is 0x80040E14, an unknown table
  /// 0x80040E37, an unknown column 0x80040E10, and nothing runs.
  [[nodiscard]] virtual std::unique_ptr<Cursor> Abrir(std::string_view sentencia,
                                                      ModoApertura modo) = 0;

  /// The columns of a table, which is not looked into any further. The same errors.
  [[nodiscard]] virtual std::vector<Columna> ColumnasDe(std::string_view tabla);

  /// Makes durable what has been written since the last call: the end of one unit of work. Costs
  /// nothing when nothing was written. When it fails the writes of the unit are gone.
  virtual void TerminarUnidad() = 0;
  /// Drops what has been written since the last end of a unit.
  virtual void AbandonarUnidad() noexcept = 0;

  /// Writes what was left for later. Who puts a connection before another hands on this, and the
  /// rest of what it may do.
  virtual void EscribirPendientes() {}
  /// What `BorradosJuntos` asks for.
  virtual void JuntarBorrados(bool) {}
  /// Tells that these SELECTs, of one form, are about to be opened, in this order, and that nothing
  /// written meanwhile changes what they find. A driver that gains by asking for many at once has
  /// them told to it, and may do so; another doesn't.
  virtual void Anticipar(const std::function<std::vector<std::string>()>&, ModoApertura) {}

  /// What a `LecturaFija` asks for; false for one that wasn't begun here. A driver that can't do it
  /// does nothing.
  [[nodiscard]] virtual bool EmpezarLectura() noexcept { return false; }
  virtual void TerminarLectura() noexcept {}

 protected:
  ~Conexion() = default;
};

/// While it lives, the statements that read through a connection see all its tables as they were at
/// the first of them, whatever others write meanwhile. A write through the connection ends that,
/// and so does a failure of the file.
class LecturaFija {
 public:
  explicit LecturaFija(Conexion& conexion)
      : conexion_(&conexion), empezada_(conexion.EmpezarLectura()) {}
  ~LecturaFija() {
    if (empezada_) conexion_->TerminarLectura();
  }
  LecturaFija(const LecturaFija&) = delete;
  LecturaFija& operator=(const LecturaFija&) = delete;

 private:
  Ref<Conexion> conexion_;
  bool empezada_;
};

/// While it lives, the DELETEs that are opened through a connection may be run later, together with
/// others: at the latest before the connection reads, or at the end of this. What refuses one is
/// thrown there.
class BorradosJuntos {
 public:
  explicit BorradosJuntos(Conexion& conexion) : conexion_(&conexion) {
    conexion.JuntarBorrados(true);
  }
  ~BorradosJuntos() {
    if (conexion_) Soltar();
  }
  BorradosJuntos(const BorradosJuntos&) = delete;
  BorradosJuntos& operator=(const BorradosJuntos&) = delete;

  /// Runs those that are left. Without it they are run all the same, and a failure isn't told.
  void Terminar() { std::exchange(conexion_, nullptr)->JuntarBorrados(false); }

 private:
  void Soltar() noexcept {
    try {
      Terminar();
    } catch (const ErrorEjecucion&) {
      // Another error is on its way already.
    }
  }

  Ref<Conexion> conexion_;
};

}  // namespace services
