#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QScrollBar>

#include "forms/controles.h"
#include "qt/opcion_qt.h"
#include "qt/vinculo.h"

// What the user ticks, chooses, presses or moves.

namespace qt {

class VinculoCasilla final : public VinculoDe<services::CheckBox, QCheckBox> {
 public:
  VinculoCasilla(services::CheckBox& modelo, QCheckBox& vista, Lienzo& lienzo);

 protected:
  void MostrarPropio(services::Aspecto aspecto) override;
};

class VinculoOpcion final : public VinculoDe<services::OptionButton, OpcionQt> {
 public:
  VinculoOpcion(services::OptionButton& modelo, OpcionQt& vista, Lienzo& lienzo);

 protected:
  void MostrarPropio(services::Aspecto aspecto) override;

 private:
  void TomarValor(bool encendida);
};

class VinculoPulsador final : public VinculoDe<services::Pulsador, QPushButton> {
 public:
  VinculoPulsador(services::Pulsador& modelo, QPushButton& vista, Lienzo& lienzo);

 protected:
  void MostrarPropio(services::Aspecto aspecto) override;
};

class VinculoLista final : public VinculoDe<services::ComboBox, QComboBox> {
 public:
  VinculoLista(services::ComboBox& modelo, QComboBox& vista, Lienzo& lienzo);
  bool eventFilter(QObject* objeto, QEvent* evento) override;

 protected:
  void MostrarPropio(services::Aspecto aspecto) override;
  /// Closed, a list that nobody types in is painted as a button.
  void MostrarColores() override { PintarCon(QPalette::Button, QPalette::ButtonText); }
  bool PulsarTecla(QKeyEvent& evento) override;
};

class VinculoBarra final : public VinculoDe<services::VScrollBar, QScrollBar> {
 public:
  VinculoBarra(services::VScrollBar& modelo, QScrollBar& vista, Lienzo& lienzo);

 protected:
  void MostrarPropio(services::Aspecto aspecto) override;
  bool PulsarTecla(QKeyEvent& evento) override;
};

}  // namespace qt
