#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace sqlite {

enum class Sincronizacion {
  Completa,  ///< what has been written survives a power cut
  Normal,    ///< a power cut may undo the last units, never a part of one
};

struct Opciones {
  Sincronizacion Durabilidad = Sincronizacion::Completa;
  /// Whether writes are gathered until `TerminarUnidad`; otherwise each is on its own.
  bool UnidadDeTrabajo = true;
  /// Whether a file that isn't there is created.
  bool Crear = false;
  /// Whether the file stays as it is, whatever is run.
  bool SoloLectura = false;
  /// Whether the file belongs to this connection alone for as long as it lives: nobody else can
  /// read or write it meanwhile. The lock goes with the process, however that ends.
  bool Exclusiva = false;
  /// What whoever opens the connection runs on it besides the statements of the system.
  std::vector<std::string> Propias = {};
  /// Whether any well-formed statement is run, and not those alone: for tests and tools.
  bool CualquierSentencia = false;
  /// How long a writer waits for another's lock, in milliseconds.
  int EsperaMs = 5000;
};

/// What a connection has done since it was opened.
struct Estadistica {
  std::size_t Preparadas = 0;     ///< statements handed to the engine to be understood
  std::size_t Transacciones = 0;  ///< units begun, or writes on their own
};

}  // namespace sqlite
