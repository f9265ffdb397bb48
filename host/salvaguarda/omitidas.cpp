#include "salvaguarda/omitidas.h"

#include <algorithm>
#include <set>
#include <string_view>

#include "salvaguarda/consultas.h"
#include "salvaguarda/sql.h"
#include "salvaguarda/tablas.h"
#include "valores/error.h"
#include "valores/texto.h"

namespace salvaguarda {
namespace {

using services::Omision;
using services::Valor;

/// A server may show a column's name in small letters.
auto BuscarCampo(const Omision& omision, std::string_view nombre) {
  return std::ranges::find_if(omision.Fila, [&](const Omision::Campo& campo) {
    return services::MismoTexto(campo.Nombre, nombre);
  });
}

std::string Campo(const Omision& omision, std::string_view nombre) {
  const auto campo = BuscarCampo(omision, nombre);
  return campo == omision.Fila.end() ? "" : campo->Valor.Texto();
}

/// Whether what failed was the look for an invoice's cash entries: the row is then the invoice.
bool DeUnaFactura(const Omision& omision) {
  return omision.Tabla == "TempCajaPagos" && !Campo(omision, "NConcepto").empty();
}

Fila ComoFila(const Omision& omision) {
  const Tabla* tabla = BuscarTabla(DeUnaFactura(omision) ? "ProvFacturas" : omision.Tabla);
  if (tabla == nullptr) return {omision.Tabla, "", "", "", "", omision.Fallo.Descripcion()};
  return {std::string(tabla->Nombre),
          Campo(omision, tabla->Concepto),
          std::string(services::Trim(Campo(omision, tabla->Numero))),
          Campo(omision, tabla->Anio),
          Campo(omision, tabla->Detalle),
          omision.Fallo.Descripcion()};
}

/// The stored rows of the row's key, as a query; empty where it isn't known whole.
std::string ConSuClave(const Omision& omision, const Tabla& tabla) {
  std::vector<std::string> suyas;
  std::vector<std::string> iguales;
  for (const std::string_view nombre : tabla.Clave()) {
    const auto campo = BuscarCampo(omision, nombre);
    if (campo == omision.Fila.end() || campo->Valor.EsNulo()) return "";
    const std::vector<std::string> columna{std::string(nombre)};
    suyas.push_back(sql::Juntar({sql::Literal(campo->Valor), " AS ", sql::Columna("", nombre)}));
    iguales.push_back(sql::Juntar(
        {sql::Valores(tabla, columna, "t"), " = ", sql::Valores(tabla, columna, "suya")}));
  }
  return sql::Juntar({"SELECT t.* FROM (SELECT ", sql::Separar(suyas, ", "), ") suya CROSS JOIN ",
                      tabla.Nombre, " t ON ", sql::Separar(iguales, " AND ")});
}

bool EsDeLaClave(const Tabla& tabla, const std::string& columna) {
  return std::ranges::find(tabla.Clave(), columna) != tabla.Clave().end();
}

bool DicenLoMismo(const Valor& a, const Valor& b) {
  return (a.EsNulo() && b.EsNulo()) || services::Igual(a, b).value_or(false);
}

/// What the stored table holds under a row's key.
enum class Guardada { Nada, Otra, LaMisma };

/// What can't be looked at isn't there.
Guardada BuscarGuardada(const Omision& omision, sqlite::Conexion& almacenados) try {
  const Tabla* tabla = BuscarTabla(omision.Tabla);
  if (tabla == nullptr) return Guardada::Nada;
  const std::string consulta = ConSuClave(omision, *tabla);
  if (consulta.empty()) return Guardada::Nada;
  const auto hallada = almacenados.Consultar(consulta);
  if (hallada.Filas.Cuantas() != 1) return Guardada::Nada;
  for (std::size_t i = 0; i < hallada.Columnas.size(); ++i) {
    const std::string& nombre = hallada.Columnas[i].Nombre;
    if (!tabla->EsContenido(nombre) || EsDeLaClave(*tabla, nombre)) continue;
    const auto campo = BuscarCampo(omision, nombre);
    if (campo != omision.Fila.end() && !DicenLoMismo(campo->Valor, hallada.Filas.En(0, i))) {
      return Guardada::Otra;
    }
  }
  return Guardada::LaMisma;
} catch (const services::ErrorEjecucion&) {
  return Guardada::Nada;
}

/// Where a row of a load belongs.
std::vector<Fila>& DeCarga(Omitidas& omitidas, const Omision& omision) {
  if (DeUnaFactura(omision)) return omitidas.SinApuntes;
  if (omision.Que == Omision::Falta::Valor) return omitidas.Incompletas;
  return omision.Tabla == "TempCajaPagos" ? omitidas.Apuntes : omitidas.Filas;
}

/// Where a row of a commit belongs that isn't stored as it was to be.
std::vector<Fila>& DeGrabacion(Omitidas& omitidas, const Omision& omision, Guardada guardada) {
  if (omision.Que == Omision::Falta::Valor) return omitidas.Incompletas;
  if (omision.Tabla == Apuntes().Nombre) return omitidas.SinEnlazar;
  return guardada == Guardada::Otra ? omitidas.Repetidas : omitidas.Filas;
}

/// Those of the rows to be saved that the stored table hasn't now.
std::vector<Fila> Perdidas(const Oida& oida, sqlite::Conexion& almacenados) try {
  const Tabla* tabla = BuscarTabla(oida.Omision.Tabla);
  if (tabla == nullptr || oida.PorGrabar.empty()) return oida.PorGrabar;
  return Sin(oida.PorGrabar, sql::TodasLasFilas(almacenados, *tabla, ""));
} catch (const services::ErrorEjecucion&) {
  return oida.PorGrabar;
}

void Anadir(Omitidas& omitidas, const Oida& oida, sqlite::Conexion& almacenados) {
  const Omision& omision = oida.Omision;
  if (omision.Que == Omision::Falta::Tabla) {
    const Fila fila = ComoFila(omision);
    omitidas.Tablas.push_back({fila.Tabla, fila.Motivo, Perdidas(oida, almacenados)});
  } else if (omision.Que == Omision::Falta::Borrado) {
    omitidas.SinBorrar.push_back({omision.Tabla, omision.Fallo.Descripcion()});
  } else if (omision.Durante == Omision::Tarea::Carga) {
    DeCarga(omitidas, omision).push_back(ComoFila(omision));
  } else {
    const Guardada guardada = BuscarGuardada(omision, almacenados);
    if (guardada == Guardada::LaMisma) return;
    std::vector<Fila>& suyas = DeGrabacion(omitidas, omision, guardada);
    suyas.push_back(ComoFila(omision));
    // That there is another says why; the engine's words stand in the log.
    if (&suyas == &omitidas.Repetidas) suyas.back().Motivo.clear();
  }
}

}  // namespace

Claves ClavesDe(const std::vector<Oida>& oidas) {
  Claves claves;
  const auto anadir = [&](const Fila& fila) {
    claves.EnLaLista.push_back({fila.NConcepto, fila.Factura, fila.Anio});
    claves.Previsiones.push_back(fila.NConcepto);
  };
  for (const Oida& oida : oidas) {
    anadir(ComoFila(oida.Omision));
    for (const Fila& fila : oida.PorGrabar) anadir(fila);
    claves.Apuntes.push_back({Campo(oida.Omision, "idSucursal"), Campo(oida.Omision, "FechaHora"),
                              Campo(oida.Omision, "Tipo")});
  }
  return claves;
}

Omitidas Clasificar(const std::vector<Oida>& oidas, Omision::Tarea durante,
                    sqlite::Conexion& almacenados) {
  Omitidas omitidas;
  for (const Oida& oida : oidas) {
    if (oida.Omision.Durante == durante) Anadir(omitidas, oida, almacenados);
  }
  std::erase_if(omitidas.SinBorrar, [&](const TablaOmitida& una) {
    return std::ranges::find(omitidas.Tablas, una.Tabla, &TablaOmitida::Tabla) !=
           omitidas.Tablas.end();
  });
  std::set<Fila, PorSuClave> dichas(omitidas.Filas.begin(), omitidas.Filas.end());
  dichas.insert(omitidas.Apuntes.begin(), omitidas.Apuntes.end());
  dichas.insert(omitidas.Repetidas.begin(), omitidas.Repetidas.end());
  std::erase_if(omitidas.Incompletas,
                [&](const Fila& fila) { return !dichas.insert(fila).second; });
  return omitidas;
}

}  // namespace salvaguarda
