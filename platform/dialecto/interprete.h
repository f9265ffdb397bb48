#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "dialecto/formas.h"
#include "dialecto/traductor.h"
#include "valores/valor.h"

namespace dialecto {

/// A statement as an engine runs it.
struct Sentencia {
  std::shared_ptr<const Traduccion> Traducida;
  /// One per `?`, in their order, each of the type of the column that it is compared with. Null
  /// for a literal that no value of its column equals.
  std::vector<services::Valor> Parametros;
};

/// Reads the statements of a connection. What one is to the engine is found out once for each of
/// their forms, and way of opening: the next of the same form brings other values alone, unless one
/// of them may be a pattern. It keeps its buffers from one statement to the next and serves one at
/// a time.
class Interprete {
 public:
  /// With `formas`, a statement that isn't one of them is refused; without, any is read.
  Interprete(const Motor& motor, Catalogo& catalogo, std::optional<Formas> formas = {})
      : motor_(motor), catalogo_(catalogo), formas_(std::move(formas)) {}

  /// Throws what `Traductor` does, 0x80040E14 also for a statement that may not be run in that
  /// mode, and for a literal that is no number or no date.
  [[nodiscard]] Sentencia Leer(std::string_view sentencia, services::ModoApertura modo);

  /// The tables may be others from here on.
  void Olvidar();

 private:
  using Recordadas = std::unordered_map<std::string, std::shared_ptr<const Traduccion>>;

  [[nodiscard]] std::shared_ptr<const Traduccion> Traducida(std::string_view sentencia,
                                                            const std::string& forma,
                                                            services::ModoApertura modo);
  void Exigir(std::string_view sentencia, const std::string& forma,
              services::ModoApertura modo) const;

  const Motor& motor_;
  Catalogo& catalogo_;
  std::optional<Formas> formas_;
  /// By form: of those opened to be read, and of those that may be written to.
  Recordadas lecturas_;
  Recordadas escrituras_;
  std::vector<Token> tokens_;
};

}  // namespace dialecto
