#include "salvaguarda/almacen_en_servidor.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <numeric>
#include <span>
#include <vector>

#include "esquema/esquema_sqlite.h"
#include "salvaguarda/adjunta.h"
#include "salvaguarda/ambito.h"
#include "salvaguarda/consultas.h"
#include "salvaguarda/sql.h"
#include "sqlite/momento.h"
#include "valores/error.h"

namespace salvaguarda {
namespace {

using services::Filas;
using services::ModoApertura;
using services::Valor;
using sql::Juntar;
using sql::Texto;

constexpr std::string_view kConceptos = "ProvConceptos";

/// Only this program looks at it, and makes it anew when it starts.
services::Ref<sqlite::Conexion> CrearEspejo(services::Conexion& servidor,
                                            const std::string& fichero) {
  for (const char* cual : {"", "-wal", "-shm"}) {
    std::error_code noEstaba;
    std::filesystem::remove(fichero + cual, noEstaba);
  }
  auto espejo = sqlite::AbrirConexion(
      fichero, {.UnidadDeTrabajo = false, .Crear = true, .CualquierSentencia = true});
  espejo->Ejecutar("PRAGMA synchronous = OFF");
  esquema::CrearAlmacenadasComo(servidor, *espejo);
  return espejo;
}

std::string Todas(std::string_view tabla) {
  return Juntar({"SELECT ", tabla, ".* FROM ", tabla});
}

/// Those of a table whose number, whatever the blanks around it, is that of a due date in the
/// range. `tambien`: what else joins them.
std::string DelRango(const Tabla& tabla, const Rango& rango, std::string_view tambien = {}) {
  return Juntar({"SELECT DISTINCT ", tabla.Nombre, ".* FROM ", tabla.Nombre,
                 " INNER JOIN ProvVencimientos AS V ON ", tambien, "RTRIM(LTRIM(", tabla.Nombre,
                 ".", tabla.Numero, ")) = RTRIM(LTRIM(V.NFactura)) WHERE V.FechaVto >= ",
                 Texto(rango.Desde), " AND V.FechaVto <= ", Texto(rango.Hasta)});
}

/// A moment as a statement has it.
std::string Escrito(services::FechaHora momento) {
  const std::string iso = services::TextoIso(momento);
  return Juntar(
      {"#", iso.substr(5, 2), "/", iso.substr(8, 2), "/", iso.substr(0, 4), iso.substr(10), "#"});
}

/// A value as a statement has it.
std::string Escrito(const Valor& valor) {
  const auto* momento = valor.Si<services::FechaHora>();
  return momento ? Escrito(*momento) : sql::Literal(valor);
}

/// Some cells of a row, to the letter.
std::string ALaLetra(const Filas& filas, std::size_t fila, const std::vector<std::size_t>& cuales) {
  std::string texto;
  for (const std::size_t i : cuales) texto += sql::Literal(filas.En(fila, i)) + ",";
  return texto;
}

/// Where the key of a table stands among its columns.
std::vector<std::size_t> Clave(const Tabla& tabla, const std::vector<services::Columna>& columnas) {
  std::vector<std::size_t> clave;
  for (const std::string_view nombre : tabla.Clave()) {
    const auto suya = std::ranges::find_if(
        columnas, [&](const services::Columna& columna) { return columna.Nombre == nombre; });
    clave.push_back(static_cast<std::size_t>(suya - columnas.begin()));
  }
  return clave;
}

/// The rows by their keys, to the letter.
std::map<std::string, std::size_t> PorClave(const Filas& filas,
                                            const std::vector<std::size_t>& clave) {
  std::map<std::string, std::size_t> lugares;
  for (std::size_t i = 0; i < filas.Cuantas(); ++i) lugares.emplace(ALaLetra(filas, i, clave), i);
  return lugares;
}

std::string Borrado(const Tabla& tabla, const std::vector<std::size_t>& clave, const Filas& filas,
                    std::size_t fila) {
  std::vector<std::string> condiciones;
  for (std::size_t i = 0; i < clave.size(); ++i) {
    condiciones.push_back(
        Juntar({tabla.Nombre, ".", tabla.Clave()[i], " = ", Escrito(filas.En(fila, clave[i]))}));
  }
  return Juntar({"DELETE ", tabla.Nombre, ".* FROM ", tabla.Nombre, " WHERE ",
                 sql::Separar(condiciones, " AND ")});
}

/// The values of a row, on their way to where a cursor leads.
class Asignadas {
 public:
  explicit Asignadas(std::size_t columnas) : valores_(columnas) {
    for (std::size_t i = 0; i < columnas; ++i) asignaciones_.push_back({i, &valores_[i]});
  }
  std::span<const services::Asignacion> De(const Filas& filas, std::size_t fila) {
    for (std::size_t i = 0; i < valores_.size(); ++i) valores_[i] = filas.En(fila, i);
    return asignaciones_;
  }

