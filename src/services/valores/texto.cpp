#include "valores/texto.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace services {
namespace {

using Codigo = std::uint32_t;

/// A byte that begins no character stands for itself, past the last code point, so that texts
/// with different bytes never become the same text.
constexpr Codigo kBytesSueltos = 0x110000;

constexpr Codigo kPrimeraLatina = 0xC0;
constexpr Codigo kUltimaLatina = 0x17F;

/// The plain letter under each of U+00C0 to U+017F; `~` is ñ and `.` a sign that is its own base.
constexpr std::string_view kBases =
    "aaaaaa.ceeeeiiii.~ooooo.ouuuuy.."
    "aaaaaa.ceeeeiiii.~ooooo.ouuuuy.y"
    "aaaaaaccccccccddddeeeeeeeeeegggg"
    "gggghhhhiiiiiiiiii..jjkk.lllllll"
    "lllnnnnnnn..oooooo..rrrrrrssssss"
    "ssttttttuuuuuuuuuuuuwwyyyzzzzzzs";
static_assert(kBases.size() == kUltimaLatina - kPrimeraLatina + 1);

constexpr unsigned char Byte(char c) {
  return static_cast<unsigned char>(c);
}
constexpr bool Entre(Codigo c, Codigo desde, Codigo hasta) {
  return desde <= c && c <= hasta;
}
constexpr bool EsPar(Codigo c) {
  return c % 2 == 0;
}

struct Caracter {
  Codigo codigo;
  std::size_t bytes;
};

/// How many bytes a character has that begins with `primero`, past ASCII; 0 where none does.
std::size_t BytesAnunciados(unsigned char primero) noexcept {
  if (Entre(primero, 0xC2, 0xDF)) return 2;
  if (Entre(primero, 0xE0, 0xEF)) return 3;
  return Entre(primero, 0xF0, 0xF4) ? 4 : 0;
}

/// False for surrogates, for what is past the last code point and for what a shorter form writes.
bool EsCanonico(Codigo codigo, std::size_t bytes) noexcept {
  constexpr std::array<Codigo, 5> kMinimos = {0, 0, 0x80, 0x800, 0x10000};
  return Entre(codigo, kMinimos[bytes], 0x10FFFF) && !Entre(codigo, 0xD800, 0xDFFF);
}

/// The first character of a text that begins past ASCII.
Caracter Primero(std::string_view texto) noexcept {
  const unsigned char primero = Byte(texto[0]);
  const Caracter suelto{kBytesSueltos + primero, 1};
  const std::size_t bytes = BytesAnunciados(primero);
  if (bytes == 0 || bytes > texto.size()) return suelto;
  Codigo codigo = primero & (0x7FU >> bytes);
  for (std::size_t i = 1; i < bytes; ++i) {
    const Codigo siguiente = Byte(texto[i]);
    if ((siguiente & 0xC0) != 0x80) return suelto;
    codigo = codigo << 6 | (siguiente & 0x3F);
  }
  return EsCanonico(codigo, bytes) ? Caracter{codigo, bytes} : suelto;
}

/// Takes the first character off a text that isn't empty.
Codigo Extraer(std::string_view& texto) noexcept {
  const unsigned char primero = Byte(texto[0]);
  const Caracter caracter = primero < 0x80 ? Caracter{primero, 1} : Primero(texto);
  texto.remove_prefix(caracter.bytes);
  return caracter.codigo;
}

constexpr bool EsMayusculaLatina(Codigo c) noexcept {
  if (Entre(c, 0x139, 0x148) || Entre(c, 0x179, 0x17E)) return !EsPar(c);
  return Entre(c, 0x100, 0x177) && EsPar(c) && c != 0x130 && c != 0x138;
}

constexpr Codigo Minuscula(Codigo c) noexcept {
  if (c < 0x80) return Entre(c, 'A', 'Z') ? c + 0x20 : c;
  if (Entre(c, 0xC0, 0xDE)) return c == 0xD7 ? c : c + 0x20;
  if (c == 0x178) return 0xFF;
  return EsMayusculaLatina(c) ? c + 1 : c;
}

/// Place of a lower-case character in the order of letters. Doubling leaves room for ñ after n.
Codigo Letra(Codigo minuscula) noexcept {
  if (!Entre(minuscula, kPrimeraLatina, kUltimaLatina)) return minuscula * 2;
  const char base = kBases[minuscula - kPrimeraLatina];
  if (base == '~') return 'n' * 2 + 1;
  return (base == '.' ? minuscula : Byte(base)) * 2;
}

int Comparar(Codigo a, Codigo b) noexcept {
  return a < b ? -1 : static_cast<int>(a > b);
}

int CompararSignos(std::string_view a, std::string_view b) noexcept {
  int acentos = 0;
  while (!a.empty() && !b.empty()) {
    const Codigo de_a = Minuscula(Extraer(a));
    const Codigo de_b = Minuscula(Extraer(b));
    if (de_a == de_b) continue;
    const int letras = Comparar(Letra(de_a), Letra(de_b));
    if (letras != 0) return letras;
    if (acentos == 0) acentos = Comparar(de_a, de_b);
  }
  if (a.empty() && b.empty()) return acentos;
  return a.empty() ? -1 : 1;
}

bool EsAscii(char c) noexcept {
  return Byte(c) < 0x80;
}

/// Whether the byte at that place, if there is one, may belong to the character before it.
bool Continua(std::string_view texto, std::size_t i) noexcept {
  return i < texto.size() && (Byte(texto[i]) & 0xC0) == 0x80;
}

/// How many bytes both texts begin with, up to a character's beginning: whatever byte doesn't
/// continue one begins one.
std::size_t LosMismosCaracteres(std::string_view a, std::string_view b) noexcept {
  const std::size_t comunes = std::min(a.size(), b.size());
  std::size_t i = 0;
  while (i < comunes && a[i] == b[i]) ++i;
  while (i > 0 && (Continua(a, i) || Continua(b, i))) --i;
  return i;
}

/// Of each ASCII sign.
constexpr std::array<unsigned char, 0x80> kMinusculas = [] {
  std::array<unsigned char, 0x80> todas{};
  for (Codigo c = 0; c < todas.size(); ++c) todas[c] = static_cast<unsigned char>(Minuscula(c));
  return todas;
}();

}  // namespace

