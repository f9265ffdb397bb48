#include "qt/impresoras_del_sistema.h"

#include <QPrinterInfo>
#include <chrono>
#include <future>
#include <memory>
#include <thread>

#include "qt/cursor_de_espera.h"

namespace qt {
namespace {

constexpr std::chrono::seconds kPaciencia(4);

/// Asked in a thread of its own, which is left alone when it takes too long: the server's library
/// waits for a minute and more.
std::future<QStringList> Preguntar() {
  std::packaged_task<QStringList()> pregunta(&QPrinterInfo::availablePrinterNames);
  std::future<QStringList> respuesta = pregunta.get_future();
  std::thread(std::move(pregunta)).detach();
  return respuesta;
}

}  // namespace

QStringList ImpresorasDelSistema() {
  static std::future<QStringList> pendiente;
  static QStringList ultimas;
  const auto llega = [](std::chrono::seconds paciencia) {
    if (pendiente.wait_for(paciencia) != std::future_status::ready) return false;
    ultimas = pendiente.get();
    return true;
  };
  // One that was waited for in vain and hasn't answered since isn't waited for again.
  if (pendiente.valid() && !llega(std::chrono::seconds(0))) return {};
  const CursorDeEspera espera;
  pendiente = Preguntar();
  llega(kPaciencia);
  return ultimas;
}

}  // namespace qt
