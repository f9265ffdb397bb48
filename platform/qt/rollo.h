#pragma once

#include <QDataStream>
#include <QTemporaryFile>

#include "qt/motivo_de_fichero.h"
#include "services/destino_informe.h"

namespace qt {

/// Sheets kept in a file without a name until they are wanted, so that they take no memory. Each
/// step tells whether it went well.
class Rollo {
 public:
  [[nodiscard]] bool Abrir();
  [[nodiscard]] bool Guardar(const services::LaminaInforme& hoja);
  /// Back to the first sheet: what comes next is reading.
  [[nodiscard]] bool Rebobinar();
  /// Ready for the next sheet, until the last one.
  [[nodiscard]] bool Quedan() const { return !fichero_.atEnd(); }
  [[nodiscard]] bool Sacar(services::LaminaInforme& hoja);
  [[nodiscard]] qint64 Largo() const { return fichero_.size(); }
  /// Whether every sheet asked for so far could be read.
  [[nodiscard]] bool Legible() const { return datos_.status() == QDataStream::Ok; }
  /// Why a step failed.
  [[nodiscard]] QString Motivo() { return MotivoDe(fichero_); }

 private:
  QTemporaryFile fichero_;
  QDataStream datos_;
};

}  // namespace qt
