#include "entry/aceptacion.h"

#include "datos/recordset.h"
#include "entry/concepto.h"
#include "entry/fechas.h"
#include "forms/entrada.h"
#include "list/prevision.h"
#include "valores/formato.h"
#include "valores/numero.h"
#include "valores/texto.h"

namespace entry {

using services::EnCentimos;
using services::ModoApertura;
using services::Numero;
using services::Recordset;
using services::TextBox;

namespace {

/// What is said of a rate with its VAT and no base, or the other way round.
struct Reparo {
  const services::CheckBox& Caja;
  TextBox& Base;
  TextBox& Iva;
  const char* SinBase;
  const char* SinIva;
};

/// Worded in another way than when the field is left.
constexpr const char* kPrevisionIncorrecta = "Fecha de previsión incorrecta";

}  // namespace

Aceptacion::Aceptacion(Campos& campos, services::Sesion& sesion, const list::RejillaPagos& lista,
                       const Bloques& bloques, PantallaDeCaja& caja)
    : c_(campos),
      sesion_(sesion),
      lista_(lista),
      b_(bloques),
      caja_(caja),
      factura_(campos, sesion, lista, bloques.Recibos) {
  c_.BtnAceptar.Click = [this] { BtnAceptar_Click(); };
}

bool Aceptacion::Parar(const char* motivo, services::Widget& campo) {
  sesion_.Aviso().Rechazar(motivo);
  campo.SetFocus();
  return false;
}

bool Aceptacion::Rechazar(const char* motivo) {
  sesion_.Aviso().Rechazar(motivo);
  return false;
}

void Aceptacion::BtnAceptar_Click() {
  // A refusal lasts for one turn, however that ends.
  c_.BtnAceptar.Tag = "";
  b_.Edicion.CerrarEdicionVencimiento();
  if (!Comprobar()) return;
  if (!(c_.EsNueva() ? GrabarNueva() : GrabarModificada())) return;
  Terminar();
}

bool Aceptacion::Comprobar() {
  if (!ComprobarFechas() || !ComprobarIrpf()) return false;
  PonerTerminosAlDia();
  if (TieneNumero() && !ComprobarRecibos()) return false;
  return ComprobarConcepto() && (!TieneNumero() || ComprobarTotal());
}

bool Aceptacion::ComprobarFechas() {
  if (TieneNumero() && sesion_.Utiles().Almacenada(c_.TxtFFra.Text()).empty()) {
    return Parar("Fecha incorrecta", c_.TxtFFra);
  }
  if (c_.TxtFFra.Text().empty()) return true;
  if (c_.OptVista.Value &&
      !ComprobarFecha(sesion_, c_.TxtFVista, c_.TxtFFra, {kVistaIncorrecta, kVistaAnterior})) {
    return false;
  }
  if (c_.OptGenerar.Value && !ComprobarFecha(sesion_, c_.TxtDesde, c_.TxtFFra,
                                             {kPrevisionIncorrecta, kPrevisionAnterior})) {
    return false;
  }
  if (c_.TxtIFra.Text().empty()) c_.TxtIFra.Text = "0,00";
  return true;
}

bool Aceptacion::ComprobarIrpf() {
  if (!c_.Chk15.Value) return true;
  if (c_.TxtTipoIRPF.Text().empty()) {
    return Parar("Debe indicar el tipo para el calculo del IRPF", c_.TxtTipoIRPF);
  }
  if (c_.TxtBIRPF.Text().empty()) {
    return Parar("Debe indicar una base para el calculo del IRPF", c_.TxtBIRPF);
  }
  return true;
}

/// Receipts that the terms still owe, or the due date as if Enter had been pressed on it.
void Aceptacion::PonerTerminosAlDia() {
  if (!c_.OptAplazado.Value) {
    int intro = services::tecla::Intro;
    b_.Pago.TxtFVista_KeyPress(intro);
  } else if (b_.Recibos.PrimeraFecha().empty()) {
    b_.Pago.PonerseAlDia();
  }
}

bool Aceptacion::ComprobarRecibos() {
  if (!ComprobarSuma()) return false;
  // The list can't add up a negative amount: with one in its range the screen would never open.
  if (b_.Recibos.HayNegativos()) {
    return Parar("Los importes de los recibos no pueden ser negativos", c_.MSFVencimientos);
  }
  if (b_.Recibos.PrimeraFecha().empty() && !GenerarSiFaltan()) return false;
  return ComprobarBases();
}

bool Aceptacion::ComprobarSuma() {
  return Cuadra(b_.Recibos.SumaDeImportes(), EnCentimos(Numero(c_.TxtIFra.Text))) ||
         Rechazar(
             "La suma de los importes de los recibos no coincide con el importe de la factura");
}

bool Aceptacion::GenerarSiFaltan() {
  if (c_.OptVista.Value) {
    if (c_.TxtFVista.Text().empty()) {
      return Parar("Debe indicar una Fecha a la Vista para continuar", c_.TxtFVista);
    }
    b_.Pago.GenerarVista();
  } else {
    if (c_.TxtNRecibos.Text().empty()) {
      return Parar("Debe indicar un número de recibos para continuar", c_.TxtNRecibos);
    }
    if (c_.TxtDias.Text().empty()) {
      return Parar("Debe indicar los días para el primer vencimiento para continuar", c_.TxtDias);
    }
    if (c_.TxtCadencia.Text().empty()) {
      return Parar("Debe indicar la cadencia entre recibos para continuar", c_.TxtCadencia);
    }
    b_.Pago.GenerarAplazado();
  }
  b_.Pago.ComprobarRecibos();
  return true;
}

bool Aceptacion::ComprobarBases() {
  const Reparo reparos[] = {
      {c_.Chk16, c_.TxtB16, c_.TxtI16, "Debe indicar la Base del 16% para continuar",
       "Debe indicar el IVA del 16% para continuar"},
      {c_.Chk7, c_.TxtB7, c_.TxtI7, "Debe indicar la Base del 7% para continuar",
       "Debe indicar el IVA del 7% para continuar"},
      {c_.Chk4, c_.TxtB4, c_.TxtI4, "Debe indicar la Base del 4% para continuar",
       "Debe indicar el IVA del 4% para continuar"}};
  for (const Reparo& r : reparos) {
    const bool sinBase = r.Base.Text().empty();
    const bool sinIva = r.Iva.Text().empty();
    if (!r.Caja.Value || sinBase == sinIva) continue;
    return sinBase ? Parar(r.SinBase, r.Base) : Parar(r.SinIva, r.Iva);
  }
  return true;
}

bool Aceptacion::ComprobarConcepto() {
  if (c_.TxtConcepto.Text().empty()) return Parar(kConceptoEnBlanco, c_.TxtConcepto);
  if (c_.TxtNConcepto.Text().empty()) return Parar(kConceptoSinCrear, c_.TxtConcepto);
  return true;
}

/// Whatever boxes are ticked.
bool Aceptacion::ComprobarTotal() {
  b_.Cifras.CalcularTotal();
  return Cuadra(c_.TotalCalculado, EnCentimos(Numero(c_.TxtIFra.Text))) ||
         Rechazar("Los Importes de las Bases de IVA son incorrectos");
}

bool Aceptacion::ExigirPrevision() {
  if (c_.TxtCada.Text().empty()) {
    return Parar("Debe Indicar Cada cuanto quiere generar las previsiones", c_.TxtCada);
  }
  if (c_.CboPlazo.ListIndex < 0 &&
      !sesion_.Aviso().Preguntar(
          "Si no se indica lo contrario la generacion se entendera por 'Años'")) {
    c_.CboPlazo.SetFocus();
    return false;
  }
  if (c_.TxtDesde.Text().empty() && !FecharPrevisionHoy()) return false;
  // A forecast without a date would show nowhere, and be lost.
  if (sesion_.Utiles().Almacenada(c_.TxtDesde.Text()).empty()) {
    return Parar(kPrevisionIncorrecta, c_.TxtDesde);
  }
  // As with a receipt, the list couldn't add it up.
  return services::LeerNumero(c_.TxtIPrev.Text).value_or(0) >= 0 ||
         Parar("El importe de la previsión no puede ser negativo", c_.TxtIPrev);
}

bool Aceptacion::FecharPrevisionHoy() {
  if (!sesion_.Aviso().Preguntar(
          "Si no se indica lo contrario la generacion se entendera desde la fecha actual")) {
    c_.TxtDesde.SetFocus();
    return false;
  }
  c_.TxtDesde.Text = Hoy(sesion_);
  return true;
}

bool Aceptacion::GrabarNueva() {
  if (c_.OptGenerar.Value) {
    if (!ExigirPrevision()) return false;
    b_.Prevision.GrabarPrevision();
  }
  if (TieneNumero()) {
    factura_.GrabarFactura();
    return true;
  }
  if (b_.Recibos.SinImporte()) return false;
  if (!sesion_.Aviso().Preguntar("Debe indicar un Número de Factura para poder generarla\n"
                                 "¿Desea Grabar una Factura?")) {
    return true;
  }
  c_.TxtNFra.SetFocus();
  return false;
}

bool Aceptacion::GrabarModificada() {
  if (!services::Trim(c_.TxtNFra.Text()).empty()) {
    const bool esFactura = lista_.EsPagable(lista_.MSFPagos.Row);
    if (esFactura || c_.TxtDesde.Text() != c_.TxtDesde.Tag()) {
      factura_.GrabarFactura();
    } else if (!GrabarOcurrencia()) {
      return false;
    }
  }
  if (!c_.OptGenerar.Value) {
    b_.Borrado.BorrarPrevision();
    return true;
  }
  if (!ExigirPrevision()) return false;
  b_.Prevision.GrabarPrevision();
  return true;
}

/// An occurrence of a forecast has just become an invoice: the forecast goes on after it.
bool Aceptacion::GrabarOcurrencia() {
  Recordset rs;
  rs.Open(SentenciaDePrevision(c_.TxtNConcepto.Text), sesion_.CnTemp(), ModoApertura::Lectura);
  if (rs.Eof()) return true;
  const auto unidad = list::UnidadDe(list::EnteroDe(rs.Collect("Tipo")));
  const std::string siguiente = FechaMas(lista_.LineaDe(lista_.MSFPagos.Row).FechaVto, unidad,
                                         list::EnteroDe(rs.Collect("Cada")));
  rs.Close();
  if (siguiente != c_.TxtDesde.Text()) {
    c_.TxtDesde.Text = siguiente;
    c_.TxtDesde.Tag = siguiente;
    if (!sesion_.Aviso().Preguntar("Las Previsiones para: " + c_.TxtConcepto.Text() +
                                   " se realizarán a partir de la fecha: " + siguiente +
                                   ". Las Previsiones anteriores se borrarán")) {
      return false;
    }
  }
  factura_.GrabarFactura();
  return true;
}

/// After an invoice that was refused the panel stays open, and yet the cash entries take its number
/// and the cash screen goes.
void Aceptacion::Terminar() {
  c_.SaltarValidacion = true;
  if (c_.BtnAceptar.Tag().empty()) {
    b_.Lista.CargarGrip();
    b_.Entrada.Cerrar();
  }
  if (TieneNumero() && !c_.TxtFFra.Text().empty()) SellarCaja();
  caja_.Descargar();
  c_.ImporteCaja = 0;
  c_.HayImporte = false;
  c_.BtnAceptar.Tag = "";
}

void Aceptacion::SellarCaja() {
  for (const ApunteDeCaja& apunte : caja_.Apuntes()) {
    if (services::EsNumero(apunte.Tipo)) Sellar(apunte);
  }
}

void Aceptacion::Sellar(const ApunteDeCaja& apunte) {
  const std::string suya = c_.EsNueva()
                               ? ""
                               : "Trim(TempCajaPagos.Factura) = '" +
                                     std::string(services::Trim(c_.TxtNFra.Text())) + "' OR ";
  Recordset rs;
  rs.Open("SELECT TempCajaPagos.* From TempCajaPagos WHERE TempCajaPagos.Tipo = " + apunte.Tipo +
              " AND TempCajaPagos.FechaHora like '" + apunte.FechaHora + "' AND (" + suya +
              "TempCajaPagos.Factura Is Null OR TempCajaPagos.Factura = '') ORDER BY "
              "TempCajaPagos.FechaHora",
          sesion_.CnTemp(), ModoApertura::Optimista);
  if (rs.Eof()) return;
  rs.Collect("Factura") = apunte.Marcado ? c_.TxtNFra.Text() : "";
  rs.Collect("Año") = apunte.Marcado ? AnioDe(sesion_.Utiles().Normalizada(c_.TxtFFra.Text())) : "";
  rs.Update();
}

}  // namespace entry
