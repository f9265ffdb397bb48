#include "headless/medidas_fijas.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>

#include "valores/texto.h"

namespace headless {
namespace {

constexpr double kCentimetrosPorPunto = 2.54 / 72;
constexpr double kCuadratin = 1000;  // the units of the table in the size of a letter

struct Tabla {
  std::array<std::uint16_t, 95> Llanas;   ///< from the blank to the tilde
  std::array<std::uint16_t, 96> Latinas;  ///< from U+00A0 to U+00FF
  std::uint16_t Raya;                     ///< U+2013; the long one, and the three points, are 1000
  std::uint16_t Comilla;                  ///< U+2018, U+2019
  std::uint16_t Comillas;                 ///< U+201C, U+201D
  int Alto;                               ///< of a line
};

// clang-format off
constexpr Tabla kNormal{
        {320, 300, 380, 620, 620, 900, 800, 220, 300, 300, 440, 600, 320, 400, 320, 600, 620,
     620, 620, 620, 620, 620, 620, 620, 620, 620, 320, 320, 600, 600, 600, 540, 820, 680, 740,
     740, 800, 720, 640, 800, 800, 340, 600, 720, 600, 920, 740, 800, 620, 820, 720, 660, 620,
     780, 700, 960, 720, 640, 640, 300, 600, 300, 600, 500, 340, 580, 620, 520, 620, 520, 320,
     540, 660, 300, 300, 620, 300, 940, 660, 560, 620, 580, 440, 520, 380, 680, 520, 780, 560,
     540, 480, 280, 600, 280, 600},
        {320, 300, 620, 620, 620, 620, 600, 520, 420, 740, 420, 360, 600, 400, 740, 440, 400,
     600, 372, 372, 340, 680, 600, 320, 320, 372, 420, 360, 930, 930, 930, 540, 680, 680, 680,
     680, 680, 680, 1260, 740, 720, 720, 720, 720, 340, 340, 340, 340, 800, 740, 800, 800, 800,
     800, 800, 600, 800, 780, 780, 780, 780, 640, 620, 660, 580, 580, 580, 580, 580, 580, 860,
     520, 520, 520, 520, 520, 300, 300, 300, 300, 560, 660, 560, 560, 560, 560, 560, 600, 560,
     680, 680, 680, 680, 540, 620, 540},
    500, 220, 400, 1034 + 290};
constexpr Tabla kNegrita{
        {340, 360, 420, 660, 660, 940, 800, 240, 320, 320, 460, 600, 340, 360, 340, 600, 660,
     660, 660, 660, 660, 660, 660, 660, 660, 660, 340, 340, 600, 600, 600, 660, 820, 720, 720,
     740, 780, 720, 680, 780, 820, 400, 640, 800, 640, 940, 740, 800, 660, 800, 780, 660, 700,
     740, 720, 940, 780, 700, 640, 300, 600, 300, 600, 500, 400, 580, 600, 580, 640, 580, 380,
     580, 680, 360, 340, 660, 340, 1000, 680, 620, 640, 620, 460, 520, 460, 660, 600, 800, 600,
     620, 560, 320, 600, 320, 600},
        {340, 360, 660, 660, 660, 660, 600, 600, 500, 740, 400, 400, 600, 360, 740, 460, 400,
     600, 396, 396, 400, 660, 800, 340, 360, 396, 400, 400, 990, 990, 990, 660, 720, 720, 720,
     720, 720, 720, 1140, 740, 720, 720, 720, 720, 400, 400, 400, 400, 780, 740, 800, 800, 800,
     800, 800, 600, 800, 740, 740, 740, 740, 700, 660, 660, 580, 580, 580, 580, 580, 580, 880,
     580, 580, 580, 580, 580, 360, 360, 360, 360, 620, 680, 620, 620, 620, 620, 620, 600, 620,
     660, 660, 660, 660, 620, 640, 620},
    500, 320, 540, 1093 + 306};
// clang-format on

constexpr const Tabla& De(const services::Letra& letra) {
  return letra.Negrita ? kNegrita : kNormal;
}

int Ancho(const Tabla& tabla, char32_t signo) {
  if (signo >= U' ' && signo <= U'~') return tabla.Llanas[signo - U' '];
  if (signo >= 0xA0 && signo <= 0xFF) return tabla.Latinas[signo - 0xA0];
  switch (signo) {
    case 0x2013:
      return tabla.Raya;
    case 0x2014:
    case 0x2026:
      return 1000;
    case 0x2018:
    case 0x2019:
      return tabla.Comilla;
    case 0x201C:
    case 0x201D:
      return tabla.Comillas;
    default:
      return tabla.Llanas[U'0' - U' '];
  }
}

}  // namespace

double MedidasFijas::Ancho(const services::Letra& letra, std::string_view texto) const {
  int unidades = 0;
  for (const char32_t signo : services::Signos(texto)) {
    unidades += headless::Ancho(De(letra), signo);
  }
  return unidades / kCuadratin * letra.Puntos * kCentimetrosPorPunto;
}

double MedidasFijas::Alto(const services::Letra& letra) const {
  return De(letra).Alto / kCuadratin * letra.Puntos * kCentimetrosPorPunto;
}

}  // namespace headless
