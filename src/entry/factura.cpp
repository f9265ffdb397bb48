#include "entry/factura.h"

#include "entry/avisos.h"
#include "entry/comunes.h"
#include "list/guarda.h"
#include "valores/error.h"
#include "valores/formato.h"
#include "valores/texto.h"

namespace entry {

using services::Mascara;
using services::ModoApertura;
using services::Recordset;
using services::TextBox;
using services::Valor;

namespace {

/// A field that can't stay empty gets its value.
void Completar(TextBox& campo, const char* valor) {
  if (campo.Text().empty()) campo.Text = valor;
}

}  // namespace

Factura::Factura(Campos& campos, services::Sesion& sesion, const list::RejillaPagos& lista,
                 Vencimientos& vencimientos, Terminos& terminos)
    : c_(campos),
      sesion_(sesion),
      lista_(lista),
      vencimientos_(vencimientos),
      terminos_(terminos) {}

bool Factura::CargarFactura() {
  const Clave clave = ClaveDeLaLista(lista_);
  Recordset factura;
  factura.Open(
      "SELECT TempProvFacturas.* FROM TempProvFacturas WHERE TempProvFacturas.NConcepto like '" +
          clave.NConcepto + "'  And RTRIM(LTRIM(TempProvFacturas.Factura)) like '" + clave.Factura +
          "' And TempProvFacturas.Año like '" + clave.Anio + "'",
      sesion_.CnTemp(), ModoApertura::Lectura);
  if (factura.Eof()) return false;
  c_.TxtNConcepto.Text = factura.Collect("NConcepto").Texto();
  c_.TxtConcepto.Text = factura.Collect("Descripcion").Texto();
  c_.TxtFFra.Text = sesion_.Utiles().Mostrada(factura.Collect("Fecha").Texto());
  c_.TxtNFra.Text = std::string(services::Trim(factura.Collect("Factura").Texto()));
  c_.TxtIFra.Text = Mascara(factura.Collect("Total").Leer());
  c_.TxtIFra.Tag = c_.TxtIFra.Text();
  // The key of a saved invoice can't change here.
  for (TextBox* campo : {&c_.TxtConcepto, &c_.TxtNFra, &c_.TxtFFra}) Habilitar(*campo, false);
  c_.CmdCon.Enabled = false;
  vencimientos_.CargarVencimientos();
  vencimientos_.GuardarVencimientos();
  factura.Collect("forpago").Texto() == "1" ? PonerVista(clave) : PonerAplazado(factura);
  PonerIrpf(factura);
  PonerBases(clave);
  return true;
}

void Factura::PonerAplazado(Recordset& factura) {
  terminos_.Opt("Aplazado", true, false);
  c_.TxtNRecibos.Text = factura.Collect("NRecibos").Texto();
  c_.TxtDias.Text = factura.Collect("Dias1Vto").Texto();
  c_.TxtDias1.Text = c_.TxtDias.Text();
  c_.TxtCadencia.Text = factura.Collect("Cadencia").Texto();
  c_.TxtCadencia1.Text = c_.TxtCadencia.Text();
}

void Factura::PonerVista(const Clave& clave) {
  terminos_.Opt("Vista", true, false);
  Recordset rs;
  rs.Open(
      "SELECT TempProvVencimientos.* FROM TempProvVencimientos WHERE "
      "TempProvVencimientos.NConcepto like '" +
          clave.NConcepto + "' AND Trim(TempProvVencimientos.NFactura) like '" + clave.Factura +
          "' AND TempProvVencimientos.Año like '" + clave.Anio + "'",
      sesion_.CnTemp(), ModoApertura::Lectura);
  c_.TxtFVista.Text = rs.Eof() ? vencimientos_.PrimeraFecha()
                               : sesion_.Utiles().Mostrada(rs.Collect("FechaVto").Texto());
  c_.TxtFVista.Tag = c_.TxtFVista.Text();
}

void Factura::PonerIrpf(Recordset& factura) {
  const std::string tipo = factura.Collect("TipoIRPF").Texto();
  if (tipo == "0" || tipo.empty()) return;
  c_.Chk15.Value = true;
  c_.TxtTipoIRPF.Text = Mascara(factura.Collect("TipoIRPF").Leer(), services::mascara::Entero);
  c_.TxtBIRPF.Text = Mascara(factura.Collect("BIRPF").Leer());
  c_.TxtIRPF.Text = Mascara(factura.Collect("IRPF").Leer());
}

void Factura::PonerBases(const Clave& clave) {
  Recordset rs;
  rs.Open(
      "SELECT TempProvBasesIva.* FROM TempProvBasesIva WHERE TempProvBasesIva.NConcepto like '" +
          clave.NConcepto + "' And Trim(TempProvBasesIva.NFactura) like '" + clave.Factura +
          "' And TempProvBasesIva.Año like '" + clave.Anio + "'",
      sesion_.CnTemp(), ModoApertura::Lectura);
  if (rs.Eof()) {
    // Wholly exempt.
    c_.TxtB0.Text = Mascara(Valor(c_.TxtIFra.Text()));
    c_.Chk0.Value = true;
  }
  for (; !rs.Eof(); rs.MoveNext()) PonerBase(rs);
}

/// The texts come first: the click of a box that goes on leaves them alone.
void Factura::PonerBase(Recordset& base) {
  const std::string tipo = base.Collect("Tipo").Texto();
  for (const Tramo& tramo : c_.Tramos()) {
    if (tipo != tramo.Tipo.Codigo) continue;
    tramo.Base.Text = Mascara(base.Collect("Base").Leer());
    tramo.Iva.Text = Mascara(base.Collect("Importe").Leer());
    tramo.Caja.Value = true;
    return;
  }
  c_.TxtB0.Text = Mascara(base.Collect("Exento").Leer());
  const list::Mientras cargando(c_.CargandoFactura);
  c_.Chk0.Value = true;
}

void Factura::GrabarFactura() {
  if (c_.TxtNConcepto.Text().empty()) {
    return sesion_.Aviso().Rechazar("Error al grabar, Faltan Datos");
  }
  Recordset rs;
  rs.Open(
      FacturaDe("TempProvFacturas", "And", c_.EsNueva() ? ClaveDelPanel(c_) : ClaveModificada()),
      sesion_.CnTemp(), ModoApertura::Pesimista);
  // A number that is free in the working copy may be taken in the stored tables.
  if (c_.EsNueva() && (EstaAlmacenada() || !rs.Eof())) return RechazarRepetida();
  // A changed invoice keeps its row.
  if (rs.Eof()) rs.AddNew();
  Rellenar(rs);
  if (!Escribir(rs, kFacturaYaExiste, c_.TxtNFra) || !GrabarBases()) return;
  vencimientos_.GrabarVencimientos();
}

bool Factura::EstaAlmacenada() const {
  Recordset rs;
  rs.Open(FacturaDe("ProvFacturas", "and", ClaveDelPanel(c_)), sesion_.CnDatos(),
          ModoApertura::Pesimista);
  return !rs.Eof();
}

void Factura::RechazarRepetida() {
  sesion_.Aviso().Mostrar(kFacturaYaExiste, services::mensaje::Alto, "Error");
  c_.TxtNFra.SetFocus();
  c_.BtnAceptar.Tag = "F";
}

Clave Factura::ClaveModificada() const {
  Clave clave = ClaveDeLaLista(lista_);
  if (clave.Factura.empty()) clave.Factura = services::Trim(c_.TxtNFra.Text());
  return clave;
}

void Factura::Rellenar(Recordset& rs) {
  Completar(c_.TxtNRecibos, "1");
  Completar(c_.TxtDias, "0");
  Completar(c_.TxtCadencia, "0");
  const bool retiene = c_.Chk15.Value;
  rs.Collect("NConcepto") = c_.TxtNConcepto.Text();
  rs.Collect("Descripcion") = c_.TxtConcepto.Text();
  rs.Collect("Fecha") = sesion_.Utiles().Almacenada(c_.TxtFFra.Text());
  rs.Collect("Factura") = services::Trim(c_.TxtNFra.Text());
  rs.Collect("Año") = AnioDe(c_.TxtFFra.Text);
  rs.Collect("Total") = c_.TxtIFra.Text();
  rs.Collect("forpago") = c_.OptAplazado.Value ? "2" : "1";
  rs.Collect("NRecibos") = c_.TxtNRecibos.Text();
  rs.Collect("Dias1Vto") = c_.TxtDias.Text();
  rs.Collect("Cadencia") = c_.TxtCadencia.Text();
  rs.Collect("BIRPF") = retiene ? c_.TxtBIRPF.Text() : "0";
  rs.Collect("IRPF") = retiene ? c_.TxtIRPF.Text() : "0";
  rs.Collect("TipoIRPF") = retiene ? c_.TxtTipoIRPF.Text() : "0";
}

bool Factura::Escribir(Recordset& rs, const char* siNoCabe, TextBox& campo) {
  try {
    rs.Update();
    return true;
  } catch (const services::ErrorEjecucion& fallo) {
    sesion_.Aviso().FalloAlEscribir(fallo, siNoCabe);
    // Any other failure leaves no trace: the panel closes as after a success.
    if (fallo.Numero() != services::error::RepetidoONoCabe) return false;
    rs.CancelUpdate();
    c_.BtnAceptar.Tag = "F";
    campo.SetFocus();
    return false;
  }
}

bool Factura::GrabarBases() {
  Recordset rs;
  AbrirBases(rs);
  return rs.Eof() ? AnadirBases(rs) : ActualizarBases(rs);
}

void Factura::AbrirBases(Recordset& rs) const {
  const Clave fila = ClaveDeLaLista(lista_);
  const auto condicion = [](const std::string& factura, const std::string& concepto, const char* y,
                            const std::string& anio) {
    return "FROM TempProvBasesIva WHERE Trim(TempProvBasesIva.NFactura) like '" + factura +
           "' And TempProvBasesIva.NConcepto like '" + concepto + y + anio + "'";
  };
  std::string cual;
  if (!c_.EsNueva()) {
    cual = condicion(fila.Factura, fila.NConcepto, "' And TempProvBasesIva.Año like '", fila.Anio);
    Recordset borradas;
    borradas.Open("DELETE TempProvBasesIva.* " + cual, sesion_.CnTemp(), ModoApertura::Optimista);
  } else {
    // The year is that of whichever row the list stands on, not the new invoice's.
    cual = condicion(std::string(services::Trim(c_.TxtNFra.Text())), c_.TxtNConcepto.Text,
                     "'And TempProvBasesIva.Año like '", fila.Anio);
  }
  rs.Open("SELECT TempProvBasesIva.* " + cual, sesion_.CnTemp(), ModoApertura::Optimista);
}

std::vector<Factura::Partida> Factura::Partidas() const {
  std::vector<Partida> partidas;
  for (const Tramo& tramo : c_.Tramos()) {
    if (!tramo.Base.Text().empty()) {
      partidas.push_back({tramo.Tipo.Codigo, tramo.Base, &tramo.Iva});
    }
  }
  if (!c_.TxtB0.Text().empty()) partidas.push_back({kExento, c_.TxtB0, nullptr});
  return partidas;
}

bool Factura::AnadirBases(Recordset& rs) {
  for (const Partida& partida : Partidas()) {
    rs.AddNew();
    if (!EscribirBase(rs, partida, "Exento")) return false;
  }
  return true;
}

/// Of each row only the first rate in use is looked at; rows of rates no longer in use remain.
bool Factura::ActualizarBases(Recordset& rs) {
  const auto partidas = Partidas();
  bool hallada = false;
  for (; !rs.Eof(); rs.MoveNext()) {
    if (partidas.empty() || rs.Collect("Tipo").Texto() != partidas.front().Tipo) continue;
    if (!EscribirBase(rs, partidas.front(), "Exento")) return false;
    hallada = true;
  }
  for (const Partida& partida : partidas) {
    if (hallada && &partida == &partidas.front()) continue;
    rs.AddNew();
    // The exempt part goes where a base does, unlike in an invoice without rows.
    if (!EscribirBase(rs, partida, "Base")) return false;
  }
  return true;
}

bool Factura::EscribirBase(Recordset& rs, const Partida& partida, const char* columnaExento) {
  rs.Collect("NConcepto") = c_.TxtNConcepto.Text();
  rs.Collect("NFactura") = services::Trim(c_.TxtNFra.Text());
  rs.Collect("Año") = AnioDe(c_.TxtFFra.Text);
  rs.Collect("Tipo") = partida.Tipo;
  if (partida.Iva) {
    rs.Collect("Base") = partida.Base.Text();
    rs.Collect("Importe") = partida.Iva->Text();
  } else {
    rs.Collect(columnaExento) = partida.Base.Text();
  }
  return Escribir(rs, kBasesYaExisten, c_.TxtB16);
}

}  // namespace entry
