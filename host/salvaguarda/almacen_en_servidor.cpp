#include "salvaguarda/almacen_en_servidor.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <set>
#include <vector>

#include "esquema/esquema_sqlite.h"
#include "salvaguarda/adjunta.h"
#include "salvaguarda/ambito.h"
#include "salvaguarda/consultas.h"
#include "salvaguarda/sql.h"
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

/// A moment as it is written in a date, as a statement has it.
std::string Fecha(std::string_view iso) {
  return Juntar({"#", iso.substr(5, 2), "/", iso.substr(8, 2), "/", iso.substr(0, 4), " ",
                 iso.substr(11), "#"});
}

bool EsMomento(std::string_view texto) {
  return texto.size() == std::string_view("yyyy-mm-dd hh:nn:ss").size() && texto[4] == '-';
}

/// A value as a statement has it.
std::string Escrito(const Valor& valor) {
  const auto* momento = valor.Si<services::FechaHora>();
  return momento ? Fecha(services::TextoIso(*momento)) : sql::Literal(valor);
}

/// What tells rows apart to the letter.
std::string ALaLetra(const Filas& filas, std::size_t fila) {
  std::string texto;
  for (std::size_t i = 0; i < filas.Columnas(); ++i) texto += sql::Literal(filas.En(fila, i)) + ",";
  return texto;
}

std::set<std::string> ALaLetra(const Filas& filas) {
  std::set<std::string> textos;
  for (std::size_t i = 0; i < filas.Cuantas(); ++i) textos.insert(ALaLetra(filas, i));
  return textos;
}

std::string Borrado(const Tabla& tabla, const std::vector<services::Columna>& columnas,
                    const Filas& filas, std::size_t fila) {
  std::vector<std::string> condiciones;
  for (const std::string_view clave : tabla.Clave()) {
    const auto suya = std::ranges::find_if(
        columnas, [&](const services::Columna& columna) { return columna.Nombre == clave; });
    const Valor valor = filas.En(fila, static_cast<std::size_t>(suya - columnas.begin()));
    condiciones.push_back(Juntar({tabla.Nombre, ".", clave, " = ", Escrito(valor)}));
  }
  return Juntar({"DELETE ", tabla.Nombre, ".* FROM ", tabla.Nombre, " WHERE ",
                 sql::Separar(condiciones, " AND ")});
}

/// Puts rows where a cursor leads, `cuales` of them.
template <class Poner>
void Anadir(const Filas& filas, std::size_t columnas,
            const std::function<bool(std::size_t)>& cuales, const Poner& poner) {
  std::vector<Valor> valores(columnas);
  std::vector<services::Asignacion> asignaciones;
  for (std::size_t i = 0; i < columnas; ++i) asignaciones.push_back({i, &valores[i]});
  for (std::size_t fila = 0; fila < filas.Cuantas(); ++fila) {
    if (!cuales(fila)) continue;
    for (std::size_t i = 0; i < columnas; ++i) valores[i] = filas.En(fila, i);
    poner(asignaciones);
  }
}

}  // namespace

AlmacenEnServidor::AlmacenEnServidor(services::Ref<odbc::Conexion> servidor, std::string nombre,
                                     const std::string& espejo)
    : Almacen(std::move(nombre), espejo),
      servidor_(std::move(servidor)),
      espejo_(CrearEspejo(*servidor_, espejo)) {}

void AlmacenEnServidor::Traer(const std::optional<Rango>& rango, const ClavesDe& claves) {
  const Claves pedidas = claves ? claves() : Claves();
  const services::LecturaFija deUnMomento(*servidor_);
  sql::Transaccion transaccion(*espejo_);
  Vaciar();
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
    if (!EsMomento(apuntes.En(i, 1).Texto())) continue;
    condiciones.push_back(Juntar({"(CajaPagos.idSucursal = ", Texto(apuntes.En(i, 0).Texto()),
                                  " AND CajaPagos.FechaHora = ", Fecha(apuntes.En(i, 1).Texto()),
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

void AlmacenEnServidor::Copiar(std::string_view tabla, const std::string& sentencia) {
  const auto cursor = servidor_->AbrirPropia(sentencia, ModoApertura::Lectura);
  const auto destino = espejo_->Abrir(Todas(tabla), ModoApertura::Optimista);
  Anadir(
      cursor->Leer(), cursor->Columnas().size(), [](std::size_t) { return true; },
      [&](const auto& fila) { destino->Insertar(fila); });
}

// First in the mirror: what then differs from what was there goes to the server.
void AlmacenEnServidor::Cambiar(const std::string& sql) {
  sql::Transaccion transaccion(*espejo_);
  std::vector<Filas> antes;
  for (const Tabla& tabla : Tablas())
    antes.push_back(espejo_->Consultar(Todas(tabla.Nombre)).Filas);
  espejo_->Ejecutar(sql);
  for (std::size_t i = 0; i < antes.size(); ++i) Llevar(Tablas()[i], antes[i]);
  servidor_->EscribirPendientes();
  transaccion.Terminar();
}

void AlmacenEnServidor::Llevar(const Tabla& tabla, const Filas& antes) {
  const auto [columnas, ahora] = espejo_->Consultar(Todas(tabla.Nombre));
  const std::set<std::string> quedan = ALaLetra(ahora);
  const std::set<std::string> estaban = ALaLetra(antes);
  services::BorradosJuntos juntos(*servidor_);
  for (std::size_t i = 0; i < antes.Cuantas(); ++i) {
    if (quedan.contains(ALaLetra(antes, i))) continue;
    (void)servidor_->AbrirPropia(Borrado(tabla, columnas, antes, i), ModoApertura::Optimista);
  }
  juntos.Terminar();
  const auto destino = servidor_->AbrirPropia(Todas(tabla.Nombre), ModoApertura::Optimista);
  Anadir(
      ahora, columnas.size(),
      [&](std::size_t fila) { return !estaban.contains(ALaLetra(ahora, fila)); },
      [&](const auto& fila) {
        destino->InsertarLuego(fila,
                               [](const auto& fallo) { throw services::ErrorEjecucion(fallo); });
      });
}

}  // namespace salvaguarda
