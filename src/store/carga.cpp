#include "store/carga.h"

#include <string>

#include "datos/recordset.h"
#include "store/copia.h"
#include "store/tablas.h"
#include "store/tramo.h"
#include "store/vaciado.h"
#include "valores/texto.h"

namespace store {
namespace {

using services::ModoApertura;
using services::Recordset;
using services::Valor;
using Falta = Tramo::Falta;

/// The load of one range: its sources, one after the other, each into its working table.
class Carga {
 public:
  Carga(services::Sesion& sesion, const Intervalo& rango)
      : sesion_(sesion), rango_(rango), tramo_(sesion, services::Omision::Tarea::Carga) {}

  void Facturas();
  void Bases();
  void Vencimientos();
  void Previsiones();
  void CajaDeFacturas();
  void CajaPendiente();
  void FinDelTramo() { tramo_.Desactivar(); }
  /// Whether every table could be opened; a row that is missing doesn't count.
  [[nodiscard]] bool Entera() const { return entera_; }

 private:
  void Copiar(const std::string& origen, const char* tabla, const std::string& destino,
              const Columnas& columnas);
  void CopiarCajaDe(Recordset& factura);
  bool Abrir(Recordset& rs, const std::string& sentencia, services::Conexion& conexion,
             ModoApertura modo);
  void Cerrar(Recordset& rs) {
    tramo_.Paso(Falta::Nada, [&] {
      if (rs.State()) rs.Close();
    });
  }

  services::Sesion& sesion_;
  const Intervalo& rango_;
  Tramo tramo_;
  bool entera_ = true;
  Recordset origen_;
  Recordset destino_;
};

void CopiarDescripcion(Recordset& origen, Recordset& destino) {
  destino.Collect("Descripcion") = origen.Collect("Descripcion");
}

/// Opens one of the tables that the load is made of.
bool Carga::Abrir(Recordset& rs, const std::string& sentencia, services::Conexion& conexion,
                  ModoApertura modo) {
  if (tramo_.Paso(Falta::Tabla, [&] { rs.Open(sentencia, conexion, modo); })) return true;
  entera_ = false;
  return false;
}

void Carga::Copiar(const std::string& origen, const char* tabla, const std::string& destino,
                   const Columnas& columnas) {
  tramo_.EnTabla(tabla);
  Abrir(origen_, origen, sesion_.CnDatos(), ModoApertura::Lectura);
  Abrir(destino_, destino, sesion_.CnTemp(), ModoApertura::Optimista);
  CopiarFilas(origen_, destino_, tramo_, columnas);
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
      "TempProvFacturas", "SELECT TempProvFacturas.* FROM TempProvFacturas",
      {tabla::ProvFacturas::Actualizado, Retencion, CopiarDescripcion});
}

void Carga::Bases() {
  Copiar(
      "SELECT DISTINCT ProvBasesIva.* FROM ProvBasesIva INNER JOIN ProvVencimientos ON "
      "(ProvBasesIva.NConcepto = ProvVencimientos.NConcepto) AND (ProvBasesIva.NFactura = "
      "ProvVencimientos.NFactura)WHERE ProvVencimientos.FechaVto >= '" +
          rango_.Desde + "' And ProvVencimientos.FechaVto <= '" + rango_.Hasta + "'",
      "TempProvBasesIva", "SELECT TempProvBasesIva.* From TempProvBasesIva",
      {tabla::ProvBasesIva::Exento});
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
      "TempProvVencimientos", "SELECT TempProvVencimientos.* From TempProvVencimientos",
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
      "TempProvPrevisionPagos", "SELECT TempProvPrevisionPagos.* From TempProvPrevisionPagos",
      {tabla::TempProvPrevisionPagos::Descripcion});
}

/// The entries of an invoice.
std::string CajaDe(Recordset& factura) {
  const std::string numero = factura.Collect("Factura").Texto();
  return "SELECT CajaPagos.* From CajaPagos WHERE RTRIM(LTRIM(CajaPagos.Factura)) like '" +
         std::string(services::Trim(numero)) + "' And CajaPagos.Tipo like " +
         factura.Collect("NConcepto").Texto() + " And CajaPagos.Año like '" +
         factura.Collect("Año").Texto() + "'";
}

void Carga::CajaDeFacturas() {
  Recordset facturas;
  tramo_.EnTabla("TempCajaPagos");
  Abrir(destino_, "SELECT TempCajaPagos.* From TempCajaPagos", sesion_.CnTemp(),
        ModoApertura::Optimista);
  Abrir(facturas, "SELECT TempProvFacturas.* From TempProvFacturas", sesion_.CnTemp(),
        ModoApertura::Lectura);
  if (facturas.State()) {
    sesion_.CnDatos().Anticipar([&] { return SentenciasDe(facturas, CajaDe); },
                                ModoApertura::Lectura);
  }
  while (facturas.State() && !facturas.Eof()) {
    CopiarCajaDe(facturas);
    facturas.MoveNext();
  }
  Cerrar(facturas);
  Cerrar(destino_);
}

void Carga::CopiarCajaDe(Recordset& factura) {
  tramo_.ConFila(&factura);
  const bool abierta = tramo_.Paso(Falta::Fila, [&] {
    origen_.Open(CajaDe(factura), sesion_.CnDatos(), ModoApertura::Lectura);
  });
  if (!abierta) return;
  CopiarFilas(origen_, destino_, tramo_, {tabla::CajaPagos::ModificadoPor});
  Cerrar(origen_);
}

void Carga::CajaPendiente() {
  Copiar(
      "SELECT CajaPagos.* From CajaPagos WHERE CajaPagos.Factura Is Null OR CajaPagos.Factura = ''",
      "TempCajaPagos", "SELECT TempCajaPagos.* From TempCajaPagos",
      {tabla::CajaPagos::ModificadoPor});
}

}  // namespace

bool CargarTemporales(services::Sesion& sesion, const Intervalo& rango) {
  VaciarTemporales(sesion.CnTemp());
  // An invoice and its receipts of one moment, though another saves meanwhile.
  const services::LecturaFija deUnMomento(sesion.CnDatos());
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
