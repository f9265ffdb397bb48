#pragma once

#include <sys/types.h>

#include <functional>
#include <optional>
#include <string>

namespace largo {

/// A process forked off this one that tells what it does, a line at a time. What it has told stays
/// to be read when it is killed.
class ProcesoAparte {
 public:
  /// Tells a line; it must hold no line break.
  using Decir = std::function<void(const std::string& linea)>;
  /// What the process does; its exit status. Nothing of this process is unwound at its end.
  using Vida = std::function<int(const Decir& decir)>;

  /// Throws `std::system_error` when it can't be made.
  explicit ProcesoAparte(const Vida& vida);
  /// Kills it if it still lives.
  ~ProcesoAparte();
  ProcesoAparte(const ProcesoAparte&) = delete;
  ProcesoAparte& operator=(const ProcesoAparte&) = delete;

  /// The next line that it tells, waited for that many milliseconds, without limit when negative;
  /// none when it has ended, or when it has told nothing in that time (`Callado`).
  [[nodiscard]] std::optional<std::string> Linea(int espera = -1);
  [[nodiscard]] bool Callado() const { return callado_; }
  void Matar(int senal) const;
  /// Waits for its end; as `waitpid` tells it.
  int Esperar();

 private:
  pid_t pid_ = -1;
  int lectura_ = -1;
  bool callado_ = false;
  std::string leido_;
};

}  // namespace largo
