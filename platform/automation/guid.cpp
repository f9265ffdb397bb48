#include <array>
#include <charconv>
#include <cstddef>

#include "automation/registro_clases.h"

namespace automation {
namespace {

constexpr std::string_view kModelo = "{00000000-0000-0000-0000-000000000000}";
/// Where each stretch of figures starts, and how many bytes it tells.
struct Tramo {
  std::size_t desde;
  std::size_t bytes;
};
constexpr std::array<Tramo, 5> kTramos = {{{1, 4}, {10, 2}, {15, 2}, {20, 2}, {25, 6}}};

using Bytes = std::array<std::uint8_t, 16>;

template <class Entero>
std::uint8_t Byte(Entero valor, int desplazamiento) {
  return static_cast<std::uint8_t>(valor >> desplazamiento);
}

Bytes BytesDe(const services::GUID& g) {
  Bytes bytes = {Byte(g.Data1, 24), Byte(g.Data1, 16), Byte(g.Data1, 8), Byte(g.Data1, 0),
                 Byte(g.Data2, 8),  Byte(g.Data2, 0),  Byte(g.Data3, 8), Byte(g.Data3, 0)};
  for (std::size_t i = 0; i < 8; ++i) bytes[8 + i] = g.Data4[i];
  return bytes;
}

services::GUID GuidDe(const Bytes& b) {
  services::GUID g{};
  g.Data1 = std::uint32_t{b[0]} << 24 | std::uint32_t{b[1]} << 16 | std::uint32_t{b[2]} << 8 | b[3];
  g.Data2 = static_cast<std::uint16_t>(b[4] << 8 | b[5]);
  g.Data3 = static_cast<std::uint16_t>(b[6] << 8 | b[7]);
  for (std::size_t i = 0; i < 8; ++i) g.Data4[i] = b[8 + i];
  return g;
}

bool TieneLosSignos(std::string_view texto) {
  if (texto.size() != kModelo.size()) return false;
  for (std::size_t i = 0; i < kModelo.size(); ++i) {
    if (kModelo[i] != '0' && texto[i] != kModelo[i]) return false;
  }
  return true;
}

}  // namespace

std::string TextoDeGuid(const services::GUID& guid) {
  constexpr std::string_view kCifras = "0123456789ABCDEF";
  const Bytes bytes = BytesDe(guid);
  std::string texto(kModelo);
  std::size_t siguiente = 0;
  for (const Tramo& tramo : kTramos) {
    for (std::size_t i = 0; i < tramo.bytes; ++i, ++siguiente) {
      texto[tramo.desde + 2 * i] = kCifras[bytes[siguiente] >> 4];
      texto[tramo.desde + 2 * i + 1] = kCifras[bytes[siguiente] & 0xF];
    }
  }
  return texto;
}

std::optional<services::GUID> LeerGuid(std::string_view texto) {
  if (!TieneLosSignos(texto)) return std::nullopt;
  Bytes bytes{};
  std::size_t siguiente = 0;
  for (const Tramo& tramo : kTramos) {
    for (std::size_t i = 0; i < tramo.bytes; ++i, ++siguiente) {
      const char* cifras = texto.data() + tramo.desde + 2 * i;
      const auto leido = std::from_chars(cifras, cifras + 2, bytes[siguiente], 16);
      if (leido.ptr != cifras + 2) return std::nullopt;
    }
  }
  return GuidDe(bytes);
}

}  // namespace automation
