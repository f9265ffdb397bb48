#pragma once

#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>

#include "forms/controles.h"
#include "qt/cintilla.h"
#include "qt/destino_qt.h"
#include "qt/imagen.h"
#include "qt/listado_qt.h"
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

/// A text that a click, or the blank, turns on.
class VinculoPulsable : public VinculoEtiqueta {
 public:
  VinculoPulsable(services::Label& modelo, PulsableQt& vista, Lienzo& lienzo);

 protected:
  bool PulsarTecla(QKeyEvent& evento) override;
  /// Another widget of its place in a control array.
  [[nodiscard]] QWidget* Hermano(const QString& nombre) const;
};

/// What turns a mark on and off. The property `marca` names what shows the mark, `rotulos` the
/// texts that tell what is marked.
class VinculoSeleccion final : public VinculoPulsable {
 public:
  VinculoSeleccion(services::Label& modelo, SeleccionQt& vista, Lienzo& lienzo);
};

/// A destination by its name. The property `imagen` names its picture.
class VinculoDestino final : public VinculoPulsable {
 public:
  VinculoDestino(services::Label& modelo, DestinoQt& vista, Lienzo& lienzo);
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

/// A panel on which pictures are painted.
class VinculoListado final : public VinculoDe<services::PictureBox, ListadoQt> {
 public:
  using VinculoDe::VinculoDe;
  [[nodiscard]] bool Espera() const override { return true; }
  /// They come one by one, and are shown once.
  void FinDeEvento() override;

 protected:
  void MostrarPropio(services::Aspecto aspecto) override;

 private:
  bool otras_ = false;
};

class VinculoPanel final : public VinculoDe<services::Widget, QFrame> {
 public:
  using VinculoDe::VinculoDe;

 protected:
  void MostrarPropio(services::Aspecto) override {}
};

}  // namespace qt
