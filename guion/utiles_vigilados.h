#pragma once

#include <memory>
#include <utility>

#include "guion/peticiones.h"
#include "services/utiles.h"

namespace guion {

/// The services of the suite, with the deletions noted.
class UtilesVigilados final : public services::Utiles {
 public:
  UtilesVigilados(std::unique_ptr<services::Utiles> dentro, std::shared_ptr<Registro> registro)
      : dentro_(std::move(dentro)), registro_(std::move(registro)) {}

  int TeclaFecha(services::TextBox& caja, int tecla) override {
    return dentro_->TeclaFecha(caja, tecla);
  }
  int TeclaImporte(services::TextBox& caja, int tecla, bool soloEnteros) override {
    return dentro_->TeclaImporte(caja, tecla, soloEnteros);
  }
  void SoltarForm(services::Ref<services::Form>& form) override { dentro_->SoltarForm(form); }
  void ImprimirAlineado(services::DestinoInforme& destino, double x, const std::string& texto,
                        std::string_view alineacion, bool terminaLinea) override {
    dentro_->ImprimirAlineado(destino, x, texto, alineacion, terminaLinea);
  }
  [[nodiscard]] std::string ConvertirFecha(std::string_view fecha, int tipo, std::string_view desde,
                                           std::string_view hacia) override {
    return dentro_->ConvertirFecha(fecha, tipo, desde, hacia);
  }
  /// What the suite writes for itself goes by the connection behind the watched one: it is none of
  /// the component's statements and calls.
  void AnotarBorrado(const std::string& clave, services::Ref<services::Conexion>& conexion,
                     const std::string& sentencia) override;
  [[nodiscard]] std::string FechaActualizado(services::FechaHora momento) override {
    return dentro_->FechaActualizado(momento);
  }

 private:
  std::unique_ptr<services::Utiles> dentro_;
  std::shared_ptr<Registro> registro_;
};

}  // namespace guion
