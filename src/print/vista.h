#pragma once

#include <string_view>

// Where the preview shows its pages: plain arithmetic, in twips.

namespace print::vista {

/// The items of the zoom, in the order of the list. A zoom is known by its text.
inline constexpr const char* kMitad = "50 %";
inline constexpr const char* kEntera = "100 %";
inline constexpr const char* kEncajar = "Encajar en Pantalla";

/// Between two pages.
inline constexpr int kSeparacion = 100;
/// What the view leaves free of the form's height, besides the bars.
inline constexpr int kMargen = 200;

struct Medida {
  int Ancho = 0;
  int Alto = 0;
};

/// The height at which a page is shown in a view so high; 0 for a text that is no zoom.
[[nodiscard]] int AltoEnPantalla(std::string_view zoom, const Medida& pagina, int vista);
/// The width that goes with it: the aspect of the sheet is kept.
[[nodiscard]] int AnchoEnPantalla(const Medida& pagina, int alto);
/// Steps of the scroll bar for so much to show, a tenth of a view each; negative where the view is
/// the higher one by more than a step, 0 where there is no view at all.
[[nodiscard]] int Pasos(int alto, int vista);
/// How far up the pages are moved at a step. At the last one the bottom of what is shown is at the
/// bottom of the view, whatever the rounding of the steps.
[[nodiscard]] int Desplazado(int paso, int pasos, int alto, int vista);

}  // namespace print::vista
