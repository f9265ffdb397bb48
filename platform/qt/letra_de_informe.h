#pragma once

#include <QFont>

#include "forms/iform.h"
#include "services/destino_informe.h"

namespace qt {

/// What the face that reports ask for is drawn with, whatever its name: a free one of the same
/// measure, of the package fonts-urw-base35. Where it isn't installed the toolkit takes another.
inline constexpr const char* kLetraDeInforme = "URW Bookman";

/// The unit in which reports are painted.
inline constexpr double kTwipsPorPunto = 20;
using services::kTwipsPorCentimetro;
using services::kTwipsPorPulgada;

/// For a painter whose unit is a twip. Without hinting or kerning, so that a text is as wide at one
/// scale as at another, and as its letters are one by one.
[[nodiscard]] QFont FuenteDeInforme(const services::Letra& letra);

/// The measures of that face, the same for a page on the screen, a printer and a file.
class MedidasQt final : public services::MedidasDeLetra {
 public:
  [[nodiscard]] double Ancho(const services::Letra& letra, std::string_view texto) const override;
  [[nodiscard]] double Alto(const services::Letra& letra) const override;
  /// From the top of a line to the foot of its letters.
  [[nodiscard]] double Ascenso(const services::Letra& letra) const;
};

/// For targets, which outlive none.
[[nodiscard]] const MedidasQt& MedidasDeInforme();

}  // namespace qt
