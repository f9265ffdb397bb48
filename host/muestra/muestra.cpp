#include "muestra/muestra.h"

#include <string>

#include "muestra/facturas.h"
#include "services/recordset.h"

namespace muestra {
namespace {

using services::FechaHora;
using services::Recordset;
using services::Valor;

constexpr std::uint32_t kSemilla = 20050315;
constexpr int kFacturas = 1200;
constexpr int kEntradasDeCaja = 90;
constexpr const char* kUsuario = "MUESTRA";

std::string FormaR(FechaHora dia) {
  const services::Calendario c = services::Descomponer(dia);
  return std::to_string(c.Anio * 10000 + c.Mes * 100 + c.Dia);
}

Valor Dinero(Centimos centimos) {
  return static_cast<double>(centimos) / 100;
}

std::string Anio(FechaHora dia) {
  return std::to_string(services::Descomponer(dia).Anio);
}

/// Writes the sample row by row; the tables stay open so that each statement is understood once.
class Escritor {
 public:
  Escritor(services::Conexion& datos, FechaHora hoy) : hoy_(hoy) {
    const auto abrir = [&datos](Recordset& rs, const char* tabla) {
      rs.Open(std::string("SELECT ") + tabla + ".* FROM " + tabla, datos,
              services::ModoApertura::Optimista);
    };
    abrir(conceptos_, "ProvConceptos");
    abrir(facturas_, "ProvFacturas");
    abrir(bases_, "ProvBasesIva");
    abrir(vencimientos_, "ProvVencimientos");
    abrir(previsiones_, "ProvPrevisionPagos");
    abrir(caja_, "CajaPagos");
  }

  void Anadir(const Concepto& concepto) {
    conceptos_.AddNew();
    conceptos_.Collect("NConcepto") = std::to_string(concepto.Codigo);
    conceptos_.Collect("Descripcion") = concepto.Descripcion;
    conceptos_.Update();
  }

  void Anadir(const Factura& factura) {
    facturas_.AddNew();
    PonerClave(facturas_, "Factura", factura);
    facturas_.Collect("Fecha") = FormaR(factura.Fecha);
    facturas_.Collect("Total") = Dinero(factura.Total());
    facturas_.Collect("forpago") = factura.Aplazada ? "2" : "1";
    facturas_.Collect("NRecibos") = static_cast<int>(factura.Recibos.size());
    facturas_.Collect("Dias1Vto") = factura.Dias1Vto;
    facturas_.Collect("Cadencia") = factura.Cadencia;
    facturas_.Collect("BIRPF") = Dinero(factura.BaseRetenida);
    facturas_.Collect("TipoIRPF") = factura.TipoRetencion;
    facturas_.Collect("IRPF") = Dinero(factura.Retencion);
    Firmar(facturas_);
    for (const Base& base : factura.Bases) AnadirBase(factura, base);
    if (factura.Exento != 0) AnadirExento(factura);
    for (const Recibo& recibo : factura.Recibos) AnadirRecibo(factura, recibo);
  }

  /// `cada` units of `tipo`: 1 days, 2 months, 3 years.
  void AnadirPrevision(int concepto, FechaHora primera, int cada, int tipo, Centimos importe) {
    previsiones_.AddNew();
    previsiones_.Collect("NConcepto") = std::to_string(concepto);
    previsiones_.Collect("Fecha1Vto") = FormaR(primera);
    previsiones_.Collect("Cada") = cada;
    previsiones_.Collect("Tipo") = tipo;
    previsiones_.Collect("Importe") = Dinero(importe);
    Firmar(previsiones_);
  }

  /// Without an invoice when null.
  void AnadirCaja(const char* sucursal, FechaHora momento, int concepto, Centimos importe,
                  const char* observaciones, const Factura* factura) {
    caja_.AddNew();
    caja_.Collect("idSucursal") = sucursal;
    caja_.Collect("FechaHora") = momento;
    caja_.Collect("Tipo") = concepto;
    caja_.Collect("Importe") = Dinero(importe);
    caja_.Collect("Observaciones") = observaciones;
    if (factura) {
      caja_.Collect("Factura") = factura->Numero;
      caja_.Collect("Año") = Anio(factura->Fecha);
    }
    caja_.Collect("Usuario") = kUsuario;
    Firmar(caja_);
  }

 private:
  static void PonerClave(Recordset& rs, const char* columna, const Factura& factura) {
    rs.Collect("NConcepto") = std::to_string(factura.De->Codigo);
    rs.Collect(columna) = factura.Numero;
    rs.Collect("Año") = Anio(factura.Fecha);
  }

  void AnadirBase(const Factura& factura, const Base& base) {
    bases_.AddNew();
    PonerClave(bases_, "NFactura", factura);
    bases_.Collect("Tipo") = base.Iva == 16 ? "1" : base.Iva == 7 ? "2" : "3";
    bases_.Collect("Base") = Dinero(base.Importe);
    bases_.Collect("Importe") = Dinero(base.Cuota);
    Firmar(bases_);
  }

