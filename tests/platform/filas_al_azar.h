#pragma once

#include <random>
#include <sstream>
#include <string>
#include <vector>

// Rows in which everything that a key may be is near something else: for what finds rows in another
// way than by the letter of its statement.

namespace pruebas {

/// Those of a load and of a commit, and some of other shapes.
inline const std::vector<std::string>& Sentencias() {
  static const std::string dentro =
      "ProvVencimientos.FechaVto >= '20050301' And ProvVencimientos.FechaVto <= '20050331'";
  static const std::vector<std::string> todas = {
      "SELECT DISTINCT ProvFacturas.*, ProvConceptos.Descripcion FROM (ProvFacturas INNER JOIN "
      "ProvVencimientos ON (ProvFacturas.Factura = ProvVencimientos.NFactura) AND "
      "(ProvFacturas.NConcepto = ProvVencimientos.NConcepto)) INNER JOIN ProvConceptos ON "
      "ProvFacturas.NConcepto = ProvConceptos.NConcepto WHERE " +
          dentro + "  Order By ProvFacturas.Fecha",
      "SELECT DISTINCT ProvBasesIva.* FROM ProvBasesIva INNER JOIN ProvVencimientos ON "
      "(ProvBasesIva.NConcepto = ProvVencimientos.NConcepto) AND (ProvBasesIva.NFactura = "
      "ProvVencimientos.NFactura)WHERE " +
          dentro,
      "SELECT DISTINCT ProvVencimientos.*, ProvConceptos.Descripcion FROM ((ProvVencimientos "
      "INNER JOIN ProvFacturas ON (ProvVencimientos.NConcepto = ProvFacturas.NConcepto) AND "
      "(ProvVencimientos.NFactura = ProvFacturas.Factura)) INNER JOIN ProvVencimientos AS "
      "ProvVencimientos_1 ON (ProvFacturas.NConcepto = ProvVencimientos_1.NConcepto) AND "
      "(ProvFacturas.Factura = ProvVencimientos_1.NFactura)) INNER JOIN ProvConceptos ON "
      "ProvVencimientos.NConcepto = ProvConceptos.NConcepto WHERE "
      "(((ProvVencimientos_1.FechaVto)>='20050301' And (ProvVencimientos_1.FechaVto)<='20050331'))",
      "SELECT DISTINCT ProvFacturas.* FROM ProvFacturas INNER JOIN ProvVencimientos ON "
      "(ProvFacturas.NConcepto = ProvVencimientos.NConcepto) AND (ProvFacturas.Factura = "
      "ProvVencimientos.NFactura) WHERE " +
          dentro + " Order By ProvFacturas.Fecha",
      "SELECT DISTINCT ProvFacturas.* FROM ProvFacturas INNER JOIN ProvVencimientos ON "
      "(ProvFacturas.NConcepto = ProvVencimientos.NConcepto) AND (ProvFacturas.Factura = "
      "ProvVencimientos.NFactura) WHERE " +
          dentro + " Order By ProvFacturas.Fecha desc, ProvFacturas.Total",
      "SELECT DISTINCT ProvConceptos.* FROM (ProvConceptos INNER JOIN ProvFacturas ON "
      "ProvConceptos.NConcepto = ProvFacturas.NConcepto) INNER JOIN ProvBasesIva ON "
      "ProvFacturas.Factura = ProvBasesIva.NFactura WHERE ProvBasesIva.Base > 2 ORDER BY "
      "ProvConceptos.NConcepto"};
  return todas;
}

/// The rows whose number has a due date in the range, whatever blanks stand around either.
inline const std::vector<std::string>& SentenciasSinBlancos() {
  static const auto de = [](const std::string& tabla, const std::string& numero) {
    return "SELECT DISTINCT " + tabla + ".* FROM " + tabla +
           " INNER JOIN ProvVencimientos AS V ON " + "(" + tabla +
           ".NConcepto = V.NConcepto) AND (RTRIM(LTRIM(" + tabla + "." + numero +
           ")) = RTRIM(LTRIM(V.NFactura))) WHERE V.FechaVto >= '20050301' And V.FechaVto <= "
           "'20050331'";
  };
  static const std::vector<std::string> todas = {de("ProvFacturas", "Factura"),
                                                 de("ProvBasesIva", "NFactura"),
                                                 de("ProvVencimientos", "NFactura")};
  return todas;
}

class FilasAlAzar {
 public:
  std::mt19937 azar{2005};
  template <class T>
  const T& Una(const std::vector<T>& de) {
    return de[azar() % de.size()];
  }
  std::string Texto(const std::vector<std::string>& de) {
    const std::string& uno = Una(de);
    return uno == "NULL" ? uno : "'" + uno + "'";
  }
  std::string Concepto() { return Texto({"1", "01", "a", "A", "á", "n", "ñ", "Ñ", " 1", "2"}); }
  std::string Numero() {
    return Texto(
        {"F1", "f1", " F1", "F1 ", "ñ", "Ñ", "n", "N", "É", "e", "E", "", "_", "%", "L''A", "Nº5"});
  }
  std::string Anio() { return Texto({"2004", "2005", " 2005", "x"}); }
  std::string Dia() {
    return Texto({"20050228", "20050301", "20050302", "20050315", "20050331", "20050401", "", "x"});
  }
  std::string Dinero() { return Una<std::string>({"NULL", "1", "2.5", "7"}); }
  std::string Sello() { return Texto({"NULL", "a", "A", "á"}); }
  /// Repeated keys are passed over.
  std::string Azar() {
    std::ostringstream sql;
    const auto filas = [&](const std::string& tabla, int cuantas, const auto& fila) {
      for (int i = 0; i < cuantas; ++i) {
        sql << "INSERT OR IGNORE INTO " << tabla << " VALUES (" << fila() << ");";
      }
    };
    const auto factura = [&] { return Concepto() + "," + Numero() + "," + Anio(); };
    filas("ProvConceptos", 8, [&] { return Concepto() + "," + Sello(); });
    filas("ProvFacturas", 40, [&] {
      return factura() + "," + Una<std::string>({Dia(), "NULL"}) + "," + Dinero() +
             ",'1',1,0,NULL,NULL,NULL,0," + Sello() + "," + Sello();
    });
    filas("ProvBasesIva", 60, [&] {
      return factura() + "," + Texto({"0", "1", "2"}) + "," + Dinero() + "," + Dinero() + "," +
             Dinero() + "," + Sello() + "," + Sello();
    });
    filas("ProvVencimientos", 90, [&] {
      return factura() + "," + Dia() + "," + Dinero() + "," + Dinero() + "," + Sello() + "," +
             Sello() + "," + Sello();
    });
    return sql.str();
  }
};

}  // namespace pruebas
