#include "salvaguarda/foto.h"

#include <filesystem>
#include <fstream>
#include <random>
#include <set>
#include <string_view>

#include "salvaguarda/adjunta.h"
#include "salvaguarda/cambios.h"
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

/// The invoice or forecast that a row belongs to, among those of its table.
Fila SinDetalle(const Fila& fila) {
  return {fila.Tabla, fila.NConcepto, fila.Factura, fila.Anio};
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
  std::string todo = "DROP TABLE IF EXISTS foto.DelRango; DROP TABLE IF EXISTS foto.Claves;" +
                     sql::CrearClaves("foto", "DelRango") + sql::CrearClaves("foto", "Claves") +
                     Juntar({"INSERT OR IGNORE INTO foto.DelRango ", sql::ClavesDelRango(rango),
                             ";INSERT INTO foto.Claves SELECT * FROM foto.DelRango;"
                             "INSERT OR IGNORE INTO foto.Claves ",
                             sql::ClavesQueVienen(rango), ";"});
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
      "FROM copia.Claves; DELETE FROM foto.DelRango; INSERT INTO foto.DelRango SELECT * FROM "
      "temp.DelRango;";
  for (const Tabla& tabla : Tablas()) {
    todo += Retratar(tabla.Nombre, Juntar({"SELECT * FROM copia.", tabla.Nombre}));
  }
  conexion_->Ejecutar(todo);
  version_.reset();
}

namespace {

/// What a row `t` must meet to be loaded, as SQL.
constexpr const char* kConConcepto =
    "EXISTS (SELECT 1 FROM main.ProvConceptos c WHERE c.NConcepto = t.NConcepto)";

std::string ConVencimiento(const Rango& rango, std::string_view de, std::string_view numero) {
  return Juntar({"EXISTS (SELECT 1 FROM main.ProvVencimientos v WHERE v.NConcepto = ", de,
                 ".NConcepto AND v.NFactura = ", de, ".", numero, " AND v.FechaVto >= ",
                 Texto(rango.Desde), " AND v.FechaVto <= ", Texto(rango.Hasta), ")"});
}

std::string ConFactura(const Rango& rango) {
  return Juntar(
      {"EXISTS (SELECT 1 FROM main.ProvFacturas f WHERE f.NConcepto = t.NConcepto AND "
       "f.Factura = t.NFactura AND ",
       ConVencimiento(rango, "f", "Factura"), ")"});
}

std::string LoQueExige(const Tabla& tabla, const Rango& rango) {
  std::string conConcepto = kConConcepto;
  switch (tabla.Que) {
    case Tabla::Cosa::Factura:
      return conConcepto + " AND " + ConVencimiento(rango, "t", tabla.Numero);
    case Tabla::Cosa::Base:
      return ConVencimiento(rango, "t", tabla.Numero);
    case Tabla::Cosa::Vencimiento:
      return conConcepto + " AND " + ConFactura(rango);
    case Tabla::Cosa::Prevision:
      return conConcepto;
    case Tabla::Cosa::Apunte:
      break;
  }
  return "1";
}

/// Why a row doesn't meet it.
std::string PorQueNo(const Tabla& tabla) {
  std::string blancos = "'sus blancos no son los de su factura'";
  if (tabla.Que == Tabla::Cosa::Base) return blancos;
  return Juntar(
      {"CASE WHEN ", kConConcepto, " THEN ", blancos, " ELSE 'su concepto no existe' END"});
}

}  // namespace

std::vector<Fila> Foto::Excluidas() {
  if (!rango_) return {};
  std::vector<std::string> consultas;
  for (const Tabla& tabla : Tablas()) {
    if (tabla.Que == Tabla::Cosa::Apunte) continue;  // no commit deletes one
    const bool prevision = tabla.Que == Tabla::Cosa::Prevision;
    consultas.push_back(
        Juntar({"SELECT ", sql::ComoFila(tabla, "t", PorQueNo(tabla)), " FROM foto.", tabla.Nombre,
                " t WHERE NOT (", LoQueExige(tabla, *rango_), ")",
                prevision ? "" : " AND " + sql::EstaEn("foto.DelRango", tabla, "t")}));
  }
  return sql::LeerFilas(*conexion_, sql::Separar(consultas, " UNION ALL "));
}

// Where no number has two invoices there is nothing to look through.
std::vector<Fila> Foto::Gemelas() {
  if (!rango_) return {};
  const Tabla& facturas = TablasDeFactura()[0];
  const std::string igual =
      Juntar({sql::Igual("g.NConcepto", "t.NConcepto"), " AND ", sql::Igual("g.Año", "t.Año"),
              " AND ", sql::Igual(sql::Numero(facturas, "g"), sql::Numero(facturas, "t"))});
  return sql::LeerFilas(
      *conexion_, Juntar({"SELECT ", sql::ComoFila(facturas, "t", "''"),
                          " FROM foto.ProvFacturas t JOIN (SELECT * FROM foto.ProvFacturas g WHERE "
                          "(SELECT count(*) FROM foto.ProvFacturas) > (SELECT count(*) FROM "
                          "foto.DelRango) GROUP BY NConcepto COLLATE ES, ",
                          sql::Numero(facturas, "g"),
                          " COLLATE ES, Año COLLATE ES HAVING count(*) > 1) g ON ", igual}));
}

std::vector<Fila> Foto::Cambiadas() {
  if (!rango_) return {};
  std::vector<Fila> filas;
  for (const Cambio& cambio : LeerCambios(*conexion_)) filas.push_back(ComoFila(cambio));
  return filas;
}

std::vector<Fila> Foto::QueSiguen(std::vector<Fila> filas) {
  if (filas.empty()) return filas;
  std::vector<std::string> consultas;
  for (const Tabla& tabla : Tablas()) {
    consultas.push_back(
        Juntar({"SELECT ", sql::ComoFila(tabla, "t", "''"), " FROM copia.", tabla.Nombre, " t"}));
  }
  std::set<Fila, PorSuClave> quedan;
  for (const Fila& fila : sql::LeerFilas(*conexion_, sql::Separar(consultas, " UNION ALL "))) {
    quedan.insert(SinDetalle(fila));
  }
  std::erase_if(filas, [&](const Fila& fila) { return !quedan.contains(SinDetalle(fila)); });
  return filas;
}

}  // namespace salvaguarda
