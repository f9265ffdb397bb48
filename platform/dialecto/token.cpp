#include "dialecto/token.h"

#include <array>

#include "dialecto/rechazo.h"

namespace dialecto {

namespace {

struct Reservada {
  std::string_view texto;
  Palabra palabra;
};

// By length, so that a word is compared with a handful of them at most.
constexpr std::array Reservadas = {
    Reservada{"AS", Palabra::As},         Reservada{"BY", Palabra::By},
    Reservada{"IS", Palabra::Is},         Reservada{"ON", Palabra::On},
    Reservada{"OR", Palabra::Or},         Reservada{"AND", Palabra::And},
    Reservada{"ASC", Palabra::Asc},       Reservada{"NOT", Palabra::Not},
    Reservada{"DESC", Palabra::Desc},     Reservada{"FROM", Palabra::From},
    Reservada{"JOIN", Palabra::Join},     Reservada{"LEFT", Palabra::Left},
    Reservada{"LIKE", Palabra::Like},     Reservada{"NULL", Palabra::Null},
    Reservada{"TRUE", Palabra::True},     Reservada{"FALSE", Palabra::False},
    Reservada{"GROUP", Palabra::Group},   Reservada{"INNER", Palabra::Inner},
    Reservada{"ORDER", Palabra::Order},   Reservada{"RIGHT", Palabra::Right},
    Reservada{"WHERE", Palabra::Where},   Reservada{"DELETE", Palabra::Delete},
    Reservada{"SELECT", Palabra::Select}, Reservada{"DISTINCT", Palabra::Distinct},
};
constexpr std::size_t MasLarga = 8;

constexpr std::array<std::uint8_t, MasLarga + 2> PrimerasPorLargo() {
  std::array<std::uint8_t, MasLarga + 2> primeras{};
  for (std::size_t largo = 0; largo < primeras.size(); ++largo) {
    std::uint8_t i = 0;
    while (i < Reservadas.size() && Reservadas[i].texto.size() < largo) ++i;
    primeras[largo] = i;
  }
  return primeras;
}
constexpr auto Primeras = PrimerasPorLargo();

enum Clase : std::uint8_t { Otro, Blanco, Letra, Cifra };

// Bytes past ASCII are letters: `Año` is a name like any other.
constexpr std::array<std::uint8_t, 256> Clasificar() {
  std::array<std::uint8_t, 256> clases{};
  for (std::size_t c = 0; c < 256; ++c) {
    if (c == ' ' || c == '\t' || c == '\r' || c == '\n') clases[c] = Blanco;
    if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c >= 0x80) {
      clases[c] = Letra;
    }
    if (c >= '0' && c <= '9') clases[c] = Cifra;
  }
  return clases;
}
constexpr auto Clases = Clasificar();

constexpr std::uint8_t ClaseDe(char c) {
  return Clases[static_cast<unsigned char>(c)];
}

constexpr bool IgualSinMayusculas(std::string_view palabra, std::string_view reservada) {
  for (std::size_t i = 0; i < palabra.size(); ++i) {
    if ((palabra[i] & ~0x20) != reservada[i]) return false;
  }
  return true;
}

Palabra BuscarReservada(std::string_view texto) {
  if (texto.size() > MasLarga) return Palabra::Ninguna;
  for (std::size_t i = Primeras[texto.size()]; i < Primeras[texto.size() + 1]; ++i) {
    if (IgualSinMayusculas(texto, Reservadas[i].texto)) return Reservadas[i].palabra;
  }
  return Palabra::Ninguna;
}

class Troceador {
 public:
  Troceador(std::string_view sentencia, std::vector<Token>& tokens)
      : sentencia_(sentencia), tokens_(tokens) {}

  void Correr() {
    tokens_.clear();
    for (SaltarBlancos(); i_ < sentencia_.size(); SaltarBlancos()) Siguiente();
    tokens_.emplace_back();
  }

 private:
  [[nodiscard]] char En(std::size_t i) const {
    return i < sentencia_.size() ? sentencia_[i] : '\0';
  }
  void SaltarBlancos() {
    while (i_ < sentencia_.size() && ClaseDe(sentencia_[i_]) == Blanco) ++i_;
  }
  [[nodiscard]] std::string_view Resto() const { return sentencia_.substr(i_); }

