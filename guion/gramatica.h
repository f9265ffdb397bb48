#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "forms/propiedad.h"
#include "guion/texto_guion.h"
#include "valores/fecha.h"

// The words of the scenarios and what each takes.

namespace guion {

/// What may stand as an argument.
enum class Clase {
  Texto,          ///< any word
  Widget,         ///< W, W(2), SCREEN.W
  Propiedad,      ///< the same with .Property
  Entero,         ///< a whole number
  Natural,        ///< not below 0
  Positivo,       ///< not below 1
  NumeroDeError,  ///< decimal and signed, or 0x and hexadecimal
  Marca,          ///< 0 or 1
  Base,           ///< datos or local
  Tecla,          ///< the name of a key
  Respuesta,      ///< si, no, cancelar, aceptar
  Fecha,          ///< 2005-03-15
  Hora,           ///< 10:00:00
  TextoDeSesion,  ///< Pagina or Pantalla
  Avisos,         ///< that very word
  Unidad,         ///< evento or sentencia
  Sesion,         ///< 1 to 9
  Sql,            ///< the rest of the line, comment marks included
};

/// One command: how many of its arguments must be there, and whether the last may be repeated.
struct Firma {
  std::string_view Nombre;
  std::vector<Clase> Argumentos;
  std::size_t Minimo;
  bool Repite = false;
};

/// A command of the text, known to be well formed.
struct Orden {
  int Linea = 0;  ///< from 1
  std::string_view Nombre;
  std::vector<std::string> Argumentos;
  int Sesion = 1;  ///< the one that it is for, from 1

  [[nodiscard]] const std::string& Texto(std::size_t i) const { return Argumentos.at(i); }
  [[nodiscard]] int Entero(std::size_t i) const;
  [[nodiscard]] std::int32_t NumeroDeError(std::size_t i) const;
};

/// A place of the text that makes it unfit to be run.
class ErrorDeTexto : public NoSeEntiende {
 public:
  ErrorDeTexto(int linea, const std::string& motivo) : NoSeEntiende(motivo), Linea(linea) {}
  int Linea;
};

/// All commands. A claim is named by its first two words, the one about a property by the first.
[[nodiscard]] std::span<const Firma> Firmas();

/// Throws `NoSeEntiende` unless the word may stand as such an argument.
void Comprobar(Clase clase, const std::string& palabra);

/// The commands of a whole text. Throws `ErrorDeTexto` for its first fault.
[[nodiscard]] std::vector<Orden> Analizar(std::string_view texto);
/// Whether they are for more than the first session.
[[nodiscard]] bool SonDeVarias(std::span<const Orden> ordenes);

/// `SCREEN.W` in its two parts; the screen is empty for the main one.
struct Referencia {
  std::string Pantalla;
  std::string Widget;
};
/// None where it is no reference.
[[nodiscard]] std::optional<Referencia> LeerReferencia(std::string_view palabra);

/// `W.Property` in its two parts.
struct DePropiedad {
  std::string Widget;
  services::Aspecto Aspecto;
};
[[nodiscard]] std::optional<DePropiedad> LeerPropiedad(std::string_view palabra);

/// The properties that can be seen, in the order in which they are printed.
struct NombreDeAspecto {
  services::Aspecto Aspecto;
  std::string_view Nombre;
};
[[nodiscard]] std::span<const NombreDeAspecto> AspectosVisibles();

/// By their names; none for another word.
[[nodiscard]] std::optional<int> CodigoDeTecla(std::string_view nombre);
[[nodiscard]] std::optional<int> CodigoDeRespuesta(std::string_view nombre);
/// The name of an answer of `services::mensaje`.
[[nodiscard]] std::string_view NombreDeRespuesta(int respuesta);

[[nodiscard]] std::optional<services::FechaHora> LeerMomento(std::string_view fecha,
                                                             std::string_view hora);

}  // namespace guion
