#include "muestra/escritura.h"

#include <cstdio>

namespace muestra {
namespace {

using services::FechaHora;
using services::Recordset;
using services::Valor;

constexpr const char* kUsuario = "ADMINISTRACIÓN";

Valor Dinero(Centimos importe) {
  return static_cast<double>(importe) / 100;
}

template <std::size_t N, class... Partes>
std::string Escrito(const char (&forma)[N], Partes... partes) {
  char texto[48];
  std::snprintf(texto, sizeof texto, forma, partes...);
  return texto;
}

/// The stored form of a date.
std::string Almacenada(FechaHora dia) {
  const auto d = services::Descomponer(dia);
  return Escrito("%04d%02d%02d", d.Anio, d.Mes, d.Dia);
}

std::string Anio(FechaHora dia) {
  return std::to_string(services::Descomponer(dia).Anio);
}

/// Rows look last changed in the evening of a day.
std::string Actualizado(FechaHora dia) {
  return services::TextoIso({dia.Dias, 19 * 3600});
}

void Sellar(Recordset& rs, FechaHora dia, std::string_view usuario = kUsuario) {
  rs.Collect("Actualizado") = Actualizado(dia);
  rs.Collect("ModificadoPor") = usuario;
}

/// With others, in few trips to a server.
void Dejar(Recordset& rs) {
  rs.UpdateLuego(
      [](const services::ErrorEjecucion& fallo) { throw services::ErrorEjecucion(fallo); });
}

}  // namespace

Escritura::Escritura(services::Conexion& CnDatos) {
  const auto abrir = [&](Recordset& rs, const char* sentencia) {
    rs.Open(sentencia, CnDatos, services::ModoApertura::Optimista);
  };
  abrir(conceptos_, "SELECT ProvConceptos.* FROM ProvConceptos");
  abrir(facturas_, "SELECT ProvFacturas.* FROM ProvFacturas");
  abrir(bases_, "SELECT ProvBasesIva.* FROM ProvBasesIva");
  abrir(vencimientos_, "SELECT ProvVencimientos.* FROM ProvVencimientos");
  abrir(previsiones_, "SELECT ProvPrevisionPagos.* FROM ProvPrevisionPagos");
  abrir(caja_, "SELECT CajaPagos.* FROM CajaPagos");
}

void Escritura::Anadir(const Concepto& concepto) {
  conceptos_.AddNew();
  conceptos_.Collect("NConcepto") = concepto.Codigo;
  conceptos_.Collect("Descripcion") = concepto.Descripcion;
  Dejar(conceptos_);
}

void Escritura::Anadir(const Factura& factura) {
  Recordset& rs = facturas_;
  rs.AddNew();
  rs.Collect("NConcepto") = factura.Concepto->Codigo;
  rs.Collect("Factura") = factura.Numero;
  rs.Collect("Año") = Anio(factura.Fecha);
  rs.Collect("Fecha") = Almacenada(factura.Fecha);
  rs.Collect("Total") = Dinero(factura.Total);
  rs.Collect("forpago") = factura.Plazo.Aplazado ? "2" : "1";
  rs.Collect("NRecibos") = factura.Plazo.Recibos;
  rs.Collect("Dias1Vto") = factura.Plazo.Dias1Vto;
  rs.Collect("Cadencia") = factura.Plazo.Cadencia;
  rs.Collect("BIRPF") = Dinero(factura.Retencion.Base);
  rs.Collect("TipoIRPF") = factura.Retencion.Tipo;
  rs.Collect("IRPF") = Dinero(factura.Retencion.Importe);
  Sellar(rs, factura.Fecha);
  Dejar(rs);
  for (const Base& base : factura.Bases) Anadir(factura, base);
  for (const Recibo& recibo : factura.Recibos) Anadir(factura, recibo);
}

void Escritura::Anadir(const Factura& factura, const Base& base) {
  Recordset& rs = bases_;
  rs.AddNew();
  rs.Collect("NConcepto") = factura.Concepto->Codigo;
  rs.Collect("NFactura") = factura.Numero;
  rs.Collect("Año") = Anio(factura.Fecha);
  rs.Collect("Tipo") = std::string(1, base.Tipo);
  // An exempt row has neither base nor VAT, and the others have no exempt amount.
  if (base.Tipo == '0') {
    rs.Collect("Exento") = Dinero(base.Importe);
  } else {
    rs.Collect("Base") = Dinero(base.Importe);
    rs.Collect("Importe") = Dinero(base.Iva);
  }
  Sellar(rs, factura.Fecha);
  Dejar(rs);
}

void Escritura::Anadir(const Factura& factura, const Recibo& recibo) {
  Recordset& rs = vencimientos_;
  rs.AddNew();
  rs.Collect("NConcepto") = factura.Concepto->Codigo;
  rs.Collect("NFactura") = factura.Numero;
  rs.Collect("Año") = Anio(factura.Fecha);
  rs.Collect("FechaVto") = Almacenada(recibo.Vence);
  rs.Collect("Importe") = Dinero(recibo.Importe);
  if (recibo.Pagado) rs.Collect("Pagado") = Dinero(*recibo.Pagado);
  if (recibo.Pago) rs.Collect("Fechapago") = Almacenada(*recibo.Pago);
  Sellar(rs, recibo.Pago.value_or(factura.Fecha));
  Dejar(rs);
}

void Escritura::Anadir(const Prevision& prevision) {
  Recordset& rs = previsiones_;
  rs.AddNew();
  rs.Collect("NConcepto") = prevision.Concepto;
  rs.Collect("Fecha1Vto") = Almacenada(prevision.Primera);
  rs.Collect("Cada") = prevision.Cada;
  rs.Collect("Tipo") = prevision.Tipo;
  rs.Collect("Importe") = Dinero(prevision.Importe);
  rs.Collect("Actualizado") = Actualizado(prevision.Primera);
  Dejar(rs);
}

void Escritura::Anadir(const Apunte& apunte) {
  Recordset& rs = caja_;
  rs.AddNew();
  rs.Collect("idSucursal") = apunte.Sucursal;
  rs.Collect("FechaHora") = apunte.Momento;
  rs.Collect("Tipo") = apunte.Concepto;
  rs.Collect("Importe") = Dinero(apunte.Importe);
  rs.Collect("Observaciones") = apunte.Observaciones;
  if (apunte.Factura) rs.Collect("Factura") = *apunte.Factura;
  if (apunte.Anio) rs.Collect("Año") = std::to_string(*apunte.Anio);
  rs.Collect("Usuario") = apunte.Usuario;
  Sellar(rs, apunte.Momento, apunte.Usuario);
  Dejar(rs);
}

}  // namespace muestra