  void Siguiente() {
    const char c = sentencia_[i_];
    if (ClaseDe(c) == Letra) return Nombre();
    if (ClaseDe(c) == Cifra || (c == '.' && ClaseDe(En(i_ + 1)) == Cifra && TrasOperador())) {
      return Numero();
    }
    if (c == '\'') return Texto();
    if (c == '#') return Entre('#', ClaseToken::Fecha, "falta cerrar una fecha");
    if (c == '[') return Entre(']', ClaseToken::Nombre, "falta cerrar un corchete");
    Signo();
  }

  // A point after a name parts table and column; after anything else it begins a number.
  [[nodiscard]] bool TrasOperador() const {
    return tokens_.empty() || tokens_.back().clase != ClaseToken::Nombre;
  }

  void Nombre() {
    const std::size_t desde = i_;
    while (i_ < sentencia_.size() && ClaseDe(sentencia_[i_]) >= Letra) ++i_;
    const auto texto = sentencia_.substr(desde, i_ - desde);
    const Palabra palabra = BuscarReservada(texto);
    const auto clase = palabra == Palabra::Ninguna ? ClaseToken::Nombre : ClaseToken::Reservada;
    tokens_.push_back({clase, palabra, Simbolo::Ninguno, texto});
  }

  void Numero() {
    const std::size_t desde = i_;
    while (ClaseDe(En(i_)) == Cifra) ++i_;
    if (En(i_) == '.') ++i_;
    while (ClaseDe(En(i_)) == Cifra) ++i_;
    if (ClaseDe(En(i_)) == Letra) Rechazar("un número seguido de letras", sentencia_.substr(desde));
    Poner(ClaseToken::Numero, desde, i_);
  }

  void Texto() {
    const std::size_t desde = i_ + 1;
    std::size_t cierre = sentencia_.find('\'', desde);
    while (cierre != std::string_view::npos && En(cierre + 1) == '\'') {
      cierre = sentencia_.find('\'', cierre + 2);
    }
    if (cierre == std::string_view::npos) Rechazar("falta cerrar una comilla", Resto());
    Poner(ClaseToken::Texto, desde, cierre);
    i_ = cierre + 1;
  }

  void Entre(char cierre, ClaseToken clase, std::string_view motivo) {
    const std::size_t fin = sentencia_.find(cierre, i_ + 1);
    if (fin == std::string_view::npos || fin == i_ + 1) Rechazar(motivo, Resto());
    Poner(clase, i_ + 1, fin);
    if (tokens_.back().texto.find_first_of("\"`[") != std::string_view::npos) {
      Rechazar("un nombre con comillas", Resto());
    }
    i_ = fin + 1;
  }

  void Signo() {
    const char siguiente = En(i_ + 1);
    switch (sentencia_[i_]) {
      case '(':
        return Poner(Simbolo::Abrir, 1);
      case ')':
        return Poner(Simbolo::Cerrar, 1);
      case ',':
        return Poner(Simbolo::Coma, 1);
      case '.':
        return Poner(Simbolo::Punto, 1);
      case '*':
        return Poner(Simbolo::Asterisco, 1);
      case ';':
        return Poner(Simbolo::PuntoYComa, 1);
      case '=':
        return Poner(Simbolo::Igual, 1);
      case '-':
        if (siguiente == '-') Rechazar("un comentario", Resto());
        return Poner(Simbolo::Menos, 1);
      case '<':
        if (siguiente == '>') return Poner(Simbolo::Distinto, 2);
        return siguiente == '=' ? Poner(Simbolo::MenorIgual, 2) : Poner(Simbolo::Menor, 1);
      case '>':
        return siguiente == '=' ? Poner(Simbolo::MayorIgual, 2) : Poner(Simbolo::Mayor, 1);
      default:
        Rechazar("un signo que no es de una sentencia", Resto());
    }
  }

  void Poner(Simbolo simbolo, std::size_t largo) {
    tokens_.push_back(
        {ClaseToken::Simbolo, Palabra::Ninguna, simbolo, sentencia_.substr(i_, largo)});
    i_ += largo;
  }
  void Poner(ClaseToken clase, std::size_t desde, std::size_t hasta) {
    tokens_.push_back(
        {clase, Palabra::Ninguna, Simbolo::Ninguno, sentencia_.substr(desde, hasta - desde)});
  }

  std::string_view sentencia_;
  std::vector<Token>& tokens_;
  std::size_t i_ = 0;
};

}  // namespace

void Trocear(std::string_view sentencia, std::vector<Token>& tokens) {
  Troceador(sentencia, tokens).Correr();
}

}  // namespace dialecto
