#include "print/frm_busco_impresora.h"

#include <algorithm>
#include <cmath>

#include "forms/entrada.h"

namespace print {

using services::Diseno;
namespace tecla = services::tecla;

namespace {

constexpr int kAnchoDeEleccion = 11400;
constexpr int kAltoDeEleccion = 3900;
constexpr int kAnchoDestino = 2000;
/// Destinations on sight after the first one.
constexpr int kResto = 4;
constexpr int kMargenNombre = 65;

constexpr Diseno DeIcono() {
  return {0, 60, kAnchoDestino, 900};
}
/// As many lines as the longest name of a printer takes.
constexpr Diseno DeNombre() {
  return Diseno{kMargenNombre, 1020, kAnchoDestino - 2 * kMargenNombre, 1080}.Tab(0).ConTeclado();
}

}  // namespace

frmBuscoImpresora::frmBuscoImpresora(services::Escritorio& escritorio, services::Sesion& sesion)
    : Form(escritorio, "frmBuscoImpresora", kAnchoDeEleccion, kAltoDeEleccion),
      Barra1(*this, "Barra1", "Selección Impresora", {0, 0, kAnchoDeEleccion, 420}),
      PicImpre(*this, "PicImpre", {700, 600, (kResto + 1) * kAnchoDestino, 2220}),
      PicImpresoras(PicImpre, "PicImpresoras", {0, 0, (kResto + 1) * kAnchoDestino, 2220}),
      Img(PicImpresoras, "Img", "", DeIcono()),
      LblImpre(PicImpresoras, "LblImpre", "", DeNombre()),
      ImgPantalla(*this, "ImgPantalla", "pantalla", Diseno{60, 3240, 480, 480}.Oculto()),
      ImgPantDesactiva(*this, "ImgPantDesactiva", "pantalla tenue",
                       Diseno{600, 3240, 480, 480}.Oculto()),
      ImgImpresora(*this, "ImgImpresora", "impresora", Diseno{1140, 3240, 480, 480}.Oculto()),
      ImgImprDesactiva(*this, "ImgImprDesactiva", "impresora tenue",
                       Diseno{1680, 3240, 480, 480}.Oculto()),
      ImgIzq(*this, "ImgIzq", "izquierda", {120, 900, 480, 480}),
      ImgDer(*this, "ImgDer", "derecha", {10800, 900, 480, 480}),
      Boton1(*this, "Boton1", "Aceptar", Diseno{7920, 3180, 1560, 480}.Tab(1)),
      Boton2(*this, "Boton2", "Cancelar", Diseno{9660, 3180, 1560, 480}.Tab(2)),
      sesion_(sesion) {
  Barra1.Cerrar = [this] { Unload(); };
  Barra1.Pulsada = [this](const services::Raton& raton) { Barra1_Pulsada(raton); };
  Barra1.Movida = [this](const services::Raton& raton) { Barra1_Movida(raton); };
  Barra1.Soltada = [this](const services::Raton&) { Barra1_Soltada(); };
  ImgIzq.Click = [this] { ImgIzq_Click(); };
  ImgDer.Click = [this] { ImgDer_Click(); };
  Boton1.Click = [this] { Boton1_Click(); };
  Boton2.Click = [this] { Unload(); };
  Boton2.Cancela = true;
  UnirDestino(0);
}

void frmBuscoImpresora::Form_Load() {
  sesion_.Imprenta().Impresora = kNingunDestino;
  CargarDestinos();
  MostrarDestinos();
  ElegirDestino(0);
}

void frmBuscoImpresora::Form_Unload() {
  services::Ref<services::Form> yo(this);
  sesion_.Utiles().SoltarForm(yo);
}

void frmBuscoImpresora::CargarDestinos() {
  LblImpre(0).Caption = sesion_.TextoDe("Pantalla");
  Img(0).Picture = ImgPantalla.Picture;
  for (const std::string& impresora : sesion_.Imprenta().Printers()) {
    LblImpre.Anadir(PicImpresoras, "LblImpre", impresora, DeNombre());
    Img.Anadir(PicImpresoras, "Img", ImgImprDesactiva.Picture(), DeIcono());
    UnirDestino(Img.UBound());
  }
}

void frmBuscoImpresora::UnirDestino(int destino) {
  services::Label& nombre = LblImpre(destino);
  Img(destino).Click = nombre.Click = [this, destino] { ElegirDestino(destino); };
  nombre.KeyDown = [this](int& codigo) { LblImpre_KeyDown(codigo); };
  nombre.KeyPress = [this](int& codigo) {
    if (codigo == tecla::Intro) Boton1_Click();
  };
}

bool frmBuscoImpresora::SeVe(int destino) const {
  return destino >= PrimeraVisible_ && destino <= PrimeraVisible_ + kResto;
}

/// The strip keeps the focus: it moves on to what comes to sight before what has it goes.
void frmBuscoImpresora::MostrarDestinos() {
  int x = 0;
  for (int destino = 0; destino < Img.Count(); ++destino) {
    if (!SeVe(destino)) continue;
    Img(destino).Left = x;
    LblImpre(destino).Left = x + kMargenNombre;
    Img(destino).Visible = true;
    LblImpre(destino).Visible = true;
    x += Img(destino).Width;
  }
  if (const int conFoco = ConFoco(); conFoco >= 0 && !SeVe(conFoco)) LblImpre(Parada()).SetFocus();
  for (int destino = 0; destino < Img.Count(); ++destino) {
    if (SeVe(destino)) continue;
    Img(destino).Visible = false;
    LblImpre(destino).Visible = false;
  }
  UnaSolaParada();
}

void frmBuscoImpresora::ElegirDestino(int elegido) {
  for (int destino = 0; destino < Img.Count(); ++destino) {
    const bool es = destino == elegido;
    if (destino == 0) {
      Img(destino).Picture = es ? ImgPantalla.Picture : ImgPantDesactiva.Picture;
    } else {
      Img(destino).Picture = es ? ImgImpresora.Picture : ImgImprDesactiva.Picture;
    }
    Img(destino).Tag = es ? "1" : "";
  }
  UnaSolaParada();
  if (ConFoco() >= 0) LblImpre(elegido).SetFocus();
}

/// -1 for none.
int frmBuscoImpresora::ConFoco() const {
  for (int destino = 0; destino < Img.Count(); ++destino) {
    if (LblImpre(destino).TieneFoco()) return destino;
  }
  return -1;
}

/// What is chosen or, where that is out of sight, the first destination that isn't.
int frmBuscoImpresora::Parada() const {
  const int elegido = Elegido();
  return elegido >= 0 && SeVe(elegido) ? elegido : PrimeraVisible_;
}

void frmBuscoImpresora::UnaSolaParada() {
  const int parada = Parada();
  for (int destino = 0; destino < Img.Count(); ++destino) {
    LblImpre(destino).TabStop = destino == parada;
  }
}

int frmBuscoImpresora::Elegido() const {
  for (int destino = 0; destino < Img.Count(); ++destino) {
    if (Img(destino).Tag == "1") return destino;
  }
  return -1;
}

/// The strip runs past full: at its last position fewer destinations show than there is room for.
void frmBuscoImpresora::ImgDer_Click() {
  if (PrimeraVisible_ + kResto > Img.Count()) return;
  ++PrimeraVisible_;
  MostrarDestinos();
}

void frmBuscoImpresora::ImgIzq_Click() {
  if (PrimeraVisible_ == 0) return;
  --PrimeraVisible_;
  MostrarDestinos();
}

void frmBuscoImpresora::Boton1_Click() {
  if (const int elegido = Elegido(); elegido >= 0) {
    sesion_.Imprenta().Impresora = LblImpre(elegido).Caption;
  }
  services::Widget::Disparar(Barra1.Cerrar);
}

/// The arrows go on from what is chosen, and bring what they choose to sight.
void frmBuscoImpresora::LblImpre_KeyDown(int codigo) {
  const int destino = Elegido();
  switch (codigo) {
    case tecla::Izquierda:
    case tecla::Arriba:
      return LlevarA(destino - 1);
    case tecla::Derecha:
    case tecla::Abajo:
      return LlevarA(destino + 1);
    case tecla::Inicio:
      return LlevarA(0);
    case tecla::Fin:
      return LlevarA(Img.UBound());
    default:
      return;
  }
}

void frmBuscoImpresora::LlevarA(int destino) {
  destino = std::clamp(destino, 0, Img.UBound());
  PrimeraVisible_ =
      static_cast<std::int16_t>(std::clamp<int>(PrimeraVisible_, destino - kResto, destino));
  ElegirDestino(destino);
  MostrarDestinos();
  LblImpre(destino).SetFocus();
}

void frmBuscoImpresora::Barra1_Pulsada(const services::Raton& raton) {
  if (raton.Boton != services::Raton::Izquierdo || WindowState() != 0) return;
  arrastrando_ = true;
  x_ = raton.X;
  y_ = raton.Y;
  MousePointer = services::puntero::Mover;
}

void frmBuscoImpresora::Barra1_Movida(const services::Raton& raton) {
  if (!arrastrando_) return;
  Left = Left + static_cast<int>(std::lround(raton.X - x_));
  Top = Top + static_cast<int>(std::lround(raton.Y - y_));
}

void frmBuscoImpresora::Barra1_Soltada() {
  arrastrando_ = false;
  MousePointer = services::puntero::Normal;
}

}  // namespace print
