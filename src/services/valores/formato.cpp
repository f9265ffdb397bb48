#include "valores/formato.h"

#include <algorithm>

#include "valores/numero.h"

namespace services {
namespace {

/// What a mask asks for: how many figures at least on each side of the point, how many decimals at
/// most, and whether thousands are marked.
struct Plantilla {
  std::size_t enteras;
  std::size_t decimales_fijos;
  std::size_t decimales;
  bool miles;
};

Plantilla LeerPlantilla(std::string_view formato) {
  const std::size_t punto = std::min(formato.find('.'), formato.size());
  const std::string_view entera = formato.substr(0, punto);
  const std::string_view decimal = formato.substr(std::min(punto + 1, formato.size()));
  const std::string_view fija = entera.substr(std::min(entera.find('0'), entera.size()));
  const auto comas = static_cast<std::size_t>(std::count(fija.begin(), fija.end(), ','));
  const bool miles = entera.find(',') != std::string_view::npos;
  return {fija.size() - comas, decimal.find_last_of('0') + 1, decimal.size(), miles};
}

void AnexarEntera(std::string& salida, std::string_view cifras, const Plantilla& plantilla) {
  if (cifras == "0") cifras = {};
  const std::size_t total = std::max(cifras.size(), plantilla.enteras);
  const std::size_t ceros = total - cifras.size();
  for (std::size_t i = 0; i < total; ++i) {
    if (plantilla.miles && i > 0 && (total - i) % 3 == 0) salida += '.';
    salida += i < ceros ? '0' : cifras[i - ceros];
  }
}

void AnexarDecimales(std::string& salida, std::string_view cifras, const Plantilla& plantilla) {
  while (cifras.size() > plantilla.decimales_fijos && cifras.back() == '0') cifras.remove_suffix(1);
  if (cifras.empty()) return;
  salida += ',';
  salida += cifras;
}

}  // namespace

std::string Mascara(double valor, std::string_view formato) {
  const Plantilla plantilla = LeerPlantilla(formato);
  const std::string redondeado = Redondeado(valor, static_cast<int>(plantilla.decimales));
  std::string_view cifras = redondeado;
  std::string salida;
  if (cifras.starts_with('-')) {
    salida += '-';
    cifras.remove_prefix(1);
  }
  const std::size_t punto = std::min(cifras.find('.'), cifras.size());
  AnexarEntera(salida, cifras.substr(0, punto), plantilla);
  AnexarDecimales(salida, cifras.substr(std::min(punto + 1, cifras.size())), plantilla);
  return salida;
}

std::string Mascara(const Valor& valor, std::string_view formato) {
  if (const auto* texto = valor.Si<std::string>()) {
    const std::optional<double> numero = LeerNumero(*texto);
    return numero ? Mascara(*numero, formato) : *texto;
  }
  if (valor.EsNulo() || valor.Si<FechaHora>() != nullptr) return valor.Texto();
  return Mascara(valor.Numero(), formato);
}

double EnCentimos(double importe) {
  return Numero(Mascara(importe));
}

double Importe(std::string_view texto) {
  return Numero(std::string("0").append(texto));
}

}  // namespace services
