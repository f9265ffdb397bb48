#pragma once

#include <sys/types.h>

#include <functional>
#include <optional>
#include <utility>

namespace guion {

/// One end of a line between two processes, which carries whole numbers both ways.
class Canal {
 public:
  Canal() = default;
  explicit Canal(int descriptor) : descriptor_(descriptor) {}
  ~Canal() { Cerrar(); }
  Canal(Canal&& otro) noexcept : descriptor_(std::exchange(otro.descriptor_, -1)) {}
  Canal& operator=(Canal&& otro) noexcept;

  /// Whether anyone is there to take it shows at the next `Recibir`.
  void Mandar(int numero) const;
  /// Waits for the next number; none when the other end is gone.
  [[nodiscard]] std::optional<int> Recibir() const;
  /// The other end finds nobody from now on, whoever has a copy of this one.
  void Cortar() const;
  void Cerrar();

 private:
  int descriptor_ = -1;
};

/// How a process came to its end.
struct Final {
  int Estado = 0;  ///< its exit status, where there was no signal
  int Senal = 0;   ///< the one that killed it; 0 when none did
};

/// A process forked off this one. It begins with a copy of all that this one has, and leaves this
/// one's alone: nothing of what is still going on here is unwound there.
class Proceso {
 public:
  /// What it does with its end of the line, until that is cut; its exit status. Must not throw.
  using Vida = std::function<int(const Canal&)>;

  /// Throws `std::system_error` when it can't be made.
  explicit Proceso(const Vida& vida);
  /// Ends it if that wasn't done yet.
  ~Proceso();
  Proceso(const Proceso&) = delete;
  Proceso& operator=(const Proceso&) = delete;

  [[nodiscard]] const Canal& Linea() const { return linea_; }
  /// Cuts the line and waits for the end; once.
  Final Terminar();

 private:
  Canal linea_;
  pid_t pid_ = 0;
};

}  // namespace guion
