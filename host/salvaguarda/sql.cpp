#include "salvaguarda/sql.h"

#include "valores/error.h"
#include "valores/texto.h"

namespace salvaguarda::sql {

std::string Texto(std::string_view texto) {
  std::string literal = "'";
  for (const char c : texto) literal += c == '\'' ? "''" : std::string(1, c);
  return literal + "'";
}

std::string Juntar(std::initializer_list<std::string_view> piezas) {
  std::string texto;
  for (const std::string_view pieza : piezas) texto += pieza;
  return texto;
}

// Without types: the indexes by the trimmed number have none, and serve no text column.
std::string CrearClaves(std::string_view esquema, std::string_view tabla) {
  return Juntar({"CREATE TABLE ", esquema, ".", tabla,
                 " (NConcepto COLLATE ES, Factura COLLATE ES, Año COLLATE ES, "
                 "PRIMARY KEY (NConcepto, Factura, Año)) WITHOUT ROWID;"});
}

std::string ClavesDelRango(const Rango& rango) {
  return Juntar(
      {"SELECT f.NConcepto, trim(f.Factura), f.Año FROM main.ProvVencimientos v CROSS JOIN "
       "main.ProvFacturas f ON f.NConcepto = v.NConcepto AND f.Factura = v.NFactura WHERE "
       "v.FechaVto >= ",
       Texto(rango.Desde), " AND v.FechaVto <= ", Texto(rango.Hasta)});
}

std::string FilasDe(const TablaDeFactura& tabla, std::string_view claves,
                    std::string_view columnas) {
  return Juntar({"SELECT ", columnas, " FROM ", claves, " k CROSS JOIN main.", tabla.Nombre,
                 " t ON trim(t.", tabla.Numero,
                 ") COLLATE ES = k.Factura AND t.NConcepto = k.NConcepto AND t.Año = k.Año"});
}

std::string PrevisionesCon(std::string_view claves, std::string_view columnas) {
  return Juntar({"SELECT ", columnas, " FROM ", claves,
                 " k CROSS JOIN main.ProvPrevisionPagos t ON t.NConcepto = k.NConcepto"});
}

// By their moment, however it is written.
std::string ApuntesCon(std::string_view claves, std::string_view columnas) {
  return Juntar({"SELECT ", columnas, " FROM ", claves,
                 " k CROSS JOIN main.CajaPagos t ON t.idSucursal = k.idSucursal AND "
                 "MOMENTO(t.FechaHora) = MOMENTO(k.FechaHora) AND t.Tipo = k.Tipo"});
}

std::string PrevisionesDe(const Rango& rango) {
  return Juntar({"SELECT p.* FROM main.ProvPrevisionPagos p WHERE p.Fecha1Vto <= ",
                 Texto(rango.Hasta), " ORDER BY p.NConcepto"});
}

std::string ComoQueda(std::string_view tabla, std::string_view columna, std::string_view alias) {
  std::string valor = Juntar({alias, alias.empty() ? "" : ".", "\"", columna, "\""});
  if (columna == "BIRPF" || columna == "TipoIRPF" || columna == "IRPF") {
    return "CASE WHEN ifnull(" + valor + ", 1) = 1 THEN 0 ELSE " + valor + " END";
  }
  const bool enlace = tabla == "CajaPagos" && (columna == "Factura" || columna == "Año");
  if (enlace) return "ifnull(" + valor + ", '')";
  return valor;
}

std::string Contenido(sqlite::Conexion& base, std::string_view tabla, std::string_view alias,
                      const std::function<bool(const std::string&)>& cuenta) {
  std::string columnas;
  for (const services::Columna& columna : base.ColumnasDe(tabla)) {
    if (columna.Nombre == "Actualizado" || columna.Nombre == "ModificadoPor") continue;
    if (!cuenta(columna.Nombre)) continue;
    if (!columnas.empty()) columnas += ", ";
    columnas += ComoQueda(tabla, columna.Nombre, alias);
  }
  return columnas;
}

std::vector<Fila> LeerFilas(sqlite::Conexion& base, std::string_view consulta) {
  const services::Filas leidas = base.Consultar(consulta).Filas;
  std::vector<Fila> filas;
  for (std::size_t f = 0; f < leidas.Cuantas(); ++f) {
    const auto texto = [&](std::size_t columna) { return leidas.En(f, columna).Texto(); };
    filas.push_back({texto(0), texto(1), texto(2), texto(3), texto(4), texto(5)});
  }
  return filas;
}

std::string SenaDeFoto(sqlite::Conexion& base) {
  try {
    const auto sena = base.Consultar("SELECT Sena FROM foto.Foto").Filas;
    return sena.Cuantas() == 1 ? sena.En(0, 0).Texto() : "";
  } catch (const services::ErrorEjecucion&) {
    return "";
  }
}

Adjunta::Adjunta(sqlite::Conexion& base, const std::string& fichero, std::string_view nombre)
    : base_(base), nombre_(nombre) {
  base_.Ejecutar(Juntar({"ATTACH ", Texto(fichero), " AS ", nombre}));
}

// A file that can't be let go of now goes with the connection.
Adjunta::~Adjunta() {
  try {
    base_.Ejecutar("DETACH " + nombre_);
  } catch (const services::ErrorEjecucion&) {
    return;
  }
}

Transaccion::Transaccion(sqlite::Conexion& base) : base_(base) {
  base_.Ejecutar("BEGIN");
}

Transaccion::~Transaccion() {
  if (!enCurso_) return;
  try {
    base_.Ejecutar("ROLLBACK");
  } catch (const services::ErrorEjecucion&) {
    return;
  }
}

void Transaccion::Terminar() {
  base_.Ejecutar("COMMIT");
  enCurso_ = false;
}

}  // namespace salvaguarda::sql
