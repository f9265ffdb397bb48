#pragma once

#include <string>
#include <string_view>

#include "odbc/manejo.h"
#include "valores/error.h"

namespace odbc {

/// What a driver says of a call that failed.
struct Diagnostico {
  std::string Estado;  ///< five signs: a class of two, and the case
  int Nativo = 0;      ///< the server's own number, where it has any
  std::string Texto;
  bool Perdida = false;     ///< whether the connection is known to be gone, whatever is said
  bool AlConectar = false;  ///< whether there was none yet
};

/// The first thing that is said of the last call on a handle.
[[nodiscard]] Diagnostico Diagnosticar(const Manejo& manejo);

/// Whether the connection is gone, and with it all that it held.
[[nodiscard]] bool EsDeConexionPerdida(const Diagnostico& diagnostico);
/// Whether the server doesn't let this user in, for want of a password too.
[[nodiscard]] bool EsDeSesion(const Diagnostico& diagnostico);
/// Whether the server has undone all that the unit wrote, because of what another wrote: the same
/// may succeed when it is tried anew.
[[nodiscard]] bool EsDeOtro(const Diagnostico& diagnostico);
/// Whether what was prepared no longer fits the tables that it was prepared for.
[[nodiscard]] bool EsDeOtrasTablas(const Diagnostico& diagnostico);
/// Whether nothing can be written to the server now.
[[nodiscard]] bool EsDeSoloLectura(const Diagnostico& diagnostico);
/// The run-time error that it is, in the user's words and then in those of the `motor`.
[[nodiscard]] services::ErrorEjecucion ErrorDe(const Diagnostico& diagnostico,
                                               std::string_view motor);

}  // namespace odbc
