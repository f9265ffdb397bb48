#include "cash/frm_fra_automaticas.h"

#include "datos/recordset.h"
#include "entry/avisos.h"
#include "entry/comunes.h"
#include "entry/fechas.h"
#include "forms/entrada.h"
#include "list/rango_fechas.h"
#include "valores/fecha.h"
#include "valores/numero.h"
#include "valores/texto.h"

namespace cash {

using services::ModoApertura;
using services::Recordset;
using services::TextBox;
namespace color = services::color;
namespace tecla = services::tecla;

FrmFraAutomaticas::FrmFraAutomaticas(services::Escritorio& escritorio, services::Sesion& sesion,
                                     list::ListaPagos& lista)
    : Form(escritorio, "FrmFraAutomaticas", 7200, 5400),
      Barra1(*this, "Barra1", "Fra. Automáticas de Caja", {0, 0, 7200, 420}),
      Campos(*this),
      sesion_(sesion),
      concepto_{Campos.TxtConcepto, Campos.TxtNConcepto, Campos.TxtBusco},
      selector_(*this, sesion, "FraAutomatica"),
      generacion_(Campos, sesion, lista) {
  Barra1.Cerrar = [this] { Unload(); };
  Campos.BtnCancelar.Click = [this] { Unload(); };
  Campos.BtnAceptar.Click = [this] {
    if (generacion_.GenerarFacturas()) Unload();
  };
  Campos.OptTodo.Click = [this] {
    if (Campos.OptTodo.Value) ActivarConcepto(false);
  };
  Campos.OptConcepto.Click = [this] {
    if (Campos.OptConcepto.Value) ActivarConcepto(true);
  };
  Campos.lblFecha.Click = [this] { lblFecha_Click(); };
  Campos.CmdCon.Click = [this] { CmdCon_Click(); };
  Campos.TxtBusco.Change = [this] { entry::TomarElegido(concepto_, sesion_); };
  UnirFoco();
  UnirTeclas();
}

void FrmFraAutomaticas::Form_Load() {
  Campos.OptTodo.Value = true;
  PonerMesAnterior();
  Campos.CboIVA.ListIndex = 0;
  ActivarConcepto(false);
  ActivarFechas(false);
}

/// What is invoiced is usually the month before.
void FrmFraAutomaticas::PonerMesAnterior() {
  const auto hoy = services::Descomponer(sesion_.Ahora());
  const bool enero = hoy.Mes == 1;
  const std::string mes =
      list::MesEnTexto(enero ? hoy.Anio - 1 : hoy.Anio, enero ? 12 : hoy.Mes - 1);
  Campos.CbxFDesde.Text = sesion_.Utiles().Normalizada("01/" + mes);
  // Whatever the month's length: the conversion takes a day past its end for its last one.
  Campos.CbxFHasta.Text = sesion_.Utiles().Normalizada("31/" + mes);
  Campos.TxtFFra.Text = entry::Hoy(sesion_);
  Campos.TxtNFra.Text = mes;
}

void FrmFraAutomaticas::UnirFoco() {
  for (TextBox* campo : {&Campos.TxtConcepto, &Campos.TxtFFra, &Campos.TxtNFra, &Campos.CbxFDesde,
                         &Campos.CbxFHasta}) {
    campo->GotFocus = [campo] {
      campo->BackColor = color::ConFoco;
      campo->SeleccionarTodo();
    };
  }
  Campos.CboIVA.GotFocus = [this] { Campos.CboIVA.BackColor = color::ConFoco; };
  for (services::Widget* campo :
       std::initializer_list<services::Widget*>{&Campos.TxtFFra, &Campos.TxtNFra, &Campos.CboIVA}) {
    campo->LostFocus = [campo] { entry::PintarBlanco(*campo); };
  }
  for (TextBox* fecha : {&Campos.CbxFDesde, &Campos.CbxFHasta}) {
    fecha->LostFocus = [this, fecha] {
      entry::PintarBlanco(*fecha);
      Normalizar(*fecha);
    };
  }
  Campos.TxtConcepto.LostFocus = [this] { TxtConcepto_LostFocus(); };
}

void FrmFraAutomaticas::UnirTeclas() {
  Campos.TxtConcepto.KeyPress = [this](int& codigo) {
    if (codigo == tecla::Intro) Campos.TxtFFra.SetFocus();
  };
  entry::UnirTecleo(sesion_, Campos.TxtFFra, entry::Tecleo::Fecha, {&Campos.TxtNFra});
  Campos.TxtNFra.KeyPress = [this](int& codigo) {
    if (codigo == tecla::Intro) Campos.CboIVA.SetFocus();
  };
  UnirTeclasDeFecha(Campos.CbxFDesde, Campos.CbxFHasta);
  // The last one stays.
  UnirTeclasDeFecha(Campos.CbxFHasta, Campos.CbxFHasta);
}

void FrmFraAutomaticas::UnirTeclasDeFecha(TextBox& campo, TextBox& siguiente) {
  campo.KeyPress = [this, &campo, &siguiente](int& codigo) {
    codigo = sesion_.Utiles().TeclaFecha(campo, codigo);
    if (codigo != tecla::Intro) return;
    Normalizar(campo);
    siguiente.SetFocus();
  };
}

void FrmFraAutomaticas::ActivarConcepto(bool estado) {
  Campos.LblNombre.Enabled = estado;
  Campos.CmdCon.Enabled = estado;
  Campos.TxtConcepto.Enabled = estado;
}

void FrmFraAutomaticas::ActivarFechas(bool estado) {
  Campos.DivFecha(1).Visible = estado;
  for (services::Widget* parte :
       std::initializer_list<services::Widget*>{&Campos.LblFecha2, &Campos.Lbl(4), &Campos.Lbl(0),
                                                &Campos.CbxFDesde, &Campos.CbxFHasta}) {
    parte->Enabled = estado;
  }
}

void FrmFraAutomaticas::Normalizar(TextBox& fecha) {
  fecha.Text = sesion_.Utiles().Normalizada(fecha.Text());
}

void FrmFraAutomaticas::lblFecha_Click() {
  ActivarFechas(!Campos.DivFecha(1).Visible);
  if (Campos.DivFecha(1).Visible) return;
  for (TextBox* fecha : {&Campos.CbxFDesde, &Campos.CbxFHasta}) entry::PintarBlanco(*fecha);
}

void FrmFraAutomaticas::CmdCon_Click() {
  Campos.TxtBusco.Text = "";
  selector_.Buscar("Codigo", Campos.TxtConcepto.Text());
  TextBox& siguiente = Campos.TxtConcepto.Text().empty() ? Campos.TxtConcepto : Campos.TxtFFra;
  siguiente.SetFocus();
}

void FrmFraAutomaticas::TxtConcepto_LostFocus() {
  entry::PintarBlanco(Campos.TxtConcepto);
  entry::BuscarTecleado(concepto_, [this] { BuscarConcepto(); });
  if (Campos.TxtConcepto.Text().empty()) {
    entry::Rechazar(sesion_, entry::kConceptoEnBlanco, Campos.TxtConcepto);
  } else if (Campos.TxtNConcepto.Text().empty()) {
    entry::Rechazar(sesion_, entry::kConceptoSinCrear, Campos.TxtConcepto);
  }
}

/// Figures are looked for as a code, anything else as a description, wildcards in it.
void FrmFraAutomaticas::BuscarConcepto() {
  const bool esCodigo = services::EsNumero(Campos.TxtConcepto.Text);
  const std::string columna = esCodigo ? "NConcepto" : "Descripcion";
  Recordset rs;
  rs.Open("SELECT ProvConceptos.* From ProvConceptos WHERE trim(ProvConceptos." + columna +
              ") like '" + std::string(services::Trim(Campos.TxtConcepto.Text())) + "'",
          sesion_.CnDatos(), ModoApertura::Lectura);
  if (!rs.Eof()) {
    Campos.TxtNConcepto.Text = rs.Collect("NConcepto").Texto();
    Campos.TxtConcepto.Text = rs.Collect("Descripcion").Texto();
    return;
  }
  rs.Close();
  Campos.TxtBusco.Text = "";
  selector_.Buscar(esCodigo ? "Codigo" : "Nombre", Campos.TxtConcepto.Text());
}

}  // namespace cash
