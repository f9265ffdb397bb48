#include "salvaguarda/comienzo.h"

#include <vector>

#include "dialecto/formas.h"

namespace salvaguarda {
namespace {

using dialecto::Token;

/// How both statements begin, and no other of the thousands that a commit runs.
constexpr std::string_view kPrincipio = "SELECT DISTINCT ProvFacturas.*";

constexpr std::string_view kCarga =
    "SELECT DISTINCT ProvFacturas.*, ProvConceptos.Descripcion FROM (ProvFacturas INNER JOIN "
    "ProvVencimientos ON (ProvFacturas.Factura = ProvVencimientos.NFactura) AND "
    "(ProvFacturas.NConcepto = ProvVencimientos.NConcepto)) INNER JOIN ProvConceptos ON "
    "ProvFacturas.NConcepto = ProvConceptos.NConcepto WHERE ProvVencimientos.FechaVto >= '' And "
    "ProvVencimientos.FechaVto <= ''  Order By ProvFacturas.Fecha";
constexpr std::string_view kGrabacion =
    "SELECT DISTINCT ProvFacturas.* FROM ProvFacturas INNER JOIN ProvVencimientos ON "
    "(ProvFacturas.NConcepto = ProvVencimientos.NConcepto) AND (ProvFacturas.Factura = "
    "ProvVencimientos.NFactura) WHERE ProvVencimientos.FechaVto >= '' And "
    "ProvVencimientos.FechaVto <= '' Order By ProvFacturas.Fecha";

/// The two dates, in the order in which both statements have them.
Rango RangoDe(const std::vector<Token>& tokens) {
  Rango rango;
  for (const Token& token : tokens) {
    if (token.clase != dialecto::ClaseToken::Texto) continue;
    (rango.Desde.empty() ? rango.Desde : rango.Hasta) = token.texto;
  }
  return rango;
}

}  // namespace

std::optional<Comienzo> Reconocer(std::string_view sentencia) {
  if (!sentencia.starts_with(kPrincipio)) return std::nullopt;
  std::vector<Token> tokens;
  dialecto::Trocear(sentencia, tokens);
  const std::string forma = dialecto::Forma(sentencia, tokens);
  if (forma == kCarga) return Comienzo{Comienzo::Tarea::Carga, RangoDe(tokens)};
  if (forma == kGrabacion) return Comienzo{Comienzo::Tarea::Grabacion, RangoDe(tokens)};
  return std::nullopt;
}

}  // namespace salvaguarda
