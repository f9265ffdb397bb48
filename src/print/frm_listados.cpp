#include "print/frm_listados.h"

#include <algorithm>
#include <cmath>

#include "forms/escala.h"
#include "print/vista.h"

namespace print {

using services::Diseno;
namespace color = services::color;

namespace {

constexpr int kAncho = 15360;
constexpr int kAlto = 11520;
constexpr int kAltoBarra = 420;
constexpr int kAltoOpciones = 480;
constexpr int kFinDeOpciones = kAltoBarra + kAltoOpciones;

}  // namespace

frmListados::frmListados(services::Escritorio& escritorio, services::Sesion& sesion)
    : Form(escritorio, "frmListados", kAncho, kAlto),
      PicFondo(*this, "PicFondo", {0, 0, kAncho, kAlto}),
      Listado(PicFondo, "Listado", {0, kFinDeOpciones, 0, 0}),
      Barra1(*this, "Barra1", "Impresión Pantalla", {0, 0, kAncho, kAltoBarra}),
      PicOpc(*this, "PicOpc", {0, kAltoBarra, kAncho, kAltoOpciones}),
      Label1(PicOpc, "Label1", " Porcentaje:", Diseno{180, 120, 1200, 240}),
      CbxPor(PicOpc, "CbxPor", {vista::kMitad, vista::kEntera, vista::kEncajar},
             Diseno{1440, 80, 2700, 315}.Tab(1)),
      PicTapa(*this, "PicTapa", {0, kFinDeOpciones, kAncho, 60}),
      DivScroll(*this, "DivScroll", Diseno{0, 0, 375, 0}),
      Scroll(*this, "Scroll", Diseno{0, 0, 255, 0}.Tab(0)),
      PicList(*this, Diseno{0, 0, kAncho, kAlto}.Oculto(), sesion.Imprenta().CrearHoja(1)),
      PicCamPag(*this, "PicCamPag", Diseno{6000, kAltoBarra, 1200, kAltoOpciones}.Oculto()),
      LineArriba(*this, "LineArriba", 0, kAltoBarra, kAncho, kAltoBarra),
      LineAbajo(*this, "LineAbajo", 0, kFinDeOpciones, kAncho, kFinDeOpciones),
      sesion_(sesion) {
  Barra1.Cerrar = [this] { Unload(); };
  CbxPor.Click = [this] { CbxPor_Click(); };
  Scroll.Change = [this] { Scroll_Change(); };
}

void frmListados::Form_Load() {
  if (!sesion_.PantallaDeReferencia()) EscalarPantalla();
  Width = sesion_.AnchoPantalla();
  Height = sesion_.AltoPantalla();
  PicTapa.BackColor = color::ConFoco;
  Colocar();
}

/// Unlike on the main screen, letters grow and shrink with the rest.
void frmListados::EscalarPantalla() {
  const services::Razon sx{sesion_.AnchoPantalla(), sesion_.AnchoReferencia()};
  const services::Razon sy{sesion_.AltoPantalla(), sesion_.AltoReferencia()};
  services::ExigirReferencia(sx, sy);
  for (services::Widget* widget : Widgets()) {
    if (widget == &Barra1) continue;
    services::EscalarLugar(*widget, sx, sy);
    widget->FontSize = sy.De(widget->FontSize());
  }
}

/// What follows the measures of the screen.
void frmListados::Colocar() {
  constexpr int kAire = 90;
  constexpr int kMarco = 60;
  PicFondo.Width = Width;
  PicFondo.Height = Height;
  Barra1.Left = 0;
  for (services::Widget* franja :
       std::initializer_list<services::Widget*>{&Barra1, &PicOpc, &PicTapa}) {
    franja->Width = Width;
  }
  Scroll.Left = Width - kAire - Scroll.Width;
  Scroll.Top = PicOpc.Top + PicOpc.Height + 30;
  Scroll.Height = Height - kAire - Scroll.Top;
  DivScroll.Left = Scroll.Left - kMarco;
  DivScroll.Top = Scroll.Top - kMarco;
  DivScroll.Width = Scroll.Width + 2 * kMarco;
  DivScroll.Height = Scroll.Height + 2 * kMarco;
}

void frmListados::Form_Unload() {
  services::Ref<services::Form> yo(this);
  sesion_.Utiles().SoltarForm(yo);
}

services::HojaInforme& frmListados::NuevaHoja() {
  const PicHoja& primera = PicList(0);
  const Diseno diseno{primera.Left, primera.Top, primera.Width, primera.Height};
  return PicList.Anadir(*this, diseno.Oculto(), sesion_.Imprenta().CrearHoja(PicList.Count() + 1))
      .Hoja();
}

void frmListados::ShowP() {
  CbxPor.ListIndex = 1;
  ShowModal();
}

int frmListados::Vista() const {
  return Height - Barra1.Height - PicOpc.Height - vista::kMargen;
}

void frmListados::CbxPor_Click() {
  const int V = Vista();
  Listado.Cls();
  Listado.Height = 0;
  int primera = 0;
  for (int i = 0; i < PicList.Count(); ++i) {
    const vista::Medida pagina{PicList(i).Width, PicList(i).Height};
    const int alto = vista::AltoEnPantalla(CbxPor.Text(), pagina, V);
    if (alto == 0) continue;
    if (i == 0) primera = alto;
    Listado.Height = Listado.Height + alto + (i > 0 ? vista::kSeparacion : 0);
    Listado.Width = vista::AnchoEnPantalla(pagina, alto);
    Listado.PaintPicture(PicList(i).Hoja().Image(), 0, (primera + vista::kSeparacion) * i,
                         Listado.Width, alto);
  }
  Listado.Top = Arriba();
  Listado.Left = (Width - Listado.Width) / 2;
  Scroll.Min = 0;
  Scroll.Max = vista::Pasos(Listado.Height, V);
  Scroll.Value = 0;
  Scroll.Visible = V < Listado.Height;
}

void frmListados::Scroll_Change() {
  Listado.Top = Arriba() - vista::Desplazado(Scroll.Value, Scroll.Max, Listado.Height, Vista());
  Refresh();
}

/// The window has another size: the same part of the report stays on sight.
void frmListados::Form_Resize() {
  const double donde = Scroll.Max > 0 ? static_cast<double>(Scroll.Value()) / Scroll.Max() : 0;
  Colocar();
  CbxPor_Click();
  Scroll.Value = static_cast<int>(std::lround(donde * std::max(0, Scroll.Max())));
}

/// To the next larger or smaller zoom, as the pages come out.
void frmListados::Form_Zoom(int pasos) {
  const vista::Medida pagina{PicList(0).Width, PicList(0).Height};
  const auto alto = [&](int zoom) {
    const std::string& texto = CbxPor.Elementos()[static_cast<std::size_t>(zoom)];
    return vista::AltoEnPantalla(texto, pagina, Vista());
  };
  std::vector<int> zooms(CbxPor.Elementos().size());
  for (std::size_t i = 0; i < zooms.size(); ++i) zooms[i] = static_cast<int>(i);
  std::stable_sort(zooms.begin(), zooms.end(), [&](int a, int b) { return alto(a) < alto(b); });
  const auto actual = std::find(zooms.begin(), zooms.end(), CbxPor.ListIndex());
  const auto destino = std::clamp<std::ptrdiff_t>(actual - zooms.begin() + pasos, 0,
                                                  static_cast<std::ptrdiff_t>(zooms.size()) - 1);
  CbxPor.ListIndex = zooms[static_cast<std::size_t>(destino)];
}

}  // namespace print
