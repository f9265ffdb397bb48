#include "dialecto/interprete.h"

#include "dialecto/literal.h"
#include "dialecto/rechazo.h"

namespace dialecto {

namespace {

/// More than the system has; where any statement is read there is no end to them.
constexpr std::size_t kMasRecordadas = 500;

}  // namespace

Sentencia Interprete::Leer(std::string_view sentencia, services::ModoApertura modo) {
  Trocear(sentencia, tokens_);
  const std::string forma = Forma(sentencia, tokens_);
  auto traducida = Traducida(sentencia, forma, modo != services::ModoApertura::Lectura);
  // Each time, although the translation may be known: it is the same in two modes.
  if (formas_ && !formas_->Tiene(forma, modo)) {
    Rechazar("no es de las que escribe el sistema", sentencia);
  }
  auto parametros = LeerLiterales(tokens_, traducida->Tipos);
  return {std::move(traducida), std::move(parametros)};
}

std::shared_ptr<const Traduccion> Interprete::Traducida(std::string_view sentencia,
                                                        const std::string& forma, bool conOcultas) {
  Recordadas& recordadas = conOcultas ? escrituras_ : lecturas_;
  if (const auto hallada = recordadas.find(forma); hallada != recordadas.end()) {
    return hallada->second;
  }
  auto traducida = std::make_shared<const Traduccion>(
      Traductor(motor_, catalogo_, sentencia, tokens_).Traducir(conOcultas));
  if (traducida->ConPatrones) return traducida;
  if (recordadas.size() == kMasRecordadas) recordadas.clear();
  recordadas.emplace(forma, traducida);
  return traducida;
}

void Interprete::Olvidar() {
  lecturas_.clear();
  escrituras_.clear();
}

}  // namespace dialecto
