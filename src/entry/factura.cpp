#include "entry/factura.h"

#include <algorithm>

#include "valores/error.h"
#include "valores/texto.h"

namespace entry {

using services::ModoApertura;
using services::Recordset;
using services::TextBox;

namespace {

constexpr const char* kYaExiste = "Esta Factura ya exite ";

/// A field that can't stay empty gets its value.
void Completar(TextBox& campo, const char* valor) {
  if (campo.Text().empty()) campo.Text = valor;
}

}  // namespace

Factura::Factura(Campos& campos, services::Sesion& sesion, const list::RejillaPagos& lista,
                 Vencimientos& vencimientos)
    : c_(campos), sesion_(sesion), lista_(lista), vencimientos_(vencimientos) {}

void Factura::GrabarFactura() {
  if (c_.TxtNConcepto.Text().empty()) {
    return sesion_.Aviso().Rechazar("Error al grabar, Faltan Datos");
  }
  Recordset rs;
  if (c_.EsModificacion()) {
    AbrirModificada(rs);
  } else if (EstaRepetida(rs)) {
    return;
  }
  // A changed invoice keeps its row.
  if (rs.Eof()) rs.AddNew();
  Rellenar(rs);
  if (!Escribir(rs, kYaExiste, c_.TxtNFra) || !GrabarBases()) return;
  vencimientos_.GrabarVencimientos();
}

std::string Factura::BuscarEn(const char* tabla, const char* y, const Clave& clave) const {
  const std::string t = tabla;
  return "SELECT " + t + ".* FROM " + t + " WHERE RTRIM(LTRIM(" + t + ".Factura)) like '" +
         clave.Factura + "' And " + t + ".NConcepto like '" + clave.NConcepto + "' " + y + " " + t +
         ".Año like '" + clave.Anio + "'";
}

/// A number that is free in the working copy may be taken in the stored tables.
bool Factura::EstaRepetida(Recordset& rs) {
  const Clave clave = ClaveDelPanel(c_);
  rs.Open(BuscarEn("TempProvFacturas", "And", clave), sesion_.CnTemp(), ModoApertura::Pesimista);
  Recordset almacenadas;
  almacenadas.Open(BuscarEn("ProvFacturas", "and", clave), sesion_.CnDatos(),
                   ModoApertura::Pesimista);
  if (rs.Eof() && almacenadas.Eof()) return false;
  sesion_.Aviso().Mostrar(kYaExiste, services::mensaje::Alto, "Error");
  c_.TxtNFra.SetFocus();
  c_.BtnAceptar.Tag = "F";
  return true;
}

Clave Factura::ClaveModificada() const {
  Clave clave = ClaveDeLaLista(lista_);
  if (clave.Factura.empty()) clave.Factura = services::Trim(c_.TxtNFra.Text());
  return clave;
}

void Factura::AbrirModificada(Recordset& rs) const {
  rs.Open(BuscarEn("TempProvFacturas", "And", ClaveModificada()), sesion_.CnTemp(),
          ModoApertura::Pesimista);
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
  if (c_.EsModificacion()) {
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

std::array<Factura::Partida, 4> Factura::Partidas() const {
  return {Partida{"1", c_.TxtB16, &c_.TxtI16}, Partida{"2", c_.TxtB7, &c_.TxtI7},
          Partida{"3", c_.TxtB4, &c_.TxtI4}, Partida{"0", c_.TxtB0, nullptr}};
}

bool Factura::AnadirBases(Recordset& rs) {
  for (const Partida& partida : Partidas()) {
    if (partida.Base.Text().empty()) continue;
    rs.AddNew();
    if (!EscribirBase(rs, partida, "Exento")) return false;
  }
  return true;
}

/// Of each row only the first rate in use is looked at; rows of rates no longer in use remain.
bool Factura::ActualizarBases(Recordset& rs) {
  const auto partidas = Partidas();
  const auto usada = [](const Partida& p) { return !p.Base.Text().empty(); };
  const auto primera = std::find_if(partidas.begin(), partidas.end(), usada);
  bool hallada = false;
  for (; !rs.Eof(); rs.MoveNext()) {
    if (primera == partidas.end() || rs.Collect("Tipo").Texto() != primera->Tipo) continue;
    if (!EscribirBase(rs, *primera, "Exento")) return false;
    hallada = true;
  }
  for (const Partida& partida : partidas) {
    if (!usada(partida) || (hallada && &partida == &*primera)) continue;
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
  return Escribir(rs, "Error al grabar las bases de Iva ya exite ", c_.TxtB16);
}

}  // namespace entry
