#pragma once

#include <optional>

#include "services/sesion.h"
#include "store/intervalo.h"

namespace store {

/// The working copy of a range: loaded from the stored tables, edited by whoever writes in the
/// working tables, and written back whole. It knows which range it holds.
class CopiaDeTrabajo {
 public:
  explicit CopiaDeTrabajo(services::Sesion& sesion) : sesion_(sesion) {}

  /// Empties the working tables and copies into them what belongs to `rango`; see
  /// `CargarTemporales`. The range is held from the end of the load on, when the copy is durable
  /// and no table of it was passed over. Throws 13, with nothing touched, for a range of which an
  /// end is no date: it would mean the beginning of time.
  void Cargar(const Intervalo& rango);
  /// Takes the working tables as they are for the copy of `rango`: whoever left them there ended
  /// without saving them. Throws 13, with nothing touched, for a range of which an end is no date.
  void Retomar(const Intervalo& rango);
  /// Replaces the stored rows of the range that is held by the working tables, and empties these;
  /// see `GrabarTemporales`. Throws 91, with nothing touched, when no range is held. Once the
  /// stored side is durable none is held any more.
  void Grabar();
  /// Empties the working tables.
  void Vaciar();

  /// The range that the copy belongs to, none while there is no whole copy.
  [[nodiscard]] const std::optional<Intervalo>& Rango() const { return rango_; }

 private:
  services::Sesion& sesion_;
  std::optional<Intervalo> rango_;
};

}  // namespace store
