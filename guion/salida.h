#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "forms/msflexgrid.h"
#include "forms/widget.h"
#include "headless/mensajes.h"
#include "services/destino_informe.h"
#include "valores/error.h"
#include "valores/fecha.h"
#include "valores/valor.h"

// What is printed, to the blank: texts that don't depend on the engine nor on the machine.

namespace guion {

/// In quotes, with `\"`, `\\` and `\n`.
[[nodiscard]] std::string Entrecomillar(std::string_view texto);
/// Decimal point and as few decimals as 15 significant figures need; never an exponent.
[[nodiscard]] std::string TextoPlano(double numero);
/// Null as `NULL`, Booleans 0 or 1, a moment as `2005-03-15 10:00:00`, texts as they are.
[[nodiscard]] std::string TextoPlano(const services::Valor& valor);

/// The name and what its kind has of the visible properties.
[[nodiscard]] std::string LineaDeWidget(const std::string& nombre, const services::Widget& widget);
/// `n: c0|c1|...`
[[nodiscard]] std::string LineaDeFila(const services::MSFlexGrid& rejilla, int fila);
/// `back/fore|back/fore|...`
[[nodiscard]] std::string LineaDeColores(const services::MSFlexGrid& rejilla, int fila);
/// `aviso "text" FLAGS "title" -> ANSWER`
[[nodiscard]] std::string LineaDeAviso(const headless::AvisoMostrado& aviso);
/// `p1 texto X Y "text" face size bold colour`, `p1 linea X1 Y1 X2 Y2 colour`, `p1 caja X1 Y1 X2 Y2
/// colour filled`, `p1 imagen X Y "file"`.
[[nodiscard]] std::string LineaDeTrazo(int pagina, const services::Trazo& trazo);
/// `v|v|v`
[[nodiscard]] std::string FilaUnida(const std::vector<std::string>& valores);
/// `error NUMBER "description"`
[[nodiscard]] std::string LineaDeError(std::int32_t numero, std::string_view descripcion);
/// `omitido NUMBER "description"`
[[nodiscard]] std::string LineaDeOmision(const services::ErrorEjecucion& fallo);

}  // namespace guion
