#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "services/imprenta.h"

namespace qt {

/// The name under which a report is saved to a file instead of printed.
inline constexpr const char* kGuardarComoPdf = "Guardar como PDF";

/// What the user is asked on the way to paper.
struct PreguntasDeImprenta {
  /// A path for the file, from the one proposed on; empty when the user backs out.
  std::function<QString(const QString& propuesto)> PedirFichero;
  /// A message, as `services::Aviso` shows it.
  std::function<int(const std::string& texto, int flags, const std::string& titulo)> Mostrar;
};
[[nodiscard]] PreguntasDeImprenta PreguntasEnPantalla();

/// The system's printers, and what saves to a file behind them.
[[nodiscard]] std::vector<std::string> Impresoras();

/// As `services::Imprenta` tells: null when the user backs out, 482 when no printer can be had.
/// A report that is saved to a file tells where at its end.
[[nodiscard]] std::unique_ptr<services::DestinoInforme> AbrirImpresora(
    const services::TrabajoDeImpresion& trabajo,
    const PreguntasDeImprenta& preguntas = PreguntasEnPantalla());

/// A sheet of the preview.
[[nodiscard]] std::unique_ptr<services::HojaInforme> CrearHoja(int pagina);

}  // namespace qt
