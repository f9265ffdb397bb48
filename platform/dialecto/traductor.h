#pragma once

#include <algorithm>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "datos/orden_filas.h"
#include "dialecto/catalogo.h"
#include "dialecto/motor.h"
#include "dialecto/semirreunion.h"
#include "dialecto/token.h"

namespace dialecto {

enum class Verbo { Select, Delete };

/// What a statement is to an engine, whatever its values. The literals are lifted out: two
/// statements that differ only in them have the same text, so the text is the key of a prepared
/// statement.
struct Traduccion {
  Verbo Que = Verbo::Select;
  std::string Texto;
  /// One per `?`, and per literal of the statement, in their order: the type of the column that it
  /// is compared with, if it is with one.
  std::vector<std::optional<services::TipoColumna>> Tipos;
  /// Whether it looks a text up that may be a pattern, so that another value might want another
  /// text.
  bool ConPatrones = false;
  /// The columns of a SELECT as its recordset shows them, and the name of each in its table: empty
  /// for an expression.
  std::vector<services::Columna> Columnas;
  std::vector<std::string> Origenes;
  /// How whoever fetches the rows sorts them (`services::Ordenar`), because the text doesn't. Where
  /// they have a place to go to, that stands behind their columns.
  services::OrdenDeFilas Orden;
  /// Where its text says in what order of a key its rows come; its length where it doesn't.
  std::size_t FinSinOrden = std::string::npos;
  /// What stands behind the columns besides that, by which they are sorted too.
  std::vector<services::Columna> Detras;
  /// The table whose rows a SELECT gives one by one, so that they can be added and changed; empty
  /// for a join, a DISTINCT or a sum.
  std::string Unica;
  /// The table of a DELETE.
  std::string Borra;
};

/// Turns statements of the system into those of an engine. It understands one SELECT or one
/// DELETE, in either of the two dialects that the system writes, and throws 0x80040E14 for
/// anything else, 0x80040E37 for an unknown table and 0x80040E10 for an unknown column.
/// A condition made of literals alone is refused too: the system writes none, but a value with
/// quotes spliced into a statement, such as `A' or '1'='1`, brings one.
class Traductor {
 public:
  /// A statement, and the pieces that it was taken apart into.
  Traductor(const Motor& motor, Catalogo& catalogo, std::string_view sentencia,
            std::span<const Token> tokens)
      : motor_(motor), catalogo_(catalogo), sentencia_(sentencia), tokens_(tokens) {}

  /// May be called once. With `conOcultas`, a SELECT of one table also selects what finds its rows
  /// again, behind its own columns.
  [[nodiscard]] Traduccion Traducir(bool conOcultas);

 private:
  /// All columns of a table, one of them, or an expression.
  struct Elegida {
    const Tabla* tabla;
    int fuente;
    int columna;
    std::optional<services::TipoColumna> tipo;
    std::string_view nombre;
  };
  /// What an expression was found to be, and where its text begins.
  struct Operando {
    std::size_t desde = 0;
    std::optional<services::TipoColumna> tipo = std::nullopt;
    int parametro = -1;  ///< its place among the parameters, when it is a literal alone
    const Tabla* tabla = nullptr;
    int fuente = -1;
    int columna = -1;
    ColumnaDeFuente recortada = {};  ///< the column of which it is the text without blanks
    int literales = -1;  ///< the token where it begins, when it is made of literals alone
    /// Whether its texts are looked up by patterns.
    bool conPatrones = false;
  };

  /// Where a SELECT's text has its DISTINCT, its FROM and what it sorts by.
  struct Trozos {
    std::size_t distinct;
    std::size_t from;
    std::size_t orden;
  };

  // Statements: traductor.cpp.
  void Select(bool conOcultas);
  void Delete();
  void BuscarFuentes();
  void AnadirFuente(std::size_t token);
  void Elegidas();
  void ElegidasDe(int fuente);
  void UnaElegida();
  void Ocultas();
  void From();
  void Fuentes();
  void UnaFuente();
  void Juntas();
  void Where();
  void GroupBy();
  void OrderBy();
  void Final();
  void Columnas();
  void UnaColumna(services::Columna columna, std::string origen);

  // What is asked for in another way: reescritura.cpp.
  void Reescribir(const Trozos& trozos, bool conOcultas);
  [[nodiscard]] std::optional<Reunion> SinRepetidas() const;
  bool OrdenarFuera();
  [[nodiscard]] std::optional<std::size_t> PosicionDe(const Operando& columna) const;
  void PorNumeros(const FilasPorNumero& filas, const Trozos& trozos, bool ordenaQuienLee);
  void PorClaves(const FilasPorClave& filas, const Trozos& trozos);
  void PonerFilas(const FilasPorNumero& filas, const Trozos& trozos, bool conLugar);
  void OrdenarPorLaClave();
  void DesempatarPorTextos();

  // Expressions: expresion.cpp.
  void Condicion(CondicionEscrita& escrita);
  Operando Expresion();
  Operando Conjuncion();
  Operando Negacion();
  Operando Comparacion();
  void Comparar(const Operando& izquierdo, Simbolo operador);
  void Parecer(const Operando& izquierdo, bool negado);
  void EsNulo(const Operando& operando);
  void ExigirColumna(const Operando& operando) const;
  Operando Primario();
  Operando Parentesis();
  Operando Nombre();
  Operando Columna(int fuente, std::string_view nombre);
  Operando Funcion();
  Operando Recortar();
  void PonerRecortada(const Operando& dentro, std::size_t desde);
  Operando Literal();
  void Adaptar(const Operando& literal, const Operando& contra);

  [[nodiscard]] const Token& Actual() const { return tokens_[i_]; }
  [[nodiscard]] const Token& Proximo() const { return tokens_[std::min(i_ + 1, Ultimo())]; }
  [[nodiscard]] std::size_t Ultimo() const { return tokens_.size() - 1; }
  [[nodiscard]] bool Es(Palabra palabra) const { return Actual().palabra == palabra; }
  [[nodiscard]] bool Es(Simbolo simbolo) const { return Actual().simbolo == simbolo; }
  template <class T>
  bool Tomar(T esperado) {
    if (!Es(esperado)) return false;
    ++i_;
    return true;
  }
  template <class T>
  void Exigir(T esperado) {
    if (!Tomar(esperado)) NoEsperado();
  }
  [[noreturn]] void NoEsperado() const;
  [[nodiscard]] std::string_view ExigirNombre();
  [[nodiscard]] int FuenteDe(std::string_view nombre) const;
  [[nodiscard]] const Fuente& En(int fuente) const {
    return fuentes_[static_cast<std::size_t>(fuente)];
  }
  void Poner(std::string_view texto) { salida_.Texto += texto; }
  void PonerNombre(std::string_view nombre);

  const Motor& motor_;
  Catalogo& catalogo_;
  std::string_view sentencia_;
  std::span<const Token> tokens_;
  std::size_t i_ = 0;
  Traduccion salida_;
  std::vector<Fuente> fuentes_;
  std::vector<Elegida> elegidas_;
  bool distintas_ = false;
  /// Its joins, whether they are all inner ones, its WHERE, what it sorts by, and the one of these
  /// that is being read.
  std::vector<CondicionEscrita> juntas_;
  bool internas_ = true;
  std::optional<CondicionEscrita> donde_;
  CondicionEscrita orden_;
  std::vector<Operando> ordenantes_;
  CondicionEscrita* enCurso_ = nullptr;
  bool agrupa_ = false;
  int profundidad_ = 0;
};

}  // namespace dialecto
