#include "salvaguarda/ambito.h"

#include "salvaguarda/sql.h"

namespace salvaguarda {
namespace {

using sql::Juntar;
using sql::Texto;

std::string Vacio() {
  std::string todo;
  for (const std::string_view tabla :
       {"DelRango", "DeTrabajo", "Ambito", "PrevisionDeTrabajo", "AmbitoPrevision", "AmbitoCaja"}) {
    todo += Juntar({"DROP TABLE IF EXISTS temp.", tabla, ";"});
  }
  for (const std::string_view tabla : {"PrevisionDeTrabajo", "AmbitoPrevision"}) {
    todo += Juntar(
        {"CREATE TEMP TABLE ", tabla, " (NConcepto TEXT COLLATE ES PRIMARY KEY) WITHOUT ROWID;"});
  }
  return todo + sql::CrearClaves("temp", "DelRango") + sql::CrearClaves("temp", "DeTrabajo") +
         sql::CrearClaves("temp", "Ambito") +
         "CREATE TEMP TABLE AmbitoCaja (idSucursal, FechaHora, Tipo);";
}

/// The rows of a statement of many values at a time.
std::string Insertar(std::string_view tabla, const std::vector<std::string>& filas) {
  constexpr std::size_t kDeUnaVez = 500;
  std::string texto;
  for (std::size_t i = 0; i < filas.size(); ++i) {
    texto += i % kDeUnaVez == 0 ? Juntar({";INSERT OR IGNORE INTO ", tabla, " VALUES "}) : ",";
    texto += "(" + filas[i] + ")";
  }
  return texto + ";";
}

}  // namespace

ClavesDeTrabajo ClavesDeTrabajo::Leer(sqlite::Conexion& deTrabajo) {
  ClavesDeTrabajo claves;
  const auto facturas = deTrabajo
                            .Consultar(
                                "SELECT NConcepto, Factura, Año FROM TempProvFacturas UNION "
                                "SELECT NConcepto, NFactura, Año FROM TempProvVencimientos UNION "
                                "SELECT NConcepto, NFactura, Año FROM TempProvBasesIva")
                            .Filas;
  for (std::size_t i = 0; i < facturas.Cuantas(); ++i) {
    claves.Facturas.push_back(
        {facturas.En(i, 0).Texto(), facturas.En(i, 1).Texto(), facturas.En(i, 2).Texto()});
  }
  const auto previsiones =
      deTrabajo.Consultar("SELECT NConcepto FROM TempProvPrevisionPagos").Filas;
  for (std::size_t i = 0; i < previsiones.Cuantas(); ++i) {
    claves.Previsiones.push_back(previsiones.En(i, 0).Texto());
  }
  return claves;
}

std::string AmbitoDeGrabacion(const Rango& rango, const ClavesDeTrabajo& claves) {
  std::vector<std::string> facturas;
  for (const auto& f : claves.Facturas) {
    facturas.push_back(
        Juntar({Texto(f.NConcepto), ",trim(", Texto(f.Factura), "),", Texto(f.Anio)}));
  }
  std::vector<std::string> previsiones;
  for (const std::string& concepto : claves.Previsiones) previsiones.push_back(Texto(concepto));
  return Vacio() + "INSERT OR IGNORE INTO temp.DelRango " + sql::ClavesDelRango(rango) +
         ";INSERT OR IGNORE INTO temp.DelRango SELECT * FROM foto.Claves;"
         "INSERT INTO temp.Ambito SELECT * FROM temp.DelRango" +
         Insertar("temp.DeTrabajo", facturas) + Insertar("temp.PrevisionDeTrabajo", previsiones) +
         "INSERT OR IGNORE INTO temp.Ambito SELECT * FROM temp.DeTrabajo;"
         "INSERT INTO temp.AmbitoPrevision SELECT * FROM temp.PrevisionDeTrabajo;"
         "INSERT OR IGNORE INTO temp.AmbitoPrevision SELECT NConcepto FROM (" +
         sql::PrevisionesDe(rango) +
         ");INSERT OR IGNORE INTO temp.AmbitoPrevision SELECT NConcepto FROM "
         "foto.ProvPrevisionPagos;"
         "INSERT INTO temp.AmbitoCaja SELECT idSucursal, FechaHora, Tipo FROM foto.CajaPagos;";
}

std::string AmbitoDeCopia(std::string_view nombre) {
  return Vacio() +
         Juntar({"INSERT INTO temp.Ambito SELECT * FROM ", nombre,
                 ".Claves; INSERT INTO temp.AmbitoPrevision SELECT * FROM ", nombre,
                 ".ClavesPrevision; INSERT INTO temp.AmbitoCaja SELECT idSucursal, FechaHora, Tipo "
                 "FROM ",
                 nombre, ".CajaPagos;"});
}

}  // namespace salvaguarda
