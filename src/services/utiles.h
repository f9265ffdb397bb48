#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "services/anfitrion.h"
#include "valores/error.h"
#include "valores/fecha.h"
#include "valores/objeto.h"

// The closed services of the suite, as the component needs them.

namespace services {

class DestinoInforme;
class Form;
class TextBox;

/// Flags and answers of a message.
namespace mensaje {
inline constexpr int Simple = 0;
inline constexpr int SiNoCancelar = 3;
inline constexpr int SiNo = 4;
inline constexpr int Alto = 16;

inline constexpr int Aceptar = 1;
inline constexpr int Cancelar = 2;
inline constexpr int Si = 6;
inline constexpr int No = 7;
}  // namespace mensaje

class Aviso {
 public:
  virtual ~Aviso() = default;
  /// Shows a modal message and waits. `flags` and the answer are those of `mensaje`.
  virtual int Mostrar(const std::string& texto, int flags, const std::string& titulo) = 0;

  /// What the user did is refused.
  void Rechazar(const std::string& motivo) { Mostrar(motivo, mensaje::Alto, "Atención"); }
  /// A question of yes and no; whether it is yes.
  [[nodiscard]] bool Preguntar(const std::string& pregunta) {
    return Mostrar(pregunta, mensaje::SiNo, "Atención") == mensaje::Si;
  }
  /// A row couldn't be written: `siNoCabe` for a key that repeats or a value that doesn't fit,
  /// number and description for any other failure.
  void FalloAlEscribir(const ErrorEjecucion& fallo, const std::string& siNoCabe);
};

class Utiles {
 public:
  virtual ~Utiles() = default;

  /// Filters a key pressed in a date field; 0 consumes it. May edit the field's text.
  virtual int TeclaFecha(TextBox& caja, int tecla) = 0;
  /// The same for an amount, or for whole numbers.
  virtual int TeclaImporte(TextBox& caja, int tecla, bool soloEnteros) = 0;
  virtual void SoltarForm(Ref<Form>& form) = 0;
  /// Prints `texto` with its left edge ("I") or its right edge ("D") at `x` centimetres.
  virtual void ImprimirAlineado(DestinoInforme& destino, double x, const std::string& texto,
                                std::string_view alineacion, bool terminaLinea) = 0;
  /// Between the display form "D" and the stored form "R" of a date.
  [[nodiscard]] virtual std::string ConvertirFecha(std::string_view fecha, int tipo,
                                                   std::string_view desde,
                                                   std::string_view hacia) = 0;
  /// The three ways in which dates go between fields and tables: a date as shown to its stored
  /// form, back, and what the user typed to ten characters.
  [[nodiscard]] std::string Almacenada(std::string_view mostrada) {
    return ConvertirFecha(mostrada, 2, "D", "R");
  }
  [[nodiscard]] std::string Mostrada(std::string_view almacenada) {
    return ConvertirFecha(almacenada, 1, "R", "D");
  }
  [[nodiscard]] std::string Normalizada(std::string_view tecleada) {
    return ConvertirFecha(tecleada, 1, "D", "D");
  }

  /// Told right after a DELETE ran on the stored tables, with its exact text. The connection may be
  /// replaced.
  virtual void AnotarBorrado(const std::string& clave, Ref<Conexion>& conexion,
                             const std::string& sentencia) = 0;
  /// The text stored in `Actualizado`.
  [[nodiscard]] virtual std::string FechaActualizado(FechaHora momento) = 0;
};

class SelectorConceptos {
 public:
  virtual ~SelectorConceptos() = default;
  /// Opens the concept search and waits. Answers by writing the chosen code in the `TxtBusco` of
  /// `form`. `origen` is the calling screen, `clase` "Codigo" or "Nombre", `modo` "Modal".
  virtual void Buscar(Ref<IDatosClase>& datos, Ref<Form>& form, std::string_view origen,
                      std::string_view clase, const std::string& texto, std::string_view modo,
                      bool indicador) = 0;
};

}  // namespace services
