#pragma once

#include <QLineEdit>
#include <QPointer>

#include "forms/msflexgrid.h"
#include "qt/modelo_rejilla.h"
#include "qt/rejilla_qt.h"
#include "qt/vinculo.h"

class QMouseEvent;

namespace qt {

class DibujoCelda;

/// A grid. What the model does to its cells is noted as it comes and shown when the event is over.
/// A line edit with the property `rejilla` holding the grid's name is its in-place editor, and lies
/// over the current cell.
class VinculoRejilla final : public VinculoDe<services::MSFlexGrid, RejillaQt> {
 public:
  VinculoRejilla(services::MSFlexGrid& modelo, RejillaQt& vista, Lienzo& lienzo);

  /// Row of the grid, 0 being the header.
  void AnotarFila(int fila) { datos_->AnotarFila(fila); }
  void AnotarFilas();
  void AnotarCeldaActual() { actual_movida_ = true; }

  void Soltar() override;
  void FinDeEvento() override;
  bool eventFilter(QObject* objeto, QEvent* evento) override;

 protected:
  void MostrarPropio(services::Aspecto aspecto) override;
  void MostrarColores() override {}
  bool PulsarTecla(QKeyEvent& evento) override;

 private:
  bool PulsarRaton(QMouseEvent& evento);
  bool DoblePulsarRaton(QMouseEvent& evento);
  bool MoverPorTecla(int tecla);
  bool EntrarALaVista();
  bool EscribirEnCelda(QKeyEvent& evento);
  void PulsarActual(bool doble);
  [[nodiscard]] QModelIndex CeldaActual() const;
  void MostrarActual();
  void ColocarEditor();
  void VolverDelEditor();
  void TomarPrimera();

  ModeloRejilla* datos_;
  DibujoCelda* dibujo_;
  QPointer<QLineEdit> editor_;
  bool actual_movida_ = true;
  bool rehecha_ = false;  // rows came or went in this event
  bool vaciada_ = false;  // down to the header at some moment of this event
};

}  // namespace qt
