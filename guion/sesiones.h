#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "guion/fuente.h"
#include "guion/gramatica.h"
#include "guion/proceso.h"

namespace guion {

/// The sessions of one text, each a process of its own, since the component knows one session per
/// process. They are played in turn: a command is handed to its session when the one before it has
/// left its own session ready for more, which inside a modal screen is before that command comes to
/// its end. So all is done and printed in the order of the text.
///
/// A session's process begins with its first command, and anew with the first one after `matar`.
class Sesiones {
 public:
  /// What the process of a session does with its commands; its exit status. Must not throw.
  using Papel = std::function<int(int sesion, const Fuente& fuente)>;

  /// The commands must outlive it.
  Sesiones(const std::vector<Orden>& ordenes, Papel papel, std::ostream& errores);

  /// Plays all commands, then lets the sessions come to their ends, the lowest first; once. The
  /// exit status. Throws `std::system_error` when there can't be another process.
  int Correr();

 private:
  void Jugar(std::size_t cual);
  /// What the process of a session does: asks for its commands along the line.
  [[nodiscard]] int Vivir(int sesion, const Canal& linea) const;
  /// Waits until the session asks for its next command; it is gone when it ended instead.
  void Esperar(const Orden& orden);
  void Terminar();
  /// Ends the run: the session can't go on. The reason is told unless it did so itself.
  void Romper(int sesion, const Final& final);

  const std::vector<Orden>& ordenes_;
  Papel papel_;
  std::ostream& errores_;
  std::map<int, Proceso> procesos_;  // by their sessions
  int linea_ = 0;                    // of the last command handed over
  int estado_ = 0;
};

}  // namespace guion
