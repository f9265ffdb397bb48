#include "cash/facturas_de_caja.h"

#include <utility>

#include "entry/avisos.h"
#include "entry/clave.h"
#include "entry/descripcion.h"
#include "valores/formato.h"
#include "valores/texto.h"

namespace cash {

using services::ModoApertura;
using services::Recordset;

FacturasDeCaja::FacturasDeCaja(services::Sesion& sesion, DatosDeFactura datos, bool unaPorGrupo)
    : sesion_(sesion), datos_(std::move(datos)), unaPorGrupo_(unaPorGrupo) {}

bool FacturasDeCaja::Abrir(const std::string& concepto) {
  const entry::Clave clave{concepto, datos_.Factura, datos_.Anio};
  facturas_.Open(entry::FacturaDe("TempProvFacturas", "And", clave), sesion_.CnTemp(),
                 ModoApertura::Pesimista);
  Recordset almacenadas;
  almacenadas.Open(entry::FacturaDe("ProvFacturas", "and", clave), sesion_.CnDatos(),
                   ModoApertura::Pesimista);
  return !facturas_.Eof() || !almacenadas.Eof();
}

FacturasDeCaja::Fin FacturasDeCaja::EscribirFactura(const Grupo& grupo) {
  if (const auto descripcion = entry::DescripcionDe(sesion_, grupo.Tipo)) {
    nConcepto_ = services::Trim(grupo.Tipo);
    descripcion_ = services::Trim(*descripcion);
  }
  if (unaPorGrupo_ || facturas_.Eof()) facturas_.AddNew();
  Rellenar(grupo);
  return Escribir(facturas_, entry::kFacturaYaExiste);
}

void FacturasDeCaja::Rellenar(const Grupo& grupo) {
  facturas_.Collect("NConcepto") = nConcepto_;
  facturas_.Collect("Descripcion") = descripcion_;
  facturas_.Collect("Fecha") = datos_.Fecha;
  facturas_.Collect("Factura") = datos_.Factura;
  facturas_.Collect("Año") = datos_.Anio;
  facturas_.Collect("forpago") = "1";
  facturas_.Collect("Total") = services::Mascara(grupo.Importe);
  facturas_.Collect("NRecibos") = 1;
  facturas_.Collect("Dias1Vto") = 0;
  facturas_.Collect("Cadencia") = 0;
  for (const char* columna : {"BIRPF", "IRPF", "TipoIRPF"}) facturas_.Collect(columna) = "0";
}

bool FacturasDeCaja::EscribirBase(const Grupo& grupo) {
  Recordset rs;
  rs.Open(
      "SELECT TempProvBasesIva.* FROM TempProvBasesIva WHERE Trim(TempProvBasesIva.NFactura) like "
      "'" +
          datos_.Factura + "' And TempProvBasesIva.NConcepto like '" + nConcepto_ +
          "'And TempProvBasesIva.Año like '" + datos_.Anio + "'",
      sesion_.CnTemp(), ModoApertura::Optimista);
  if (!rs.Eof()) return true;
  rs.AddNew();
  rs.Collect("NConcepto") = nConcepto_;
  rs.Collect("NFactura") = datos_.Factura;
  if (datos_.Tipo) {
    // The VAT is that of the rounded base: both may miss the total by a cent.
    const entry::BaseEIva partes = entry::SepararResto(grupo.Importe, *datos_.Tipo);
    rs.Collect("Tipo") = datos_.Tipo->Codigo;
    rs.Collect("Base") = partes.Base;
    rs.Collect("Año") = datos_.Anio;
    rs.Collect("Importe") = partes.Iva;
  } else {
    rs.Collect("Tipo") = entry::kExento;
    rs.Collect("Año") = datos_.Anio;
    rs.Collect("Exento") = grupo.Importe;
  }
  return Escribir(rs, entry::kBasesYaExisten) == Fin::Escrita;
}

/// By the group's own concept, also where there is none of that number.
void FacturasDeCaja::GenerarRecibo(const Grupo& grupo) {
  const std::string recibos =
      "FROM TempProvVencimientos WHERE TempProvVencimientos.NConcepto like '" + grupo.Tipo +
      "' And trim(TempProvVencimientos.NFactura) like '" + datos_.Factura +
      "' And TempProvVencimientos.Año like '" + datos_.Anio + "'";
  Recordset rs;
  rs.Open("DELETE TempProvVencimientos.* " + recibos, sesion_.CnTemp(), ModoApertura::Optimista);
  rs.Open("SELECT TempProvVencimientos.* " + recibos, sesion_.CnTemp(), ModoApertura::Optimista);
  if (!rs.Eof()) return;
  rs.AddNew();
  rs.Collect("FechaVto") = datos_.Fecha;
  if (const auto descripcion = entry::DescripcionDe(sesion_, grupo.Tipo)) {
    rs.Collect("Descripcion") = services::Trim(*descripcion);
  }
  rs.Collect("NConcepto") = grupo.Tipo;
  rs.Collect("Importe") = grupo.Importe;
  rs.Collect("Pagado") = grupo.Importe;
  rs.Collect("NFactura") = datos_.Factura;
  rs.Collect("Visible") = true;
  rs.Collect("Año") = datos_.Anio;
  static_cast<void>(Escribir(rs, entry::kRecibosSinGenerar));
}

FacturasDeCaja::Fin FacturasDeCaja::Escribir(Recordset& rs, const char* siNoCabe) {
  try {
    rs.Update();
    return Fin::Escrita;
  } catch (const services::ErrorEjecucion& fallo) {
    sesion_.Aviso().FalloAlEscribir(fallo, siNoCabe);
    if (fallo.Numero() != services::error::RepetidoONoCabe) return Fin::Fallida;
    rs.CancelUpdate();
    return Fin::NoCabe;
  }
}

}  // namespace cash
