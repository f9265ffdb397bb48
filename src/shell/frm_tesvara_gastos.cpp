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
      Campos(*this),
      PicTexto(*this, "PicTexto", Diseno{0, 0, 5400, 1500}.Oculto()),
      LblTitulo(PicTexto, "LblTitulo", "Grabando  ....", Diseno{300, 240, 4800, 285}.Cuerpo(10)),
      ProgressBar(PicTexto, "ProgressBar", {300, 720, 4800, 360}),
      Rango(PicPagos, datos, Campos.BtnCancelar, *this),
      Rejilla(PicPagos, datos),
      BotonNuevo(PicPagos, "BotonNuevo", "Nuevo", EnBotonera(0)),
      BotonModificar(PicPagos, "BotonModificar", "Modificar", EnBotonera(1)),
      Edicion(PicPagos, datos, Rejilla, Campos.PicNuevo, BotonModificar),
      Lista(PicPagos, datos, Rejilla, Edicion, Rango, Campos.PicNuevo),
      Borrado(PicPagos, EnBotonera(2), datos, Rejilla, Edicion, Lista, Campos.PicNuevo),
      BotonAceptar(PicPagos, "BotonAceptar", "Grabar", EnBotonera(4)),
      BotonCancelar(PicPagos, "BotonCancelar", "Cancelar", EnBotonera(5)),
      BtnAutCaja(PicPagos, "BtnAutCaja", "", EnBotonera(3)),
      Impresion(PicPagos, {14500, 9000, 480, 480}, datos, Rejilla, Edicion, Rango, Campos.PicNuevo),
      caja_(datos.Escritorio(), datos, Campos, Entrada),
      precaucion_(*this, datos),
      Entrada(Campos, {*this, datos, Rejilla, Edicion, Lista, Borrado, caja_, *this}) {
  Barra1.Cerrar = [this] { Barra1_Cerrar(); };
  BotonNuevo.Click = [this] { Entrada.Panel.AbrirNueva(); };
  BotonModificar.Click = [this] { Entrada.Panel.AbrirElegida(); };
  BotonAceptar.Click = [this] { BotonAceptar_Click(); };
  BotonCancelar.Click = [this] { BotonCancelar_Click(); };
  BtnAutCaja.Click = [this] { BtnAutCaja_Click(); };
}

FrmTesvaraGastos::~FrmTesvaraGastos() = default;

void FrmTesvaraGastos::Form_Load() {
  const services::Escritorio::Ocupacion ocupacion(Escritorio());
  Campos.TxtNConcepto.Text = "";
  Campos.TxtBusco.Text = "";
  Campos.ImporteCaja = 0;
  if (!datos_.PantallaDeReferencia()) EscalarPantalla();

  Campos.BtnCancelar.Tag = "No";
  Rango.PonerMesActual();
  Campos.BtnCancelar.Tag = "";
  PrepararCopia();

  TomarMarco();
  Rejilla.Preparar();
  Rejilla.FilaElegida = false;
  Entrada.Panel.Preparar();
  CentrarPaneles();
  Lista.VerTodo();
  Lista.OptFecha.Value = true;
  BtnAutCaja.Caption = "Fra.Autom.Caja";
  Rejilla.CopiarGrip();
}

/// That of the month, unless the host has one that was left behind.
void FrmTesvaraGastos::PrepararCopia() {
  const auto dejada = datos_.CopiaPorRetomar();
  if (!dejada) return copia_.Cargar(Rango.Intervalo());
  Rango.Poner(*dejada);
  copia_.Retomar(*dejada);
}

void FrmTesvaraGastos::Form_Unload() {
  // It may have something to show in the list, which is then to be saved.
  if (auto* abierta = facturasAutomaticas_.Si()) abierta->Unload();
  Edicion.CerrarEdicionPago();
  ComprobarCambios();
  if (Modificado && datos_.Aviso().Preguntar("¿Desea guardar los cambios?")) BotonAceptar_Click();
  copia_.Vaciar();
  caja_.Descargar();
  Impresion.Descargar();
}

