#pragma once

#include "sqlite/almacen.h"
#include "sqlite/base.h"

namespace sqlite {

/// The unit of work of a connection: its writes between two ends, all of them durable or none.
///
/// The engine may drop a transaction by itself, as when the disk is full. The unit is then lost:
/// nothing more is written in it, so that no half of it stays, and its end fails.
class Unidad {
 public:
  Unidad(Base& base, Almacen& almacen, bool agrupa)
      : base_(base), almacen_(almacen), agrupa_(agrupa) {}

  /// Begins the unit with the first write. It takes the writer's lock at once, and so may wait.
  void AntesDeEscribir();
  /// Runs a statement that writes; a failure leaves what was written before it.
  void Escribir(sqlite3_stmt* sentencia);
  void Terminar();
  void Abandonar() noexcept;

  [[nodiscard]] std::size_t Transacciones() const { return transacciones_; }

 private:
  enum class Estado { SinEmpezar, EnCurso, Perdida };

  void Paso(std::string_view texto);

  Base& base_;
  Almacen& almacen_;
  bool agrupa_;
  Estado estado_ = Estado::SinEmpezar;
  std::size_t transacciones_ = 0;
};

}  // namespace sqlite