 private:
  std::vector<Valor> valores_;
  std::vector<services::Asignacion> asignaciones_;
};

}  // namespace

AlmacenEnServidor::AlmacenEnServidor(services::Ref<odbc::Conexion> servidor, std::string nombre,
                                     const std::string& espejo)
    : Almacen(std::move(nombre), espejo),
      servidor_(std::move(servidor)),
      espejo_(CrearEspejo(*servidor_, espejo)) {}

void AlmacenEnServidor::Traer(const std::optional<Rango>& rango, const ClavesDe& claves) {
  const Claves pedidas = claves ? claves() : Claves();
  Vaciar();
  const services::LecturaFija deUnMomento(*servidor_);
  sql::Transaccion transaccion(*espejo_);
  Copiar(kConceptos, Todas(kConceptos));
  if (rango) TraerRango(*rango);
  TraerLasQueFaltan(pedidas);
  transaccion.Terminar();
}

void AlmacenEnServidor::Vaciar() {
  std::string todo = Juntar({"DELETE FROM main.", kConceptos, ";"});
  for (const Tabla& tabla : Tablas()) todo += Juntar({"DELETE FROM main.", tabla.Nombre, ";"});
  espejo_->Ejecutar(todo);
}

// All that any commit or load of the range may look at.
void AlmacenEnServidor::TraerRango(const Rango& rango) {
  for (const Tabla& tabla : TablasDeFactura()) {
    Copiar(tabla.Nombre,
           DelRango(tabla, rango, Juntar({tabla.Nombre, ".NConcepto = V.NConcepto AND "})));
  }
  Copiar(Previsiones().Nombre, Todas(Previsiones().Nombre) + " WHERE " +
                                   sql::BorraPrevision(rango, Previsiones().Nombre));
  Copiar(Apuntes().Nombre,
         Todas(Apuntes().Nombre) + " WHERE CajaPagos.Factura Is Null OR CajaPagos.Factura = ''");
  Copiar(Apuntes().Nombre, DelRango(Apuntes(), rango) + " AND RTRIM(LTRIM(V.NFactura)) <> ''");
}

// Where there is any row of an invoice, there are all of them.
void AlmacenEnServidor::TraerLasQueFaltan(const Claves& claves) {
  espejo_->Ejecutar(AmbitoDe(claves));
  TraerFacturas();
  std::vector<std::string> condiciones;
  const auto previsiones =
      espejo_
          ->Consultar(
              "SELECT NConcepto FROM temp.AmbitoPrevision WHERE NConcepto NOT IN (SELECT "
              "NConcepto FROM main.ProvPrevisionPagos)")
          .Filas;
  for (std::size_t i = 0; i < previsiones.Cuantas(); ++i) {
    condiciones.push_back("ProvPrevisionPagos.NConcepto = " + Texto(previsiones.En(i, 0).Texto()));
  }
  TraerPorClave(Previsiones().Nombre, condiciones);
  condiciones.clear();
  const auto apuntes =
      espejo_
          ->Consultar(Juntar({"SELECT k.* FROM temp.AmbitoCaja k WHERE NOT EXISTS (SELECT 1 FROM "
                              "main.CajaPagos t WHERE ",
                              sql::MismaFila(Apuntes(), "t", "k"), ")"}))
          .Filas;
  for (std::size_t i = 0; i < apuntes.Cuantas(); ++i) {
    const auto momento = sqlite::LeerMomento(apuntes.En(i, 1).Texto());
    if (!momento) continue;
    condiciones.push_back(Juntar({"(CajaPagos.idSucursal = ", Texto(apuntes.En(i, 0).Texto()),
                                  " AND CajaPagos.FechaHora = ", Escrito(*momento),
                                  " AND CajaPagos.Tipo = ", sql::Literal(apuntes.En(i, 2)), ")"}));
  }
  TraerPorClave(Apuntes().Nombre, condiciones);
}

void AlmacenEnServidor::TraerFacturas() {
  std::string consulta = "SELECT DISTINCT k.NConcepto, k.Factura FROM temp.Ambito k WHERE 1";
  for (const Tabla& tabla : TablasDeFactura()) {
    consulta += Juntar({" AND NOT EXISTS (SELECT 1 FROM main.", tabla.Nombre, " t WHERE ",
                        sql::Igual(sql::Numero(tabla, "t"), "k.Factura"),
                        " AND t.NConcepto = k.NConcepto)"});
  }
  const auto claves = espejo_->Consultar(consulta).Filas;
  for (const Tabla& tabla : TablasDeFactura()) {
    std::vector<std::string> condiciones;
    for (std::size_t i = 0; i < claves.Cuantas(); ++i) {
      condiciones.push_back(Juntar(
          {"(", tabla.Nombre, ".NConcepto = ", Texto(claves.En(i, 0).Texto()), " AND RTRIM(LTRIM(",
           tabla.Nombre, ".", tabla.Numero, ")) = ", Texto(claves.En(i, 1).Texto()), ")"}));
    }
    TraerPorClave(tabla.Nombre, condiciones);
  }
}

/// So many in one statement; the last one again and again where there are fewer, so that it is
/// always the same statement.
void AlmacenEnServidor::TraerPorClave(std::string_view tabla,
                                      const std::vector<std::string>& condiciones) {
  constexpr std::size_t kDeUnaVez = 32;
  for (std::size_t desde = 0; desde < condiciones.size(); desde += kDeUnaVez) {
    std::vector<std::string> estas;
    for (std::size_t i = desde; i < desde + kDeUnaVez; ++i) {
      estas.push_back(condiciones[std::min(i, condiciones.size() - 1)]);
    }
    Copiar(tabla, Todas(tabla) + " WHERE " + sql::Separar(estas, " OR "));
  }
}

// A row may come twice: the server may take two spellings of a key for the same that aren't here.
void AlmacenEnServidor::Copiar(std::string_view tabla, const std::string& sentencia) {
  const auto cursor = servidor_->AbrirPropia(sentencia, ModoApertura::Lectura);
  const auto destino = espejo_->Abrir(Todas(tabla), ModoApertura::Optimista);
  const Filas filas = cursor->Leer();
  Asignadas asignadas(cursor->Columnas().size());
  const auto yaEsta = [](const services::ErrorEjecucion& fallo) {
    if (fallo.Numero() != services::error::RepetidoONoCabe) throw services::ErrorEjecucion(fallo);
  };
  for (std::size_t i = 0; i < filas.Cuantas(); ++i) {
    destino->InsertarLuego(asignadas.De(filas, i), yaEsta);
  }
}

// First in the mirror: what then differs from what was there goes to the server.
void AlmacenEnServidor::Cambiar(const std::string& sql) {
  sql::Transaccion transaccion(*espejo_);
  std::vector<Filas> antes;
  for (const Tabla& tabla : Tablas()) {
    antes.push_back(espejo_->Consultar(Todas(tabla.Nombre)).Filas);
  }
  espejo_->Ejecutar(sql);
  for (std::size_t i = 0; i < antes.size(); ++i) Llevar(Tablas()[i], antes[i]);
  servidor_->EscribirPendientes();
  transaccion.Terminar();
}

void AlmacenEnServidor::Llevar(const Tabla& tabla, const Filas& antes) {
  const auto [columnas, ahora] = espejo_->Consultar(Todas(tabla.Nombre));
  const std::vector<std::size_t> clave = Clave(tabla, columnas);
  const auto habia = PorClave(antes, clave);
  const auto hay = PorClave(ahora, clave);
  services::BorradosJuntos juntos(*servidor_);
  for (const auto& [suya, fila] : habia) {
    if (hay.contains(suya)) continue;
    (void)servidor_->AbrirPropia(Borrado(tabla, clave, antes, fila), ModoApertura::Optimista);
  }
  juntos.Terminar();
  const auto destino = servidor_->AbrirPropia(Todas(tabla.Nombre), ModoApertura::Pesimista);
  std::vector<std::size_t> todas(columnas.size());
  std::iota(todas.begin(), todas.end(), 0);
  Asignadas asignadas(columnas.size());
  for (const auto& [suya, fila] : hay) {
    const auto anterior = habia.find(suya);
    if (anterior == habia.end()) {
      destino->InsertarLuego(asignadas.De(ahora, fila),
                             [](const auto& fallo) { throw services::ErrorEjecucion(fallo); });
    } else if (ALaLetra(antes, anterior->second, todas) != ALaLetra(ahora, fila, todas)) {
      destino->Actualizar(antes, anterior->second, asignadas.De(ahora, fila));
    }
  }
}

}  // namespace salvaguarda