std::size_t Longitud(std::string_view texto) {
  std::size_t cuantos = 0;
  for (; !texto.empty(); ++cuantos) Extraer(texto);
  return cuantos;
}

std::string Izquierda(std::string_view texto, std::size_t cuantos) {
  std::string_view resto = texto;
  for (; cuantos > 0 && !resto.empty(); --cuantos) Extraer(resto);
  return std::string(texto.substr(0, texto.size() - resto.size()));
}

std::string_view Trim(std::string_view texto) {
  const std::size_t desde = texto.find_first_not_of(' ');
  if (desde == std::string_view::npos) return {};
  return texto.substr(desde, texto.find_last_not_of(' ') - desde + 1);
}

std::u32string Signos(std::string_view texto) {
  constexpr char32_t kNinguno = 0xFFFD;
  std::u32string signos;
  signos.reserve(texto.size());
  while (!texto.empty()) {
    const Codigo codigo = Extraer(texto);
    signos += codigo < kBytesSueltos ? static_cast<char32_t>(codigo) : kNinguno;
  }
  return signos;
}

std::string EnUnaLinea(std::string_view texto) {
  std::string linea(texto);
  for (char& signo : linea) {
    if ((signo >= 0 && signo < ' ') || signo == 0x7F) signo = ' ';
  }
  return linea;
}

// Names begin alike, and keys are ASCII: a letter is then a byte, and has no accent.
int CompararTexto(std::string_view a, std::string_view b) noexcept {
  const std::size_t comunes = std::min(a.size(), b.size());
  std::size_t i = LosMismosCaracteres(a, b);
  for (; i < comunes && EsAscii(a[i]) && EsAscii(b[i]); ++i) {
    const int letras = Comparar(kMinusculas[Byte(a[i])], kMinusculas[Byte(b[i])]);
    if (letras != 0) return letras;
  }
  a.remove_prefix(i);
  b.remove_prefix(i);
  return CompararSignos(a, b);
}

}  // namespace services
