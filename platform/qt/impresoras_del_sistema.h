#pragma once

#include <QStringList>
#include <chrono>
#include <functional>
#include <future>
#include <utility>

namespace qt {

/// A question that may take much longer than a user can be kept waiting. It is asked in a thread of
/// its own, which is left alone when it takes too long.
class PreguntaConPaciencia {
 public:
  PreguntaConPaciencia(std::function<QStringList()> pregunta, std::chrono::milliseconds paciencia)
      : pregunta_(std::move(pregunta)), paciencia_(paciencia) {}

  /// Asks, and waits for so long; then the last answer counts. One that was waited for in vain
  /// isn't waited for again: empty until it has come.
  [[nodiscard]] QStringList Responder();

 private:
  bool Llega(std::chrono::milliseconds paciencia);

  std::function<QStringList()> pregunta_;
  std::chrono::milliseconds paciencia_;
  std::future<QStringList> pendiente_;
  QStringList ultima_;
};

/// The names of the system's printers. The print server's library waits for a minute and more for
/// a server that doesn't answer; here it is four seconds.
[[nodiscard]] QStringList ImpresorasDelSistema();

}  // namespace qt
