#include "entry/panel.h"

#include "entry/comunes.h"
#include "entry/fechas.h"
#include "forms/escritorio.h"
#include "forms/form.h"
#include "list/editor_en_celda.h"
#include "list/guarda.h"
#include "valores/formato.h"
#include "valores/texto.h"

namespace entry {

using services::CheckBox;
using services::Mascara;
using services::ModoApertura;
using services::Recordset;
using services::TextBox;
using services::Valor;

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
  b_.Recibos.Preparar();
  c_.Chk16.Value = true;
  b_.Cifras.Chk(7, c_.Chk7.Value);
  b_.Cifras.Chk(4, c_.Chk4.Value);
  b_.Cifras.Chk(15, c_.Chk15.Value);
  b_.Cifras.Chk(0, c_.Chk0.Value);
  c_.OptVista.Value = true;
  b_.Pago.Opt("Generar", c_.OptGenerar.Value, false);
  b_.Pago.Opt("Aplazado", c_.OptAplazado.Value, false);
  list::Cerrar(c_.TxtMsf2);
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
  list::Cerrar(c_.TxtMsf2);
  LimpiarCampos();
  for (CheckBox* caja : {&c_.Chk16, &c_.Chk7, &c_.Chk4, &c_.Chk0}) caja->Value = false;
  // On and off, so that its click clears the withholding whatever it was before.
  c_.Chk15.Value = true;
  c_.Chk15.Value = false;
  c_.OptVista.Value = false;
  c_.OptGenerar.Value = false;
  c_.OptAplazado.Value = false;
  b_.Recibos.Vaciar();
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
  b_.Pago.Opt("Vista", true, false);
  b_.Prevision.ActivarPrevision(false);
  c_.Chk16.Value = true;
  c_.Chk15.Value = false;
  c_.TitularNueva();
}

void Panel::CargarFactura() {
  LimpiarPanel();
  b_.Prevision.ActivarPrevision(false);
  c_.BtnCancelar.Tag = "";
  c_.TitularModificacion();
  list::Cerrar(c_.TxtMsf2);
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
  const Clave clave = ClaveDeLaLista(lista_);
  Recordset factura;
  factura.Open(
      "SELECT TempProvFacturas.* FROM TempProvFacturas WHERE TempProvFacturas.NConcepto like '" +
          clave.NConcepto + "'  And RTRIM(LTRIM(TempProvFacturas.Factura)) like '" + clave.Factura +
          "' And TempProvFacturas.Año like '" + clave.Anio + "'",
      sesion_.CnTemp(), ModoApertura::Lectura);
  factura.Eof() ? PrepararNueva() : CargarDeTabla(clave, factura);
}

void Panel::CargarDeTabla(const Clave& clave, Recordset& factura) {
  c_.TxtNConcepto.Text = factura.Collect("NConcepto").Texto();
  c_.TxtConcepto.Text = factura.Collect("Descripcion").Texto();
  c_.TxtFFra.Text = sesion_.Utiles().Mostrada(factura.Collect("Fecha").Texto());
  c_.TxtNFra.Text = std::string(services::Trim(factura.Collect("Factura").Texto()));
  c_.TxtIFra.Text = Mascara(factura.Collect("Total").Leer());
  c_.TxtIFra.Tag = c_.TxtIFra.Text();
  // The key of a saved invoice can't change here.
  for (TextBox* campo : {&c_.TxtConcepto, &c_.TxtNFra, &c_.TxtFFra}) Habilitar(*campo, false);
  c_.CmdCon.Enabled = false;
  b_.Recibos.CargarVencimientos();
  b_.Recibos.GuardarVencimientos();
  factura.Collect("forpago").Texto() == "1" ? PonerVista(clave) : PonerAplazado(factura);
  PonerIrpf(factura);
  PonerBases(clave);
  b_.Prevision.CargarPrevision();
}

void Panel::PonerAplazado(Recordset& factura) {
  b_.Pago.Opt("Aplazado", true, false);
  c_.TxtNRecibos.Text = factura.Collect("NRecibos").Texto();
  c_.TxtDias.Text = factura.Collect("Dias1Vto").Texto();
  c_.TxtDias1.Text = c_.TxtDias.Text();
  c_.TxtCadencia.Text = factura.Collect("Cadencia").Texto();
  c_.TxtCadencia1.Text = c_.TxtCadencia.Text();
}

void Panel::PonerVista(const Clave& clave) {
  b_.Pago.Opt("Vista", true, false);
  Recordset rs;
  rs.Open(
      "SELECT TempProvVencimientos.* FROM TempProvVencimientos WHERE "
      "TempProvVencimientos.NConcepto like '" +
          clave.NConcepto + "' AND Trim(TempProvVencimientos.NFactura) like '" + clave.Factura +
          "' AND TempProvVencimientos.Año like '" + clave.Anio + "'",
      sesion_.CnTemp(), ModoApertura::Lectura);
  c_.TxtFVista.Text = rs.Eof() ? b_.Recibos.PrimeraFecha()
                               : sesion_.Utiles().Mostrada(rs.Collect("FechaVto").Texto());
  c_.TxtFVista.Tag = c_.TxtFVista.Text();
}

void Panel::PonerIrpf(Recordset& factura) {
  const std::string tipo = factura.Collect("TipoIRPF").Texto();
  if (tipo == "0" || tipo.empty()) return;
  c_.Chk15.Value = true;
  c_.TxtTipoIRPF.Text = Mascara(factura.Collect("TipoIRPF").Leer(), services::mascara::Entero);
  c_.TxtBIRPF.Text = Mascara(factura.Collect("BIRPF").Leer());
  c_.TxtIRPF.Text = Mascara(factura.Collect("IRPF").Leer());
}

void Panel::PonerBases(const Clave& clave) {
  Recordset rs;
  rs.Open(
      "SELECT TempProvBasesIva.* FROM TempProvBasesIva WHERE TempProvBasesIva.NConcepto like '" +
          clave.NConcepto + "' And Trim(TempProvBasesIva.NFactura) like '" + clave.Factura +
          "' And TempProvBasesIva.Año like '" + clave.Anio + "'",
      sesion_.CnTemp(), ModoApertura::Lectura);
  if (rs.Eof()) {
    // Wholly exempt.
    c_.TxtB0.Text = Mascara(Valor(c_.TxtIFra.Text()));
    c_.Chk0.Value = true;
  }
  for (; !rs.Eof(); rs.MoveNext()) PonerBase(rs);
}

/// The texts come first: the click of a box that goes on leaves them alone.
void Panel::PonerBase(Recordset& base) {
  const auto poner = [&base](TextBox& campoBase, TextBox& campoIva, CheckBox& caja) {
    campoBase.Text = Mascara(base.Collect("Base").Leer());
    campoIva.Text = Mascara(base.Collect("Importe").Leer());
    caja.Value = true;
  };
  const std::string tipo = base.Collect("Tipo").Texto();
  if (tipo == "1") return poner(c_.TxtB16, c_.TxtI16, c_.Chk16);
  if (tipo == "2") return poner(c_.TxtB7, c_.TxtI7, c_.Chk7);
  if (tipo == "3") return poner(c_.TxtB4, c_.TxtI4, c_.Chk4);
  c_.TxtB0.Text = Mascara(base.Collect("Exento").Leer());
  const list::Mientras cargando(c_.CargandoFactura);
  c_.Chk0.Value = true;
}

}  // namespace entry
