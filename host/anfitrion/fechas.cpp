#include "anfitrion/fechas.h"

#include <QDateTime>

namespace anfitrion {

services::FechaHora Ahora() {
  const QDateTime ahora = QDateTime::currentDateTime();
  const QDate dia = ahora.date();
  const QTime hora = ahora.time();
  return services::HacerFecha(dia.year(), dia.month(), dia.day(), hora.hour(), hora.minute(),
                              hora.second());
}

QString FechaMostrada(const std::string& guardada) {
  const QString texto = QString::fromStdString(guardada);
  const QDate fecha = QDate::fromString(texto, "yyyyMMdd");
  return fecha.isValid() ? fecha.toString("dd/MM/yyyy") : texto;
}

}  // namespace anfitrion
