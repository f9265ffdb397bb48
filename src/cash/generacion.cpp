#include "cash/generacion.h"

#include "entry/avisos.h"
#include "entry/comunes.h"
#include "forms/escritorio.h"
#include "forms/form.h"
#include "valores/fecha.h"
#include "valores/formato.h"
#include "valores/texto.h"

namespace cash {

Generacion::Generacion(CamposAutomaticas& campos, services::Sesion& sesion, list::ListaPagos& lista)
    : c_(campos), sesion_(sesion), lista_(lista) {}

bool Generacion::GenerarFacturas() {
  if (!DatosCompletos()) return false;
  const services::Escritorio::Ocupacion ocupacion(c_.PicTexto.Formulario().Escritorio());
  FacturasDeCaja facturas(sesion_, Datos(), c_.OptTodo.Value);
  // With all concepts this finds invoices of none, and a number that is taken shows when its row
  // is written.
  if (facturas.Abrir(c_.TxtNConcepto.Text())) {
    sesion_.Aviso().Mostrar(entry::kFacturaYaExiste, services::mensaje::Alto, "Error");
    c_.TxtNFra.SetFocus();
    return false;
  }
  c_.PicTexto.Visible = true;
  c_.ProgressBar.Value = c_.ProgressBar.Min();
  Fin fin = Fin::Sigue;
  try {
    fin = Facturar(facturas);
  } catch (...) {
    c_.PicTexto.Visible = false;
    throw;
  }
  c_.PicTexto.Visible = fin == Fin::SigueConBarra;
  if (fin != Fin::Cierra) return false;
  // What can't be made durable shows while the screen is still there.
  sesion_.CnTemp().TerminarUnidad();
  listaAtrasada_ = false;
  lista_.CargarGrip();
  return true;
}

/// Once: a list that can't be made must not hold the screen open.
void Generacion::PonerListaAlDia() {
  if (std::exchange(listaAtrasada_, false)) lista_.CargarGrip();
}

bool Generacion::DatosCompletos() {
  const auto falta = [this](const char* motivo, services::Widget& campo) {
    return entry::Rechazar(sesion_, motivo, campo);
  };
  if (c_.OptConcepto.Value && c_.TxtNConcepto.Text().empty()) {
    return falta("Error al generar, Falta el concepto", c_.TxtConcepto);
  }
  if (c_.TxtFFra.Text().empty()) {
    return falta("Error al generar, Falta la Fecha de Factura", c_.TxtFFra);
  }
  // Blanks alone are no number: the invoice could be neither paid nor deleted. Users know that the
  // date gets the focus here.
  if (services::Trim(c_.TxtNFra.Text()).empty()) {
    return falta("Error al generar, Falta el Nº de Factura", c_.TxtFFra);
  }
  return true;
}

/// The field that is to be mended gets the focus before its error comes out. An hour alone is a
/// moment, and no day that could be stored.
void Generacion::ExigirFecha(services::TextBox& campo) {
  const bool seGuarda = !sesion_.Utiles().Almacenada(campo.Text()).empty();
  if (seGuarda && services::LeerFecha(campo.Text)) return;
  campo.SetFocus();
  services::RechazarFecha(campo.Text);
}

DatosDeFactura Generacion::Datos() {
  ExigirFecha(c_.TxtFFra);
  return {std::string(services::Trim(c_.TxtNFra.Text())),
          sesion_.Utiles().Almacenada(c_.TxtFFra.Text()),
          std::to_string(services::Year(c_.TxtFFra.Text)), c_.Tipo()};
}

ApuntesSinFactura Generacion::Elegidos() {
  ApuntesSinFactura apuntes;
  if (!c_.OptTodo.Value) apuntes = ApuntesSinFactura(c_.TxtNConcepto.Text());
  if (c_.DivFecha(1).Visible) {
    for (services::TextBox* fecha : {&c_.CbxFDesde, &c_.CbxFHasta}) ExigirFecha(*fecha);
    apuntes.Entre(c_.CbxFDesde.Text(), c_.CbxFHasta.Text());
  }
  return apuntes;
}

Generacion::Fin Generacion::Facturar(FacturasDeCaja& facturas) {
  const ApuntesSinFactura apuntes = Elegidos();
  const std::vector<Grupo> grupos = apuntes.Grupos(sesion_);
  if (!SePuedenFacturar(grupos)) return Fin::Sigue;
  PrepararAvance(grupos.size());
  double hechos = 0;
  for (const Grupo& grupo : grupos) {
    // What was written before stays, its entries without a stamp.
    if (!EscribirFactura(facturas, grupo)) return Fin::Cierra;
    listaAtrasada_ = true;
    if (!facturas.EscribirBase(grupo)) return Fin::SigueConBarra;
    c_.ProgressBar.Value = ++hechos;
    facturas.GenerarRecibo(grupo);
  }
  apuntes.Sellar(sesion_, c_.TxtNFra.Text(),
                 std::to_string(services::Year(sesion_.Utiles().Normalizada(c_.TxtFFra.Text()))));
  return Fin::Cierra;
}

bool Generacion::EscribirFactura(FacturasDeCaja& facturas, const Grupo& grupo) {
  const FacturasDeCaja::Fin fin = facturas.EscribirFactura(grupo);
  if (fin == FacturasDeCaja::Fin::NoCabe) c_.TxtNFra.SetFocus();
  return fin == FacturasDeCaja::Fin::Escrita;
}

/// With one that the list can't add up it would not open any more.
bool Generacion::SePuedenFacturar(const std::vector<Grupo>& grupos) {
  for (const Grupo& grupo : grupos) {
    if (entry::SePuedeSumar(grupo.Importe)) continue;
    sesion_.Aviso().Rechazar("Los apuntes de caja del concepto " + grupo.Tipo + " suman " +
                             services::Mascara(grupo.Importe) +
                             ": no se pueden facturar importes negativos ni de más de 12 cifras");
    return false;
  }
  return true;
}

void Generacion::PrepararAvance(std::size_t grupos) {
  c_.ProgressBar.Min = 1;
  c_.ProgressBar.Max = (grupos > 0 ? static_cast<double>(grupos) : c_.ProgressBar.Min()) + 0.1;
  // No group to stand on is past the last one.
  c_.ProgressBar.Value = grupos > 0 ? 1 : c_.ProgressBar.Max();
}

}  // namespace cash
