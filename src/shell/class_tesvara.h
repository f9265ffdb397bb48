#pragma once

#include <functional>
#include <string>

#include "services/anfitrion.h"
#include "services/automatizacion.h"
#include "shell/datos_comunes.h"
#include "shell/pantallas.h"

namespace shell {

/// The public class. It has no state but the text of its last failure: all is in the session, which
/// every object of the class shares.
class ClassTesvara final
    : public services::ObjetoContado<services::IClassTesvara, services::IDescripcionError,
                                     services::ICierre> {
 public:
  ClassTesvara(DatosComunes& datos, Pantallas& pantallas) : datos_(datos), pantallas_(pantallas) {}

  services::HRESULT Cargar(services::Ref<services::IDatosClase>& datos) noexcept override;
  services::HRESULT Ocultar() noexcept override;
  services::HRESULT Cerrar() noexcept override;
  const char* MotivoParaNoCerrar() noexcept override;
  const char* Descripcion() noexcept override { return descripcion_.c_str(); }
  std::int32_t Numero() noexcept override { return numero_; }

 private:
  services::HRESULT Hacer(const std::function<void()>& operacion) noexcept;

  DatosComunes& datos_;
  Pantallas& pantallas_;
  std::int32_t numero_ = 0;
  std::string descripcion_;
  std::string motivo_;
};

}  // namespace shell
