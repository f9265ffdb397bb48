#include "dialecto/interprete.h"

#include "dialecto/literal.h"
#include "dialecto/rechazo.h"

namespace dialecto {

using services::ModoApertura;

namespace {

/// More than the system has; where any statement is read there is no end to them.
constexpr std::size_t kMasRecordadas = 500;

}  // namespace

Sentencia Interprete::Leer(std::string_view sentencia, ModoApertura modo) {
  Trocear(sentencia, tokens_);
  auto traducida = Traducida(sentencia, Forma(sentencia, tokens_), modo);
  auto parametros = LeerLiterales(tokens_, traducida->Tipos);
  return {std::move(traducida), std::move(parametros)};
}

std::shared_ptr<const Traduccion> Interprete::Traducida(std::string_view sentencia,
                                                        const std::string& forma,
                                                        ModoApertura modo) {
  const bool seEscribe = modo != ModoApertura::Lectura;
  Recordadas& recordadas = seEscribe ? escrituras_ : lecturas_;
  if (const auto hallada = recordadas.find(forma); hallada != recordadas.end()) {
    Exigir(sentencia, forma, modo);  // it was read in one of two modes
    return hallada->second;
  }
  auto traducida = std::make_shared<const Traduccion>(
      Traductor(motor_, catalogo_, sentencia, tokens_).Traducir(seEscribe));
  Exigir(sentencia, forma, modo);
  if (traducida->ConPatrones) return traducida;
  if (recordadas.size() == kMasRecordadas) recordadas.clear();
  recordadas.emplace(forma, traducida);
  return traducida;
}

void Interprete::Exigir(std::string_view sentencia, const std::string& forma,
                        ModoApertura modo) const {
  if (!formas_ || formas_->Tiene(forma, modo)) return;
  Rechazar("no es de las que escribe el sistema", sentencia);
}

void Interprete::Olvidar() {
  lecturas_.clear();
  escrituras_.clear();
}

}  // namespace dialecto
