#include "salvaguarda/foto.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>

#include "salvaguarda/adjunta.h"
#include "salvaguarda/consultas.h"
#include "salvaguarda/sql.h"
#include "valores/error.h"

namespace salvaguarda {
namespace {

using sql::Juntar;
using sql::Texto;

std::string Retratar(std::string_view tabla, const std::string& filas) {
  return Juntar(
      {"DROP TABLE IF EXISTS foto.", tabla, "; CREATE TABLE foto.", tabla, " AS ", filas, ";"});
}

/// Those without an invoice, and those of the invoices.
constexpr std::string_view kApuntes =
    "SELECT c.* FROM main.CajaPagos c WHERE c.Factura IS NULL OR c.Factura = '' UNION ALL "
    "SELECT c.* FROM foto.Claves k CROSS JOIN main.CajaPagos c ON trim(c.Factura) COLLATE ES = "
    "k.Factura AND c.Tipo = k.NConcepto AND c.Año = k.Año WHERE k.Factura <> ''";

/// Another number each time that another connection has stored something.
double Version(sqlite::Conexion& base) {
  return base.Consultar("PRAGMA main.data_version").Filas.En(0, 0).Numero();
}

/// Whether the copy and the picture have the same rows in the same order, as they do when nothing
/// has changed: a look at each, which is soon done.
bool DiceLoMismo(sqlite::Conexion& base, const Tabla& tabla) {
  const std::vector<std::string> columnas = sql::Contenido(base, tabla);
  const auto hay = base.Consultar(Juntar(
      {"SELECT (SELECT count(*) FROM copia.", tabla.Nombre, ") = (SELECT count(*) FROM foto.",
       tabla.Nombre, ") AND NOT EXISTS (SELECT 1 FROM copia.", tabla.Nombre, " a LEFT JOIN foto.",
       tabla.Nombre, " b ON b.rowid = a.rowid WHERE (", sql::Valores(tabla, columnas, "a"),
       ") IS NOT (", sql::Valores(tabla, columnas, "b"), "))"}));
  return hay.Filas.En(0, 0).Numero() != 0;
}

}  // namespace

std::string FicheroDeFoto(const std::string& deTrabajo) {
  return std::filesystem::path(deTrabajo).replace_extension(".foto").string();
}

std::string SenaDeFoto(sqlite::Conexion& base) {
  try {
    const auto sena = base.Consultar("SELECT Sena FROM foto.Foto").Filas;
    return sena.Cuantas() == 1 ? sena.En(0, 0).Texto() : "";
  } catch (const services::ErrorEjecucion&) {
    return "";
  }
}

Foto::Foto(const std::string& almacenados, const std::string& fichero)
    : conexion_(sqlite::AbrirConexion(almacenados, {.UnidadDeTrabajo = false})) {
  std::ofstream(fichero, std::ios::app).flush();  // the engine attaches what is there
  conexion_->Ejecutar(Juntar({"ATTACH ", Texto(fichero),
                              " AS foto; PRAGMA foto.journal_mode = MEMORY; "
                              "PRAGMA foto.synchronous = OFF"}));
}

void Foto::Tomar(const Rango& rango) {
  Olvidar();
  sql::Transaccion lectura(*conexion_);
  std::string todo =
      Juntar({"DROP TABLE IF EXISTS foto.Claves;", sql::CrearClaves("foto", "Claves"),
              "INSERT OR IGNORE INTO foto.Claves ", sql::ClavesDelRango(rango), ";"});
  for (const Tabla& tabla : TablasDeFactura()) {
    todo += Retratar(tabla.Nombre, sql::FilasDe(tabla, "foto.Claves"));
  }
  todo += Retratar("ProvPrevisionPagos", sql::PrevisionesDe(rango));
  todo += Retratar("CajaPagos", std::string(kApuntes));
  const std::string sena = std::to_string(std::random_device()());
  todo += Retratar("Foto", Juntar({"SELECT ", Texto(sena), " AS Sena"}));
  conexion_->Ejecutar(todo);
  const double version = Version(*conexion_);
  lectura.Terminar();
  version_ = version;
  rango_ = rango;
  sena_ = sena;
}

void Foto::Olvidar() {
  rango_.reset();
  version_.reset();
  sena_.clear();
}

bool Foto::SigueIgual() {
  return version_ && Version(*conexion_) == *version_;
}

bool Foto::Recuperar(const Rango& rango, const std::string& sena) {
  Olvidar();
  if (sena.empty() || SenaDeFoto(*conexion_) != sena) return false;
  rango_ = rango;
  sena_ = sena;
  return true;
}

void Foto::TomarDeCopia() {
  std::string todo =
      "DROP TABLE IF EXISTS foto.Foto; DELETE FROM foto.Claves; INSERT INTO foto.Claves SELECT * "
      "FROM copia.Claves;";
  for (const Tabla& tabla : Tablas()) {
    todo += Retratar(tabla.Nombre, Juntar({"SELECT * FROM copia.", tabla.Nombre}));
  }
  conexion_->Ejecutar(todo);
  version_.reset();
}

std::vector<Fila> Foto::Excluidas() {
  if (!rango_) return {};
  const std::string enRango =
      Juntar({"v.FechaVto >= ", Texto(rango_->Desde), " AND v.FechaVto <= ", Texto(rango_->Hasta)});
  const std::string conConcepto =
      "EXISTS (SELECT 1 FROM main.ProvConceptos c WHERE c.NConcepto = t.NConcepto)";
  const auto conVencimiento = [&](std::string_view de, std::string_view numero) {
    return Juntar({"EXISTS (SELECT 1 FROM main.ProvVencimientos v WHERE v.NConcepto = ", de,
                   ".NConcepto AND v.NFactura = ", de, ".", numero, " AND ", enRango, ")"});
  };
  const std::string conFactura =
      "EXISTS (SELECT 1 FROM main.ProvFacturas f WHERE f.NConcepto = t.NConcepto AND f.Factura = "
      "t.NFactura AND " +
      conVencimiento("f", "Factura") + ")";
  const std::string motivo = "CASE WHEN " + conConcepto +
                             " THEN 'sus blancos no son los de su factura' "
                             "ELSE 'su concepto no existe' END";
  const auto excluidas = [](const Tabla& tabla, const std::string& porque,
                            const std::string& entra) {
    return Juntar({"SELECT ", sql::ComoFila(tabla, "t", porque), " FROM foto.", tabla.Nombre,
                   " t WHERE NOT (", entra, ")"});
  };
  const auto deFactura = TablasDeFactura();
  return sql::LeerFilas(
      *conexion_, sql::Separar({excluidas(deFactura[0], motivo,
                                          conConcepto + " AND " + conVencimiento("t", "Factura")),
                                excluidas(deFactura[1], "'sus blancos no son los de su factura'",
                                          conVencimiento("t", "NFactura")),
                                excluidas(deFactura[2], motivo, conConcepto + " AND " + conFactura),
                                excluidas(Previsiones(), "'su concepto no existe'", conConcepto)},
                               " UNION ALL "));
}

std::vector<Fila> Foto::Cambiadas() {
  if (!rango_ || std::ranges::all_of(Tablas(), [&](const Tabla& tabla) {
        return DiceLoMismo(*conexion_, tabla);
      })) {
    return {};
  }
  return sql::LeerFilas(*conexion_, FacturasCambiadas() + " UNION ALL " + PrevisionesCambiadas() +
                                        " UNION ALL " + ApuntesCambiados());
}

namespace {

/// The keys of the rows that a table of the copy and of the picture don't both have.
std::string Distintas(sqlite::Conexion& base, const Tabla& tabla, std::string_view clave) {
  const std::string columnas = sql::ValoresConNombre(tabla, sql::Contenido(base, tabla), "t");
  const std::string copia = Juntar({"SELECT ", columnas, " FROM copia.", tabla.Nombre, " t"});
  const std::string foto = Juntar({"SELECT ", columnas, " FROM foto.", tabla.Nombre, " t"});
  return Juntar({"SELECT ", clave, " FROM (", copia, " EXCEPT ", foto, ") UNION SELECT ", clave,
                 " FROM (", foto, " EXCEPT ", copia, ")"});
}

/// What happened to the row `d` of which the picture tells as `antes` and the copy as `ahora`, null
/// where it is missing; and what becomes of it, which depends on whether the working copy has it.
std::string Motivo(const std::string& deTrabajo) {
  const std::string quien =
      " || ifnull(ahora.ModificadoPor, 'otro usuario') || CASE WHEN " + deTrabajo + " THEN ";
  return "CASE WHEN ahora.NConcepto IS NULL THEN 'otro usuario la ha borrado, y se volvería a "
         "grabar' WHEN antes.NConcepto IS NULL THEN 'la ha añadido '" +
         quien +
         "', y la de la lista ocuparía su lugar' ELSE ', y se borraría' END "
         "ELSE 'la ha cambiado '" +
         quien + "', y volvería a ser como era' ELSE ', y se borraría' END END";
}

/// That the copy has something left of the invoice `d`.
std::string QuedaAlgo() {
  std::string condicion;
  for (const Tabla& tabla : TablasDeFactura()) {
    condicion += Juntar({condicion.empty() ? "" : " OR ", "EXISTS (SELECT 1 FROM copia.",
                         tabla.Nombre, " t WHERE t.NConcepto = d.NConcepto AND trim(t.",
                         tabla.Numero, ") COLLATE ES = d.Factura AND t.Año = d.Año)"});
  }
  return condicion;
}

/// The rows of the copy's table that belong to the same invoice or forecast; empty for a cash
/// entry, which nobody deletes.
std::string EnLaCopia(const Fila& fila) {
  std::string desde = Juntar({"SELECT 1 FROM copia.", fila.Tabla,
                              " t WHERE t.NConcepto COLLATE ES = ", Texto(fila.NConcepto)});
  const Tabla* tabla = BuscarTabla(fila.Tabla);
  if (tabla == nullptr || tabla->Que == Tabla::Cosa::Apunte) return "";
  if (tabla->Que == Tabla::Cosa::Prevision) return desde;
  return Juntar({desde, " AND trim(t.", tabla->Numero, ") COLLATE ES = ", Texto(fila.Factura),
                 " AND t.Año = ", Texto(fila.Anio)});
}

}  // namespace

std::string Foto::FacturasCambiadas() {
  std::string claves;
  for (const Tabla& tabla : TablasDeFactura()) {
    if (!claves.empty()) claves += " UNION ";
    claves += Distintas(*conexion_, tabla,
                        Juntar({"NConcepto, trim(", tabla.Numero, ") AS Factura, Año"}));
  }
  const auto con = [](std::string_view donde, std::string_view alias) {
    return Juntar(
        {" LEFT JOIN (SELECT NConcepto, trim(Factura) AS Factura, Año, ModificadoPor FROM ", donde,
         ") ", alias, " ON ", alias, ".NConcepto = d.NConcepto AND ", alias,
         ".Factura = d.Factura AND ", alias, ".Año = d.Año"});
  };
  const auto en = [](std::string_view tabla) {
    return Juntar(
        {"EXISTS (SELECT 1 FROM ", tabla,
         " w WHERE w.NConcepto = d.NConcepto AND w.Factura = d.Factura AND w.Año = d.Año)"});
  };
  const std::string deTrabajo = en("temp.DeTrabajo");
  return "SELECT 'ProvFacturas', d.NConcepto, d.Factura, d.Año, '', CASE WHEN NOT " +
         en("temp.DelRango") +
         " THEN 'ya está grabada con vencimientos de otras fechas, y lo entrado con su número "
         "se le añadiría' ELSE " +
         Motivo(deTrabajo) + " END FROM (SELECT DISTINCT * FROM (" + claves + ")) d" +
         con("foto.ProvFacturas", "antes") + con("copia.ProvFacturas", "ahora") + " WHERE " +
         deTrabajo + " OR " + QuedaAlgo();
}

std::string Foto::PrevisionesCambiadas() {
  const std::string deTrabajo =
      "EXISTS (SELECT 1 FROM temp.PrevisionDeTrabajo w WHERE w.NConcepto = d.NConcepto)";
  return "SELECT 'ProvPrevisionPagos', d.NConcepto, '', '', '', " + Motivo(deTrabajo) + " FROM (" +
         Distintas(*conexion_, Previsiones(), "NConcepto") +
         ") d LEFT JOIN foto.ProvPrevisionPagos antes ON antes.NConcepto = d.NConcepto LEFT "
         "JOIN copia.ProvPrevisionPagos ahora ON ahora.NConcepto = d.NConcepto WHERE " +
         deTrabajo + " OR ahora.NConcepto IS NOT NULL";
}

std::vector<Fila> Foto::QueSiguen(std::vector<Fila> filas) {
  std::erase_if(filas, [this](const Fila& fila) {
    const std::string suyas = EnLaCopia(fila);
    return !suyas.empty() && conexion_->Consultar(suyas).Filas.Cuantas() == 0;
  });
  return filas;
}

/// An entry that is gone can't be linked any more, and nothing of it is lost.
std::string Foto::ApuntesCambiados() {
  return "SELECT 'CajaPagos', d.Tipo, ifnull(ahora.Factura, ''), ifnull(ahora.Año, ''), "
         "d.FechaHora, "
         "'lo ha cambiado ' || ifnull(ahora.ModificadoPor, 'otro usuario') || ', y volvería a ser "
         "como era' FROM (" +
         Distintas(*conexion_, Apuntes(), "idSucursal, FechaHora, Tipo") +
         ") d JOIN copia.CajaPagos ahora ON ahora.idSucursal = d.idSucursal AND ahora.FechaHora = "
         "d.FechaHora AND ahora.Tipo = d.Tipo";
}

}  // namespace salvaguarda
