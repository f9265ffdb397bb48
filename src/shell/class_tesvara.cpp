#include "shell/class_tesvara.h"

#include "valores/error.h"

namespace shell {

using services::HRESULT;
namespace hr = services::hr;

HRESULT ClassTesvara::Cargar(services::Ref<services::IDatosClase>& datos) noexcept {
  return Hacer([&] {
    datos_.RecibirSesion(datos);
    pantallas_.MostrarPrincipal();
  });
}

HRESULT ClassTesvara::Ocultar() noexcept {
  return Hacer([&] { pantallas_.Principal().Hide(); });
}

HRESULT ClassTesvara::Cerrar() noexcept {
  return Hacer([&] { pantallas_.Principal().Unload(); });
}

// An amount that can't be read is none of its business: closing fails by it, and stays.
const char* ClassTesvara::MotivoParaNoCerrar() noexcept {
  if (!datos_.EnSuHilo()) return "";
  try {
    motivo_ = pantallas_.MotivoParaNoCerrar();
  } catch (...) {
    motivo_.clear();
  }
  return motivo_.c_str();
}

HRESULT ClassTesvara::Hacer(const std::function<void()>& operacion) noexcept {
  // A positive number, such as 13, would read as a success.
  const auto comoResultado = [](std::int32_t numero) {
    return hr::Fallido(numero) ? numero
                               : hr::Codigo(0x800A0000U | static_cast<std::uint32_t>(numero));
  };
  // The text of the last failure belongs to that thread too.
  if (!datos_.EnSuHilo()) return hr::OtroHilo;
  numero_ = 0;
  descripcion_.clear();
  try {
    datos_.Escritorio().Operacion(operacion);
    return hr::Bien;
  } catch (...) {
    const services::ErrorEjecucion fallo = services::ErrorEnCurso();
    numero_ = fallo.Numero();
    descripcion_ = fallo.Descripcion();
    return comoResultado(numero_);
  }
}

}  // namespace shell
