#include "entry/aceptacion.h"

#include "datos/recordset.h"
#include "entry/avisos.h"
#include "entry/fechas.h"
#include "list/prevision.h"
#include "valores/formato.h"
#include "valores/numero.h"
#include "valores/texto.h"

namespace entry {

using services::EnCentimos;
using services::ModoApertura;
using services::Numero;
using services::Recordset;

namespace {

/// Worded in another way than when the field is left.
constexpr const char* kPrevisionIncorrecta = "Fecha de previsión incorrecta";

}  // namespace

Aceptacion::Aceptacion(Campos& campos, services::Sesion& sesion, const list::RejillaPagos& lista,
                       const Bloques& bloques, PantallaDeCaja& caja)
    : c_(campos), sesion_(sesion), lista_(lista), b_(bloques), caja_(caja) {
  c_.BtnAceptar.Click = [this] { BtnAceptar_Click(); };
}

bool Aceptacion::Parar(const std::string& motivo, services::Widget& campo) {
  return entry::Rechazar(sesion_, motivo, campo);
}

bool Aceptacion::PararSinMas(const char* motivo) {
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
  if (!ComprobarFechas()) return false;
  CompletarTotal();
  if (!ComprobarIrpf()) return false;
  PonerTerminosAlDia();
  if (TieneNumero() && !(RecibosCompletos() && ComprobarBases())) return false;
  return ComprobarConcepto() && (!TieneNumero() || ComprobarTotal());
}

bool Aceptacion::ComprobarFechas() {
  if (TieneNumero() && sesion_.Utiles().Almacenada(c_.TxtFFra.Text()).empty()) {
    return Parar("Fecha incorrecta", c_.TxtFFra);
  }
  if (c_.TxtFFra.Text().empty()) return true;
  if (c_.OptVista.Value && !b_.Terminos.FechaVistaValida()) return false;
  if (c_.OptGenerar.Value && !ComprobarFecha(sesion_, c_.TxtDesde, c_.TxtFFra,
                                             {kPrevisionIncorrecta, kPrevisionAnterior})) {
    return false;
  }
  return true;
}

/// A dated entry has a total.
void Aceptacion::CompletarTotal() {
  if (!c_.TxtFFra.Text().empty() && c_.TxtIFra.Text().empty()) c_.TxtIFra.Text = "0,00";
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
    b_.Terminos.IntroEnFVista();
  } else if (b_.Vencimientos.PrimeraFecha().empty()) {
    b_.Terminos.PonerseAlDia();
  }
}

bool Aceptacion::RecibosCompletos() {
  if (!ComprobarSuma()) return false;
  if (b_.Vencimientos.PrimeraFecha().empty() && !GenerarSiFaltan()) return false;
  // With one in its range the screen would never open.
  return b_.Vencimientos.SePuedenSumar() ||
         Parar("Los importes de los recibos no pueden ser negativos ni pasar de 12 cifras",
               c_.MSFVencimientos);
}

/// With "A la Vista" just the first receipt is written: what is in the others would be lost.
bool Aceptacion::ComprobarSuma() {
  const bool cuadra = Cuadra(b_.Vencimientos.SumaDeImportes(), EnCentimos(Numero(c_.TxtIFra.Text)));
  return (cuadra && !b_.Vencimientos.DejaRecibosFuera()) ||
         PararSinMas(
             "La suma de los importes de los recibos no coincide con el importe de la factura");
}

bool Aceptacion::GenerarSiFaltan() {
  if (c_.OptVista.Value) {
    if (c_.TxtFVista.Text().empty()) {
      return Parar("Debe indicar una Fecha a la Vista para continuar", c_.TxtFVista);
    }
    b_.Terminos.GenerarVista();
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
    b_.Terminos.GenerarAplazado();
  }
  b_.Terminos.ComprobarRecibos();
  return true;
}

bool Aceptacion::ComprobarBases() {
  for (const Tramo& tramo : c_.Tramos()) {
    const bool sinBase = tramo.Base.Text().empty();
    const bool sinIva = tramo.Iva.Text().empty();
    if (!tramo.Caja.Value || sinBase == sinIva) continue;
    const std::string falta = std::to_string(tramo.Tipo.Tanto) + "% para continuar";
    return sinBase ? Parar("Debe indicar la Base del " + falta, tramo.Base)
                   : Parar("Debe indicar el IVA del " + falta, tramo.Iva);
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
  return Cuadra(b_.Importes.TotalCalculado(), EnCentimos(Numero(c_.TxtIFra.Text))) ||
         PararSinMas("Los Importes de las Bases de IVA son incorrectos");
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
  return SePuedeSumar(services::LeerNumero(c_.TxtIPrev.Text).value_or(0)) ||
         Parar("El importe de la previsión no puede ser negativo ni pasar de 12 cifras",
               c_.TxtIPrev);
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
    b_.Factura.GrabarFactura();
    return true;
  }
  if (b_.Vencimientos.SinImporte()) return false;
  if (!sesion_.Aviso().Preguntar("Debe indicar un Número de Factura para poder generarla\n"
                                 "¿Desea Grabar una Factura?")) {
    return true;
  }
  c_.TxtNFra.SetFocus();
  return false;
}

bool Aceptacion::GrabarModificada() {
  if (TieneNumero()) {
    const bool esFactura = lista_.EsPagable(lista_.MSFPagos.Row);
    if (esFactura || c_.TxtDesde.Text() != c_.TxtDesde.Tag()) {
      b_.Factura.GrabarFactura();
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
  b_.Factura.GrabarFactura();
  return true;
}

/// After an invoice that was refused the panel stays open, and yet the cash entries take its number
/// and the cash screen goes.
void Aceptacion::Terminar() {
  const bool grabada = c_.BtnAceptar.Tag().empty();
  // What can't be made durable shows while the entry, and what the cash screen lent to it, are
  // still there.
  if (grabada) sesion_.CnTemp().TerminarUnidad();
  c_.SaltarValidacion = true;
  try {
    if (grabada) Cerrar();
    if (TieneNumero() && !c_.TxtFFra.Text().empty()) SellarCaja();
  } catch (...) {
    SoltarCaja();
    throw;
  }
  SoltarCaja();
}

/// A list that can't be made has no line left that the panel could stand on: it closes all the
/// same.
void Aceptacion::Cerrar() {
  try {
    b_.Lista.CargarGrip();
  } catch (...) {
    b_.Panel.Cerrar();
    throw;
  }
  b_.Panel.Cerrar();
}

/// What it lent to this entry is not for the next one.
void Aceptacion::SoltarCaja() {
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
  Recordset rs;
  rs.Open(SentenciaDeApunte(c_, apunte), sesion_.CnTemp(), ModoApertura::Optimista);
  if (rs.Eof()) return;
  rs.Collect("Factura") = apunte.Marcado ? c_.TxtNFra.Text() : "";
  rs.Collect("Año") = apunte.Marcado ? AnioDe(sesion_.Utiles().Normalizada(c_.TxtFFra.Text())) : "";
  rs.Update();
}

}  // namespace entry
