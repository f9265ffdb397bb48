#include "esquema/esquema_sqlite.h"

#include <algorithm>
#include <array>
#include <vector>

#include "valores/error.h"
#include "valores/texto.h"

namespace esquema {

namespace {

using services::TipoColumna;

std::string TipoDe(const Columna& columna) {
  switch (columna.Tipo) {
    case TipoColumna::Texto:
      if (columna.Longitud == 0) return "TEXT COLLATE ES";
      return "VARCHAR(" + std::to_string(columna.Longitud) + ") COLLATE ES";
    case TipoColumna::Entero:
      return "INTEGER";
    case TipoColumna::Moneda:
      if (columna.Longitud == 0) return "DECIMAL";
      return "DECIMAL(" + std::to_string(columna.Longitud) + ",2)";
    case TipoColumna::Numero:
      return "DOUBLE";
    case TipoColumna::Logico:
      return "BOOLEAN";
    case TipoColumna::FechaHora:
      return "DATETIME";
  }
  return {};
}

// Each index is for the statements that its comment tells; `./bench --benchmark_filter=SinIndice`
// says what load, commit and the statement that it saves most take without it. One that ends in the
// number as stored holds all that a DELETE looks at, as the key does, and the engine no longer
// takes the key, of which it knows the concept alone. What a cash entry is found by is its moment,
// however that is written.
constexpr std::array IndicesAlmacenados = {
    // The range of a load and of a commit. It carries the invoice, so that the table isn't read.
    "CREATE INDEX VencimientosPorFecha ON ProvVencimientos (FechaVto, NConcepto, NFactura)",
    // A commit's deletions of each invoice, by its number whatever blanks are stored around it.
    "CREATE INDEX VencimientosPorFactura ON ProvVencimientos "
    "(trim(NFactura) COLLATE ES, NConcepto, Año, NFactura)",
    "CREATE INDEX BasesPorFactura ON ProvBasesIva (trim(NFactura) COLLATE ES, NConcepto, Año, "
    "NFactura)",
    // The same, and the acceptance of an entry, which looks whether its number is stored.
    "CREATE INDEX FacturasPorNumero ON ProvFacturas (trim(Factura) COLLATE ES, NConcepto, Año, "
    "Factura)",
    // The forecasts of a load, and their deletion by a commit.
    "CREATE INDEX PrevisionPorFecha ON ProvPrevisionPagos (Fecha1Vto)",
    // A load's entries of each invoice; then those without one; a commit's link of each entry.
    "CREATE INDEX CajaPorFactura ON CajaPagos (trim(Factura) COLLATE ES, Tipo, Año)",
    "CREATE INDEX CajaPendiente ON CajaPagos (Factura)",
    "CREATE INDEX CajaPorMomento ON CajaPagos (idSucursal, MOMENTO(FechaHora), Tipo)",
    // A concept by the code or the name that was typed. Nothing of the component writes there.
    "CREATE INDEX ConceptosPorCodigo ON ProvConceptos (trim(NConcepto) COLLATE ES)",
    "CREATE INDEX ConceptosPorNombre ON ProvConceptos (trim(Descripcion) COLLATE ES)",
};

constexpr std::array IndicesDeTrabajo = {
    // A commit's look for each payment that was typed; the receipts of an entry; deletions.
    "CREATE INDEX TempVencimientosPorFactura ON TempProvVencimientos "
    "(trim(NFactura) COLLATE ES, NConcepto, Año, NFactura)",
    // The bases and the invoice of an entry, when it is opened, accepted and deleted.
    "CREATE INDEX TempBasesPorFactura ON TempProvBasesIva "
    "(trim(NFactura) COLLATE ES, NConcepto, Año, NFactura)",
    "CREATE INDEX TempFacturasPorNumero ON TempProvFacturas "
    "(trim(Factura) COLLATE ES, NConcepto, Año, Factura)",
    // The entries that a deleted invoice lets go of; the one that is marked on the cash screen.
    "CREATE INDEX TempCajaPorFactura ON TempCajaPagos (trim(Factura) COLLATE ES, Tipo, Año)",
    "CREATE INDEX TempCajaPorMomento ON TempCajaPagos (Tipo, MOMENTO(FechaHora))",
    // The occurrences of a forecast that aren't to be listed.
    "CREATE INDEX TempBorrarPorConcepto ON TempTesvaraBorrar (NConcepto)",
};

/// As it is called here, where it is one of these: a server may show it in small letters.
std::string_view NombreDe(const Tabla& tabla, const services::Columna& columna) {
  const auto suya = std::ranges::find_if(tabla.Columnas, [&](const Columna& una) {
    return services::MismoTexto(una.Nombre, columna.Nombre);
  });
  return suya == tabla.Columnas.end() ? columna.Nombre : suya->Nombre;
}

template <std::size_t N>
void Crear(sqlite::Conexion& conexion, std::string sql, const std::array<const char*, N>& indices) {
  for (const char* indice : indices) sql += std::string(indice) + ";\n";
  conexion.Ejecutar("BEGIN IMMEDIATE");
  try {
    conexion.Ejecutar(sql + "COMMIT;");
  } catch (const services::ErrorEjecucion&) {
    conexion.Ejecutar("ROLLBACK");
    throw;
  }
}

std::string Creaciones(std::span<const Tabla> tablas) {
  std::string sql;
  for (const Tabla& tabla : tablas) sql += TextoDeCreacion(tabla) + ";\n";
  return sql;
}

}  // namespace

std::string TextoDeCreacion(const Tabla& tabla) {
  std::string sql = "CREATE TABLE " + std::string(tabla.Nombre) + " (";
  for (const Columna& columna : tabla.Columnas) {
    if (&columna != &tabla.Columnas.front()) sql += ", ";
    sql += "\"" + std::string(columna.Nombre) + "\" " + TipoDe(columna);
    if (std::ranges::find(tabla.Clave, columna.Nombre) != tabla.Clave.end()) sql += " NOT NULL";
  }
  for (const std::string_view nombre : tabla.Clave) {
    sql += nombre == tabla.Clave.front() ? ", PRIMARY KEY (" : ", ";
    sql += nombre;
  }
  return sql + (tabla.Clave.empty() ? ")" : "))");
}

void CrearAlmacenadas(sqlite::Conexion& conexion) {
  Crear(conexion, Creaciones(Almacenadas()), IndicesAlmacenados);
}

void CrearAlmacenadasComo(services::Conexion& otras, sqlite::Conexion& conexion) {
  std::string sql;
  for (const Tabla& tabla : Almacenadas()) {
    if (tabla.Clave.empty()) continue;
    std::vector<Columna> columnas;
    const auto suyas = otras.ColumnasDe(tabla.Nombre);
    columnas.reserve(suyas.size());
    for (const auto& suya : suyas) {
      columnas.push_back({NombreDe(tabla, suya), suya.Tipo, suya.Longitud});
    }
    sql += TextoDeCreacion({tabla.Nombre, columnas, tabla.Clave}) + ";\n";
  }
  Crear(conexion, sql, IndicesAlmacenados);
}

void CrearDeTrabajo(sqlite::Conexion& conexion) {
  Crear(conexion, Creaciones(DeTrabajo()), IndicesDeTrabajo);
}

}  // namespace esquema
