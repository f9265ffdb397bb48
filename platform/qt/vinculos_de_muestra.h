#pragma once

#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>

#include "forms/controles.h"
#include "qt/cintilla.h"
#include "qt/imagen.h"
#include "qt/seleccion_qt.h"
#include "qt/vinculo.h"

// What the user reads, and clicks without giving it the focus.

namespace qt {

/// A text. One whose property `titula` holds the name of a panel is the panel's title to a screen
/// reader as well.
class VinculoEtiqueta : public VinculoDe<services::Label, QLabel> {
 public:
  VinculoEtiqueta(services::Label& modelo, QLabel& vista, Lienzo& lienzo);
  bool eventFilter(QObject* objeto, QEvent* evento) override;

 protected:
  void MostrarPropio(services::Aspecto aspecto) override;

 private:
  void Titular();
};

/// What turns a mark on and off. The property `marca` names what shows the mark, `rotulos` the
/// texts that tell what is marked; in a control array they are the elements of its own place.
class VinculoSeleccion final : public VinculoEtiqueta {
 public:
  VinculoSeleccion(services::Label& modelo, SeleccionQt& vista, Lienzo& lienzo);

 protected:
  bool PulsarTecla(QKeyEvent& evento) override;

 private:
  [[nodiscard]] QWidget* Hermano(const QString& nombre) const;
};

/// A title that stands in the frame around its group.
class VinculoGrupo final : public VinculoDe<services::Label, QGroupBox> {
 public:
  using VinculoDe::VinculoDe;

 protected:
  void MostrarPropio(services::Aspecto aspecto) override;
};

class VinculoCintilla final : public VinculoDe<services::Cintilla, CintillaQt> {
 public:
  VinculoCintilla(services::Cintilla& modelo, CintillaQt& vista, Lienzo& lienzo);
  bool eventFilter(QObject* objeto, QEvent* evento) override;

 protected:
  void MostrarPropio(services::Aspecto aspecto) override;
  /// The strip has the colours of a title, whatever those of the screen.
  void MostrarColores() override {}
};

class VinculoImagen final : public VinculoDe<services::Image, ImagenQt> {
 public:
  VinculoImagen(services::Image& modelo, ImagenQt& vista, Lienzo& lienzo);

 protected:
  void MostrarPropio(services::Aspecto aspecto) override;
};

class VinculoProgreso final : public VinculoDe<services::ProgressBar, QProgressBar> {
 public:
  using VinculoDe::VinculoDe;

 protected:
  void MostrarPropio(services::Aspecto aspecto) override;
};

class VinculoPanel final : public VinculoDe<services::Widget, QFrame> {
 public:
  using VinculoDe::VinculoDe;

 protected:
  void MostrarPropio(services::Aspecto) override {}
};

}  // namespace qt
