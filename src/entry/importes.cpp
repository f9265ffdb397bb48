#include "entry/importes.h"

#include <algorithm>
#include <utility>

#include "forms/entrada.h"
#include "valores/formato.h"
#include "valores/numero.h"
#include "valores/texto.h"

namespace entry {

using services::CheckBox;
using services::EnCentimos;
using services::Mascara;
using services::Numero;
using services::TextBox;
using services::Valor;
namespace tecla = services::tecla;

namespace {

/// How the sums read a field: an empty one counts 0, a negative one throws 13.
double Num(const TextBox& campo) {
  return services::Importe(campo.Text());
}

std::string Enmascarado(const TextBox& campo) {
  return Mascara(Valor(campo.Text()));
}

void Enmascarar(TextBox& campo) {
  campo.Text = Enmascarado(campo);
}

}  // namespace

Importes::Importes(Campos& campos, services::Sesion& sesion, const list::RejillaPagos& lista,
                   EdicionVencimiento& edicion, Terminos& terminos)
    : c_(campos), sesion_(sesion), lista_(lista), edicion_(edicion), terminos_(terminos) {
  UnirCajas();
  UnirTeclas();
  for (const Tramo& tramo : c_.Tramos()) {
    tramo.Base.LostFocus = [this, tramo] {
      Dejar(tramo.Base, &tramo.Iva, [&] { return ComprobarBase(tramo); });
    };
    tramo.Iva.LostFocus = [&campo = tramo.Iva] {
      PintarBlanco(campo);
      Enmascarar(campo);
    };
  }
  c_.TxtB0.LostFocus = [this] { Dejar(c_.TxtB0, nullptr, [this] { return ComprobarExento(); }); };
  c_.TxtBIRPF.LostFocus = [this] {
    Dejar(c_.TxtBIRPF, &c_.TxtIRPF, [this] { return ComprobarBaseIrpf(); });
  };
  c_.TxtIRPF.LostFocus = [this] {
    PintarBlanco(c_.TxtIRPF);
    Enmascarar(c_.TxtIRPF);
  };
  c_.TxtTipoIRPF.Change = [this] { TxtTipoIRPF_Change(); };
  c_.TxtIFra.GotFocus = [this] { TxtIFra_GotFocus(); };
  c_.TxtIFra.LostFocus = [this] { TxtIFra_LostFocus(); };
}

void Importes::UnirCajas() {
  const auto unir = [this](CheckBox& caja, int tipo) {
    caja.Click = [this, &caja, tipo] { Chk(tipo, caja.Value); };
  };
  for (const Tramo& tramo : c_.Tramos()) unir(tramo.Caja, tramo.Tipo.Tanto);
  unir(c_.Chk0, 0);
  unir(c_.Chk15, 15);
}

/// Where Enter goes on from each field.
void Importes::UnirTeclas() {
  const auto unir = [this](TextBox& campo, Tecleo tecleo,
                           std::initializer_list<services::Widget*> cadena) {
    UnirTecleo(sesion_, campo, tecleo, cadena);
  };
  for (const Tramo& tramo : c_.Tramos()) unir(tramo.Base, Tecleo::Importe, {&tramo.Iva});
  unir(c_.TxtI16, Tecleo::Importe,
       {&c_.TxtB7, &c_.TxtB4, &c_.TxtB0, &c_.TxtFVista, &c_.TxtCada, &c_.TxtNRecibos});
  unir(c_.TxtI7, Tecleo::Importe,
       {&c_.TxtB4, &c_.TxtB0, &c_.TxtFVista, &c_.TxtCada, &c_.TxtNRecibos});
  unir(c_.TxtI4, Tecleo::Importe, {&c_.TxtB0, &c_.TxtFVista, &c_.TxtCada, &c_.TxtNRecibos});
  unir(c_.TxtB0, Tecleo::Importe, {&c_.TxtFVista, &c_.TxtNRecibos});
  unir(c_.TxtTipoIRPF, Tecleo::Entero, {&c_.TxtBIRPF});
  unir(c_.TxtBIRPF, Tecleo::Importe, {&c_.TxtIRPF});
  unir(c_.TxtIRPF, Tecleo::Importe,
       {&c_.TxtB16, &c_.TxtB7, &c_.TxtB4, &c_.TxtFVista, &c_.TxtCada, &c_.TxtNRecibos});
  c_.TxtIFra.KeyPress = [this](int& codigo) { TxtIFra_KeyPress(codigo); };
}

void Importes::Chk(int Tipo, bool Estado) {
  const auto poner = [Estado](std::initializer_list<TextBox*> campos) {
    for (TextBox* campo : campos) {
      Habilitar(*campo, Estado);
      if (!Estado) campo->Text = "";
    }
  };
  for (const Tramo& tramo : c_.Tramos()) {
    if (Tipo == tramo.Tipo.Tanto) poner({&tramo.Base, &tramo.Iva});
  }
  if (Tipo == 0) {
    poner({&c_.TxtB0});
    // A fully exempt invoice needs no typing.
    if (Estado && !c_.CargandoFactura && !HayTipos()) c_.TxtB0.Text = Enmascarado(c_.TxtIFra);
  }
  if (Tipo == 15) {
    c_.LblTipo.Enabled = Estado;
    poner({&c_.TxtBIRPF, &c_.TxtIRPF, &c_.TxtTipoIRPF});
    if (Estado) c_.TxtTipoIRPF.Text = "15";
  }
}

double Importes::Partidas() const {
  return Num(c_.TxtB16) + Num(c_.TxtB7) + Num(c_.TxtB4) + Num(c_.TxtB0) + Num(c_.TxtI16) +
         Num(c_.TxtI7) + Num(c_.TxtI4);
}

double Importes::TotalCalculado() const {
  return Partidas() - Num(c_.TxtIRPF);
}

bool Importes::HayTipos() const {
  return c_.Chk16.Value || c_.Chk7.Value || c_.Chk4.Value;
}

double Importes::Total() const {
  return Numero(c_.TxtIFra.Text);
}

/// A check that fails leaves the flag on, and the next leaving gets past it.
void Importes::Dejar(TextBox& base, TextBox* derivado, const std::function<bool()>& cuadra) {
  PintarBlanco(base);
  const bool salta = std::exchange(c_.SaltarValidacion, true);
  const bool comprueba = !salta && !c_.Cancelando();
  const bool vacia = base.Text().empty();
  if (vacia && derivado && (salta || comprueba)) derivado->Text = "";
  if (comprueba && !vacia && !cuadra()) return;
  c_.SaltarValidacion = false;
}

bool Importes::ComprobarBase(const Tramo& tramo) {
  const std::string incorrecta = "Base del " + std::to_string(tramo.Tipo.Tanto) + "% Incorrecta";
  if (LimiteDeBase(Total(), Num(c_.TxtIRPF), tramo.Tipo) < Num(tramo.Base)) {
    return Rechazar(sesion_, incorrecta, tramo.Base);
  }
  tramo.Iva.Text = IvaDe(Numero(tramo.Base.Text), tramo.Tipo);
  Enmascarar(tramo.Base);
  const double suma = TotalCalculado();
  return !EsLaUltima(tramo) || Cuadra(suma, Total()) || Rechazar(sesion_, incorrecta, tramo.Base);
}

/// That of 7 % looks at its own box, which is always on there, and never at that of 4 %: its last
/// check is never made. That of 4 % looks at the other two.
bool Importes::EsLaUltima(const Tramo& tramo) const {
  const CheckBox& otra = &tramo.Caja == &c_.Chk16 ? c_.Chk4 : c_.Chk16;
  return !c_.Chk7.Value && !otra.Value && !c_.Chk0.Value;
}

/// Unlike a base, its limit and its sum leave the withholding out.
bool Importes::ComprobarExento() {
  const char* const incorrecto = "Importe Exento Incorrecto";
  if (services::Importe(Enmascarado(c_.TxtIFra)) < Num(c_.TxtB0)) {
    return Rechazar(sesion_, incorrecto, c_.TxtB0);
  }
  Enmascarar(c_.TxtB0);
  const double suma = Partidas();
  return HayTipos() || Cuadra(suma, Total()) || Rechazar(sesion_, incorrecto, c_.TxtB0);
}

bool Importes::ComprobarBaseIrpf() {
  const double tanto = services::Val(c_.TxtTipoIRPF.Text());
  if (LimiteDeIrpf(Total(), tanto) < Num(c_.TxtBIRPF)) {
    if (!c_.Chk0.Value) return Rechazar(sesion_, "Base de IRPF Incorrecta", c_.TxtBIRPF);
    // An exempt invoice may carry a base beyond its total.
    c_.TxtIRPF.Text = IrpfDe(Numero(c_.TxtBIRPF.Text), tanto);
    return true;
  }
  Enmascarar(c_.TxtBIRPF);
  c_.TxtIRPF.Text = IrpfDe(Numero(c_.TxtBIRPF.Text), tanto);
  const double suma = TotalCalculado();
  return HayTipos() || c_.Chk0.Value || Cuadra(suma, Total()) ||
         Rechazar(sesion_, "IRPF Incorrecto", c_.TxtIRPF);
}

void Importes::TxtTipoIRPF_Change() {
  if (services::Val(c_.TxtBIRPF.Text()) <= 0) return;
  c_.TxtIRPF.Text = IrpfDe(Numero(c_.TxtBIRPF.Text), services::Val(c_.TxtTipoIRPF.Text()));
}

void Importes::TxtIFra_GotFocus() {
  RecibirFoco(c_.TxtIFra, edicion_);
  c_.TxtIFra.Tag = Enmascarado(c_.TxtIFra);
}

void Importes::TxtIFra_KeyPress(int& codigo) {
  codigo = Filtrar(sesion_, c_.TxtIFra, Tecleo::Importe, codigo);
  if (codigo != tecla::Intro) return;
  // An occurrence of a forecast becomes an invoice.
  if (!lista_.EsPagable(lista_.MSFPagos.Row) && !c_.TxtNFra.Text().empty()) {
    c_.Chk16.Value = true;
    c_.OptVista.Value = true;
  }
  PasarAlPrimero({&c_.TxtB16, &c_.TxtB7, &c_.TxtB4, &c_.TxtFVista, &c_.TxtCada, &c_.TxtNRecibos});
}

void Importes::TxtIFra_LostFocus() {
  if (c_.Cancelando()) return;
  PintarBlanco(c_.TxtIFra);
  Enmascarar(c_.TxtIFra);
  const std::string antes = c_.TxtIFra.Tag();
  antes.empty() || antes == "0,00" ? PrimerTotal() : TotalModificado();
  RepartirTotal();
  c_.TxtIFra.Tag = Enmascarado(c_.TxtIFra);
}

void Importes::TotalModificado() {
  const std::string antes = Mascara(Valor(c_.TxtIFra.Tag()));
  if (Enmascarado(c_.TxtIFra) == antes) return;
  if (!terminos_.ConsienteRehacer(
          "Se ha modificado el importe, los recibos se generarán desde cero")) {
    c_.TxtIFra.Text = antes;
  } else if (c_.OptVista.Value) {
    terminos_.GenerarVista();
  } else if (c_.OptAplazado.Value) {
    terminos_.GenerarAplazado();
  }
}

void Importes::PrimerTotal() {
  if (!c_.OptVista.Value) return terminos_.GenerarAplazado();
  if (c_.TxtFVista.Text().empty()) terminos_.Opt("Vista", true, false);
  terminos_.GenerarVista();
}

/// By the fields that are in use. The withholding is left out: correcting for it is the user's work
/// in the base.
void Importes::RepartirTotal() {
  const auto tramos = c_.Tramos();
  const auto enUso = [](const Tramo& tramo) { return tramo.Base.Enabled(); };
  const auto usados = std::count_if(tramos.begin(), tramos.end(), enUso);
  const auto partes = usados + (c_.TxtB0.Enabled ? 1 : 0);
  // As texts: "0,00" is more than "0", a negative amount less.
  if (partes == 0 || c_.TxtIFra.Text().empty() ||
      services::CompararTexto(c_.TxtIFra.Text(), "0") <= 0) {
    return;
  }
  const auto primero = std::find_if(tramos.begin(), tramos.end(), enUso);
  if (usados == 0) {
    c_.TxtB0.Text = Enmascarado(c_.TxtIFra);
  } else if (partes == 1) {
    Poner(*primero, SepararTotal(Total(), primero->Tipo));
  } else {
    SepararEn(*primero, LoQueDejan({std::next(primero), tramos.end()}));
  }
}

/// What the lower rates and the exempt part leave of the total.
double Importes::LoQueDejan(std::span<const Tramo> menores) const {
  double resto = EnCentimos(Total());
  for (const Tramo& tramo : menores) {
    if (tramo.Base.Text().empty()) continue;
    resto -= Numero(tramo.Base.Text) + Numero(tramo.Iva.Text);
  }
  return c_.TxtB0.Text().empty() ? resto : resto - Numero(c_.TxtB0.Text);
}

/// The first rate in use takes it.
void Importes::SepararEn(const Tramo& primero, double resto) {
  // By the cent: what Doubles leave of a sum that fits is no debt.
  if (EnCentimos(resto) >= 0) return Poner(primero, SepararResto(resto, primero.Tipo));
  Rechazar(sesion_, "Las Bases son mayores al importe de la Facturas", primero.Base);
  const std::string nada = Mascara(0.0, "0.00");
  Poner(primero, {nada, nada});
}

void Importes::Poner(const Tramo& tramo, const BaseEIva& partidas) {
  tramo.Base.Text = partidas.Base;
  tramo.Iva.Text = partidas.Iva;
}

}  // namespace entry
