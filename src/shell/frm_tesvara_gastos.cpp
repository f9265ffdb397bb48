#include "shell/frm_tesvara_gastos.h"

#include "list/pagos_tecleados.h"
#include "shell/datos_comunes.h"
#include "shell/escala.h"

namespace shell {
namespace {

using services::Diseno;
using services::PictureBox;

constexpr int kAncho = 15360;
constexpr int kAlto = 11520;
constexpr int kAltoBarra = 420;

/// The row of buttons under the list, by its place from the left.
Diseno EnBotonera(int lugar) {
  return Diseno{180 + lugar * 1700, 9000, 1560, 480}.Tab(7 + lugar).Cuerpo(10);
}

}  // namespace

FrmTesvaraGastos::FrmTesvaraGastos(DatosComunes& datos)
    : Form(datos.Escritorio(), "FrmTesvaraGastos", kAncho, kAlto),
      datos_(datos),
      copia_(datos),
      Barra1(*this, "Barra1", "Tesvara de Pagos", {0, 0, kAncho, kAltoBarra}),
      PicPagos(*this, "PicPagos", {0, kAltoBarra, kAncho, kAlto - kAltoBarra}),
      PicNuevo(*this, "PicNuevo", Diseno{0, 0, 11000, 8000}.Oculto()),
      PicTexto(*this, "PicTexto", Diseno{0, 0, 5400, 1500}.Oculto()),
      LblTitulo(PicTexto, "LblTitulo", "Grabando  ....", Diseno{300, 240, 4800, 285}.Cuerpo(10)),
      ProgressBar(PicTexto, "ProgressBar", {300, 720, 4800, 360}),
      TxtNConcepto(PicNuevo, "TxtNConcepto", Diseno{0, 0, 600, 285}.Oculto()),
      TxtBusco(PicNuevo, "TxtBusco", Diseno{0, 0, 600, 285}.Oculto()),
      BtnCancelar(PicNuevo, "BtnCancelar", "Cancelar", {9200, 7300, 1560, 480}),
      Rango(PicPagos, datos, BtnCancelar, *this),
      Rejilla(PicPagos, datos),
      BotonNuevo(PicPagos, "BotonNuevo", "Nuevo", EnBotonera(0).Inhabilitado()),
      BotonModificar(PicPagos, "BotonModificar", "Modificar", EnBotonera(1).Inhabilitado()),
      Edicion(PicPagos, datos, Rejilla, PicNuevo, BotonModificar),
      Lista(PicPagos, datos, Rejilla, Edicion, Rango),
      Borrado(PicPagos, EnBotonera(2), datos, Rejilla, Edicion, Lista, PicNuevo),
      BotonAceptar(PicPagos, "BotonAceptar", "Grabar", EnBotonera(3)),
      BotonCancelar(PicPagos, "BotonCancelar", "Cancelar", EnBotonera(4)),
      BtnAutCaja(PicPagos, "BtnAutCaja", "", EnBotonera(5).Inhabilitado()),
      ImgImpresora(PicPagos, "ImgImpresora", "impresora",
                   Diseno{14500, 9000, 480, 480}.Inhabilitado()) {
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
  copia_.Cargar(Rango.Intervalo());

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
  Edicion.CerrarEdicionPago();
  ComprobarCambios();
  if (Modificado && datos_.Aviso().Preguntar("¿Desea guardar los cambios?")) BotonAceptar_Click();
  copia_.Vaciar();
}

void FrmTesvaraGastos::RangoCambiado(services::TextBox& campo) {
  try {
    Edicion.CerrarEdicionPago();
  } catch (...) {
    if (copia_.Rango()) Rango.Poner(*copia_.Rango());
    throw;
  }
  ComprobarCambios();
  if (Modificado &&
      datos_.Aviso().Preguntar(
          "Si Modifica las fechas debe grabar los cambios antes. ¿Quiere Grabarlos?")) {
    BotonAceptar_Click();
  } else {
    Recargar();
  }
  // Only now: a reload or a commit that fails must not make the new date look accepted.
  campo.Tag = campo.Text();
}

void FrmTesvaraGastos::ComprobarCambios() {
  Modificado = false;
  Modificado = Rejilla.ComprobarCambios();
}

void FrmTesvaraGastos::Recargar() {
  const services::Escritorio::Ocupacion ocupacion(Escritorio());
  copia_.Cargar(Rango.Intervalo());
  Lista.CargarGrip();
  Rejilla.CopiarGrip();
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
  if (!list::EscribirPagados(datos_, Rejilla)) return;
  const auto avanzar = [this] { ProgressBar.Value = ProgressBar.Value + 1; };
  avanzar();
  copia_.Grabar();
  avanzar();
  copia_.Cargar(Rango.Intervalo());
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
