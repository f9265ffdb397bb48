#include "valores/numero.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <utility>

#include "valores/error.h"
#include "valores/texto.h"

namespace services {
namespace {

/// Figures of a Double that count: what lies past them is noise of its binary form.
constexpr int kCifras = 15;

/// What was read at the start of a text and where it ends: at the start itself where there is no
/// number. Infinite where the number doesn't fit a Double.
struct Lectura {
  double valor;
  const char* fin;
};

constexpr bool EsBlanco(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}

std::string_view SinBlancosAlrededor(std::string_view texto) {
  while (!texto.empty() && EsBlanco(texto.front())) texto.remove_prefix(1);
  while (!texto.empty() && EsBlanco(texto.back())) texto.remove_suffix(1);
  return texto;
}

/// Of a number that fits no Double: whether it is too small for one, and not too large.
bool EsDiminuto(std::string_view numero) {
  const std::size_t marca = std::min(numero.find_first_of("eE"), numero.size());
  const std::string_view mantisa = numero.substr(0, marca);
  const std::string_view exponente = numero.substr(marca);
  const auto punto = static_cast<long>(std::min(mantisa.find('.'), mantisa.size()));
  const auto primera = static_cast<long>(mantisa.find_first_of("123456789"));
  const std::size_t cifras = std::min(exponente.find_first_of("0123456789"), exponente.size());
  const bool negativo = exponente.find('-') != std::string_view::npos;
  int magnitud = 0;
  const auto leido =
      std::from_chars(exponente.data() + cifras, exponente.data() + exponente.size(), magnitud);
  if (leido.ec == std::errc::result_out_of_range) return negativo;
  return punto - primera + (negativo ? -long{magnitud} : long{magnitud}) < 0;
}

/// Hexadecimal or octal figures after `&H` or `&O`, in the narrowest of 16, 32 and 64 bits, whose
/// upper half is negative.
Lectura LeerConBase(std::string_view texto) {
  const char* const inicio = texto.data();
  const char letra = texto.size() > 1 ? static_cast<char>(texto[1] | 0x20) : '\0';
  if (letra != 'h' && letra != 'o') return {0, inicio};
  std::uint64_t bits = 0;
  const auto leido =
      std::from_chars(inicio + 2, inicio + texto.size(), bits, letra == 'h' ? 16 : 8);
  if (leido.ec == std::errc::invalid_argument) return {0, inicio};
  if (leido.ec != std::errc()) return {std::numeric_limits<double>::infinity(), leido.ptr};
  if (bits <= 0xFFFF) return {static_cast<double>(static_cast<std::int16_t>(bits)), leido.ptr};
  if (bits <= 0xFFFFFFFF) return {static_cast<double>(static_cast<std::int32_t>(bits)), leido.ptr};
  return {static_cast<double>(static_cast<std::int64_t>(bits)), leido.ptr};
}

Lectura LeerDecimal(std::string_view texto) {
  const char* const inicio = texto.data();
  const bool negativo = texto.starts_with('-');
  if (negativo || texto.starts_with('+')) texto.remove_prefix(1);
  // The library would take a second sign and the words for what is no number.
  if (texto.empty() || !(EsCifra(texto[0]) || texto[0] == '.')) return {0, inicio};
  double valor = 0;
  const auto leido = std::from_chars(texto.data(), texto.data() + texto.size(), valor);
  if (leido.ec == std::errc::invalid_argument) return {0, inicio};
  if (leido.ec == std::errc::result_out_of_range) {
    const auto largo = static_cast<std::size_t>(leido.ptr - texto.data());
    valor = EsDiminuto(texto.substr(0, largo)) ? 0 : std::numeric_limits<double>::infinity();
  }
  return {negativo ? -valor : valor, leido.ptr};
}

Lectura LeerComienzo(std::string_view texto) {
  return texto.starts_with('&') ? LeerConBase(texto) : LeerDecimal(texto);
}

/// The text without its thousands and with a decimal point; empty where a point stands elsewhere
/// than among the figures of the whole part.
std::string ConPuntoDecimal(std::string_view texto) {
  std::string salida;
  bool entera = true;
  for (const char c : texto) {
    if (c == '.') {
      if (!entera || salida.empty() || !EsCifra(salida.back())) return {};
      continue;
    }
    const bool signo_inicial = salida.empty() && (c == '-' || c == '+');
    entera = entera && (EsCifra(c) || signo_inicial);
    salida += c == ',' ? '.' : c;
  }
  return salida;
}

/// What `Leer` gives, for a text of few figures with their marks, as an amount is written: a whole
/// number divided by a power of ten, which both fit a Double.
std::optional<double> LeerPocasCifras(std::string_view texto) {
  if (texto.empty() || texto.size() > kCifras || !EsCifra(texto[0])) return std::nullopt;
  std::int64_t unidades = 0;
  std::int64_t divisor = 0;  // 0 in the whole part
  for (const char c : texto) {
    if (EsCifra(c)) {
      unidades = unidades * 10 + (c - '0');
      divisor *= 10;
    } else if (c == ',' && divisor == 0) {
      divisor = 1;
    } else if (c != '.' || divisor > 0) {
      return std::nullopt;
    }
  }
  return static_cast<double>(unidades) / static_cast<double>(std::max<std::int64_t>(divisor, 1));
}

/// The number of a whole text, infinite where it doesn't fit a Double.
std::optional<double> Leer(std::string_view texto) {
  if (const auto valor = LeerPocasCifras(texto)) return valor;
  texto = SinBlancosAlrededor(texto);
  const std::string numero = texto.starts_with('&') ? std::string(texto) : ConPuntoDecimal(texto);
  const Lectura leido = LeerComienzo(numero);
  if (numero.empty() || leido.fin != numero.data() + numero.size()) return std::nullopt;
  return leido.valor;
}

double Acotado(double valor) {
  if (!std::isfinite(valor)) throw ErrorEjecucion(error::Desbordamiento, "Desbordamiento");
  return valor;
}

/// Figures with the place of the decimal point among them: `enteras` stand before it.
struct Decimal {
  std::string cifras;
  std::size_t enteras;
};

/// The significant figures of `valor`, 0 or more, with at least one before the point.
Decimal CifrasSignificativas(double valor) {
  std::array<char, 32> texto;  // d.dddddddddddddde+xx
  const auto escrito =
      std::to_chars(texto.begin(), texto.end(), valor, std::chars_format::scientific, kCifras - 1);
  const char* const signo = texto.begin() + kCifras + 2;
  int exponente = 0;
  std::from_chars(signo + 1, escrito.ptr, exponente);
  const auto ceros = static_cast<std::size_t>(exponente);
  std::string cifras(1, texto[0]);
  cifras.append(texto.begin() + 2, kCifras - 1);
  if (*signo == '+') return {std::move(cifras), ceros + 1};
  cifras.insert(0, ceros, '0');
  return {std::move(cifras), 1};
}

void SumarUnoALaUltima(Decimal& numero) {
  std::size_t i = numero.cifras.size();
  while (i > 0 && numero.cifras[i - 1] == '9') numero.cifras[--i] = '0';
  if (i > 0) {
    ++numero.cifras[i - 1];
    return;
  }
  numero.cifras.insert(0, 1, '1');
  ++numero.enteras;
}

constexpr std::array<double, 5> kPotencias = {1, 10, 100, 1'000, 10'000};
/// Below it a number with the decimals that `kPotencias` reaches has fewer figures than count.
constexpr double kDeSobra = 1e10;

/// The figures of a number that has at most so many decimals, which then has them all: an amount is
/// one of whole cents, and they are had without looking for them.
std::optional<Decimal> CifrasExactas(double valor, int decimales) {
  const auto lugares = static_cast<std::size_t>(decimales);
  if (lugares >= kPotencias.size() || !(valor < kDeSobra)) return std::nullopt;
  const double unidades = std::round(valor * kPotencias[lugares]);
  if (unidades / kPotencias[lugares] != valor) return std::nullopt;
  std::array<char, 24> texto;
  const auto escrito =
      std::to_chars(texto.begin(), texto.end(), static_cast<std::int64_t>(unidades));
  std::string cifras(texto.begin(), escrito.ptr);
  if (cifras.size() <= lugares) cifras.insert(0, lugares + 1 - cifras.size(), '0');
  const std::size_t enteras = cifras.size() - lugares;
  return Decimal{std::move(cifras), enteras};
}

}  // namespace

double Numero(std::string_view texto) {
  const std::optional<double> valor = Leer(texto);
  if (!valor) throw ErrorEjecucion(error::TiposNoCoinciden, "No coinciden los tipos");
  return Acotado(*valor);
}

std::optional<double> LeerNumero(std::string_view texto) {
  const std::optional<double> valor = Leer(texto);
  return valor && std::isfinite(*valor) ? valor : std::nullopt;
}

bool EsNumero(std::string_view texto) {
  return LeerNumero(texto).has_value();
}

std::optional<int> EnteroDeCifras(std::string_view texto) {
  int valor = 0;
  const auto [fin, fallo] = std::from_chars(texto.data(), texto.data() + texto.size(), valor);
  const bool entero = fallo == std::errc() && fin == texto.data() + texto.size() && texto[0] != '-';
  return entero ? std::optional(valor) : std::nullopt;
}

double Val(std::string_view texto) {
  std::string seguido(texto);
  std::erase_if(seguido, EsBlanco);
  return Acotado(LeerComienzo(seguido).valor);
}

std::string TextoDeNumero(double valor) {
  std::array<char, 32> texto;
  // Adding 0 takes the sign off a negative zero.
  const auto escrito = std::to_chars(texto.begin(), texto.end(), Acotado(valor) + 0.0,
                                     std::chars_format::general, kCifras);
  std::replace(texto.begin(), escrito.ptr, '.', ',');
  std::replace(texto.begin(), escrito.ptr, 'e', 'E');
  return {texto.begin(), escrito.ptr};
}

std::string Redondeado(double valor, int decimales) {
  const double absoluto = std::abs(Acotado(valor));
  auto exacto = CifrasExactas(absoluto, decimales);
  Decimal numero = exacto ? std::move(*exacto) : CifrasSignificativas(absoluto);
  const std::size_t quedan = numero.enteras + static_cast<std::size_t>(decimales);
  const bool sube = quedan < numero.cifras.size() && numero.cifras[quedan] >= '5';
  numero.cifras.resize(quedan, '0');
  if (sube) SumarUnoALaUltima(numero);
  const bool es_cero = numero.cifras.find_first_not_of('0') == std::string::npos;
  if (decimales > 0) numero.cifras.insert(numero.enteras, 1, '.');
  if (valor < 0 && !es_cero) numero.cifras.insert(0, 1, '-');
  return std::move(numero.cifras);
}

}  // namespace services
