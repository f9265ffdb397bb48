#include "print/frm_listados.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <optional>
#include <vector>

#include "forms/escala.h"

namespace print {

using services::Diseno;
namespace color = services::color;

namespace {

constexpr int kAnchoDeListados = 15360;
constexpr int kAltoDeListados = 11520;
constexpr int kAltoBarra = 420;
constexpr int kAltoOpciones = 480;
constexpr int kFinDeOpciones = kAltoBarra + kAltoOpciones;

}  // namespace

frmListados::frmListados(services::Escritorio& escritorio, services::Sesion& sesion)
    : Form(escritorio, "frmListados", kAnchoDeListados, kAltoDeListados),
      PicFondo(*this, "PicFondo", {0, 0, kAnchoDeListados, kAltoDeListados}),
      Listado(PicFondo, "Listado", {0, kFinDeOpciones, 0, 0}),
      Barra1(*this, "Barra1", "Impresión Pantalla", {0, 0, kAnchoDeListados, kAltoBarra}),
      PicOpc(*this, "PicOpc", {0, kAltoBarra, kAnchoDeListados, kAltoOpciones}),
      Label1(PicOpc, "Label1", " Porcentaje:", Diseno{180, 120, 1200, 240}),
      CbxPor(PicOpc, "CbxPor", {vista::kMitad, vista::kEntera, vista::kEncajar},
             Diseno{1440, 80, 2700, 315}.Tab(1)),
      PicTapa(*this, "PicTapa", {0, kFinDeOpciones, kAnchoDeListados, 60}),
      DivScroll(*this, "DivScroll", Diseno{0, 0, 375, 0}),
      Scroll(*this, "Scroll", Diseno{0, 0, 255, 0}.Tab(0)),
      PicList(*this, Diseno{0, 0, kAnchoDeListados, kAltoDeListados}.Oculto(),
              sesion.Imprenta().CrearHoja(1)),
      PicCamPag(*this, "PicCamPag", Diseno{6000, kAltoBarra, 1200, kAltoOpciones}.Oculto()),
      LineArriba(*this, "LineArriba", 0, kAltoBarra, kAnchoDeListados, kAltoBarra),
      LineAbajo(*this, "LineAbajo", 0, kFinDeOpciones, kAnchoDeListados, kFinDeOpciones),
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
    widget->FontSize = std::trunc(widget->FontSize * sy.Real / sy.Referencia);
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
  return std::max(0, Height - Barra1.Height - PicOpc.Height - vista::kMargen);
}

/// The bar comes before the place of the pages: its new bounds may move them once more.
void frmListados::CbxPor_Click() {
  const int V = Vista();
  const int alto = PintarPaginas();
  Listado.Height = alto;
  Scroll.Min = 0;
  Scroll.Max = vista::Pasos(alto, V);
  Scroll.Value = 0;
  Scroll.Visible = V < alto;
  Listado.Top = Arriba();
  Listado.Left = (Width - Listado.Width) / 2;
}

/// Paints every page as large as the zoom tells, and tells how high they are together: 0 for a text
/// that is none, which leaves the panel empty.
int frmListados::PintarPaginas() {
  Listado.Cls();
  int hasta = 0;
  int primera = 0;
  for (int i = 0; i < PicList.Count(); ++i) {
    const vista::Medida pagina = MedidaDe(i);
    const std::optional<int> alto = vista::AltoEnPantalla(CbxPor.Text(), pagina, Vista());
    if (!alto) return 0;
    if (i == 0) primera = *alto;
    hasta += *alto + (i > 0 ? vista::kSeparacion : 0);
    Listado.Width = vista::AnchoEnPantalla(pagina, *alto);
    Listado.PaintPicture(PicList(i).Hoja().Image(), 0, (primera + vista::kSeparacion) * i,
                         Listado.Width, *alto);
  }
  return hasta;
}

vista::Medida frmListados::MedidaDe(int pagina) const {
  return {PicList(pagina).Width, PicList(pagina).Height};
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
  std::vector<int> altos;
  for (const std::string& zoom : CbxPor.Elementos()) {
    altos.push_back(vista::AltoEnPantalla(zoom, MedidaDe(0), Vista()).value_or(0));
  }
  CbxPor.ListIndex = vista::Siguiente(altos, CbxPor.ListIndex, pasos);
}

}  // namespace print
