#include "salvaguarda/reposicion.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>

#include "salvaguarda/adjunta.h"
#include "salvaguarda/consultas.h"
#include "salvaguarda/copia_adjunta.h"
#include "salvaguarda/dicho.h"
#include "salvaguarda/sql.h"

namespace salvaguarda {
namespace {

using sql::Juntar;

/// Those of them that tell what a row says.
std::string Dice(const Tabla& tabla, const std::vector<std::string>& comunes,
                 std::string_view alias) {
  std::vector<std::string> columnas;
  std::ranges::copy_if(comunes, std::back_inserter(columnas),
                       [&](const std::string& nombre) { return tabla.EsContenido(nombre); });
  return sql::Valores(tabla, columnas, alias);
}

/// The stored rows that the copy is about, as a query.
std::string Ahora(const Tabla& tabla) {
  if (tabla.Que == Tabla::Cosa::Prevision) return sql::PrevisionesCon("copia.ClavesPrevision");
  if (tabla.Que != Tabla::Cosa::Apunte) return sql::FilasDe(tabla, "copia.Claves");
  return Juntar({"SELECT e.* FROM (",
                 sql::ApuntesCon("copia.CajaPagos", "t.*, t.Factura AS Suya, t.Año AS SuAnio"),
                 ") e WHERE ", sql::kDeLaCopia});
}

/// What is in the copy, and what is stored: "121,00, ahora 100,00"; one of them where that is all.
std::string EnLosDos(const std::string& enLaCopia, const std::string& ahora) {
  if (enLaCopia.empty() || enLaCopia == ahora) return ahora;
  return ahora.empty() ? enLaCopia : enLaCopia + ", ahora " + ahora;
}

/// A row of what is read of a table, into the list of what becomes of it.
void Anadir(Reposicion& reposicion, const Tabla& tabla, const services::Filas& leidas,
            std::size_t i) {
  const auto importe = [&](std::size_t columna) {
    const services::Valor& valor = leidas.En(i, columna);
    return valor.EsNulo() ? "" : ImporteDicho(valor);
  };
  Fila fila = sql::LeerFila(leidas, i);
  fila.Importe = EnLosDos(importe(6), importe(7));
  if (leidas.En(i, 8).Texto() != "1") return reposicion.SeVan.push_back(std::move(fila));
  if (leidas.En(i, 9).Texto() != "1") return reposicion.Vuelven.push_back(std::move(fila));
  if (tabla.Que == Tabla::Cosa::Vencimiento) {
    const std::string pagado = PagadoDicho(leidas.En(i, 10));
    const std::string pagadoAhora = PagadoDicho(leidas.En(i, 11));
    if (pagado != pagadoAhora) fila.Motivo = "pagado " + EnLosDos(pagado, pagadoAhora);
  }
  reposicion.Cambian.push_back(std::move(fila));
}

std::string NombreDeClave(std::size_t i) {
  return "Clave" + std::to_string(i);
}

/// The rows of a query, and beside each a number of its own and what tells it from the others, in
/// columns of their own: the engine makes an index of those.
std::string ConClave(const Tabla& tabla, const std::string& filas) {
  std::vector<std::string> clave = sql::Clave(tabla, "f");
  for (std::size_t i = 0; i < clave.size(); ++i) clave[i] += " AS " + NombreDeClave(i);
  return Juntar({"SELECT f.*, row_number() OVER () AS Fila, ", sql::Separar(clave, ", "), " FROM (",
                 filas, ") f"});
}

std::string NombresDeClave(const Tabla& tabla) {
  std::vector<std::string> nombres;
  for (std::size_t i = 0; i < tabla.Clave().size(); ++i) nombres.push_back(NombreDeClave(i));
  return sql::Separar(nombres, ", ");
}

/// That two expressions of both sides are the same to the letter.
std::string Iguales(const std::string& deA, const std::string& deB) {
  return Juntar({"(", deA, ") IS (", deB, ")"});
}

/// What the rows of a side are told from the others by, to the letter.
std::string ClaveALaLetra(const Tabla& tabla, std::string_view alias) {
  return sql::Valores(tabla, {tabla.Clave().begin(), tabla.Clave().end()}, alias);
}

/// The rows of a side of which the other hasn't the same, and beside each its place among those of
/// its key: more than one has it where their numbers differ in blanks alone. First come those that
/// the other side writes in the same way.
std::string SinIguales(const Tabla& tabla, std::string_view lado) {
  const std::string de = Juntar({"(SELECT p.", lado, " FROM Parejas p WHERE p."});
  return Juntar({"SELECT s.*, row_number() OVER (PARTITION BY ", NombresDeClave(tabla),
                 " ORDER BY s.Fila NOT IN ", de, "MismaLetra), ", ClaveALaLetra(tabla, "s"),
                 ") AS Puesto FROM ", lado, " s WHERE s.Fila NOT IN ", de, "Iguales)"});
}

/// The rows of the copy as `a` and the stored ones as `b`, without those that both have to the
/// letter.
std::string LosDosLados(sqlite::Conexion& base, const Tabla& tabla) {
  const std::vector<std::string> comunes = sql::Comunes(base, tabla.Nombre);
  const auto una = [](std::string_view nombre, const std::string& consulta) {
    return Juntar({nombre, " AS MATERIALIZED (", consulta, ")"});
  };
  const std::string parejas =
      Juntar({"SELECT c.Fila AS Copiadas, g.Fila AS Guardadas, ",
              Iguales(ClaveALaLetra(tabla, "c"), ClaveALaLetra(tabla, "g")), " AS MismaLetra, ",
              Iguales(Dice(tabla, comunes, "c"), Dice(tabla, comunes, "g")),
              " AS Iguales FROM Copiadas c JOIN Guardadas g USING (", NombresDeClave(tabla), ")"});
  return "WITH " +
         sql::Separar(
             {una("Copiadas", ConClave(tabla, Juntar({"SELECT * FROM copia.", tabla.Nombre}))),
              una("Guardadas", ConClave(tabla, Ahora(tabla))), una("Parejas", parejas),
              una("a", SinIguales(tabla, "Copiadas")), una("b", SinIguales(tabla, "Guardadas"))},
             ", ") +
         " ";
}

/// What is read of a row of the copy, `a`, and the stored one, `b`: the `Fila` of one of them, what
/// both amount to, whether they are there, and what was paid of them.
std::string Leer(const Tabla& tabla, std::string_view alias) {
  const bool pagado = tabla.Que == Tabla::Cosa::Vencimiento;
  return Juntar({"SELECT ", sql::ColumnasDeFila(tabla, alias, "''"), ", a.", tabla.Importe, ", b.",
                 tabla.Importe, ", a.Fila IS NOT NULL, b.Fila IS NOT NULL",
                 pagado ? ", a.Pagado, b.Pagado" : ""});
}

/// The rows of the copy that aren't stored, or say something else there; then the stored ones that
/// it hasn't. Of the cash entries those alone that both have.
std::string QueDifieren(sqlite::Conexion& base, const Tabla& tabla) {
  const std::string por = Juntar({" USING (", NombresDeClave(tabla), ", Puesto)"});
  const bool apuntes = tabla.Que == Tabla::Cosa::Apunte;
  std::string consulta = Juntar({LosDosLados(base, tabla), Leer(tabla, "a"), " FROM a ",
                                 apuntes ? "JOIN b" : "LEFT JOIN b", por});
  if (apuntes) return consulta;
  return Juntar({consulta, " UNION ALL ", Leer(tabla, "b"), " FROM b LEFT JOIN a", por,
                 " WHERE a.Fila IS NULL"});
}

void Comparar(sqlite::Conexion& base, const Tabla& tabla, Reposicion& reposicion) {
  const services::Filas leidas = base.Consultar(QueDifieren(base, tabla)).Filas;
  for (std::size_t i = 0; i < leidas.Cuantas(); ++i) Anadir(reposicion, tabla, leidas, i);
}

}  // namespace

Reposicion Comparar(Almacen& almacen, sqlite::Conexion& base, const Copia& copia) {
  const std::string fichero = copia.Fichero.string();
  almacen.Traer({}, [&] { return Claves::DeCopia(base, fichero); });
  const sql::Adjunta adjunta(base, fichero, "copia");
  sql::PrepararClaves(base);
  Reposicion reposicion;
  for (const Tabla& tabla : Tablas()) Comparar(base, tabla, reposicion);
  return reposicion;
}

}  // namespace salvaguarda
