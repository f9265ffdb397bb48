#pragma once

#include <deque>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace headless {

/// A message that was shown, and its answer, one of `services::mensaje`.
struct AvisoMostrado {
  std::string Texto;
  int Flags = 0;
  std::string Titulo;
  int Respuesta = 0;
};

/// A question that nobody had an answer for. No run-time error: the component can't handle it.
class PreguntaSinRespuesta : public std::logic_error {
 public:
  using std::logic_error::logic_error;
};

/// Answers messages out of a queue, in order, and keeps what was shown.
class Mensajes {
 public:
  /// Puts an answer at the end of the queue; one of `services::mensaje`.
  void Responder(int respuesta) { respuestas_.push_back(respuesta); }

  /// A plain message takes the next answer when that is to accept it, and is accepted without one
  /// otherwise. A question takes the next answer; without one that it offers it throws
  /// `PreguntaSinRespuesta`, keeps its reason in `SinRespuesta` and isn't counted as shown.
  int Mostrar(const std::string& texto, int flags, const std::string& titulo);

  /// All that were shown, the oldest first.
  [[nodiscard]] const std::vector<AvisoMostrado>& Mostrados() const { return mostrados_; }
  /// Why the last question found no answer; none while each found one. It stays, so that it is
  /// noticed also where the exception was swallowed on its way.
  [[nodiscard]] const std::optional<std::string>& SinRespuesta() const { return sin_respuesta_; }

 private:
  [[nodiscard]] int Contestar(const std::string& texto, int flags);
  [[noreturn]] void Abandonar(const std::string& motivo);

  std::deque<int> respuestas_;
  std::vector<AvisoMostrado> mostrados_;
  std::optional<std::string> sin_respuesta_;
};

}  // namespace headless
