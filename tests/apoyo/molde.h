#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "dialecto/sentencias.h"
#include "dialecto/token.h"

// A statement of the system with its values taken out: to splice others in, and to say the same in
// the engine's own words with the values bound.

namespace apoyo {

/// A place where a value stands.
struct Hueco {
  std::size_t Desde;
  std::size_t Largo;
  dialecto::ClaseToken Clase;
  std::string Columna;  ///< what the value is compared with

  [[nodiscard]] bool EntreSignos() const { return Clase != dialecto::ClaseToken::Numero; }
  /// A value of the sample that stands there in most of its rows.
  [[nodiscard]] std::string Llano() const {
    static const std::map<std::string, std::string> llanos = {
        {"NConcepto", "400"},     {"NFactura", "F1"},
        {"Factura", "F1"},        {"Año", "2005"},
        {"Tipo", "400"},          {"idSucursal", "1"},
        {"Descripcion", "Luz"},   {"Fecha1Vto", "20050310"},
        {"FechaVto", "20050310"}, {"FechaHora", "02/03/2005 9:30:00"}};
    return Clase == dialecto::ClaseToken::Fecha ? "3/2/2005 09:30:00" : llanos.at(Columna);
  }
};

class Molde {
 public:
  explicit Molde(const dialecto::Escrita& escrita) : escrita_(escrita) {
    using dialecto::ClaseToken;
    std::vector<dialecto::Token> tokens;
    dialecto::Trocear(escrita.Texto, tokens);
    std::string_view columna;
    for (const dialecto::Token& token : tokens) {
      if (token.clase == ClaseToken::Nombre) columna = token.texto;
      if (token.clase != ClaseToken::Texto && token.clase != ClaseToken::Numero &&
          token.clase != ClaseToken::Fecha) {
        continue;
      }
      const auto desde = static_cast<std::size_t>(token.texto.data() - escrita.Texto.data());
      huecos_.push_back({desde, token.texto.size(), token.clase, std::string(columna)});
    }
  }

  [[nodiscard]] services::ModoApertura Modo() const { return escrita_.Modo; }
  [[nodiscard]] const std::vector<Hueco>& Huecos() const { return huecos_; }
  [[nodiscard]] bool Borra() const { return escrita_.Texto.starts_with("DELETE"); }
  /// The one that it deletes from.
  [[nodiscard]] std::string Tabla() const {
    const std::string_view trasFrom = escrita_.Texto.substr(From() + 6);
    return std::string(trasFrom.substr(0, trasFrom.find(' ')));
  }
  [[nodiscard]] std::vector<std::string> Llanos() const {
    std::vector<std::string> llanos;
    for (const Hueco& hueco : huecos_) llanos.push_back(hueco.Llano());
    return llanos;
  }

  /// The statement with those values spliced in.
  [[nodiscard]] std::string Con(const std::vector<std::string>& valores) const {
    std::string texto(escrita_.Texto);
    for (std::size_t i = huecos_.size(); i-- > 0;) {
      texto.replace(huecos_[i].Desde, huecos_[i].Largo, valores[i]);
    }
    return texto;
  }

  /// The rows that stay when it deletes.
  [[nodiscard]] std::string Quedan(const std::string& menos = "") const {
    return "SELECT group_concat(rowid) FROM (SELECT rowid FROM " + Tabla() + menos +
           " ORDER BY rowid)";
  }

  /// What it says in the engine's own SQL, each value a parameter; of a DELETE, the rows that stay.
  /// A `like` is a pattern for a description with wildcards alone.
  [[nodiscard]] std::string Sql(const std::vector<std::string>& valores) const {
    std::string sql;
    std::size_t desde = Borra() ? From() : 0;
    for (std::size_t i = 0; i < huecos_.size(); ++i) {
      const Hueco& hueco = huecos_[i];
      const std::size_t signo = hueco.EntreSignos() ? 1 : 0;
      sql += escrita_.Texto.substr(desde, hueco.Desde - signo - desde);
      desde = hueco.Desde + hueco.Largo + signo;
      const bool patron =
          hueco.Columna == "Descripcion" && valores[i].find_first_of("%_") != std::string::npos;
      if (sql.ends_with(" like ") && !patron) sql.replace(sql.size() - 5, 4, "=");
      PonerParametro(sql, hueco);
    }
    sql += escrita_.Texto.substr(desde);
    return Borra() ? Quedan(" WHERE rowid NOT IN (SELECT rowid" + sql + ")") : sql;
  }

 private:
  [[nodiscard]] std::size_t From() const {
    return std::min(escrita_.Texto.find(" FROM "), escrita_.Texto.find(" From "));
  }
  static void PonerParametro(std::string& sql, const Hueco& hueco) {
    if (hueco.Columna != "FechaHora") {
      sql += hueco.Clase == dialecto::ClaseToken::Texto ? "? COLLATE ES " : "? ";
      return;
    }
    const std::size_t nombre = sql.rfind("FechaHora");
    sql.insert(nombre + hueco.Columna.size(), ")");
    sql.insert(sql.rfind(' ', nombre) + 1, "MOMENTO(");
    sql += "? ";
  }

  dialecto::Escrita escrita_;
  std::vector<Hueco> huecos_;
};

}  // namespace apoyo
