#pragma once

#include <string>

namespace services {

class Widget;

/// What the user is about to do to a widget.
enum class Gesto { Pulsar, DoblePulsar };

/// What a form would not have the user lose without a word. Its handlers do what they do, whoever
/// acts: it is a window with the user before it that asks him first, and only then lets the gesture
/// through. Whoever has nobody to ask, as the scenario runner, takes no notice.
class Precaucion {
 public:
  /// What to ask before a gesture goes through, by yes, no and cancel; empty where nothing would be
  /// lost by it.
  [[nodiscard]] virtual std::string PreguntaAntesDe(const Widget& widget, Gesto gesto) const = 0;
  /// Whether what has the focus asks for itself as it is left, and so is to be left before that.
  [[nodiscard]] virtual bool PreguntaAlDejar() const = 0;
  /// What a yes does first. Whether the gesture can go on: not when nothing came of it, which the
  /// user was told then. Errors come out.
  [[nodiscard]] virtual bool Prevenir(const Widget& widget, Gesto gesto) = 0;

 protected:
  ~Precaucion() = default;
};

}  // namespace services
