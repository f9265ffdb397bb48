#include "entry/prevision.h"

#include "datos/recordset.h"
#include "entry/clave.h"
#include "entry/comunes.h"
#include "entry/fechas.h"
#include "forms/entrada.h"
#include "list/linea.h"
#include "valores/formato.h"
#include "valores/numero.h"

namespace entry {

using services::Mascara;
using services::ModoApertura;
using services::Recordset;
using services::Valor;
namespace tecla = services::tecla;

namespace {

/// What `CboPlazo` offers, and how a forecast's `Tipo` stands for it.
const char* PlazoDe(const std::string& tipo) {
  if (tipo == "1") return "Días";
  return tipo == "2" ? "Meses" : "Años";
}

int TipoDe(const std::string& plazo) {
  if (plazo == "Días") return 1;
  return plazo == "Meses" ? 2 : 3;
}

}  // namespace

std::string SentenciaDePrevision(const std::string& concepto) {
  return "SELECT TempProvPrevisionPagos.* FROM TempProvPrevisionPagos WHERE "
         "TempProvPrevisionPagos.NConcepto like '" +
         concepto + "'";
}

Prevision::Prevision(Campos& campos, services::Sesion& sesion, const list::RejillaPagos& lista)
    : c_(campos), sesion_(sesion), lista_(lista) {
  UnirTeclas();
  c_.OptGenerar.Click = [this] { ActivarPrevision(c_.OptGenerar.Value); };
  c_.TxtIPrev.LostFocus = [this] {
    PintarBlanco(c_.TxtIPrev);
    c_.TxtIPrev.Text = Mascara(Valor(c_.TxtIPrev.Text()));
  };
  c_.CboPlazo.LostFocus = [this] { CboPlazo_LostFocus(); };
  c_.TxtDesde.LostFocus = [this] { TxtDesde_LostFocus(); };
}

void Prevision::UnirTeclas() {
  UnirTecleo(sesion_, c_.TxtIPrev, Tecleo::Importe, {&c_.TxtCada});
  UnirTecleo(sesion_, c_.TxtCada, Tecleo::Entero, {&c_.CboPlazo});
  c_.CboPlazo.KeyPress = [this](int& codigo) {
    if (codigo == tecla::Intro) c_.TxtDesde.SetFocus();
  };
  c_.TxtDesde.KeyPress = [this](int& codigo) {
    codigo = Filtrar(sesion_, c_.TxtDesde, Tecleo::Fecha, codigo);
    if (codigo == tecla::Intro) static_cast<void>(FechaDesdeValida());
  };
}

void Prevision::ActivarPrevision(bool Estado) {
  for (services::Widget* campo : std::initializer_list<services::Widget*>{
           &c_.TxtCada, &c_.CboPlazo, &c_.TxtDesde, &c_.TxtIPrev}) {
    Habilitar(*campo, Estado);
  }
  c_.TxtDesde.Text = "";
  c_.TxtDesde.Tag = "";
  c_.TxtCada.Text = "";
  c_.CboPlazo.ListIndex = -1;
  c_.TxtIPrev.Text = "";
  if (!Estado) return;
  CargarPrevision();
  // By default it repeats the invoice's amount.
  if (c_.TxtIPrev.Text().empty()) c_.TxtIPrev.Text = Mascara(Valor(c_.TxtIFra.Text()));
  // The date of a stored forecast gives way, where the box was ticked by hand.
  c_.TxtDesde.Text = c_.TxtFFra.Text().empty() ? Hoy(sesion_) : c_.TxtFFra.Text();
  c_.TxtDesde.Tag = c_.TxtDesde.Text();
}

/// Ticking the box runs `ActivarPrevision` and through it this once more, which ends since the box
/// is on by then; what follows sets the stored unit, number and date last.
void Prevision::CargarPrevision() {
  const std::string concepto = lista_.LineaDe(lista_.MSFPagos.Row).NConcepto;
  Recordset rs;
  rs.Open(SentenciaDePrevision(concepto), sesion_.CnTemp(), ModoApertura::Lectura);
  if (rs.Eof()) return;
  c_.TxtNConcepto.Text = rs.Collect("NConcepto").Texto();
  c_.TxtConcepto.Text = rs.Collect("Descripcion").Texto();
  c_.TxtIPrev.Text = Mascara(rs.Collect("Importe").Leer());
  c_.TxtIPrev.Enabled = true;
  c_.OptGenerar.Value = true;
  c_.CboPlazo.Text = PlazoDe(rs.Collect("Tipo").Texto());
  c_.TxtCada.Text = rs.Collect("Cada").Texto();
  c_.TxtDesde.Text = sesion_.Utiles().Mostrada(rs.Collect("Fecha1Vto").Texto());
  c_.TxtDesde.Tag = c_.TxtDesde.Text();
}

void Prevision::GrabarPrevision() {
  Recordset rs;
  rs.Open(SentenciaDePrevision(ClaveDeLaEntrada(c_, lista_).NConcepto), sesion_.CnTemp(),
          ModoApertura::Optimista);
  if (rs.Eof()) rs.AddNew();
  rs.Collect("NConcepto") = c_.TxtNConcepto.Text();
  rs.Collect("Descripcion") = c_.TxtConcepto.Text();
  rs.Collect("Fecha1Vto") = sesion_.Utiles().Almacenada(c_.TxtDesde.Text());
  rs.Collect("Cada") = c_.TxtCada.Text();
  rs.Collect("Tipo") = TipoDe(c_.CboPlazo.Text);
  if (c_.TxtIPrev.Text().empty()) c_.TxtIPrev.Text = "0,00";
  rs.Collect("Importe") = c_.TxtIPrev.Text();
  try {
    rs.Update();
  } catch (const services::ErrorEjecucion& fallo) {
    sesion_.Aviso().FalloAlEscribir(fallo, "Esta Previsión ya exite ");
    if (fallo.Numero() != services::error::RepetidoONoCabe) return;
    rs.CancelUpdate();
    c_.TxtConcepto.SetFocus();
  }
}

void Prevision::CboPlazo_LostFocus() {
  if (c_.Cancelando()) return;
  PintarBlanco(c_.CboPlazo);
  if (c_.TxtFFra.Text().empty()) return;
  if (c_.TxtCada.Text().empty()) {
    c_.TxtCada.SetFocus();
  } else if (c_.CboPlazo.ListIndex >= 0) {
    ProponerFecha();
  }
}

void Prevision::ProponerFecha() {
  c_.TxtDesde.Text = FechaMas(c_.TxtFFra.Text, UnidadDePropuesta(c_.CboPlazo.Text),
                              services::Numero(c_.TxtCada.Text));
}

void Prevision::TxtDesde_LostFocus() {
  if (c_.Cancelando()) return;
  PintarBlanco(c_.TxtDesde);
  static_cast<void>(FechaDesdeValida());
}

bool Prevision::FechaDesdeValida() {
  return ComprobarFecha(sesion_, c_.TxtDesde, c_.TxtFFra,
                        {"Fecha de Previsión incorrecta", kPrevisionAnterior});
}

}  // namespace entry
