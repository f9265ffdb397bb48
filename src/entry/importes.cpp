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
  UnirTecleo();
  for (const Fila& fila : Filas()) {
    fila.Base.LostFocus = [this, fila] {
      Dejar(fila.Base, &fila.Iva, [&] { return ComprobarBase(fila); });
    };
    fila.Iva.LostFocus = [&campo = fila.Iva] {
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

/// The row of 7 % looks at its own box, which is always on there, and never at that of 4 %: its
/// last check is never made.
std::array<Importes::Fila, 3> Importes::Filas() {
  return {Fila{c_.Chk16,
               c_.TxtB16,
               c_.TxtI16,
               kIva16,
               "Base del 16% Incorrecta",
               {&c_.Chk7, &c_.Chk4, &c_.Chk0}},
          Fila{c_.Chk7,
               c_.TxtB7,
               c_.TxtI7,
               kIva7,
               "Base del 7% Incorrecta",
               {&c_.Chk7, &c_.Chk16, &c_.Chk0}},
          Fila{c_.Chk4,
               c_.TxtB4,
               c_.TxtI4,
               kIva4,
               "Base del 4% Incorrecta",
               {&c_.Chk7, &c_.Chk16, &c_.Chk0}}};
}

void Importes::UnirCajas() {
  const auto unir = [this](CheckBox& caja, int tipo) {
    caja.Click = [this, &caja, tipo] { Chk(tipo, caja.Value); };
  };
  unir(c_.Chk16, 16);
  unir(c_.Chk7, 7);
  unir(c_.Chk4, 4);
  unir(c_.Chk0, 0);
  unir(c_.Chk15, 15);
}

/// Where Enter goes on from each field: to the first that is in use.
void Importes::UnirTecleo() {
  Unir(c_.TxtB16, Tecleo::Importe, {&c_.TxtI16});
  Unir(c_.TxtB7, Tecleo::Importe, {&c_.TxtI7});
  Unir(c_.TxtB4, Tecleo::Importe, {&c_.TxtI4});
  Unir(c_.TxtI16, Tecleo::Importe,
       {&c_.TxtB7, &c_.TxtB4, &c_.TxtB0, &c_.TxtFVista, &c_.TxtCada, &c_.TxtNRecibos});
  Unir(c_.TxtI7, Tecleo::Importe,
       {&c_.TxtB4, &c_.TxtB0, &c_.TxtFVista, &c_.TxtCada, &c_.TxtNRecibos});
  Unir(c_.TxtI4, Tecleo::Importe, {&c_.TxtB0, &c_.TxtFVista, &c_.TxtCada, &c_.TxtNRecibos});
  Unir(c_.TxtB0, Tecleo::Importe, {&c_.TxtFVista, &c_.TxtNRecibos});
  Unir(c_.TxtTipoIRPF, Tecleo::Entero, {&c_.TxtBIRPF});
  Unir(c_.TxtBIRPF, Tecleo::Importe, {&c_.TxtIRPF});
  Unir(c_.TxtIRPF, Tecleo::Importe,
       {&c_.TxtB16, &c_.TxtB7, &c_.TxtB4, &c_.TxtFVista, &c_.TxtCada, &c_.TxtNRecibos});
  c_.TxtIFra.KeyPress = [this](int& codigo) { TxtIFra_KeyPress(codigo); };
}

void Importes::Unir(TextBox& campo, Tecleo tecleo,
                    std::initializer_list<services::Widget*> cadena) {
  campo.KeyPress = [this, &campo, tecleo, cadena = std::vector(cadena)](int& codigo) {
    codigo = Filtrar(sesion_, campo, tecleo, codigo);
    if (codigo == tecla::Intro) PasarAlPrimero(cadena);
  };
}

void Importes::Chk(int Tipo, bool Estado) {
  const auto poner = [Estado](std::initializer_list<TextBox*> campos) {
    for (TextBox* campo : campos) {
      Habilitar(*campo, Estado);
      if (!Estado) campo->Text = "";
    }
  };
  if (Tipo == 16) poner({&c_.TxtB16, &c_.TxtI16});
  if (Tipo == 7) poner({&c_.TxtB7, &c_.TxtI7});
  if (Tipo == 4) poner({&c_.TxtB4, &c_.TxtI4});
  if (Tipo == 0) {
    poner({&c_.TxtB0});
    const bool sola = !c_.Chk16.Value && !c_.Chk7.Value && !c_.Chk4.Value;
    // A fully exempt invoice needs no typing.
    if (Estado && !c_.CargandoFactura && sola) c_.TxtB0.Text = Enmascarado(c_.TxtIFra);
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

void Importes::CalcularTotal() {
  c_.TotalCalculado = Partidas() - Num(c_.TxtIRPF);
}

double Importes::Total() const {
  return Numero(c_.TxtIFra.Text);
}

bool Importes::Rechazar(const char* motivo, TextBox& campo) {
  sesion_.Aviso().Rechazar(motivo);
  campo.SetFocus();
  return false;
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

bool Importes::ComprobarBase(const Fila& fila) {
  if (LimiteDeBase(Total(), Num(c_.TxtIRPF), fila.Tipo) < Num(fila.Base)) {
    return Rechazar(fila.Incorrecta, fila.Base);
  }
  fila.Iva.Text = IvaDe(Numero(fila.Base.Text), fila.Tipo);
  Enmascarar(fila.Base);
  CalcularTotal();
  const bool ultima = std::none_of(fila.Otras.begin(), fila.Otras.end(),
                                   [](const CheckBox* caja) { return caja->Value(); });
  if (ultima && !Cuadra(c_.TotalCalculado, Total())) return Rechazar(fila.Incorrecta, fila.Base);
  return true;
}

/// Unlike a base, its limit and its sum leave the withholding out.
bool Importes::ComprobarExento() {
  const char* const incorrecto = "Importe Exento Incorrecto";
  if (services::Importe(Enmascarado(c_.TxtIFra)) < Num(c_.TxtB0)) {
    return Rechazar(incorrecto, c_.TxtB0);
  }
  Enmascarar(c_.TxtB0);
  c_.TotalCalculado = Partidas();
  const bool ultimo = !c_.Chk7.Value && !c_.Chk4.Value && !c_.Chk16.Value;
  if (ultimo && !Cuadra(c_.TotalCalculado, Total())) return Rechazar(incorrecto, c_.TxtB0);
  return true;
}

bool Importes::ComprobarBaseIrpf() {
  const double tanto = services::Val(c_.TxtTipoIRPF.Text());
  if (LimiteDeIrpf(Total(), tanto) < Num(c_.TxtBIRPF)) {
    if (!c_.Chk0.Value) return Rechazar("Base de IRPF Incorrecta", c_.TxtBIRPF);
    // An exempt invoice may carry a base beyond its total.
    c_.TxtIRPF.Text = IrpfDe(Numero(c_.TxtBIRPF.Text), tanto);
    return true;
  }
  Enmascarar(c_.TxtBIRPF);
  c_.TxtIRPF.Text = IrpfDe(Numero(c_.TxtBIRPF.Text), tanto);
  CalcularTotal();
  const bool sinTipos = !c_.Chk16.Value && !c_.Chk7.Value && !c_.Chk4.Value && !c_.Chk0.Value;
  if (sinTipos && !Cuadra(c_.TotalCalculado, Total())) {
    return Rechazar("IRPF Incorrecto", c_.TxtIRPF);
  }
  return true;
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
  c_.HayImporte = !sesion_.Aviso().Preguntar(
      "Se ha modificado el importe, los recibos se generarán desde cero");
  if (c_.HayImporte) {
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
  const auto filas = Filas();
  const auto usadas =
      std::count_if(filas.begin(), filas.end(), [](const Fila& f) { return f.Base.Enabled(); });
  const auto partes = usadas + (c_.TxtB0.Enabled ? 1 : 0);
  // As texts: "0,00" is more than "0", a negative amount less.
  if (partes == 0 || c_.TxtIFra.Text().empty() ||
      services::CompararTexto(c_.TxtIFra.Text(), "0") <= 0) {
    return;
  }
  if (partes > 1) return SepararEnLaPrimera();
  if (usadas == 0) {
    c_.TxtB0.Text = Enmascarado(c_.TxtIFra);
    return;
  }
  const auto fila =
      std::find_if(filas.begin(), filas.end(), [](const Fila& f) { return f.Base.Enabled(); });
  const BaseEIva partidas = SepararTotal(Total(), fila->Tipo);
  fila->Base.Text = partidas.Base;
  fila->Iva.Text = partidas.Iva;
}

/// The first rate in use takes what the lower ones and the exempt part leave.
void Importes::SepararEnLaPrimera() {
  const auto filas = Filas();
  const auto primera =
      std::find_if(filas.begin(), filas.end(), [](const Fila& f) { return f.Base.Enabled(); });
  double resto = EnCentimos(Total());
  for (auto fila = std::next(primera); fila != filas.end(); ++fila) {
    if (fila->Base.Text().empty()) continue;
    resto -= Numero(fila->Base.Text) + Numero(fila->Iva.Text);
  }
  if (!c_.TxtB0.Text().empty()) resto -= Numero(c_.TxtB0.Text);
  // By the cent: what Doubles leave of a sum that fits is no debt.
  if (EnCentimos(resto) >= 0) {
    const BaseEIva partidas = SepararResto(resto, primera->Tipo);
    primera->Base.Text = partidas.Base;
    primera->Iva.Text = partidas.Iva;
    return;
  }
  Rechazar("Las Bases son mayores al importe de la Facturas", primera->Base);
  primera->Base.Text = Mascara(0.0, "0.00");
  primera->Iva.Text = Mascara(0.0, "0.00");
}

}  // namespace entry
