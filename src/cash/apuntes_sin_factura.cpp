#include "cash/apuntes_sin_factura.h"

#include <algorithm>

#include "datos/recordset.h"
#include "entry/apunte_de_caja.h"
#include "valores/fecha.h"
#include "valores/formato.h"
#include "valores/numero.h"

namespace cash {

using services::ModoApertura;
using services::Recordset;

namespace {

/// A moment of a statement, the month first.
std::string Momento(const std::string& fecha, const char* hora) {
  return "#" + std::to_string(services::Month(fecha)) + "/" + std::to_string(services::Day(fecha)) +
         "/" + std::to_string(services::Year(fecha)) + " " + hora + "#";
}

}  // namespace

ApuntesSinFactura::ApuntesSinFactura(const std::string& concepto)
    : puedeHaber_(entry::PuedeTenerApuntes(concepto)),
      concepto_("TempCajaPagos.Tipo = " + concepto + " AND ") {}

void ApuntesSinFactura::Entre(const std::string& desde, const std::string& hasta) {
  fechas_ = " And TempCajaPagos.FechaHora >= " + Momento(desde, "00:00:00") +
            " And TempCajaPagos.FechaHora <= " + Momento(hasta, "23:59:59");
}

std::string ApuntesSinFactura::Condiciones() const {
  return " FROM TempCajaPagos WHERE " + concepto_ +
         "(TempCajaPagos.Factura Is Null OR TempCajaPagos.Factura = '')" + fechas_;
}

std::vector<Grupo> ApuntesSinFactura::Grupos(services::Sesion& sesion) const {
  if (!puedeHaber_) return {};
  Recordset rs;
  rs.Open(
      "SELECT Sum(TempCajaPagos.Importe) AS Importe, TempCajaPagos.Factura, TempCajaPagos.Año, "
      "TempCajaPagos.Tipo" +
          Condiciones() + " GROUP BY TempCajaPagos.Factura, TempCajaPagos.Año, TempCajaPagos.Tipo",
      sesion.CnTemp(), ModoApertura::Lectura);
  std::vector<Grupo> grupos;
  for (; !rs.Eof(); rs.MoveNext()) {
    const services::Valor importe = rs.Collect("Importe");
    grupos.push_back({rs.Collect("Tipo").Texto(),
                      importe.EsNulo() ? 0 : services::EnCentimos(importe.Numero())});
  }
  std::stable_sort(grupos.begin(), grupos.end(), [](const Grupo& a, const Grupo& b) {
    return services::Numero(a.Tipo) < services::Numero(b.Tipo);
  });
  return grupos;
}

void ApuntesSinFactura::Sellar(services::Sesion& sesion, const std::string& factura,
                               const std::string& anio) const {
  if (!puedeHaber_) return;
  Recordset rs;
  rs.Open("SELECT TempCajaPagos.Factura, TempCajaPagos.Año, TempCajaPagos.Tipo" + Condiciones(),
          sesion.CnTemp(), ModoApertura::Optimista);
  for (; !rs.Eof(); rs.MoveNext()) {
    rs.Collect("Factura") = factura;
    rs.Collect("Año") = anio;
    rs.Update();
  }
}

}  // namespace cash
