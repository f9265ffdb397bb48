#include <algorithm>

#include "dialecto/literal.h"
#include "dialecto/rechazo.h"
#include "dialecto/traductor.h"

// The conditions of a statement: what compares a column with a literal decides how.

namespace dialecto {

using services::ErrorEjecucion;
using services::TipoColumna;
namespace error = services::error;

namespace {

constexpr int ProfundidadMaxima = 64;

std::string_view TextoDe(Simbolo operador) {
  switch (operador) {
    case Simbolo::Igual:
      return " = ";
    case Simbolo::Distinto:
      return " <> ";
    case Simbolo::Menor:
      return " < ";
    case Simbolo::Mayor:
      return " > ";
    case Simbolo::MenorIgual:
      return " <= ";
    case Simbolo::MayorIgual:
      return " >= ";
    default:
      return {};
  }
}

bool EsPalabra(std::string_view texto, std::string_view mayusculas) {
  return texto.size() == mayusculas.size() &&
         std::equal(texto.begin(), texto.end(), mayusculas.begin(),
                    [](char a, char b) { return (a & ~0x20) == b; });
}

}  // namespace

void Traductor::Condicion(CondicionEscrita& escrita) {
  escrita.Desde = salida_.Texto.size();
  enCurso_ = &escrita;
  ExigirColumna(Expresion());
  enCurso_ = nullptr;
  escrita.Hasta = salida_.Texto.size();
}

Traductor::Operando Traductor::Expresion() {
  if (++profundidad_ > ProfundidadMaxima) Rechazar("demasiados paréntesis", sentencia_);
  Operando operando = Conjuncion();
  while (Tomar(Palabra::Or)) {
    if (enCurso_) enCurso_->SoloY = false;
    ExigirColumna(operando);
    Poner(" OR ");
    ExigirColumna(Conjuncion());
    operando = {operando.desde};
  }
  --profundidad_;
  return operando;
}

Traductor::Operando Traductor::Conjuncion() {
  Operando operando = Negacion();
  while (Tomar(Palabra::And)) {
    ExigirColumna(operando);
    Poner(" AND ");
    ExigirColumna(Negacion());
    operando = {operando.desde};
  }
  return operando;
}

Traductor::Operando Traductor::Negacion() {
  const std::size_t desde = salida_.Texto.size();
  bool negada = false;
  while (Tomar(Palabra::Not)) {
    Poner("NOT ");
    negada = true;
  }
  const Operando operando = Comparacion();
  if (!negada) return operando;
  if (enCurso_) enCurso_->SoloY = false;
  ExigirColumna(operando);
  return {desde};
}

Traductor::Operando Traductor::Comparacion() {
  const Operando izquierdo = Primario();
  if (!TextoDe(Actual().simbolo).empty()) {
    Comparar(izquierdo, tokens_[i_++].simbolo);
  } else if (Tomar(Palabra::Is)) {
    EsNulo(izquierdo);
  } else if (Tomar(Palabra::Like)) {
    Parecer(izquierdo, false);
  } else if (Es(Palabra::Not) && Proximo().palabra == Palabra::Like) {
    i_ += 2;
    Parecer(izquierdo, true);
  } else {
    if (enCurso_ && izquierdo.tipo) enCurso_->SoloIgualdades = false;
    return izquierdo;
  }
  return {izquierdo.desde};
}

// A `like` compares a key with a value spliced in, and isn't a pattern: as one, deleting the
// invoice "A_1" would delete "AB1" too. Only a description is looked up with what a user typed.
void Traductor::Parecer(const Operando& izquierdo, bool negado) {
  const bool deTexto = izquierdo.conPatrones && Actual().clase == ClaseToken::Texto;
  salida_.ConPatrones = salida_.ConPatrones || deTexto;
  const bool patron = deTexto && Actual().texto.find_first_of("%_") != std::string_view::npos;
  if (!patron) return Comparar(izquierdo, negado ? Simbolo::Distinto : Simbolo::Igual);
  if (enCurso_) enCurso_->SoloIgualdades = false;
  salida_.Texto.insert(izquierdo.desde, motor_.Patron.Antes);
  Poner(motor_.Patron.Despues);
  Poner(negado ? " NOT LIKE " : " LIKE ");
  Poner(motor_.Patron.Antes);
  static_cast<void>(Literal());
  Poner(motor_.Patron.Despues);
  Poner(motor_.TrasPatron);
}

void Traductor::Comparar(const Operando& izquierdo, Simbolo operador) {
  const std::size_t antes = salida_.Texto.size();
  Poner(TextoDe(operador));
  const Operando derecho = Primario();
  if (derecho.literales >= 0) ExigirColumna(izquierdo);
  Adaptar(derecho, izquierdo);
  Adaptar(izquierdo, derecho);
  const auto deColumna = [](const Operando& lado) {
    return lado.columna >= 0 ? ColumnaDeFuente{lado.fuente, lado.columna} : lado.recortada;
  };
  const ColumnaDeFuente una = deColumna(izquierdo);
  const ColumnaDeFuente otra = deColumna(derecho);
  const bool deDos = una.Columna >= 0 && otra.Columna >= 0 && una.Fuente != otra.Fuente;
  if (enCurso_ && deDos && operador == Simbolo::Igual) {
    enCurso_->Igualdades.push_back({una, otra});
  } else if (enCurso_) {
    enCurso_->SoloIgualdades = false;
  }
  if (izquierdo.tipo != TipoColumna::FechaHora || derecho.parametro < 0) return;
  // The column stands in the text between these two.
  salida_.Texto.insert(antes, motor_.Momento.Despues);
  salida_.Texto.insert(izquierdo.desde, motor_.Momento.Antes);
}

void Traductor::EsNulo(const Operando& operando) {
  if (enCurso_) enCurso_->SoloIgualdades = false;
  ExigirColumna(operando);
  Poner(Tomar(Palabra::Not) ? " IS NOT NULL" : " IS NULL");
  Exigir(Palabra::Null);
}

Traductor::Operando Traductor::Primario() {
  if (Es(Simbolo::Abrir)) return Parentesis();
  if (Actual().clase != ClaseToken::Nombre && !Es(Palabra::Left) && !Es(Palabra::Right)) {
    return Literal();
  }
  return Proximo().simbolo == Simbolo::Abrir ? Funcion() : Nombre();
}

Traductor::Operando Traductor::Parentesis() {
  const std::size_t desde = salida_.Texto.size();
  Exigir(Simbolo::Abrir);
  Poner("(");
  Operando operando = Expresion();
  Exigir(Simbolo::Cerrar);
  Poner(")");
  operando.desde = desde;
  return operando;
}

Traductor::Operando Traductor::Nombre() {
  const auto nombre = ExigirNombre();
  if (Tomar(Simbolo::Punto)) {
    const int fuente = FuenteDe(nombre);
    const std::size_t desde = salida_.Texto.size();
    PonerNombre(En(fuente).Nombre);
    Poner(".");
    Operando operando = Columna(fuente, ExigirNombre());
    operando.desde = desde;
    if (enCurso_) enCurso_->Mirar({fuente, operando.columna});
    return operando;
  }
  if (enCurso_) enCurso_->Calificada = false;
  for (int fuente = 0; fuente < static_cast<int>(fuentes_.size()); ++fuente) {
    if (BuscarColumna(*En(fuente).Tabla, nombre) >= 0) return Columna(fuente, nombre);
  }
  const auto elegida = std::find_if(elegidas_.begin(), elegidas_.end(), [&](const Elegida& una) {
    return !una.nombre.empty() && MismoNombre(una.nombre, nombre);
  });
  if (elegida == elegidas_.end()) {
    throw ErrorEjecucion(error::ColumnaDesconocida,
                         "No existe la columna «" + std::string(nombre) + "»");
  }
  const std::size_t desde = salida_.Texto.size();
  PonerNombre(elegida->nombre);
  return {desde, elegida->tipo};
}

Traductor::Operando Traductor::Columna(int fuente, std::string_view nombre) {
  const Tabla& tabla = *En(fuente).Tabla;
  const int posicion = BuscarColumna(tabla, nombre);
  if (posicion < 0) {
    throw ErrorEjecucion(error::ColumnaDesconocida, "No existe la columna «" + std::string(nombre) +
                                                        "» en la tabla «" + tabla.Nombre + "»");
  }
  const auto& columna = tabla.Columnas[static_cast<std::size_t>(posicion)];
  const std::size_t desde = salida_.Texto.size();
  PonerNombre(columna.Nombre);
  Operando operando{desde, columna.Tipo, -1, &tabla, fuente, posicion};
  operando.conPatrones = MismoNombre(columna.Nombre, "Descripcion");
  return operando;
}

Traductor::Operando Traductor::Funcion() {
  const auto nombre = Actual().texto;
  if (EsPalabra(nombre, "TRIM") || EsPalabra(nombre, "LTRIM") || EsPalabra(nombre, "RTRIM")) {
    return Recortar();
  }
  if (!EsPalabra(nombre, "SUM")) Rechazar("una función que no se conoce", nombre);
  agrupa_ = true;
  i_ += 2;
  const std::size_t desde = salida_.Texto.size();
  Poner("SUM(");
  const int literales = Expresion().literales;
  Exigir(Simbolo::Cerrar);
  Poner(")");
  return {.desde = desde, .tipo = TipoColumna::Numero, .literales = literales};
}

// However the trimming functions stand one inside another, what they do together is written once.
Traductor::Operando Traductor::Recortar() {
  constexpr unsigned izquierdo = 1;
  constexpr unsigned derecho = 2;
  constexpr unsigned ambos = izquierdo | derecho;
  unsigned lados = 0;
  int abiertos = 0;
  while (Proximo().simbolo == Simbolo::Abrir && Actual().clase == ClaseToken::Nombre) {
    const auto nombre = Actual().texto;
    if (EsPalabra(nombre, "TRIM")) {
      lados |= ambos;
    } else if (EsPalabra(nombre, "LTRIM")) {
      lados |= izquierdo;
    } else if (EsPalabra(nombre, "RTRIM")) {
      lados |= derecho;
    } else {
      break;
    }
    ++abiertos;
    i_ += 2;
  }
  const bool deAmbos = lados == ambos;
  const std::size_t desde = salida_.Texto.size();
  const Envoltura& envoltura = lados == ambos       ? motor_.Recorte
                               : lados == izquierdo ? motor_.RecorteIzquierdo
                                                    : motor_.RecorteDerecho;
  Poner(envoltura.Antes);
  // What stands within isn't a condition.
  CondicionEscrita* const enCurso = enCurso_;
  const bool soloIgualdades = enCurso && enCurso->SoloIgualdades;
  const Operando dentro = Expresion();
  if (enCurso && dentro.columna >= 0) enCurso->SoloIgualdades = soloIgualdades;
  for (; abiertos > 0; --abiertos) Exigir(Simbolo::Cerrar);
  Poner(envoltura.Despues);
  if (deAmbos) PonerRecortada(dentro, desde);
  const ColumnaDeFuente recortada{dentro.fuente, dentro.columna, true};
  return {.desde = desde,
          .tipo = TipoColumna::Texto,
          .recortada = deAmbos && dentro.columna >= 0 ? recortada : ColumnaDeFuente(),
          .literales = dentro.literales,
          .conPatrones = dentro.conPatrones};
}

/// In place of the expression, from where its text begins, the column that holds what it gives.
void Traductor::PonerRecortada(const Operando& dentro, std::size_t desde) {
  if (!dentro.tabla || dentro.columna < 0) return;
  const auto& recortadas = dentro.tabla->Recortadas;
  const auto suya = std::ranges::find(recortadas, dentro.columna, &Tabla::Recortada::Columna);
  if (suya == recortadas.end()) return;
  salida_.Texto.resize(desde);
  PonerNombre(En(dentro.fuente).Nombre);
  Poner(".");
  PonerNombre(suya->Nombre);
}

// Its value is read when the statement is run: `LeerLiterales`.
Traductor::Operando Traductor::Literal() {
  const bool negativo = Tomar(Simbolo::Menos);
  if (!EsLiteral(Actual()) || (negativo && Actual().clase != ClaseToken::Numero)) NoEsperado();
  const std::size_t desde = salida_.Texto.size();
  if (enCurso_) enCurso_->ConLiterales = true;
  Poner("?");
  const int parametro = static_cast<int>(salida_.Tipos.size());
  salida_.Tipos.emplace_back();
  return {.desde = desde, .parametro = parametro, .literales = static_cast<int>(i_++)};
}

void Traductor::ExigirColumna(const Operando& operando) const {
  if (operando.literales < 0) return;
  const auto token = tokens_[static_cast<std::size_t>(operando.literales)].texto;
  const auto desde = static_cast<std::size_t>(token.data() - sentencia_.data());
  Rechazar("una condición que no mira ninguna columna", sentencia_.substr(desde));
}

void Traductor::Adaptar(const Operando& literal, const Operando& contra) {
  if (literal.parametro < 0 || !contra.tipo) return;
  salida_.Tipos[static_cast<std::size_t>(literal.parametro)] = contra.tipo;
}

}  // namespace dialecto
