#include "anfitrion/fechas.h"

#include <QDateTime>

#include "salvaguarda/dicho.h"

namespace anfitrion {

services::FechaHora Ahora() {
  const QDateTime ahora = QDateTime::currentDateTime();
  const QDate dia = ahora.date();
  const QTime hora = ahora.time();
  return services::HacerFecha(dia.year(), dia.month(), dia.day(), hora.hour(), hora.minute(),
                              hora.second());
}

QString FechaMostrada(const std::string& guardada) {
  return QString::fromStdString(salvaguarda::FechaDicha(guardada));
}

}  // namespace anfitrion
