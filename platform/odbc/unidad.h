#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <utility>

#include "odbc/almacen.h"
#include "odbc/enlace.h"
#include "valores/error.h"

namespace odbc {

/// The unit of work of a connection: its writes between two ends, all of them durable or none.
///
/// A step that fails by the fault of its row or its statement fails alone. One that fails by the
/// fault of the server (a lock, a right to write that is missing, a full disk, a connection that is
/// lost) loses the unit: nothing more is written in it, so that no half of it stays, and its end
/// fails with the same error, whether or not anyone listened to the first. So does the end of one
/// that its server has undone without an error.
class Unidad {
 public:
  Unidad(Enlace& enlace, Almacen& almacen, bool agrupa)
      : enlace_(enlace), almacen_(almacen), agrupa_(agrupa) {}

  /// What is run first in each unit from now on, and makes others wait for its end by the row that
  /// it changes. Without such a row nothing is written.
  void AlEmpezar(std::string sentencia) { alEmpezar_ = std::move(sentencia); }
  /// Begins a unit now, unless one is under way. Nothing where each statement stands by itself.
  void Empezar() {
    if (agrupa_) AntesDeEscribir();
  }
  /// Runs a statement that writes, and gives how many rows it changed; a failure leaves what was
  /// written before it.
  std::size_t Escribir(const std::string& texto, Parametros& parametros);
  /// Runs one that reads, where it is in its turn among those that write.
  [[nodiscard]] services::Filas Leer(const std::string& texto, Parametros& parametros,
                                     const std::vector<services::Columna>& columnas);
  /// What goes on beside it has failed: an error of the server's loses the unit under way, and is
  /// thrown as the unit's.
  void AlFallarOtraCosa(const services::ErrorEjecucion& fallo);
  void Terminar();
  void Abandonar() noexcept;
  bool EmpezarLectura() noexcept;
  void TerminarLectura() noexcept;
  /// Whether writes are gathered from now on. Ends the unit under way.
  void Agrupar(bool agrupa);

  [[nodiscard]] bool Agrupa() const { return agrupa_; }
  [[nodiscard]] std::size_t Transacciones() const { return transacciones_; }

 private:
  void AntesDeEscribir();
  void EmpezarEnTurno();
  void TomarTurno();
  void Marcar();
  void ExigirMarca();
  [[noreturn]] void DarPorPerdida(const services::ErrorEjecucion& fallo);
  void ExigirUnidad();
  void Guardar();
  void Deshacer(const services::ErrorEjecucion& fallo);
  void Acabar(SQLSMALLINT como);
  void PonerConfirmacion(bool porSentencia);
  /// Runs a step of the unit; an error of the server's loses it.
  template <class Accion>
  auto Intentar(Accion accion);
  template <class Accion>
  auto Paso(Accion accion);

  Enlace& enlace_;
  Almacen& almacen_;
  bool agrupa_;
  bool enCurso_ = false;
  bool leyendo_ = false;
  /// Whether what was written so far is kept from the next failure.
  bool guardado_ = false;
  std::optional<services::ErrorEjecucion> perdida_;
  /// The connection in which it began.
  std::size_t vez_ = 0;
  std::string alEmpezar_;
  std::size_t transacciones_ = 0;
};

}  // namespace odbc
