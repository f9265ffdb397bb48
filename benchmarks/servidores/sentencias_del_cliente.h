#pragma once

#include <string>

namespace medidas {

/// The same work as a load and a commit do, as whole sets, for a server's own client.
class SentenciasDelCliente {
 public:
  explicit SentenciasDelCliente(const std::string& servidor)
      : postgres_(servidor == "postgresql") {}

  /// Keeps what a commit will write, as the working copy has it.
  [[nodiscard]] std::string Apartar() const;
  [[nodiscard]] std::string Cargar() const;
  [[nodiscard]] std::string Grabar() const;

 private:
  [[nodiscard]] std::string BorrarDe(const std::string& tabla, const std::string& numero) const;
  [[nodiscard]] std::string Recortado(const std::string& alias, const std::string& columna) const;

  bool postgres_;
};

}  // namespace medidas
