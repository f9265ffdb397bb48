#pragma once

#include <optional>

#include "sqlite/almacen.h"
#include "sqlite/fichero.h"
#include "valores/error.h"

namespace sqlite {

/// The unit of work of a connection: its writes between two ends, all of them durable or none.
///
/// A write that fails by the fault of its row (a key that repeats, a value that doesn't fit) fails
/// alone. One that fails by the fault of the file (a lock, a full disk, a file that isn't there any
/// more) loses the unit: nothing more is written in it, so that no half of it stays, and its end
/// fails with the same error, whether or not anyone listened to the first.
class Unidad {
 public:
  Unidad(Base& base, Almacen& almacen, bool agrupa)
      : base_(base), almacen_(almacen), agrupa_(agrupa) {}

  /// Begins a unit now, before anything is written, unless one is under way: from here on no other
  /// writes until its end. Nothing where each statement stands by itself.
  void Empezar() {
    if (agrupa_) AntesDeEscribir();
  }
  /// Runs a statement that writes; a failure leaves what was written before it.
  void Escribir(sqlite3_stmt* sentencia);
  void Terminar();
  void Abandonar() noexcept;
  /// What is read from here on is of the moment of the first look, until `TerminarLectura` or the
  /// first write. False, with nothing begun, in one that was begun before and in a unit under way,
  /// where it is so anyhow.
  bool EmpezarLectura() noexcept;
  void TerminarLectura() noexcept;
  /// Whether writes are gathered from now on. Ends the unit under way.
  void Agrupar(bool agrupa);

  [[nodiscard]] std::size_t Transacciones() const { return transacciones_; }

 private:
  void Paso(std::string_view texto);
  /// Begins the unit with the first write, once the file is known to be where it was. It takes the
  /// writer's lock at once, and so may wait.
  void AntesDeEscribir();
  /// Runs a step of the unit; an error of the file's loses it.
  template <class Accion>
  void Intentar(Accion accion);

  Base& base_;
  Almacen& almacen_;
  bool agrupa_;
  bool enCurso_ = false;
  bool leyendo_ = false;
  std::optional<services::ErrorEjecucion> perdida_;
  std::size_t transacciones_ = 0;
};

}  // namespace sqlite
