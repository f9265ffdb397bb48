#include "dialecto/formas.h"

#include <algorithm>
#include <unordered_set>

#include "dialecto/sentencias.h"

namespace dialecto {

namespace {

bool EsLiteral(ClaseToken clase) {
  return clase == ClaseToken::Texto || clase == ClaseToken::Numero || clase == ClaseToken::Fecha;
}

std::string EnMayusculas(std::string_view texto) {
  std::string mayusculas(texto);
  for (char& c : mayusculas) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return mayusculas;
}

bool Recorta(const Token& token) {
  if (token.clase != ClaseToken::Nombre) return false;
  const std::string nombre = EnMayusculas(token.texto);
  return nombre == "TRIM" || nombre == "LTRIM" || nombre == "RTRIM";
}

/// Goes over a statement once and puts its form together.
class Formador {
 public:
  explicit Formador(const std::vector<Token>& tokens) : tokens_(tokens) {}

  std::string Forma() {
    for (; tokens_[i_].clase != ClaseToken::Fin; ++i_) Siguiente();
    CerrarCondiciones();
    return forma_;
  }

 private:
  [[nodiscard]] const Token& Tras(std::size_t cuantos) const {
    return tokens_[std::min(i_ + cuantos, tokens_.size() - 1)];
  }

  void Siguiente() {
    const Token& token = tokens_[i_];
    if (Recorta(token) && Recorta(Tras(2))) return JuntarRecortes();
    if (token.simbolo == Simbolo::Cerrar && sobran_ > 0) {
      --sobran_;
      return;
    }
    if (token.simbolo == Simbolo::Menos && Tras(1).clase == ClaseToken::Numero) return;
    if (token.simbolo == Simbolo::Abrir) ++hondo_;
    if (token.simbolo == Simbolo::Cerrar) --hondo_;
    if (hondo_ == 0 && Limita(token)) return;
    Poner(EsLiteral(token.clase) ? "?" : EnMayusculas(token.texto));
  }

  /// One trimming function around another, whichever they are, trims both sides.
  void JuntarRecortes() {
    Poner("TRIM");
    i_ += 2;
    ++sobran_;
  }

  /// Whether the token begins or ends a condition, and isn't itself part of one.
  bool Limita(const Token& token) {
    if (token.palabra == Palabra::Where) {
      Poner("WHERE");
      enCondiciones_ = true;
      return true;
    }
    if (!enCondiciones_) return false;
    if (token.palabra == Palabra::And) {
      condiciones_.emplace_back();
      return true;
    }
    // What is joined by Or can't change its place.
    if (token.palabra == Palabra::Or) conOr_ = true;
    if (token.palabra == Palabra::Group || token.palabra == Palabra::Order) CerrarCondiciones();
    return false;
  }

  void CerrarCondiciones() {
    if (!enCondiciones_) return;
    enCondiciones_ = false;
    if (!conOr_) std::sort(condiciones_.begin(), condiciones_.end());
    for (const std::string& condicion : condiciones_) forma_ += " AND" + condicion;
  }

  void Poner(std::string_view texto) {
    std::string& donde = enCondiciones_ ? condiciones_.back() : forma_;
    donde += ' ';
    donde += texto;
  }

  const std::vector<Token>& tokens_;
  std::size_t i_ = 0;
  std::string forma_;
  std::vector<std::string> condiciones_{1};
  bool enCondiciones_ = false;
  bool conOr_ = false;
  int hondo_ = 0;
  int sobran_ = 0;  // closing brackets of trimming functions that were left out
};

std::unordered_set<std::string> LeerFormas() {
  std::unordered_set<std::string> formas;
  std::vector<Token> tokens;
  for (const std::string_view sentencia : Sentencias()) {
    Trocear(sentencia, tokens);
    formas.insert(Forma(tokens));
  }
  return formas;
}

}  // namespace

std::string Forma(const std::vector<Token>& tokens) {
  return Formador(tokens).Forma();
}

bool EsDelSistema(const std::vector<Token>& tokens) {
  const bool condicionada = std::any_of(tokens.begin(), tokens.end(), [](const Token& token) {
    return token.palabra == Palabra::Where;
  });
  if (!condicionada) {
    return std::none_of(tokens.begin(), tokens.end(),
                        [](const Token& token) { return EsLiteral(token.clase); });
  }
  static const std::unordered_set<std::string> formas = LeerFormas();
  return formas.contains(Forma(tokens));
}

}  // namespace dialecto
