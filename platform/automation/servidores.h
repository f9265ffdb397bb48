#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string_view>

#include "services/automatizacion.h"
#include "valores/error.h"

// What a host asks of the automation runtime, from any thread. Failures are `ErrorEjecucion`s.

namespace automation {

namespace error {
inline constexpr std::int32_t ClaseNoRegistrada = services::hr::ClaseNoRegistrada;
/// The class belongs to another thread than the one that asks for it.
inline constexpr std::int32_t OtroHilo = services::hr::OtroHilo;
/// The library isn't there, or can't be loaded.
inline constexpr std::int32_t SinBiblioteca = services::error::Numero(0x8007007E);
/// The library doesn't export an entry point of a server.
inline constexpr std::int32_t SinEntrada = services::error::Numero(0x8007007F);
}  // namespace error

/// Loads a library and has it put its classes on the user's list, or take them off. Throws
/// `SinBiblioteca`, `SinEntrada`, or the number with which the library failed.
void RegistrarBiblioteca(const std::filesystem::path& biblioteca);
void AnularBiblioteca(const std::filesystem::path& biblioteca);

/// Makes an object of a class, loading its library when it isn't yet, and gives that interface of
/// it with a count of its own. Throws `ClaseNoRegistrada`, `SinBiblioteca`, `SinEntrada`, or the
/// number with which the library failed; `OtroHilo` for a class of a single thread, when it isn't
/// the one that loaded its library.
[[nodiscard]] void* CrearObjeto(std::string_view progId, const services::GUID& interfaz);

template <class I>
[[nodiscard]] services::Ref<I> CrearObjeto(std::string_view progId) {
  return services::Ref<I>::Adoptar(static_cast<I*>(CrearObjeto(progId, I::IID)));
}

/// Unloads the libraries that say that nothing of theirs is in use; how many.
std::size_t LiberarBibliotecas();

}  // namespace automation
