#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "services/destino_informe.h"

namespace services {

/// A report that is sent to a printer.
struct TrabajoDeImpresion {
  /// Device name of the printer that is current; empty for the system's own choice.
  std::string Impresora = {};
  /// The one that the user chose, where it is no longer installed; empty otherwise. Whoever prints
  /// tells that the report goes elsewhere.
  std::string Ausente = {};
  /// What the document is called, and a name for the file that it may be kept in, without ending.
  std::string Titulo = {};
  std::string Fichero = {};
};

/// Tells how far a work has come that may take long, and lets the user leave it.
class Avance {
 public:
  virtual ~Avance() = default;
  /// Whether it is time to tell: at every step it would take longer than the work.
  [[nodiscard]] virtual bool Toca() = 0;
  /// So many of `total` are done. False when the user wants to leave. The user is waited for: other
  /// events run meanwhile, and the screens may be gone afterwards.
  [[nodiscard]] virtual bool Seguir(int hechos, int total) = 0;
  /// The same, at every step.
  [[nodiscard]] bool SeguirSiToca(int hechos, int total) {
    return !Toca() || Seguir(hechos, total);
  }
};

/// Printing in a session: what the reports share, and what the platform makes for them.
class Imprenta {
 public:
  virtual ~Imprenta() = default;

  /// The chooser's answer: "Null Impresora", "Pantalla", or a printer's device name.
  std::string Impresora;
  /// Pages finished of the report under way, and the height at which the foot of a page goes, in
  /// centimetres.
  std::int16_t PaginaInforme = 0;
  double LimiteInforme = 0;
  /// What the last `SetBkMode` handed back.
  int ModoDeFondo = 0;
  /// Device name of the printer that is current; empty until one was chosen.
  std::string Printer;

  [[nodiscard]] virtual std::vector<std::string> Printers() = 0;
  /// Null when the user backs out. Throws 482 when no printer can be had.
  [[nodiscard]] virtual std::unique_ptr<DestinoInforme> AbrirImpresora(
      const TrabajoDeImpresion& trabajo) = 0;
  /// A sheet of the preview, by its page from 1.
  [[nodiscard]] virtual std::unique_ptr<HojaInforme> CrearHoja(int pagina) = 0;
  /// Null where the platform shows nothing of the kind.
  [[nodiscard]] virtual std::unique_ptr<Avance> CrearAvance(const std::string& titulo) = 0;
};

}  // namespace services
