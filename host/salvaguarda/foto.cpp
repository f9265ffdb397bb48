#include "salvaguarda/foto.h"

#include <filesystem>
#include <fstream>
#include <random>
#include <set>
#include <string_view>
#include <utility>

#include "salvaguarda/adjunta.h"
#include "salvaguarda/cambios.h"
#include "salvaguarda/consultas.h"
#include "salvaguarda/excluidas.h"
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

/// What tells a row from the others: a concept has one forecast, whatever its date.
Fila Clave(Fila fila) {
  if (fila.Tabla == Previsiones().Nombre) fila.Detalle.clear();
  return fila;
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

Foto::Foto(const std::string& almacenados, std::string fichero)
    : conexion_(sqlite::AbrirConexion(almacenados, {.UnidadDeTrabajo = false})),
      fichero_(std::move(fichero)) {
  try {
    Adjuntar();
  } catch (const services::ErrorEjecucion&) {
    Rehacer();
  }
}

void Foto::Adjuntar() {
  // The engine attaches what is there. One that is isn't opened: that drops the locks of whoever in
  // this process has it open.
  if (!std::filesystem::exists(fichero_)) std::ofstream(fichero_, std::ios::app).flush();
  conexion_->Adjuntar(fichero_, "foto");
  conexion_->Ejecutar("PRAGMA foto.journal_mode = MEMORY; PRAGMA foto.synchronous = OFF");
  conexion_->Ejecutar("SELECT count(*) FROM foto.sqlite_master");
}

void Foto::Rehacer() {
  try {
    conexion_->Ejecutar("DETACH foto");
  } catch (const services::ErrorEjecucion&) {
    // It may not be attached.
  }
  std::error_code noEstaba;
  std::filesystem::remove(fichero_, noEstaba);
  Adjuntar();
}

// It is written without care for the power, so it may be damaged.
void Foto::Tomar(const Rango& rango) {
  Olvidar();
  try {
    TomarAhora(rango);
  } catch (const services::ErrorEjecucion&) {
    Rehacer();
    TomarAhora(rango);
  }
}

void Foto::TomarTarde(const Rango& rango) {
  Tomar(rango);
  version_.reset();
}

void Foto::TomarAhora(const Rango& rango) {
  sql::Transaccion lectura(*conexion_);
  std::string todo =
      "DROP TABLE IF EXISTS foto.DelRango; DROP TABLE IF EXISTS foto.Claves;" +
      sql::CrearClaves("foto", "DelRango") + sql::CrearClaves("foto", "Claves") +
      Juntar({"INSERT OR IGNORE INTO foto.DelRango ", sql::ClavesDelRango(*conexion_, rango),
              ";INSERT INTO foto.Claves SELECT * FROM foto.DelRango;"
              "INSERT OR IGNORE INTO foto.Claves ",
              sql::ClavesQueVienen(*conexion_, rango), ";"});
  for (const Tabla& tabla : TablasDeFactura()) {
    todo += Retratar(tabla.Nombre, sql::FilasDe(tabla, "foto.Claves"));
  }
  todo += Retratar("ProvPrevisionPagos", sql::PrevisionesDe(rango));
  todo += Retratar("CajaPagos", std::string(kApuntes));
  todo += Retratar("Excluidas", sql::Excluidas(rango));
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

std::vector<Fila> Foto::Excluidas() {
  if (!rango_) return {};
  return sql::LeerFilas(*conexion_, "SELECT * FROM foto.Excluidas");
}

// Where no number has two invoices there is nothing to look through.
std::vector<Fila> Foto::Gemelas() {
  if (!rango_) return {};
  const Tabla& facturas = TablasDeFactura()[0];
  const std::string igual =
      Juntar({sql::Igual("g.NConcepto", "t.NConcepto"), " AND ", sql::Igual("g.Año", "t.Año"),
              " AND ", sql::Igual(sql::Numero(facturas, "g"), sql::Numero(facturas, "t"))});
  return sql::LeerFilas(
      *conexion_, Juntar({"SELECT ", sql::ColumnasDeFila(facturas, "t", "''"),
                          " FROM foto.ProvFacturas t JOIN (SELECT * FROM foto.ProvFacturas g WHERE "
                          "(SELECT count(*) FROM foto.ProvFacturas) > (SELECT count(*) FROM "
                          "foto.DelRango) GROUP BY NConcepto COLLATE ES, ",
                          sql::Numero(facturas, "g"),
                          " COLLATE ES, Año COLLATE ES HAVING count(*) > 1) g ON ", igual}));
}

std::vector<Cambio> Foto::Cambios() {
  return rango_ ? LeerCambios(*conexion_, "foto") : std::vector<Cambio>();
}

std::vector<Fila> Foto::QueSiguen(std::vector<Fila> filas) {
  if (filas.empty()) return filas;
  std::vector<std::string> consultas;
  for (const Tabla& tabla : Tablas()) {
    const bool prevision = tabla.Que == Tabla::Cosa::Prevision && rango_;
    consultas.push_back(
        Juntar({"SELECT ", sql::ColumnasDeFila(tabla, "t", "''"), " FROM copia.", tabla.Nombre,
                " t", prevision ? " WHERE " + sql::BorraPrevision(*rango_, "t") : ""}));
  }
  std::set<Fila, PorSuClave> quedan;
  for (const Fila& fila : sql::LeerFilas(*conexion_, sql::Separar(consultas, " UNION ALL "))) {
    quedan.insert(Clave(fila));
  }
  std::erase_if(filas, [&](const Fila& fila) { return !quedan.contains(Clave(fila)); });
  return filas;
}

}  // namespace salvaguarda
