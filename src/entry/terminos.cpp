#include "entry/terminos.h"

#include "datos/recordset.h"
#include "entry/comunes.h"
#include "entry/fechas.h"
#include "entry/plazos.h"
#include "forms/entrada.h"
#include "forms/escritorio.h"
#include "forms/form.h"
#include "list/guarda.h"
#include "valores/formato.h"
#include "valores/numero.h"

namespace entry {

using services::Mascara;
using services::ModoApertura;
using services::Numero;
using services::Recordset;
using services::TextBox;
using services::Valor;
namespace tecla = services::tecla;

namespace {

/// Neither empty nor a zero.
bool Cuenta(const std::string& texto) {
  return !texto.empty() && texto != "0";
}

bool Cambiado(const TextBox& campo) {
  return campo.Text() != campo.Tag();
}

}  // namespace

Terminos::Terminos(Campos& campos, services::Sesion& sesion, const list::RejillaPagos& lista,
                   Vencimientos& vencimientos, PantallaDeCaja& caja)
    : c_(campos), sesion_(sesion), lista_(lista), vencimientos_(vencimientos), caja_(caja) {
  UnirTeclas();
  for (TextBox* campo : {&c_.TxtNRecibos, &c_.TxtDias}) {
    campo->LostFocus = [this, campo] { RegenerarAlDejar(*campo); };
  }
  c_.TxtCadencia.LostFocus = [this] { TxtCadencia_LostFocus(); };
  c_.TxtFVista.LostFocus = [this] { TxtFVista_LostFocus(); };
  // Not on their click: `Opt` itself sets their value.
  c_.OptAplazado.MouseUp = [this] { Opt("Aplazado", c_.OptAplazado.Value, true); };
  c_.OptVista.MouseUp = [this] { Opt("Vista", c_.OptVista.Value, true); };
}

void Terminos::UnirTeclas() {
  c_.TxtNRecibos.KeyPress = [this](int& codigo) {
    // Wherever it would fall: ten receipts are not to be typed.
    if (codigo == '0') codigo = 0;
    if (codigo != 0) codigo = Filtrar(sesion_, c_.TxtNRecibos, Tecleo::Entero, codigo);
    if (codigo == tecla::Intro) c_.TxtDias.SetFocus();
  };
  UnirTecleo(sesion_, c_.TxtDias, Tecleo::Entero, {&c_.TxtCadencia});
  c_.TxtCadencia.KeyPress = [this](int& codigo) { TxtCadencia_KeyPress(codigo); };
  c_.TxtFVista.KeyPress = [this](int& codigo) { TxtFVista_KeyPress(codigo); };
}

void Terminos::GenerarAplazado() {
  vencimientos_.Vaciar();
  const bool completo = !c_.TxtIFra.Text().empty() && !c_.TxtDias.Text().empty() &&
                        !c_.TxtCadencia.Text().empty() && Cuenta(c_.TxtNRecibos.Text);
  if (completo) {
    const Plazos plazos{Numero(c_.TxtNRecibos.Text), Numero(c_.TxtDias.Text),
                        Numero(c_.TxtCadencia.Text), c_.TxtFFra.Text,
                        Numero(c_.TxtIFra.Text),     c_.ImporteCaja};
    RepartirEnRecibos(plazos, [this](int fila, const ReciboNuevo& recibo) {
      vencimientos_.Poner(fila, recibo.Fecha, {recibo.Importe, recibo.Pagado});
    });
  }
  vencimientos_.AjustarAnchos();
}

void Terminos::GenerarVista() {
  vencimientos_.Vaciar();
  if (c_.TxtIFra.Text().empty()) return;
  const ReciboNuevo recibo = ReciboALaVista(c_.TxtFVista.Text, c_.TxtIFra.Text, c_.ImporteCaja);
  vencimientos_.Poner(1, recibo.Fecha, {recibo.Importe, recibo.Pagado});
}

void Terminos::Generar() {
  c_.OptVista.Value ? GenerarVista() : GenerarAplazado();
}

void Terminos::Opt(std::string_view Tipo, bool Estado, bool Generar) {
  if (Estado) {
    for (TextBox* campo : {&c_.TxtFVista, &c_.TxtNRecibos, &c_.TxtDias, &c_.TxtCadencia}) {
      Habilitar(*campo, false);
    }
  }
  Tipo == "Vista" ? PonerVista(Estado, Generar) : PonerAplazado(Estado, Generar);
}

void Terminos::PonerAplazado(bool estado, bool generar) {
  const std::initializer_list<TextBox*> campos = {&c_.TxtNRecibos, &c_.TxtDias, &c_.TxtCadencia};
  for (TextBox* campo : campos) campo->Enabled = estado;
  if (!estado) return;
  c_.OptAplazado.Value = true;
  for (TextBox* campo : campos) PintarBlanco(*campo);
  c_.TxtFVista.Text = "";
  c_.TxtFVista.Tag = "";
  if (!generar) return;
  GenerarAplazado();
  ComprobarRecibos();
}

void Terminos::PonerVista(bool estado, bool generar) {
  c_.TxtFVista.Enabled = estado;
  if (!estado) return;
  c_.OptVista.Value = true;
  // Today's date, whatever the invoice's is.
  c_.TxtFVista.Text = Hoy(sesion_);
  c_.TxtFVista.Tag = c_.TxtFVista.Text();
  PintarBlanco(c_.TxtFVista);
  c_.TxtNRecibos.Text = "";
  c_.TxtDias.Text = "";
  if (!generar) {
    c_.TxtDias1.Text = "";
    c_.TxtCadencia1.Text = "";
  }
  c_.TxtCadencia.Text = "";
  if (!generar) return;
  GenerarVista();
  ComprobarRecibos();
}

bool Terminos::ConsienteRehacer(const char* pregunta) {
  c_.HayImporte = !sesion_.Aviso().Preguntar(pregunta);
  return !c_.HayImporte;
}

void Terminos::ComprobarRecibos() {
  const std::string sentencia =
      "SELECT TempProvVencimientos.* " + RecibosDe(ClaveDeLaEntrada(c_, lista_));
  Recordset rs;
  rs.Open(sentencia, sesion_.CnTemp(), ModoApertura::Lectura);
  const int guardados = static_cast<int>(rs.RecordCount());
  rs.Close();
  const double pedidos = c_.TxtNRecibos.Text().empty() ? 1 : Numero(c_.TxtNRecibos.Text);
  if (guardados == pedidos) {
    ComprobarMismoNumero(sentencia, guardados);
  } else if (guardados == 0) {
    // There is nothing to protect.
    Generar();
  } else {
    ComprobarOtroNumero(guardados);
  }
}

bool Terminos::HayPagados(const std::string& sentencia) const {
  Recordset rs;
  rs.Open(sentencia + " ORDER BY TempProvVencimientos.FechaVto", sesion_.CnTemp(),
          ModoApertura::Pesimista);
  for (; !rs.Eof(); rs.MoveNext()) {
    const Valor pagado = rs.Collect("Pagado");
    if (!pagado.EsNulo() && pagado.Numero() > 0) return true;
  }
  return false;
}

/// As many receipts as before: only a paid one is worth a question, and only when the total is the
/// one it was, since another total has been asked about already.
void Terminos::ComprobarMismoNumero(const std::string& sentencia, int guardados) {
  const bool mismoTotal = Mascara(Valor(c_.TxtIFra.Text())) == Mascara(Valor(c_.TxtIFra.Tag()));
  if (!HayPagados(sentencia) || !mismoTotal) return vencimientos_.GuardarVencimientos();
  if (ConsienteRehacer("Algunos recibos estan pagados, si modifica las Fechas de Vencimiento se "
                       "perderan los datos")) {
    return vencimientos_.GuardarVencimientos();
  }
  ReponerTerminos(guardados);
  if (guardados < 2) caja_.Rehacer();
  ReponerRecibos(guardados);
}

void Terminos::ComprobarOtroNumero(int guardados) {
  if (ConsienteRehacer("Se ha modificado el número de recibos, se generarán desde cero")) return;
  caja_.Rehacer();
  ReponerTerminos(guardados);
  ReponerRecibos(guardados);
}

/// What was typed goes, and the terms that are stored come back.
void Terminos::ReponerTerminos(int guardados) {
  const bool aLaVista = guardados < 2;
  if (!aLaVista) {
    c_.TxtDias.Text = c_.TxtDias1.Text();
    c_.TxtCadencia.Text = c_.TxtCadencia1.Text();
    c_.TxtNRecibos.Text = std::to_string(guardados);
  }
  // Answered for: the field that Enter was pressed in goes off with the focus, and asks no more.
  const list::Mientras volviendo(volviendo_);
  Opt(aLaVista ? "Vista" : "Aplazado", true, false);
}

void Terminos::ReponerRecibos(int guardados) {
  vencimientos_.RestaurarVencimientos();
  if (guardados < 2) {
    c_.TxtFVista.Text = vencimientos_.PrimeraFecha();
    c_.TxtFVista.Tag = c_.TxtFVista.Text();
  }
  // A field that went off takes the focus with it: the keyboard goes on from what came back.
  const services::Escritorio& escritorio = c_.PicNuevo.Formulario().Escritorio();
  const services::Widget* foco = escritorio.Foco();
  const bool seFue = foco ? !foco->Enabled : escritorio.FocoPerdido() != nullptr;
  if (seFue) PasarAlPrimero({&c_.TxtFVista, &c_.TxtNRecibos});
}

bool Terminos::TerminosCompletos() const {
  return Cuenta(c_.TxtNRecibos.Text) && Cuenta(c_.TxtDias.Text) && Cuenta(c_.TxtCadencia.Text);
}

void Terminos::RegenerarAplazado(bool comprueba) {
  GenerarAplazado();
  if (comprueba) ComprobarRecibos();
}

void Terminos::RegenerarVista() {
  GenerarVista();
  ComprobarRecibos();
}

void Terminos::RegenerarAlDejar(TextBox& campo) {
  if (c_.Cancelando()) return;
  PintarBlanco(campo);
  if (TerminosCompletos() && Cambiado(campo)) RegenerarAplazado(!campo.Tag().empty());
}

void Terminos::TxtCadencia_KeyPress(int& codigo) {
  codigo = Filtrar(sesion_, c_.TxtCadencia, Tecleo::Entero, codigo);
  if (codigo != tecla::Intro) return;
  if (c_.OptGenerar.Value) c_.TxtCada.SetFocus();
  // Left for the forecast, it has made them already, where there was a cadence before.
  if (c_.TxtCadencia.TieneFoco() || c_.TxtCadencia.Tag().empty()) PonerseAlDia();
}

void Terminos::PonerseAlDia() {
  if (TerminosCompletos() && Cambiado(c_.TxtCadencia)) {
    RegenerarAplazado(!c_.TxtCadencia.Tag().empty());
  }
}

/// A cadence entered for the first time makes no receipts yet: Enter or the acceptance does.
void Terminos::TxtCadencia_LostFocus() {
  if (c_.Cancelando()) return;
  PintarBlanco(c_.TxtCadencia);
  if (!volviendo_ && !c_.TxtCadencia.Tag().empty()) PonerseAlDia();
}

void Terminos::TxtFVista_KeyPress(int& codigo) {
  if (codigo == tecla::Intro) {
    if (!FechaVistaValida()) return;
    c_.TxtFVista.Text = sesion_.Utiles().Normalizada(c_.TxtFVista.Text());
  }
  codigo = Filtrar(sesion_, c_.TxtFVista, Tecleo::Fecha, codigo);
  if (codigo != tecla::Intro) return;
  if (c_.OptGenerar.Value) {
    c_.TxtCada.SetFocus();
  } else if (Cambiado(c_.TxtFVista)) {
    RegenerarVista();
  }
  c_.TxtFVista.Tag = c_.TxtFVista.Text();
}

void Terminos::IntroEnFVista() {
  int intro = tecla::Intro;
  TxtFVista_KeyPress(intro);
}

void Terminos::TxtFVista_LostFocus() {
  if (c_.Cancelando() || volviendo_) return;
  PintarBlanco(c_.TxtFVista);
  if (!FechaVistaValida()) return;
  if (Cambiado(c_.TxtFVista)) RegenerarVista();
  c_.TxtFVista.Tag = c_.TxtFVista.Text();
}

bool Terminos::FechaVistaValida() {
  return ComprobarFecha(
      sesion_, c_.TxtFVista, c_.TxtFFra,
      {"Fecha a la vista incorrecta", "La Fecha a la vista no puede ser menor a la Fecha Factura"});
}

}  // namespace entry
