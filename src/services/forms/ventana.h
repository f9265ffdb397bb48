#pragma once

#include "forms/precaucion.h"
#include "forms/propiedad.h"

namespace services {

class MSFlexGrid;
class Widget;

/// What shows a form: it reads the form's widgets and is told what changes in them. None of its
/// operations throws but `Consiente`. Changes come one by one as they are made; a window that has
/// much to repaint gathers them until `FinDeEvento`.
class Ventana {
 public:
  virtual ~Ventana() = default;

  /// `modal` when the user is about to be waited for in it.
  virtual void Mostrar(bool modal) = 0;
  virtual void Ocultar() = 0;
  /// Lets the user work, in this form alone, until it is hidden or unloaded.
  virtual void EsperarModal() = 0;
  virtual void Refrescar() = 0;
  /// The toolkit's own window, null where there is none.
  virtual void* Nativa() = 0;

  virtual void Cambiada(Widget& widget, Aspecto aspecto) = 0;
  /// An element of a control array came, or is about to go.
  virtual void Anadido(Widget& widget) = 0;
  virtual void Quitado(Widget& widget) = 0;
  /// Text, colours, drawing or font of a cell.
  virtual void CeldaCambiada(MSFlexGrid& rejilla, int fila, int columna) = 0;
  /// Rows came or went.
  virtual void FilasCambiadas(MSFlexGrid& rejilla) = 0;
  virtual void CeldaActual(MSFlexGrid& rejilla) = 0;
  /// The focus is on that widget, or on none.
  virtual void Foco(Widget* widget) = 0;
  /// Whether a gesture of the user goes through, before anything comes of it: a window with the
  /// user before it may have to ask him first, as the form's `Precaucion` tells.
  [[nodiscard]] virtual bool Consiente(Widget& widget, Gesto gesto) = 0;
  /// The user's event is over, with all that its handlers did.
  virtual void FinDeEvento() = 0;
  /// The user is about to be asked: the current rows of the grids that can be got to have to be on
  /// sight.
  virtual void AntesDePreguntar() = 0;
};

}  // namespace services
