#pragma once

#include <filesystem>
#include <string>

#include "esquema/esquema_sqlite.h"
#include "platform/carpeta_temporal.h"
#include "sqlite/conexion_sqlite.h"
#include "store/intervalo.h"
#include "valores/fecha.h"

// A business of any size, for what is counted or measured.

namespace apoyo {

/// Its invoices have two bases and three receipts each, all of them due in March 2005; half of its
/// cash entries, of February 2005, belong to one of its invoices. There may be as many invoices
/// again in each of some months before, and a forecast of each day of the month for each of some
/// suppliers.
struct Tamano {
  int Facturas = 0;
  int Apuntes = 0;
  int Meses = 1;
  int Previsiones = 0;
};

inline const services::FechaHora kMarzo = services::HacerFecha(2005, 3, 15, 11);
inline const store::Intervalo kRangoDeMarzo{"20050301", "20050331"};

/// The stored tables and the empty working tables, in two files with the example host's options.
class NegocioDePrueba {
 public:
  explicit NegocioDePrueba(Tamano tamano) {
    auto datos = sqlite::AbrirConexion(FicheroDatos(), {.Crear = true});
    esquema::CrearAlmacenadas(*datos);
    datos->Ejecutar("BEGIN; " + Conceptos() + Facturas(tamano) + Bases(tamano) +
                    Vencimientos(tamano) + Caja(tamano) + Previsiones(tamano) +
                    "COMMIT; PRAGMA wal_checkpoint(TRUNCATE)");
    auto temp = sqlite::AbrirConexion(FicheroTemp(), {.Crear = true});
    esquema::CrearDeTrabajo(*temp);
    temp->Ejecutar("PRAGMA wal_checkpoint(TRUNCATE)");
  }
  /// A copy of another, of whose files nobody has one open.
  explicit NegocioDePrueba(const NegocioDePrueba& otro) {
    std::filesystem::copy_file(otro.FicheroDatos(), FicheroDatos());
    std::filesystem::copy_file(otro.FicheroTemp(), FicheroTemp());
  }
  NegocioDePrueba& operator=(const NegocioDePrueba&) = delete;

  [[nodiscard]] std::string FicheroDatos() const { return carpeta_.Fichero("datos.db"); }
  [[nodiscard]] std::string FicheroTemp() const { return carpeta_.Fichero("temp.db"); }
  [[nodiscard]] services::Ref<sqlite::Conexion> AbrirDatos() const {
    return sqlite::AbrirConexion(FicheroDatos(), {.Durabilidad = sqlite::Sincronizacion::Completa});
  }
  [[nodiscard]] services::Ref<sqlite::Conexion> AbrirTemp() const {
    return sqlite::AbrirConexion(FicheroTemp(), {.Durabilidad = sqlite::Sincronizacion::Normal});
  }

 private:
  /// The rows 0 to `cuantas` - 1 of a table, `i` being the row's number.
  static std::string Filas(const std::string& tabla, int cuantas, const std::string& valores) {
    return "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i + 1 < " +
           std::to_string(cuantas) + ") INSERT INTO " + tabla + " SELECT " + valores +
           " FROM n WHERE i < " + std::to_string(cuantas) + ";\n";
  }
  static std::string Conceptos() {
    return Filas("ProvConceptos", 200, "CAST(i + 1 AS TEXT), printf('Proveedor número %d', i)");
  }
  /// A part of the month of an invoice, such as `%Y`; `ultimo` is that of the last ones.
  static std::string Parte(const char* cual, const std::string& factura, Tamano tamano,
                           const char* ultimo) {
    return "strftime('" + std::string(cual) + "', '" + ultimo + "-01', printf('-%d months', (" +
           factura + ") / " + std::to_string(tamano.Facturas) + "))";
  }
  static std::string Facturas(Tamano tamano) {
    return Filas(
        "ProvFacturas", tamano.Facturas * tamano.Meses,
        "CAST(i % 200 + 1 AS TEXT), printf('F%06d', i), " + Parte("%Y", "i", tamano, "2005-02") +
            ", " + Parte("%Y%m", "i", tamano, "2005-02") +
            " || printf('%02d', i % 28 + 1), 321.45 + i % 1000, '2', 3, 30, 10, 0, 0, 0, " +
            Sello());
  }
  static std::string Bases(Tamano tamano) {
    return Filas("ProvBasesIva", tamano.Facturas * tamano.Meses * 2,
                 "CAST(i / 2 % 200 + 1 AS TEXT), printf('F%06d', i / 2), " +
                     Parte("%Y", "i / 2", tamano, "2005-02") +
                     ", CAST(i % 2 + 1 AS TEXT), 120.15 + i % 700, 19.22, NULL, " + Sello());
  }
  static std::string Vencimientos(Tamano tamano) {
    return Filas("ProvVencimientos", tamano.Facturas * tamano.Meses * 3,
                 "CAST(i / 3 % 200 + 1 AS TEXT), printf('F%06d', i / 3), " +
                     Parte("%Y", "i / 3", tamano, "2005-02") + ", " +
                     Parte("%Y%m", "i / 3", tamano, "2005-03") +
                     " || printf('%02d', i / 3 % 9 + 1 + i % 3 * 10), 107.15 + i % 900, "
                     "CASE i % 2 WHEN 0 THEN 107.15 + i % 900 ELSE 0 END, "
                     "CASE i % 2 WHEN 0 THEN '20050304' END, " +
                     Sello());
  }
  static std::string Caja(Tamano tamano) {
    return Filas("CajaPagos", tamano.Apuntes,
                 "printf('%02d', i % 2 + 1), datetime('2005-02-01', '+' || i || ' minutes'), "
                 "i / 2 % " +
                     std::to_string(tamano.Facturas) +
                     " % 200 + 1, 12.35 + i % 40, 'Pagado en mano', "
                     "CASE i % 2 WHEN 0 THEN printf('F%06d', i / 2 % " +
                     std::to_string(tamano.Facturas) +
                     ") END, CASE i % 2 WHEN 0 THEN '2005' END, 'CARMEN', " + Sello());
  }
  static std::string Previsiones(Tamano tamano) {
    return Filas("ProvPrevisionPagos", tamano.Previsiones,
                 "CAST(i + 1 AS TEXT), '20050301', 1, 1, 25.5 + i, " + Sello());
  }
  static std::string Sello() { return "'2005-02-28 19:00:00', 'CARMEN'"; }

  pruebas::CarpetaTemporal carpeta_;
};

}  // namespace apoyo
