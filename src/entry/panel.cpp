#include "entry/panel.h"

#include "entry/comunes.h"
#include "entry/fechas.h"
#include "forms/escritorio.h"
#include "forms/form.h"

namespace entry {

using services::CheckBox;
using services::TextBox;

Panel::Panel(Campos& campos, services::Sesion& sesion, const list::RejillaPagos& lista,
             list::EdicionPagado& edicion, const Bloques& bloques, PantallaDeCaja& caja,
             BajoElPanel& debajo)
    : c_(campos),
      sesion_(sesion),
      lista_(lista),
      edicion_(edicion),
      b_(bloques),
      caja_(caja),
      debajo_(debajo) {
  c_.BtnCancelar.Click = [this] { BtnCancelar_Click(); };
  c_.BotonCaja.Click = [this] { caja_.MostrarModal(); };
}

void Panel::Preparar() {
  b_.Vencimientos.Preparar();
  c_.Chk16.Value = true;
  b_.Importes.Chk(7, c_.Chk7.Value);
  b_.Importes.Chk(4, c_.Chk4.Value);
  b_.Importes.Chk(15, c_.Chk15.Value);
  b_.Importes.Chk(0, c_.Chk0.Value);
  c_.OptVista.Value = true;
  b_.Terminos.Opt("Generar", c_.OptGenerar.Value, false);
  b_.Terminos.Opt("Aplazado", c_.OptAplazado.Value, false);
}

void Panel::AbrirNueva() {
  if (c_.PicNuevo.Visible) return;
  c_.BotonCaja.Enabled = false;
  edicion_.CerrarEdicionPago();
  PrepararNueva();
  Abrir();
}

void Panel::AbrirElegida() {
  if (c_.PicNuevo.Visible) return;
  c_.BotonCaja.Enabled = true;
  edicion_.CerrarEdicionPago();
  lista_.FilaElegida ? CargarFactura() : PrepararNueva();
  Abrir();
}

void Panel::Abrir() {
  antes_ = c_.PicNuevo.Formulario().Escritorio().Foco();
  c_.PicNuevo.Visible = true;
  debajo_.PonerEnUso(false);
  PrimerCampo().SetFocus();
}

/// Merely passing through the total of what is modified would split it anew, through its concept
/// look for it, and through a date that isn't there empty the forecast's.
services::Widget& Panel::PrimerCampo() {
  if (c_.EsNueva()) return c_.TxtConcepto;
  if (lista_.EsPagable(lista_.MSFPagos.Row)) return c_.MSFVencimientos;
  return c_.TxtNFra;
}

void Panel::Cerrar() {
  c_.PicNuevo.Visible = false;
  debajo_.PonerEnUso(true);
  if (antes_) antes_->SetFocus();
}

/// Nothing is undone in the working tables: nothing was written.
void Panel::BtnCancelar_Click() {
  c_.ImporteCaja = 0;
  c_.HayImporte = false;
  c_.SaltarValidacion = true;
  c_.BtnCancelar.Tag = "No";
  Cerrar();
  c_.BtnCancelar.Tag = "";
  caja_.Descargar();
}

void Panel::LimpiarPanel() {
  c_.BtnCancelar.Tag = "";
  c_.SaltarValidacion = false;
  LimpiarCampos();
  for (CheckBox* caja : {&c_.Chk16, &c_.Chk7, &c_.Chk4, &c_.Chk0}) caja->Value = false;
  // On and off, so that its click clears the withholding whatever it was before.
  c_.Chk15.Value = true;
  c_.Chk15.Value = false;
  c_.OptVista.Value = false;
  c_.OptGenerar.Value = false;
  c_.OptAplazado.Value = false;
  b_.Vencimientos.Reiniciar();
  for (TextBox* campo : {&c_.TxtConcepto, &c_.TxtNFra, &c_.TxtFFra}) Habilitar(*campo, true);
  c_.CmdCon.Enabled = true;
  Habilitar(c_.TxtIPrev, false);
  c_.TitularNueva();
}

void Panel::LimpiarCampos() {
  for (TextBox* campo :
       {&c_.TxtConcepto, &c_.TxtFFra, &c_.TxtIFra, &c_.TxtNFra, &c_.TxtB16, &c_.TxtI16, &c_.TxtB7,
        &c_.TxtI7, &c_.TxtB4, &c_.TxtI4, &c_.TxtFVista, &c_.TxtCada, &c_.TxtIPrev, &c_.TxtNRecibos,
        &c_.TxtDias, &c_.TxtDias1, &c_.TxtCadencia, &c_.TxtCadencia1}) {
    campo->Text = "";
  }
  c_.TxtIFra.Tag = "";
  // A cancellation leaves them in their colour, be it that of the focus.
  for (TextBox* campo : {&c_.TxtIFra, &c_.TxtFVista}) Habilitar(*campo, campo->Enabled);
  c_.TxtFVista.Tag = "";
  c_.CboPlazo.ListIndex = -1;
}

void Panel::PrepararNueva() {
  LimpiarPanel();
  c_.TxtFFra.Text = Hoy(sesion_);
  b_.Terminos.Opt("Vista", true, false);
  b_.Prevision.ActivarPrevision(false);
  c_.Chk16.Value = true;
}

void Panel::CargarFactura() {
  LimpiarPanel();
  b_.Prevision.ActivarPrevision(false);
  c_.TitularModificacion();
  CargarFila();
  // The cash screen shows what belongs to the row.
  caja_.Cargar();
}

void Panel::CargarFila() {
  const int fila = lista_.MSFPagos.Row;
  if (!lista_.EsPagable(fila)) {
    lista_.MSFPagos.TextMatrix(fila, 1).empty() ? PrepararNueva() : b_.Prevision.CargarPrevision();
    return;
  }
  if (b_.Factura.CargarFactura()) {
    b_.Prevision.CargarPrevision();
  } else {
    PrepararNueva();
  }
}

}  // namespace entry
