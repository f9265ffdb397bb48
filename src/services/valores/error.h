#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace services {

/// A run-time error: a 32-bit number and a description that a user can read. The one exception
/// type of the system; drivers add the engine's own code and text to the description.
class ErrorEjecucion : public std::runtime_error {
 public:
  ErrorEjecucion(std::int32_t numero, const std::string& descripcion)
      : std::runtime_error(descripcion), numero_(numero) {}

  /// Signed, as messages show it.
  [[nodiscard]] std::int32_t Numero() const noexcept { return numero_; }
  [[nodiscard]] std::string Descripcion() const { return what(); }

 private:
  std::int32_t numero_;
};

/// The closed list of error numbers.
namespace error {

constexpr std::int32_t Numero(std::uint32_t hex) {
  return static_cast<std::int32_t>(hex);
}

/// A call whose result isn't there, such as a date past the calendar's end.
inline constexpr std::int32_t LlamadaNoValida = 5;
inline constexpr std::int32_t Desbordamiento = 6;
inline constexpr std::int32_t DivisionPorCero = 11;
inline constexpr std::int32_t TiposNoCoinciden = 13;
/// Any other failure, such as want of memory, told as an error of the system's own.
inline constexpr std::int32_t Interno = 51;
inline constexpr std::int32_t ObjetoNoEstablecido = 91;
inline constexpr std::int32_t UsoDeNull = 94;
/// A screen that was unloaded, and isn't loaded again.
inline constexpr std::int32_t ObjetoDescargado = 364;
/// A cell that the grid doesn't have.
inline constexpr std::int32_t CeldaNoValida = 381;
/// A printer that fails, or that isn't there.
inline constexpr std::int32_t ErrorDeImpresora = 482;
/// A key that repeats or a value that doesn't fit its column.
inline constexpr std::int32_t RepetidoONoCabe = Numero(0x80040E21);
/// A statement that isn't understood, or is refused.
inline constexpr std::int32_t SentenciaRechazada = Numero(0x80040E14);
inline constexpr std::int32_t ColumnaDesconocida = Numero(0x80040E10);
inline constexpr std::int32_t TablaDesconocida = Numero(0x80040E37);
/// A row changed or gone under an optimistic update.
inline constexpr std::int32_t FilaCambiada = Numero(0x80040E38);
/// A field that the row doesn't have.
inline constexpr std::int32_t CampoDesconocido = Numero(0x800A0CC1);
inline constexpr std::int32_t SinFilaActual = Numero(0x800A0BCD);
inline constexpr std::int32_t RecordsetCerrado = Numero(0x800A0E78);
/// An `Open` on a recordset that is open.
inline constexpr std::int32_t RecordsetAbierto = Numero(0x800A0E79);
/// An operation that the recordset's mode doesn't allow.
inline constexpr std::int32_t NoDisponible = Numero(0x800A0CB3);
inline constexpr std::int32_t ArgumentoNoValido = Numero(0x800A0BB9);
/// What the user, asked by the host, gave up.
inline constexpr std::int32_t OperacionCancelada = Numero(0x800A0E80);
inline constexpr std::int32_t FalloDeConexion = Numero(0x80004005);
/// An object that doesn't offer the interface it is narrowed to.
inline constexpr std::int32_t InterfazNoDisponible = Numero(0x80004002);

}  // namespace error

/// The exception that is being handled, whatever its type, as an error of the system. Only for use
/// inside a handler.
[[nodiscard]] ErrorEjecucion ErrorEnCurso() noexcept;

}  // namespace services
