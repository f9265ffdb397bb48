#include "qt/impresoras_del_sistema.h"

#include <QPrinterInfo>
#include <thread>

#include "qt/cursor_de_espera.h"

namespace qt {

QStringList PreguntaConPaciencia::Responder() {
  if (pendiente_.valid() && !Llega(std::chrono::milliseconds(0))) return {};
  std::packaged_task<QStringList()> tarea(pregunta_);
  pendiente_ = tarea.get_future();
  std::thread(std::move(tarea)).detach();
  Llega(paciencia_);
  return ultima_;
}

bool PreguntaConPaciencia::Llega(std::chrono::milliseconds paciencia) {
  if (pendiente_.wait_for(paciencia) != std::future_status::ready) return false;
  ultima_ = pendiente_.get();
  return true;
}

QStringList ImpresorasDelSistema() {
  static PreguntaConPaciencia impresoras(&QPrinterInfo::availablePrinterNames,
                                         std::chrono::seconds(4));
  const CursorDeEspera espera;
  return impresoras.Responder();
}

}  // namespace qt
