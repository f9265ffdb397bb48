#include "store/carga.h"

#include <string>

#include "datos/recordset.h"
#include "store/copia.h"
#include "store/tablas.h"
#include "store/vaciado.h"
#include "valores/modo_reanudar.h"
#include "valores/texto.h"

namespace store {
namespace {

using services::ModoApertura;
using services::ModoReanudar;
using services::Recordset;
using services::Valor;

/// The load of one range: its sources, one after the other, each into its working table.
class Carga {
 public:
  Carga(services::Sesion& sesion, const Intervalo& rango) : sesion_(sesion), rango_(rango) {}

  void Facturas();
  void Bases();
  void Vencimientos();
  void Previsiones();
  void CajaDeFacturas();
  void CajaPendiente();
  void FinDelTramo() { modo_.Desactivar(); }
  /// Whether every table could be opened; a row that is missing doesn't count.
  [[nodiscard]] bool Entera() const { return entera_; }

 private:
  void Copiar(const std::string& origen, const std::string& destino, const Columnas& columnas);
  void CopiarCajaDe(Recordset& factura);
  void Cerrar(Recordset& rs) {
    modo_.Paso([&] {
      if (rs.State()) rs.Close();
    });
  }

  services::Sesion& sesion_;
  const Intervalo& rango_;
  ModoReanudar modo_;
  bool entera_ = true;
  Recordset origen_;
  Recordset destino_;
};

void CopiarDescripcion(Recordset& origen, Recordset& destino) {
  destino.Collect("Descripcion") = origen.Collect("Descripcion");
}

void Carga::Copiar(const std::string& origen, const std::string& destino,
                   const Columnas& columnas) {
  modo_.Paso([&] { origen_.Open(origen, sesion_.CnDatos(), ModoApertura::Lectura); });
  modo_.Paso([&] { destino_.Open(destino, sesion_.CnTemp(), ModoApertura::Optimista); });
  if (!origen_.State() || !destino_.State()) entera_ = false;
  CopiarFilas(origen_, destino_, modo_, columnas);
  Cerrar(origen_);
  Cerrar(destino_);
}

/// The withholding columns of an invoice: what old rows lack becomes 0. So does a value of exactly
/// 1, and that is meant: the rule asks whether the value is other than 1, and a Null isn't.
Valor Retencion(std::size_t posicion, Valor valor) {
  using tabla::ProvFacturas;
  if (posicion < ProvFacturas::BIRPF || posicion > ProvFacturas::IRPF) return valor;
  const auto igual = services::Igual(valor, Valor(1));
  return igual && !*igual ? valor : Valor(0);
}

void Carga::Facturas() {
  Copiar(
      "SELECT DISTINCT ProvFacturas.*, ProvConceptos.Descripcion FROM (ProvFacturas INNER JOIN "
      "ProvVencimientos ON (ProvFacturas.Factura = ProvVencimientos.NFactura) AND "
      "(ProvFacturas.NConcepto = ProvVencimientos.NConcepto)) INNER JOIN ProvConceptos ON "
      "ProvFacturas.NConcepto = ProvConceptos.NConcepto WHERE ProvVencimientos.FechaVto >= '" +
          rango_.Desde + "' And ProvVencimientos.FechaVto <= '" + rango_.Hasta +
          "'  Order By ProvFacturas.Fecha",
      "SELECT TempProvFacturas.* FROM TempProvFacturas",
      {tabla::ProvFacturas::Actualizado, Retencion, CopiarDescripcion});
}

void Carga::Bases() {
  Copiar(
      "SELECT DISTINCT ProvBasesIva.* FROM ProvBasesIva INNER JOIN ProvVencimientos ON "
      "(ProvBasesIva.NConcepto = ProvVencimientos.NConcepto) AND (ProvBasesIva.NFactura = "
      "ProvVencimientos.NFactura)WHERE ProvVencimientos.FechaVto >= '" +
          rango_.Desde + "' And ProvVencimientos.FechaVto <= '" + rango_.Hasta + "'",
      "SELECT TempProvBasesIva.* From TempProvBasesIva", {tabla::ProvBasesIva::Exento});
}

void Carga::Vencimientos() {
  // The table joined to itself brings every due date of an invoice that has one in the range.
  Copiar(
      "SELECT DISTINCT ProvVencimientos.*, ProvConceptos.Descripcion FROM ((ProvVencimientos "
      "INNER JOIN ProvFacturas ON (ProvVencimientos.NConcepto = ProvFacturas.NConcepto) AND "
      "(ProvVencimientos.NFactura = ProvFacturas.Factura)) INNER JOIN ProvVencimientos AS "
      "ProvVencimientos_1 ON (ProvFacturas.NConcepto = ProvVencimientos_1.NConcepto) AND "
      "(ProvFacturas.Factura = ProvVencimientos_1.NFactura)) INNER JOIN ProvConceptos ON "
      "ProvVencimientos.NConcepto = ProvConceptos.NConcepto"
      " WHERE (((ProvVencimientos_1.FechaVto)>='" +
          rango_.Desde + "' And (ProvVencimientos_1.FechaVto)<='" + rango_.Hasta + "'))",
      "SELECT TempProvVencimientos.* From TempProvVencimientos",
      {tabla::ProvVencimientos::Actualizado, nullptr, [&](Recordset& origen, Recordset& destino) {
         const std::string vence = origen.Collect("FechaVto").Texto();
         destino.Collect("Visible") = !(vence < rango_.Desde || vence > rango_.Hasta);
         CopiarDescripcion(origen, destino);
       }});
}

void Carga::Previsiones() {
  Copiar(
      "SELECT DISTINCT ProvPrevisionPagos.NConcepto, ProvPrevisionPagos.Fecha1Vto, "
      "ProvPrevisionPagos.Cada, ProvPrevisionPagos.Tipo, ProvPrevisionPagos.Importe, "
      "ProvConceptos.Descripcion FROM ProvConceptos INNER JOIN ProvPrevisionPagos ON "
      "ProvConceptos.NConcepto = ProvPrevisionPagos.NConcepto WHERE "
      "ProvPrevisionPagos.Fecha1Vto <= '" +
          rango_.Hasta + "'  Order By ProvPrevisionPagos.Fecha1Vto",
      "SELECT TempProvPrevisionPagos.* From TempProvPrevisionPagos",
      {tabla::TempProvPrevisionPagos::Descripcion});
}

void Carga::CajaDeFacturas() {
  Recordset facturas;
  modo_.Paso([&] {
    destino_.Open("SELECT TempCajaPagos.* From TempCajaPagos", sesion_.CnTemp(),
                  ModoApertura::Optimista);
  });
  modo_.Paso([&] {
    facturas.Open("SELECT TempProvFacturas.* From TempProvFacturas", sesion_.CnTemp(),
                  ModoApertura::Lectura);
  });
  if (!facturas.State() || !destino_.State()) entera_ = false;
  while (facturas.State() && !facturas.Eof()) {
    CopiarCajaDe(facturas);
    facturas.MoveNext();
  }
  Cerrar(facturas);
  Cerrar(destino_);
}

void Carga::CopiarCajaDe(Recordset& factura) {
  const std::string numero = factura.Collect("Factura").Texto();
  modo_.Paso([&] {
    origen_.Open("SELECT CajaPagos.* From CajaPagos WHERE RTRIM(LTRIM(CajaPagos.Factura)) like '" +
                     std::string(services::Trim(numero)) + "' And CajaPagos.Tipo like " +
                     factura.Collect("NConcepto").Texto() + " And CajaPagos.Año like '" +
                     factura.Collect("Año").Texto() + "'",
                 sesion_.CnDatos(), ModoApertura::Lectura);
  });
  if (modo_.Numero() != 0) modo_.Limpiar();
  if (!origen_.State()) return;
  CopiarFilas(origen_, destino_, modo_, {tabla::CajaPagos::ModificadoPor});
  Cerrar(origen_);
}

void Carga::CajaPendiente() {
  Copiar(
      "SELECT CajaPagos.* From CajaPagos WHERE CajaPagos.Factura Is Null OR CajaPagos.Factura = ''",
      "SELECT TempCajaPagos.* From TempCajaPagos", {tabla::CajaPagos::ModificadoPor});
}

}  // namespace

bool CargarTemporales(services::Sesion& sesion, const Intervalo& rango) {
  VaciarTemporales(sesion.CnTemp());
  Carga carga(sesion, rango);
  carga.Facturas();
  carga.Bases();
  carga.Vencimientos();
  carga.Previsiones();
  carga.CajaDeFacturas();
  carga.FinDelTramo();
  carga.CajaPendiente();
  sesion.CnTemp().TerminarUnidad();
  return carga.Entera();
}

}  // namespace store
