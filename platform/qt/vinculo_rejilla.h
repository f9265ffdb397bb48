#pragma once

#include <QPersistentModelIndex>

#include "forms/msflexgrid.h"
#include "qt/modelo_rejilla.h"
#include "qt/rejilla_qt.h"
#include "qt/vinculo.h"

class QMouseEvent;

namespace qt {

class DibujoCelda;
class EditorDeCelda;

/// A grid. What the model does to its cells is noted as it comes and shown when the event is over.
/// The property `marcas` of its table tells the column whose cells are marked or not.
class VinculoRejilla final : public VinculoDe<services::MSFlexGrid, RejillaQt> {
 public:
  VinculoRejilla(services::MSFlexGrid& modelo, RejillaQt& vista, Lienzo& lienzo);

  /// Row of the grid, 0 being the header.
  void AnotarFila(int fila) { datos_->AnotarFila(fila); }
  void AnotarFilas();
  void AnotarCeldaActual() { actual_movida_ = true; }

  void Soltar() override;
  [[nodiscard]] bool Espera() const override { return true; }
  void FinDeEvento() override;
  void TraerALaVista() override;
  bool eventFilter(QObject* objeto, QEvent* evento) override;

 protected:
  void MostrarPropio(services::Aspecto aspecto) override;
  void MostrarColores() override {}
  bool PulsarTecla(QKeyEvent& evento) override;

 private:
  bool PulsarRaton(QMouseEvent& evento);
  bool DoblePulsarRaton(QMouseEvent& evento);
  bool MoverPorTecla(int tecla);
  [[nodiscard]] QModelIndex CeldaActual() const;
  void MostrarActual();
  void TomarPrimera();
  void DecirActual();

  ModeloRejilla* datos_;
  DibujoCelda* dibujo_;
  EditorDeCelda* editor_;
  QPersistentModelIndex dicha_;  // the current cell as a screen reader last heard of it,
  QString dicho_;                // and its text
  bool pulsada_ = false;         // the last press reached a row
  bool actual_movida_ = true;
  bool rehecha_ = false;  // rows came or went in this event
  bool vaciada_ = false;  // down to the header at some moment of this event
};

}  // namespace qt
