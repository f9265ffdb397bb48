#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "esquema/esquema_sqlite.h"
#include "sqlite/conexion_sqlite.h"

// Rows that a value finds and its neighbours don't: of each table some that are the same but for
// one column, where they differ by as little as a sign.

namespace apoyo {

using Valores = std::vector<std::string>;

inline const Valores kConceptosVecinos = {"400",
                                          "401",
                                          "40",
                                          "4000",
                                          "0400",
                                          " 400",
                                          "400 ",
                                          "4'0",
                                          "4''0",
                                          "4%",
                                          "4_0",
                                          "4e2",
                                          "-3",
                                          "- 3",
                                          "ABC",
                                          "'400'",
                                          "ñ",
                                          "n",
                                          "",
                                          "'",
                                          "''",
                                          "400.0",
                                          "x' or Año like '2005"};
inline const Valores kFacturasVecinas = {
    "F1",   "F2",  "F",          "F11",          " F2 ",
    "F_",   "F%",  "a'b",        "a''b",         "ab",
    "'",    "''",  "",           "F1;",          "F1--",
    "Ñ1",   "N1",  "É1",         "E1",           "F1'",
    "F1\t", "/*",  "#1/1/2005#", "x' or 'x'='x", "F1' or Factura like 'F2",
    "?",    "F1\\"};
inline const Valores kAniosVecinos = {"2005", "2006", "205", "", "2005'", "20''05", "2005 "};
inline const Valores kFechasVecinas = {"20050310", "20050311",  "20050401",
                                       "2005031",  "20050310'", "2005''0310"};
inline const Valores kMomentosVecinos = {"2005-03-02 09:30:00", "2005-03-02 09:30:01", "2005-03-02",
                                         "2005-03-02T09:31", "03/03/2005 10:00"};
inline const Valores kNombresVecinos = {"Luz",  "Luz ", " luz x", "L'uz",  "L''uz", "Lu_", "Lu%",
                                        "Lunz", "Agua", "Ñandú",  "Nandu", "%",     "'",   ""};
inline const Valores kCodigosVecinos = {
    "400", "401", "40", "4000", "-3", "0", "5", "3", "9007199254740992"};

/// Fills both halves of the business, in one file.
class Vecinos {
 public:
  explicit Vecinos(sqlite::Conexion& conexion) : conexion_(conexion) {
    esquema::CrearAlmacenadas(conexion);
    esquema::CrearDeTrabajo(conexion);
    conexion.Ejecutar("BEGIN");
    const Valores& conceptos = kConceptosVecinos;
    for (const std::string prefijo : {"Prov", "TempProv"}) {
      Llenar(prefijo + "Facturas (NConcepto, Factura, Año)",
             {conceptos, kFacturasVecinas, kAniosVecinos});
      Llenar(prefijo + "BasesIva (Tipo, NConcepto, NFactura, Año)",
             {{"1"}, conceptos, kFacturasVecinas, kAniosVecinos});
      Llenar(prefijo + "Vencimientos (NConcepto, NFactura, Año, FechaVto)",
             {conceptos, kFacturasVecinas, kAniosVecinos, kFechasVecinas});
      ConConceptos(prefijo + "PrevisionPagos (NConcepto, Fecha1Vto)", kFechasVecinas);
    }
    ConConceptos("ProvConceptos (NConcepto, Descripcion)", kNombresVecinos);
    for (const std::string tabla : {"CajaPagos", "TempCajaPagos"}) LlenarCaja(tabla);
    Llenar("TempTesvara (NConcepto)", {conceptos});
    Llenar("TempTesvaraBorrar (NConcepto)", {conceptos});
    conexion.Ejecutar(
        "UPDATE TempProvVencimientos SET Visible = rowid % 2;"
        "UPDATE TempCajaPagos SET Importe = rowid; UPDATE CajaPagos SET Importe = rowid;"
        "UPDATE TempCajaPagos SET Factura = NULL WHERE rowid % 5 = 0;"
        "UPDATE CajaPagos SET Factura = NULL WHERE rowid % 5 = 0; COMMIT");
  }

 private:
  /// The first of each column together, and then each of the others in its place.
  void Llenar(const std::string& tabla, const std::vector<Valores>& columnas) {
    Valores fila;
    for (const Valores& columna : columnas) fila.push_back(columna.front());
    Anadir(tabla, fila);
    for (std::size_t i = 0; i < columnas.size(); ++i) {
      Valores otra = fila;
      for (std::size_t v = 1; v < columnas[i].size(); ++v) {
        otra[i] = columnas[i][v];
        Anadir(tabla, otra);
      }
    }
  }
  /// Of those whose key is the concept: one of their own for each of the second column.
  void ConConceptos(const std::string& tabla, const Valores& otra) {
    Llenar(tabla, {kConceptosVecinos, {otra.front()}});
    for (std::size_t i = 1; i < otra.size(); ++i) Anadir(tabla, {"N" + std::to_string(i), otra[i]});
  }
  /// Its key hasn't the invoice in it, so that each entry is of a branch of its own.
  void LlenarCaja(const std::string& tabla) {
    const std::string columnas = tabla + " (idSucursal, FechaHora, Tipo, Factura, Año)";
    const std::string momento = kMomentosVecinos.front();
    Llenar(columnas,
           {{"1", "2", "01", "1'", "1''"}, kMomentosVecinos, kCodigosVecinos, {"F1"}, {"2005"}});
    int sucursal = 10;
    for (const std::string& factura : kFacturasVecinas) {
      Anadir(columnas, {std::to_string(++sucursal), momento, "400", factura, "2005"});
    }
    for (const std::string& anio : kAniosVecinos) {
      Anadir(columnas, {std::to_string(++sucursal), momento, "400", "F1", anio});
    }
  }
  void Anadir(const std::string& tabla, const Valores& valores) {
    std::string sql = "INSERT INTO " + tabla + " VALUES (";
    for (const std::string& valor : valores) {
      if (&valor != &valores.front()) sql += ", ";
      sql += '\'';
      for (const char c : valor) sql += c == '\'' ? "''" : std::string(1, c);
      sql += '\'';
    }
    conexion_.Ejecutar(sql + ")");
  }

  sqlite::Conexion& conexion_;
};

}  // namespace apoyo
