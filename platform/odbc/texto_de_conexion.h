#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace odbc {

/// A connection text, such as `DSN=Gestion` or `Driver={MariaDB Unicode};Server=a,b;Port=3306`:
/// names and values, a value between braces where it has signs of the text's own.
class TextoDeConexion {
 public:
  /// Throws `ErrorEjecucion` 0x80004005 where it is none: a name without a value, an open brace.
  explicit TextoDeConexion(std::string_view texto);

  /// Its value for a name, without regard to case; empty where it has none.
  [[nodiscard]] std::string_view Valor(std::string_view nombre) const;
  /// With that value, before all others.
  void Poner(std::string_view nombre, std::string_view valor);

  /// One text for each of its servers, in their order: a list of them is split by commas, and so is
  /// that of their ports, of which one alone is that of all.
  [[nodiscard]] std::vector<TextoDeConexion> PorServidor() const;

  /// As the driver manager takes it.
  [[nodiscard]] std::string Texto() const;
  /// As a user may read it: where it leads, and no password.
  [[nodiscard]] std::string Nombre() const;

 private:
  using Par = std::pair<std::string, std::string>;

  [[nodiscard]] std::size_t Buscar(std::string_view nombre) const;
  [[nodiscard]] std::string_view Servidor() const;

  std::vector<Par> pares_;
};

}  // namespace odbc
