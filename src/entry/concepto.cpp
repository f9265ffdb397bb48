#include "entry/concepto.h"

#include "entry/avisos.h"
#include "entry/comunes.h"
#include "entry/descripcion.h"
#include "forms/entrada.h"
#include "valores/numero.h"

namespace entry {

namespace tecla = services::tecla;

namespace {

/// Turns a flag off in the end, whatever happens until then.
class Apagar {
 public:
  explicit Apagar(bool& marca) : marca_(marca) {}
  ~Apagar() { marca_ = false; }
  Apagar(const Apagar&) = delete;
  Apagar& operator=(const Apagar&) = delete;

 private:
  bool& marca_;
};

}  // namespace

Concepto::Concepto(services::Form& pantalla, Campos& campos, services::Sesion& sesion,
                   const list::RejillaPagos& lista, EdicionVencimiento& edicion, Terminos& terminos,
                   PantallaDeCaja& caja)
    : c_(campos),
      sesion_(sesion),
      lista_(lista),
      edicion_(edicion),
      terminos_(terminos),
      caja_(caja),
      concepto_{campos.TxtConcepto, campos.TxtNConcepto, campos.TxtBusco},
      selector_(pantalla, sesion, "TesvaraGastos") {
  UnirTeclas();
  c_.TxtConcepto.GotFocus = [this] { TxtConcepto_GotFocus(); };
  c_.TxtConcepto.LostFocus = [this] { TxtConcepto_LostFocus(); };
  c_.TxtBusco.Change = [this] { TomarElegido(concepto_, sesion_); };
  // With the mouse going down on it, the field that is left does no look-up on the way.
  c_.CmdCon.MouseDown = [this] { c_.SaltarValidacion = true; };
  c_.CmdCon.Click = [this] { CmdCon_Click(); };
  c_.TxtFFra.LostFocus = [this] { TxtFFra_LostFocus(); };
}

void Concepto::UnirTeclas() {
  c_.TxtConcepto.KeyPress = [this](int& codigo) {
    if (codigo == tecla::Intro) c_.TxtFFra.SetFocus();
  };
  UnirTecleo(sesion_, c_.TxtFFra, Tecleo::Fecha, {&c_.TxtNFra, &c_.TxtIFra});
  c_.TxtNFra.KeyPress = [this](int& codigo) {
    if (codigo == tecla::Intro) c_.TxtIFra.SetFocus();
  };
}

/// An entry that was refused leaves the flag on that spares the look-up: another concept typed then
/// is looked for.
void Concepto::TxtConcepto_GotFocus() {
  RecibirFoco(c_.TxtConcepto, edicion_);
  c_.SaltarValidacion = false;
}

void Concepto::TxtConcepto_LostFocus() {
  PintarBlanco(c_.TxtConcepto);
  if (c_.SaltarValidacion) return;
  BuscarTecleado(concepto_, [this] { BuscarConcepto(); });
  ExigirConcepto();
}

/// What is typed is first tried as a code.
void Concepto::BuscarConcepto() {
  const std::string tecleado = c_.TxtConcepto.Text();
  if (const auto descripcion = DescripcionDe(sesion_, tecleado)) {
    c_.TxtNConcepto.Text = tecleado;
    c_.TxtConcepto.Text = *descripcion;
    return;
  }
  c_.TxtBusco.Text = "";
  selector_.Buscar(services::EsNumero(tecleado) ? "Codigo" : "Nombre", tecleado);
}

void Concepto::ExigirConcepto() {
  if (c_.TxtConcepto.Text().empty()) {
    Rechazar(sesion_, kConceptoEnBlanco, c_.TxtConcepto);
    c_.BotonCaja.Enabled = false;
  } else if (c_.TxtNConcepto.Text().empty()) {
    Rechazar(sesion_, kConceptoSinCrear, c_.TxtConcepto);
  } else {
    RehacerCaja();
  }
}

/// The cash screen's list is that of the concept, but for an entry opened with a row of the list
/// chosen.
void Concepto::RehacerCaja() {
  c_.BotonCaja.Enabled = true;
  lista_.FilaElegida ? caja_.RehacerSiEsDeOtro() : caja_.Rehacer();
}

void Concepto::CmdCon_Click() {
  const Apagar saltar(c_.SaltarValidacion);
  c_.TxtBusco.Text = "";
  selector_.Buscar("Codigo", c_.TxtConcepto.Text());
  if (c_.TxtConcepto.Text().empty()) {
    c_.TxtConcepto.SetFocus();
    c_.BotonCaja.Enabled = lista_.FilaElegida;
  } else {
    c_.TxtFFra.SetFocus();
    RehacerCaja();
  }
}

/// Another date of the invoice drags the due date and the forecast's along.
void Concepto::TxtFFra_LostFocus() {
  if (c_.Cancelando()) return;
  PintarBlanco(c_.TxtFFra);
  c_.TxtFFra.Text = sesion_.Utiles().Normalizada(c_.TxtFFra.Text());
  c_.TxtFVista.Text = c_.TxtFFra.Text();
  terminos_.IntroEnFVista();
  c_.TxtDesde.Text = c_.TxtFFra.Text();
}

}  // namespace entry
