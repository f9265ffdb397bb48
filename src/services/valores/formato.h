#pragma once

#include <string>
#include <string_view>

#include "valores/valor.h"

// Format masks for amounts. A stored amount is a Double; what is shown is the text under a mask,
// and a rounded amount is that text read back.

namespace services {

/// The masks that the screens use. They print alike where they differ only in leading `#`.
namespace mascara {
inline constexpr std::string_view Importe = "#,###,##0.00";
inline constexpr std::string_view Prevision = "##,###,##0.00";
inline constexpr std::string_view Entero = "#,##0";
}  // namespace mascara

/// `valor` under a mask made of `#`, `0`, `,` (thousands) and `.` (decimals): rounded on its 15
/// significant figures, ties away from zero, no sign on what rounds to zero, `.` for thousands and
/// `,` for decimals. A `0` always shows its figure; a `#` after the point, only up to the last
/// figure that isn't 0. 1.005 under "0.00" gives "1,01". Throws 6 where the value is no finite
/// number.
[[nodiscard]] std::string Mascara(double valor, std::string_view formato = mascara::Importe);

/// The same for any value: Null and the empty text give the empty text, a text that is a number is
/// formatted as that number, any other text comes back as it is.
[[nodiscard]] std::string Mascara(const Valor& valor, std::string_view formato = mascara::Importe);

/// An amount as its text under the mask says it: rounded to the cent.
[[nodiscard]] double EnCentimos(double importe);

/// "0" followed by the text, read as a number: an empty text counts 0. Throws 13 where that is no
/// number, as for a negative amount.
[[nodiscard]] double Importe(std::string_view texto);

}  // namespace services