void FrmTesvaraGastos::RangoCambiado(services::TextBox& campo) {
  try {
    Edicion.CerrarEdicionPago();
    ComprobarCambios();
  } catch (...) {
    if (copia_.Rango()) Rango.Poner(*copia_.Rango());
    throw;
  }
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

void FrmTesvaraGastos::PonerEnUso(bool estado) {
  // Its current row is the key of what is on the panel, and the automatic invoices make it anew.
  Rejilla.MSFPagos.TabStop = estado;
  Lista.OptConcepto.TabStop = estado;  // it stays enabled, for nothing
  const std::initializer_list<services::Widget*> apartados = {
      &Rejilla.MSFPagos,    &Lista.ChkPrevisiones, &Lista.OptFecha, &Lista.ChkPagados,
      &Rango.TxtFPrevision, &Rango.TxtFPrevisionD, &BotonNuevo,     &BotonAceptar,
      &Borrado.BotonBorrar, &BotonModificar,       &BotonCancelar,  &BtnAutCaja};
  for (services::Widget* widget : apartados) widget->Enabled = estado;
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

std::string FrmTesvaraGastos::MotivoParaNoCerrar() const {
  if (Campos.PicNuevo.Visible) {
    return "Hay una entrada a medio hacer. Acéptela o cancélela antes de cerrar.";
  }
  if (Rejilla.HayLineasNuevas()) return list::kLineasNuevas;
  if (const int fila = Edicion.PagoExcesivo()) {
    const auto celda = [&](int columna) {
      return " " + Rejilla.MSFPagos.TextMatrix(fila, columna);
    };
    return "El recibo" + celda(0) + celda(1) + celda(list::columna::NFactura) +
           " tiene pagado más que su importe, y así no se puede grabar nada. Corríjalo, o pulse "
           "Cancelar para dejarlo todo como estaba, antes de cerrar.";
  }
  return "";
}

void FrmTesvaraGastos::Barra1_Cerrar() {
  if (!Campos.PicNuevo.Visible) Unload();
}

void FrmTesvaraGastos::BotonAceptar_Click() {
  if (Campos.PicNuevo.Visible) return;
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
  Campos.BtnCancelar.Tag = "";
  avanzar();
  PicTexto.Visible = false;
}

void FrmTesvaraGastos::BotonCancelar_Click() {
  if (Campos.PicNuevo.Visible) return;
  Edicion.CerrarEdicionPago();
  Recargar();
}

/// What it generates makes the list anew.
void FrmTesvaraGastos::BtnAutCaja_Click() {
  Edicion.CerrarEdicionPago();
  facturasAutomaticas_.Pedir(datos_.Escritorio(), datos_, Lista).ShowModal();
}

void FrmTesvaraGastos::Form_Resize() {
  if (datos_.FrmPrincipal() && datos_.FrmPrincipal()->WindowState() == 1) {
    datos_.FrmPrincipal()->PonerWindowState(0);
  }
}

void FrmTesvaraGastos::Form_Paint() {
  datos_.Repintar(*this);
}

void FrmTesvaraGastos::AlAcabarEvento() {
  recuento_.Decir(Edicion.PagosSinGrabar(), datos_.FrmPrincipal());
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
  for (services::Label* rotulo : {&Campos.LblNombre, &Campos.Label2, &Campos.Label3, &Campos.Label4,
                                  &Campos.Label5, &Campos.Label6, &Campos.Label7}) {
    rotulo->Height = Campos.TxtConcepto.Height();
  }
}

void FrmTesvaraGastos::CentrarPaneles() {
  for (PictureBox* panel : {&Campos.PicNuevo, &PicTexto}) {
    panel->Left = (Width - panel->Width) / 2;
    panel->Top = (Height - panel->Height) / 2;
  }
}

}  // namespace shell
