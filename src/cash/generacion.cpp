#include "cash/generacion.h"

#include "entry/avisos.h"
#include "entry/clave.h"
#include "entry/comunes.h"
#include "forms/escritorio.h"
#include "forms/form.h"
#include "valores/fecha.h"
#include "valores/formato.h"
#include "valores/texto.h"

namespace cash {

using services::ModoApertura;
using services::Recordset;

Generacion::Generacion(CamposAutomaticas& campos, services::Sesion& sesion, list::ListaPagos& lista)
    : c_(campos), sesion_(sesion), lista_(lista) {
  c_.BtnAceptar.Click = [this] { GenerarFacturas(); };
}

void Generacion::GenerarFacturas() {
  if (!DatosCompletos()) return;
  const services::Escritorio::Ocupacion ocupacion(c_.PicTexto.Formulario().Escritorio());
  if (Facturar(Datos())) Terminar();
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

/// Throws 13 when the date is none.
DatosDeFactura Generacion::Datos() {
  return {std::string(services::Trim(c_.TxtNFra.Text())),
          sesion_.Utiles().Almacenada(c_.TxtFFra.Text()),
          std::to_string(services::Year(c_.TxtFFra.Text)), c_.Tipo()};
}

bool Generacion::Facturar(const DatosDeFactura& datos) {
  Recordset facturas;
  if (YaExiste(facturas, datos)) return false;
  c_.PicTexto.Visible = true;
  c_.ProgressBar.Value = c_.ProgressBar.Min();
  try {
    return FacturarElegidos(facturas, datos);
  } catch (...) {
    c_.PicTexto.Visible = false;
    throw;
  }
}

/// With all concepts this finds invoices of none, and a number that is taken shows when its row is
/// written. `facturas` stays open for those that are.
bool Generacion::YaExiste(Recordset& facturas, const DatosDeFactura& datos) {
  const entry::Clave clave{c_.TxtNConcepto.Text(), datos.Factura, datos.Anio};
  facturas.Open(entry::FacturaDe("TempProvFacturas", "And", clave), sesion_.CnTemp(),
                ModoApertura::Pesimista);
  Recordset almacenadas;
  almacenadas.Open(entry::FacturaDe("ProvFacturas", "and", clave), sesion_.CnDatos(),
                   ModoApertura::Pesimista);
  if (facturas.Eof() && almacenadas.Eof()) return false;
  sesion_.Aviso().Mostrar(entry::kFacturaYaExiste, services::mensaje::Alto, "Error");
  c_.TxtNFra.SetFocus();
  return true;
}

ApuntesSinFactura Generacion::Elegidos() const {
  ApuntesSinFactura apuntes = c_.OptTodo.Value ? ApuntesSinFactura::DeTodos()
                                               : ApuntesSinFactura::De(c_.TxtNConcepto.Text());
  if (c_.DivFecha(1).Visible) apuntes.Entre(c_.CbxFDesde.Text(), c_.CbxFHasta.Text());
  return apuntes;
}

bool Generacion::FacturarElegidos(Recordset& facturas, const DatosDeFactura& datos) {
  const ApuntesSinFactura apuntes = Elegidos();
  const std::vector<Grupo> grupos = apuntes.Grupos(sesion_);
  if (!SePuedenFacturar(grupos)) {
    c_.PicTexto.Visible = false;
    return false;
  }
  PrepararAvance(grupos.size());
  FacturasDeCaja escritas(sesion_, datos, facturas, c_.OptTodo.Value);
  double hechos = 0;
  for (const Grupo& grupo : grupos) {
    // What was written before stays, its entries without a stamp.
    if (!EscribirFactura(escritas, grupo)) return true;
    // The bar stays over the screen: that is how users see that the run stopped halfway.
    if (!escritas.EscribirBase(grupo)) return false;
    c_.ProgressBar.Value = ++hechos;
    escritas.GenerarRecibo(grupo);
  }
  apuntes.Sellar(sesion_, c_.TxtNFra.Text(),
                 std::to_string(services::Year(sesion_.Utiles().Normalizada(c_.TxtFFra.Text()))));
  return true;
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

void Generacion::Terminar() {
  c_.PicTexto.Visible = false;
  // What can't be made durable shows while the screen is still there.
  sesion_.CnTemp().TerminarUnidad();
  lista_.CargarGrip();
  c_.PicTexto.Formulario().Unload();
}

}  // namespace cash
