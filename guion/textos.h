#pragma once

#include <string>

#include "datos/conexion.h"

namespace guion {

/// The texts of the user's language: one row with `Pagina` and `Pantalla`, whatever the statement.
class ConexionTextos final : public services::ObjetoContado<services::Conexion> {
 public:
  ConexionTextos(std::string pagina, std::string pantalla)
      : pagina_(std::move(pagina)), pantalla_(std::move(pantalla)) {}

  [[nodiscard]] std::unique_ptr<services::Cursor> Abrir(std::string_view sentencia,
                                                        services::ModoApertura modo) override;
  void TerminarUnidad() override {}
  void AbandonarUnidad() noexcept override {}

 private:
  std::string pagina_;
  std::string pantalla_;
};

}  // namespace guion
