#include "shell/frm_tesvara_gastos.h"

#include "list/pagos_tecleados.h"
#include "shell/datos_comunes.h"
#include "shell/escala.h"
#include "store/carga.h"
#include "store/grabacion.h"
#include "store/vaciado.h"

namespace shell {
namespace {

using services::Diseno;
using services::PictureBox;

constexpr int kAncho = 15360;
constexpr int kAlto = 11520;
constexpr int kAltoBarra = 420;

/// The row of buttons under the list, by its place from the left.
Diseno EnBotonera(PictureBox& panel, int lugar, bool enUso) {
  return {.Left = 180 + lugar * 1700,
          .Top = 9000,
          .Width = 1560,
          .Height = 480,
          .TabIndex = 7 + lugar,
          .Contenedor = &panel,
          .Enabled = enUso,
          .FontSize = 10};
}

Diseno Oculto(PictureBox& panel) {
  return {.Width = 600, .Height = 285, .Contenedor = &panel, .Visible = false};
}

}  // namespace

FrmTesvaraGastos::FrmTesvaraGastos(DatosComunes& datos)
    : Form(datos.Escritorio(), "FrmTesvaraGastos", kAncho, kAlto),
      datos_(datos),
      Barra1(*this, "Barra1", "Tesvara de Pagos", {.Width = kAncho, .Height = kAltoBarra}),
      PicPagos(*this, "PicPagos",
               {.Top = kAltoBarra, .Width = kAncho, .Height = kAlto - kAltoBarra}),
      PicNuevo(*this, "PicNuevo", {.Width = 11000, .Height = 8000, .Visible = false}),
      PicTexto(*this, "PicTexto", {.Width = 5400, .Height = 1500, .Visible = false}),
      LblTitulo(*this, "LblTitulo", "Grabando  ....",
                {.Left = 300,
                 .Top = 240,
                 .Width = 4800,
                 .Height = 285,
                 .Contenedor = &PicTexto,
                 .FontSize = 10}),
      ProgressBar(*this, "ProgressBar",
                  {.Left = 300, .Top = 720, .Width = 4800, .Height = 360, .Contenedor = &PicTexto}),
      TxtNConcepto(*this, "TxtNConcepto", Oculto(PicNuevo)),
      TxtBusco(*this, "TxtBusco", Oculto(PicNuevo)),
      BtnCancelar(
          *this, "BtnCancelar", "Cancelar",
          {.Left = 9200, .Top = 7300, .Width = 1560, .Height = 480, .Contenedor = &PicNuevo}),
      Rango(*this, PicPagos, datos, BtnCancelar, *this),
      Rejilla(*this, PicPagos, datos),
      BotonNuevo(*this, "BotonNuevo", "Nuevo", EnBotonera(PicPagos, 0, false)),
      BotonModificar(*this, "BotonModificar", "Modificar", EnBotonera(PicPagos, 1, false)),
      Edicion(*this, PicPagos, datos, Rejilla, PicNuevo, BotonModificar),
      Lista(*this, PicPagos, datos, Rejilla, Edicion, Rango),
      Borrado(*this, EnBotonera(PicPagos, 2, true), datos, Rejilla, Edicion, Lista, PicNuevo),
      BotonAceptar(*this, "BotonAceptar", "Grabar", EnBotonera(PicPagos, 3, true)),
      BotonCancelar(*this, "BotonCancelar", "Cancelar", EnBotonera(PicPagos, 4, true)),
      BtnAutCaja(*this, "BtnAutCaja", "", EnBotonera(PicPagos, 5, false)),
      ImgImpresora(*this, "ImgImpresora", "impresora",
                   {.Left = 14500,
                    .Top = 9000,
                    .Width = 480,
                    .Height = 480,
                    .Contenedor = &PicPagos,
                    .Enabled = false}) {
  BtnCancelar.TomaFoco = false;
  Barra1.Cerrar = [this] { Barra1_Cerrar(); };
  BotonAceptar.Click = [this] { BotonAceptar_Click(); };
  BotonCancelar.Click = [this] { BotonCancelar_Click(); };
}

FrmTesvaraGastos::~FrmTesvaraGastos() = default;

void FrmTesvaraGastos::Form_Load() {
  const services::Escritorio::Ocupacion ocupacion(Escritorio());
  TxtNConcepto.Text = "";
  TxtBusco.Text = "";
  ImporteCaja = 0;
  if (!datos_.PantallaDeReferencia()) EscalarPantalla();

  BtnCancelar.Tag = "No";
  Rango.PonerMesActual();
  BtnCancelar.Tag = "";
  store::CargarTemporales(datos_, Rango);

  TomarMarco();
  Rejilla.Preparar();
  Rejilla.FilaElegida = false;
  CentrarPaneles();
  Lista.VerTodo();
  Lista.OptFecha.Value = true;
  BtnAutCaja.Caption = "Fra.Autom.Caja";
  Rejilla.CopiarGrip();
}

void FrmTesvaraGastos::Form_Unload() {
  ComprobarCambios();
  if (Modificado && PreguntarSiGuardar("¿Desea guardar los cambios?")) {
    services::Widget::Disparar(BotonAceptar.Click);
  }
  store::VaciarTemporales(datos_.CnTemp());
}

void FrmTesvaraGastos::Form_Terminate() {
  datos_.SoltarPantalla();
}

void FrmTesvaraGastos::RangoCambiado(services::TextBox& campo) {
  ComprobarCambios();
  if (Modificado &&
      PreguntarSiGuardar(
          "Si Modifica las fechas debe grabar los cambios antes. ¿Quiere Grabarlos?")) {
    services::Widget::Disparar(BotonAceptar.Click);
  } else {
    Recargar();
  }
  // Only now: while a commit runs, the tag still tells the range that was loaded.
  campo.Tag = campo.Text();
}

void FrmTesvaraGastos::ComprobarCambios() {
  Modificado = false;
  Modificado = Rejilla.ComprobarCambios();
}

void FrmTesvaraGastos::Recargar() {
  const services::Escritorio::Ocupacion ocupacion(Escritorio());
  store::CargarTemporales(datos_, Rango);
  Lista.CargarGrip();
  Rejilla.CopiarGrip();
}

bool FrmTesvaraGastos::PreguntarSiGuardar(const char* pregunta) {
  return datos_.Aviso().Mostrar(pregunta, services::mensaje::SiNo, "Atención") ==
         services::mensaje::Si;
}

void FrmTesvaraGastos::Barra1_Cerrar() {
  if (!PicNuevo.Visible) Unload();
}

void FrmTesvaraGastos::BotonAceptar_Click() {
  if (PicNuevo.Visible) return;
  Edicion.CerrarEdicionPago();
  ProgressBar.Min = 0;
  ProgressBar.Max = 6;
  ProgressBar.Value = 0;
  PicTexto.Visible = true;
  try {
    Grabar();
  } catch (...) {
    PicTexto.Visible = false;
    throw;
  }
}

void FrmTesvaraGastos::Grabar() {
  const services::Escritorio::Ocupacion ocupacion(Escritorio());
  // A refused amount leaves the panel on the screen, with the bar at 0: that is how users see that
  // nothing was saved.
  if (!list::EscribirPagados(datos_, Rejilla, Lista.OrdenElegido())) return;
  const auto avanzar = [this] { ProgressBar.Value = ProgressBar.Value + 1; };
  avanzar();
  store::GrabarTemporales(datos_, Rango);
  avanzar();
  store::CargarTemporales(datos_, Rango);
  avanzar();
  Lista.CargarGrip();
  avanzar();
  Rejilla.CopiarGrip();
  avanzar();
  BtnCancelar.Tag = "";
  avanzar();
  PicTexto.Visible = false;
}

void FrmTesvaraGastos::BotonCancelar_Click() {
  if (PicNuevo.Visible) return;
  Edicion.CerrarEdicionPago();
  Recargar();
}

void FrmTesvaraGastos::Form_Resize() {
  if (datos_.FrmPrincipal() && datos_.FrmPrincipal()->WindowState() == 1) {
    datos_.FrmPrincipal()->PonerWindowState(0);
  }
}

void FrmTesvaraGastos::Form_Paint() {
  datos_.Repintar(*this);
}

void FrmTesvaraGastos::TomarMarco() {
  const services::Rectangulo marco = datos_.FrmMarco()->Geometria();
  Top = marco.Top;
  Left = marco.Left;
  Width = marco.Width;
  Height = marco.Height;
  Barra1.Width = marco.Width;
  PicPagos.Width = marco.Width;
}

void FrmTesvaraGastos::EscalarPantalla() {
  EscalarControles(*this, datos_.AnchoPantalla(), datos_.AltoPantalla(), datos_.AnchoReferencia(),
                   datos_.AltoReferencia());
  Rejilla.MSFPagos.FontSize = Rejilla.MSFPagos.FontSize - 2;
  for (services::TextBox* campo : {&Rango.TxtFPrevision, &Rango.TxtFPrevisionD}) {
    campo->FontSize = campo->FontSize - 1.5;
    campo->Height = campo->Height - 40;
  }
  Lista.OptFecha.Width = Lista.OptFecha.Width - 130;
  Lista.OptConcepto.Width = Lista.OptConcepto.Width - 50;
  Lista.ChkPagados.Width = Lista.ChkPagados.Width - 100;
}

void FrmTesvaraGastos::CentrarPaneles() {
  for (PictureBox* panel : {&PicNuevo, &PicTexto}) {
    panel->Left = (Width - panel->Width) / 2;
    panel->Top = (Height - panel->Height) / 2;
  }
}

}  // namespace shell
