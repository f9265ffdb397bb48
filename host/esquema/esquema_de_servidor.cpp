#include "esquema/esquema_de_servidor.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "valores/error.h"
#include "valores/texto.h"

namespace esquema {
namespace {

using services::TipoColumna;

/// How an engine writes what the tables are made of. Names go without quotes, so that whoever looks
/// at the tables needn't write any either.
struct Escritura {
  std::string_view Motor;
  /// What is run before the tables are made.
  std::string_view Antes;
  std::string_view TextoSinLimite;
  /// For a text of a key, of which it wants to know how wide it is.
  std::string_view TextoDeClave;
  std::string_view Comparacion;
  std::string_view Momento;
  /// What an index of a text without the blanks around it is of, the text in place of the `#`: an
  /// expression, or where there are no indexes of any a column that holds it and isn't shown. It is
  /// stored: a node of a cluster that was killed doesn't start again over indexes of what isn't
  /// (it looks for its tables' definitions to purge them, and never finds them while it recovers).
  std::string_view Recorte;
  std::string_view ColumnaRecortada;
  std::string_view TrasLaTabla;
  /// A column that tells the rows of a table without a key apart: clusters want one in each.
  std::string_view Numeradas;
  /// What drops what is in a schema with it.
  std::string_view ConTodo;
};

constexpr Escritura kPostgres = {
    .Motor = "PostgreSQL",
    .Antes =
        "CREATE COLLATION IF NOT EXISTS sorvex_es (provider = icu, locale = 'es-u-ks-level2', "
        "deterministic = false)",
    .TextoSinLimite = "text",
    .TextoDeClave = "text",
    .Comparacion = " COLLATE sorvex_es",
    .Momento = "timestamp(0)",
    .Recorte = "(btrim(#))",
    .ColumnaRecortada = "",
    .TrasLaTabla = "",
    .Numeradas = ", Fila bigint GENERATED ALWAYS AS IDENTITY PRIMARY KEY",
    .ConTodo = " CASCADE",
};
constexpr Escritura kMaria = {
    .Motor = "MariaDB",
    .Antes = "",
    .TextoSinLimite = "longtext",
    .TextoDeClave = "varchar(190)",
    .Comparacion = "",
    .Momento = "datetime",
    .Recorte = "#SinBlancos",
    .ColumnaRecortada = " GENERATED ALWAYS AS (trim(#)) STORED INVISIBLE",
    .TrasLaTabla = " ENGINE = InnoDB CHARACTER SET utf8mb4 COLLATE uca1400_spanish_nopad_as_ci",
    .Numeradas = ", Fila bigint NOT NULL AUTO_INCREMENT INVISIBLE PRIMARY KEY",
    .ConTodo = "",
};

/// What the statements of the system look rows up by, besides their keys.
struct Indice {
  std::string_view Nombre;
  std::string_view Tabla;
  /// The column that counts without the blanks around what it holds, first; none.
  std::string_view Recortada;
  std::string_view Columnas;
};

constexpr auto kIndices = std::to_array<Indice>({
    // The range of a load and of a commit.
    {"VencimientosPorFecha", "ProvVencimientos", "", "FechaVto, NConcepto, NFactura"},
    // A commit's deletions of each invoice; the acceptance of an entry.
    {"VencimientosPorFactura", "ProvVencimientos", "NFactura", "NConcepto, Año"},
    {"BasesPorFactura", "ProvBasesIva", "NFactura", "NConcepto, Año"},
    {"FacturasPorNumero", "ProvFacturas", "Factura", "NConcepto, Año"},
    // The forecasts of a load, and their deletion by a commit.
    {"PrevisionPorFecha", "ProvPrevisionPagos", "", "Fecha1Vto"},
    // A load's entries of each invoice; then those without one.
    {"CajaPorFactura", "CajaPagos", "Factura", "Tipo, Año"},
    {"CajaPendiente", "CajaPagos", "", "Factura"},
    // A concept by the code or the name that was typed.
    {"ConceptosPorCodigo", "ProvConceptos", "NConcepto", ""},
    {"ConceptosPorNombre", "ProvConceptos", "Descripcion", ""},
});

std::string TipoDe(const Columna& columna, bool deClave, const Escritura& escritura) {
  switch (columna.Tipo) {
    case TipoColumna::Texto: {
      std::string tipo = "varchar(" + std::to_string(columna.Longitud) + ")";
      if (columna.Longitud == 0) tipo = deClave ? escritura.TextoDeClave : escritura.TextoSinLimite;
      return tipo.append(escritura.Comparacion);
    }
    case TipoColumna::Entero:
      return "integer";
    case TipoColumna::Moneda:
      return "numeric(" + std::to_string(columna.Longitud == 0 ? 30 : columna.Longitud) + ",2)";
    case TipoColumna::Numero:
      return "double precision";
    case TipoColumna::Logico:
      return "boolean";
    case TipoColumna::FechaHora:
      return std::string(escritura.Momento);
  }
  return {};
}

bool EsDeLaClave(const Tabla& tabla, std::string_view columna) {
  return std::ranges::find(tabla.Clave, columna) != tabla.Clave.end();
}

/// A text with another in place of its `#`.
std::string Con(std::string_view texto, std::string_view nombre) {
  std::string con(texto);
  return con.replace(con.find('#'), 1, nombre);
}

/// The columns of a table that are looked up whatever the blanks around what they hold.
std::vector<std::string_view> Recortadas(const Tabla& tabla) {
  std::vector<std::string_view> columnas;
  for (const Indice& indice : kIndices) {
    const bool suya = indice.Tabla == tabla.Nombre && !indice.Recortada.empty();
    if (suya) columnas.push_back(indice.Recortada);
  }
  return columnas;
}

std::string TextoDeIndice(const Indice& indice, const Escritura& escritura) {
  std::string columnas;
  if (!indice.Recortada.empty()) columnas = Con(escritura.Recorte, indice.Recortada);
  if (!columnas.empty() && !indice.Columnas.empty()) columnas += ", ";
  return "CREATE INDEX " + std::string(indice.Nombre) + " ON " + std::string(indice.Tabla) + " (" +
         columnas.append(indice.Columnas) + ")";
}

std::string TextoDeCreacion(const Tabla& tabla, const Escritura& escritura, bool numerada) {
  std::string sql = "CREATE TABLE " + std::string(tabla.Nombre) + " (";
  for (const Columna& columna : tabla.Columnas) {
    const bool deClave = EsDeLaClave(tabla, columna.Nombre);
    if (&columna != &tabla.Columnas.front()) sql += ", ";
    sql += std::string(columna.Nombre) + " " + TipoDe(columna, deClave, escritura);
    if (deClave) sql += " NOT NULL";
  }
  for (const std::string_view nombre : Recortadas(tabla)) {
    if (escritura.ColumnaRecortada.empty()) break;
    const auto columna = std::ranges::find(tabla.Columnas, nombre, &Columna::Nombre);
    sql += ", " + Con(escritura.Recorte, nombre) + " " + TipoDe(*columna, false, escritura) +
           Con(escritura.ColumnaRecortada, nombre);
  }
  for (const std::string_view nombre : tabla.Clave) {
    sql += nombre == tabla.Clave.front() ? ", PRIMARY KEY (" : ", ";
    sql += nombre;
  }
  if (tabla.Clave.empty() && numerada) sql += escritura.Numeradas;
  return sql.append(tabla.Clave.empty() ? ")" : "))").append(escritura.TrasLaTabla);
}

const Escritura& EscrituraDe(std::string_view motor) {
  for (const Escritura* una : {&kPostgres, &kMaria}) {
    if (motor.find(una->Motor) != std::string_view::npos) return *una;
    if (services::MismoTexto(motor, una->Motor)) return *una;
  }
  throw services::ErrorEjecucion(
      services::error::SentenciaRechazada,
      "Se sabe crear las tablas en PostgreSQL y en MariaDB, y no en " + std::string(motor));
}

bool HayEsquema(odbc::Conexion& conexion, const std::string& nombre) {
  const std::string consulta =
      "SELECT schema_name FROM information_schema.schemata WHERE lower(schema_name) = lower('" +
      nombre + "')";
  return conexion.Consultar(consulta).Filas.Cuantas() > 0;
}

std::vector<std::string> Sentencias(const Escritura& escritura, std::span<const Tabla> tablas,
                                    bool numeradas) {
  std::vector<std::string> sentencias;
  if (!escritura.Antes.empty()) sentencias.emplace_back(escritura.Antes);
  for (const Tabla& tabla : tablas) {
    sentencias.push_back(TextoDeCreacion(tabla, escritura, numeradas));
  }
  for (const Indice& indice : kIndices) {
    const auto suya = std::ranges::find(tablas, indice.Tabla, &Tabla::Nombre);
    if (suya != tablas.end()) sentencias.push_back(TextoDeIndice(indice, escritura));
  }
  return sentencias;
}

constexpr const char* kTablaDelTurno = "SorvexTurno";
constexpr const char* kCreacionDelTurno =
    "CREATE TABLE SorvexTurno (Clave integer PRIMARY KEY, Vez bigint NOT NULL)";
constexpr const char* kFilaDelTurno = "INSERT INTO SorvexTurno (Clave, Vez) VALUES (1, 0)";

std::vector<std::string> Creaciones(std::string_view motor) {
  std::vector<std::string> sentencias = Sentencias(EscrituraDe(motor), Almacenadas(), true);
  sentencias.emplace_back(kCreacionDelTurno);
  return sentencias;
}

void Ejecutar(odbc::Conexion& conexion, const std::vector<std::string>& sentencias) {
  for (const std::string& sentencia : sentencias) conexion.Ejecutar(sentencia);
}

}  // namespace

EsquemaPropio::EsquemaPropio(std::string conexion, std::string nombre, bool deSiempre)
    : conexion_(std::move(conexion)), nombre_(std::move(nombre)), conserva_(deSiempre) {
  const auto abierta = odbc::AbrirConexion(conexion_);
  if (deSiempre && HayEsquema(*abierta, nombre_)) return;
  abierta->Ejecutar("CREATE SCHEMA " + nombre_);
}

EsquemaPropio::~EsquemaPropio() {
  if (conserva_) return;
  try {
    const auto conexion = odbc::AbrirConexion(conexion_);
    const std::string_view conTodo = EscrituraDe(conexion->NombreDelMotor()).ConTodo;
    conexion->Ejecutar(("DROP SCHEMA " + nombre_).append(conTodo));
  } catch (const services::ErrorEjecucion&) {
    // Its server is no more.
  }
}

std::vector<std::string> SentenciasDeCreacion(std::string_view motor) {
  std::vector<std::string> sentencias = Creaciones(motor);
  sentencias.emplace_back(kFilaDelTurno);
  return sentencias;
}

void CrearAlmacenadas(odbc::Conexion& conexion) {
  Ejecutar(conexion, SentenciasDeCreacion(conexion.NombreDelMotor()));
}

void CrearTablas(odbc::Conexion& conexion) {
  Ejecutar(conexion, Creaciones(conexion.NombreDelMotor()));
}

void PonerTurno(odbc::Conexion& conexion) {
  conexion.Ejecutar(kFilaDelTurno);
}

bool TieneTurno(odbc::Conexion& conexion) {
  return conexion.TieneTabla(kTablaDelTurno) &&
         conexion.Consultar("SELECT Vez FROM SorvexTurno").Filas.Cuantas() > 0;
}

std::vector<std::string> TablasQueHay(odbc::Conexion& conexion) {
  std::vector<std::string> nombres;
  for (const Tabla& tabla : Almacenadas()) nombres.emplace_back(tabla.Nombre);
  nombres.emplace_back(kTablaDelTurno);
  std::erase_if(nombres, [&](const std::string& nombre) { return !conexion.TieneTabla(nombre); });
  return nombres;
}

void CrearDeTrabajo(odbc::Conexion& conexion) {
  Ejecutar(conexion, Sentencias(EscrituraDe(conexion.NombreDelMotor()), DeTrabajo(), false));
}

}  // namespace esquema