  void AnadirExento(const Factura& factura) {
    bases_.AddNew();
    PonerClave(bases_, "NFactura", factura);
    bases_.Collect("Tipo") = "0";
    bases_.Collect("Exento") = Dinero(factura.Exento);
    Firmar(bases_);
  }

  void AnadirRecibo(const Factura& factura, const Recibo& recibo) {
    vencimientos_.AddNew();
    PonerClave(vencimientos_, "NFactura", factura);
    vencimientos_.Collect("FechaVto") = FormaR(recibo.Vencimiento);
    vencimientos_.Collect("Importe") = Dinero(recibo.Importe);
    vencimientos_.Collect("Pagado") = Dinero(recibo.Pagado);
    vencimientos_.Collect("Fechapago") = recibo.Pago.EsCero() ? "" : FormaR(recibo.Pago);
    Firmar(vencimientos_);
  }

  void Firmar(Recordset& rs) {
    const std::string dia = FormaR(hoy_);
    rs.Collect("Actualizado") =
        dia.substr(0, 4) + "-" + dia.substr(4, 2) + "-" + dia.substr(6) + " 00:00:00";
    rs.Collect("ModificadoPor") = kUsuario;
    rs.Update();
  }

  FechaHora hoy_;
  Recordset conceptos_;
  Recordset facturas_;
  Recordset bases_;
  Recordset vencimientos_;
  Recordset previsiones_;
  Recordset caja_;
};

FechaHora Mas(FechaHora dia, int dias) {
  return {dia.Dias + dias, 0};
}

void AnadirPrevisiones(Escritor& escritor, FechaHora hoy) {
  const services::Calendario c = services::Descomponer(hoy);
  const FechaHora mes = services::HacerFecha(c.Anio, c.Mes, 1);
  escritor.AnadirPrevision(305, Mas(mes, 2), 7, 1, 17400);
  escritor.AnadirPrevision(307, Mas(mes, 1), 15, 1, 6550);
  escritor.AnadirPrevision(116, Mas(mes, 4), 10, 1, 12080);
  escritor.AnadirPrevision(315, Mas(mes, 0), 1, 2, 191400);
  escritor.AnadirPrevision(316, Mas(mes, 4), 1, 2, 129920);
  escritor.AnadirPrevision(301, Mas(mes, 19), 2, 2, 90480);
  escritor.AnadirPrevision(304, Mas(mes, 24), 1, 2, 39440);
  escritor.AnadirPrevision(201, Mas(mes, 9), 1, 2, 45450);
  escritor.AnadirPrevision(404, Mas(mes, -60), 1, 2, 26000);
  escritor.AnadirPrevision(308, Mas(mes, 40), 3, 2, 64960);
  escritor.AnadirPrevision(401, Mas(mes, 14), 1, 3, 73000);
  escritor.AnadirPrevision(403, Mas(mes, 75), 1, 3, 48000);
  escritor.AnadirPrevision(402, Mas(mes, -200), 1, 3, 11500);
}

void AnadirCaja(Escritor& escritor, const std::vector<Factura>& facturas, FechaHora hoy,
                Azar& azar) {
  const std::vector<const char*> motivos = {"Compra urgente",      "Portes a la entrega",
                                            "Material de oficina", "Dietas de viaje",
                                            "Reparación pequeña",  "A cuenta de factura"};
  for (int i = 0; i < kEntradasDeCaja; ++i) {
    const char* sucursal = i % 2 == 0 ? "01" : "02";
    // Each entry has a minute of its own, since branch, moment and concept are its key.
    const FechaHora momento{hoy.Dias - azar.Menos(60), 9 * 3600 + 60 * (5 * i % 540)};
    const Factura& factura = azar.De(facturas);
    const Factura* facturada = azar.Ciento(35) ? &factura : nullptr;
    const Centimos importe = azar.Entre(350, 18000);
    escritor.AnadirCaja(sucursal, momento, factura.De->Codigo, importe, azar.De(motivos),
                        facturada);
  }
}

void Escribir(services::Conexion& CnDatos, FechaHora hoy) {
  Azar azar(kSemilla);
  Escritor escritor(CnDatos, hoy);
  for (const Concepto& concepto : Conceptos()) escritor.Anadir(concepto);
  const std::vector<Factura> facturas = Facturas(kFacturas, hoy, azar);
  for (const Factura& factura : facturas) escritor.Anadir(factura);
  AnadirPrevisiones(escritor, hoy);
  AnadirCaja(escritor, facturas, hoy, azar);
}

}  // namespace

void Llenar(services::Conexion& CnDatos, FechaHora hoy) {
  try {
    Escribir(CnDatos, hoy);
  } catch (...) {
    CnDatos.AbandonarUnidad();
    throw;
  }
  CnDatos.TerminarUnidad();
}

}  // namespace muestra
