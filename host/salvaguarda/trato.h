#pragma once

#include <functional>
#include <string>

#include "valores/fecha.h"

namespace salvaguarda {

/// What the guard has of whoever it works for.
struct Trato {
  std::function<services::FechaHora()> Ahora;
  /// Whether to save all the same.
  std::function<bool(const std::string& pregunta)> Preguntar;
  /// There is something to be told, when the event is over.
  std::function<void()> AlHaberQueContar = [] {};
  /// Whether to ask when others have changed what is to be written.
  bool AvisarDeOtros = true;
  /// Keeps the working copy aside as it is now; the name of its file. Throws what that throws.
  std::function<std::string()> Apartar = {};
  /// Something accepted was let go of without saving, and is in such a file.
  std::function<void(const std::string& texto)> AlDejar = [](const std::string&) {};
};

}  // namespace salvaguarda
