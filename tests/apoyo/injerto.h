#pragma once

#include <algorithm>
#include <map>
#include <optional>
#include <regex>
#include <string>
#include <vector>

#include "apoyo/molde.h"
#include "apoyo/negocio_de_vecinos.h"
#include "sqlite/celdas.h"
#include "sqlite/fichero.h"
#include "sqlite/momento.h"
#include "valores/error.h"
#include "valores/fecha.h"

// A value spliced into a statement of the system must find or delete the rows that it would as
// data, or the statement is refused and touches none.

namespace apoyo {

enum class Fin { Rechazada, Igual, Distinta };

class Injerto {
 public:
  /// On a file that isn't there yet.
  explicit Injerto(const std::string& fichero)
      : conexion_(sqlite::AbrirConexion(fichero, {.Crear = true})) {
    const Vecinos llenar(*conexion_);
    aparte_.emplace(fichero, sqlite::Opciones{});
    for (const dialecto::Escrita& escrita : dialecto::Sentencias()) {
      if (escrita.Texto.find("Sorvex") == std::string_view::npos) moldes_.emplace_back(escrita);
    }
  }

  [[nodiscard]] const std::vector<Molde>& Moldes() const { return moldes_; }

  /// Runs the statement with those values spliced in, compares, and leaves the rows as they were.
  Fin Probar(const Molde& molde, const Valores& valores) {
    const std::size_t antes = conexion_->Cuenta().Transacciones;
    std::vector<std::string> dadas;
    std::vector<services::Columna> columnas;
    try {
      const auto cursor = conexion_->Abrir(molde.Con(valores), molde.Modo());
      if (cursor) columnas = cursor->Columnas();
      dadas = cursor ? Textos(cursor->Leer(), columnas.size())
                     : Textos(conexion_->Consultar(molde.Quedan()).Filas, 1);
    } catch (const services::ErrorEjecucion& fallo) {
      const bool sinTocar = conexion_->Cuenta().Transacciones == antes;
      return EsRechazo(fallo.Numero()) && sinTocar ? Fin::Rechazada : Fin::Distinta;
    }
    conexion_->AbandonarUnidad();
    return dadas == Debidas(molde, valores, columnas) ? Fin::Igual : Fin::Distinta;
  }

 private:
  static bool EsRechazo(std::int32_t numero) {
    // The last two: a value without quotes that is a name.
    return numero == services::error::SentenciaRechazada ||
           numero == services::error::ColumnaDesconocida ||
           numero == services::error::TablaDesconocida;
  }
  /// A text for each row, in order.
  static std::vector<std::string> Textos(const services::Filas& filas, std::size_t columnas) {
    std::vector<std::string> textos(filas.Cuantas());
    for (std::size_t f = 0; f < filas.Cuantas(); ++f) {
      for (std::size_t c = 0; c < columnas; ++c) {
        const services::Valor valor = filas.En(f, c);
        textos[f] += valor.EsNulo() ? "NULL" : "«" + valor.Texto() + "»";
      }
    }
    std::sort(textos.begin(), textos.end());
    return textos;
  }
  /// The rows that the values find as data, or those that then stay; no value where the statement
  /// had to be refused, since a date in it is none.
  [[nodiscard]] std::optional<std::vector<std::string>> Debidas(
      const Molde& molde, const Valores& valores, const std::vector<services::Columna>& columnas) {
    sqlite3_stmt* sentencia = Preparada(molde.Sql(valores));
    for (std::size_t i = 0; i < valores.size(); ++i) {
      const Hueco& hueco = molde.Huecos()[i];
      const auto dato = hueco.Columna == "FechaHora" ? Momento(hueco, valores[i]) : valores[i];
      if (!dato && hueco.Clase == dialecto::ClaseToken::Fecha) return std::nullopt;
      sqlite3_bind_null(sentencia, static_cast<int>(i) + 1);
      if (!dato) continue;
      sqlite3_bind_text(sentencia, static_cast<int>(i) + 1, dato->data(),
                        static_cast<int>(dato->size()), SQLITE_TRANSIENT);
    }
    services::Filas filas(molde.Borra() ? 1 : columnas.size());
    while (sqlite3_step(sentencia) == SQLITE_ROW) sqlite::AnadirFila(sentencia, columnas, filas);
    sqlite3_reset(sentencia);
    return Textos(filas, filas.Columnas());
  }

  sqlite3_stmt* Preparada(const std::string& sql) {
    auto& preparada = preparadas_[sql];
    if (!preparada) preparada = aparte_->Preparar(sql);
    return preparada.get();
  }

  /// The moment that a value tells, as it is stored.
  static std::optional<std::string> Momento(const Hueco& hueco, const std::string& texto) {
    const auto momento = hueco.Clase == dialecto::ClaseToken::Fecha
                             ? sqlite::LeerMomento(ConElAnioDelante(texto))
                             : services::LeerFecha(texto);
    return momento ? std::optional(services::TextoIso(*momento)) : std::nullopt;
  }
  /// A date of a statement, which has the month first; empty where it isn't one.
  static std::string ConElAnioDelante(const std::string& texto) {
    static const std::regex partes(
        "\\s*(\\d\\d?)/(\\d\\d?)/(\\d{3,4})(?: (\\d\\d?):(\\d\\d?)(?::(\\d\\d?))?)?\\s*");
    std::smatch parte;
    if (!std::regex_match(texto, parte, partes)) return {};
    const auto con = [&](std::size_t cual, std::size_t cifras) {
      return std::string(cifras - std::min(cifras, parte.str(cual).size()), '0') + parte.str(cual);
    };
    return con(3, 4) + "-" + con(1, 2) + "-" + con(2, 2) + " " + con(4, 2) + ":" + con(5, 2) + ":" +
           con(6, 2);
  }

  services::Ref<sqlite::Conexion> conexion_;
  std::optional<sqlite::Base> aparte_;
  std::map<std::string, sqlite::Preparada> preparadas_;
  std::vector<Molde> moldes_;
};

}  // namespace apoyo
