#pragma once

#include <vector>

#include "entry/apunte_de_caja.h"

namespace entry {

/// What the panel asks of the cash screen.
class PantallaDeCaja {
 public:
  virtual ~PantallaDeCaja() = default;

  /// Unloads it and loads it again, so that its list shows the entries of the panel's concept. It
  /// may be asked for from inside of one of its own handlers, which has the payment terms made
  /// anew.
  virtual void Rehacer() = 0;
  /// The same, when its list is that of another concept than the panel's: what is marked there
  /// would be stamped with this one's number.
  virtual void RehacerSiEsDeOtro() = 0;
  virtual void Descargar() = 0;
  /// Loads it, when it isn't, without showing it.
  virtual void Cargar() = 0;
  /// Shows it and waits until it is hidden; loads it first when it isn't.
  virtual void MostrarModal() = 0;
  /// Its rows; loads it first when it isn't.
  [[nodiscard]] virtual std::vector<ApunteDeCaja> Apuntes() = 0;
};

}  // namespace entry
