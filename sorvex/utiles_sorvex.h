#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "services/sesion.h"
#include "services/utiles.h"

namespace sorvex {

/// The shared services of the suite that need no window.
class Utiles : public services::Utiles {
 public:
  /// Who the user is and what time it is, asked whenever a deletion is noted.
  Utiles(std::function<std::string()> usuario, std::function<services::FechaHora()> ahora);

  int TeclaFecha(services::TextBox& caja, int tecla) override;
  int TeclaImporte(services::TextBox& caja, int tecla, bool soloEnteros) override;

  /// Empties the reference: nobody but its owner keeps the screen.
  void SoltarForm(services::Ref<services::Form>& form) override;

  void ImprimirAlineado(services::DestinoInforme& destino, double x, const std::string& texto,
                        std::string_view alineacion, bool terminaLinea) override;

  /// The pair of forms alone tells the conversion; `tipo` goes with it and adds nothing.
  [[nodiscard]] std::string ConvertirFecha(std::string_view fecha, int tipo, std::string_view desde,
                                           std::string_view hacia) override;

  /// Adds a row to `SorvexBorrados` on that connection, which stays the same. Throws 91 without a
  /// connection, and what the recordset throws when the row can't be written.
  void AnotarBorrado(const std::string& clave, services::Ref<services::Conexion>& conexion,
                     const std::string& sentencia) override;

  /// `yyyy-mm-dd hh:nn:ss`, so that the order of the texts is that of the moments.
  [[nodiscard]] std::string FechaActualizado(services::FechaHora momento) override;

 private:
  std::function<std::string()> usuario_;
  std::function<services::FechaHora()> ahora_;
};

/// Made for a session, whose user and clock they ask.
[[nodiscard]] std::unique_ptr<services::Utiles> CrearUtiles(services::Sesion& sesion);

}  // namespace sorvex
