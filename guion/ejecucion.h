#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "forms/form.h"
#include "forms/widget.h"
#include "guion/fuente.h"
#include "guion/gramatica.h"
#include "guion/mundo.h"
#include "valores/error.h"

namespace guion {

/// Exit statuses.
inline constexpr int kBien = 0;
inline constexpr int kAlgunaFalla = 1;
inline constexpr int kNoSeEntiende = 2;

/// The run of one text over a `Mundo`, of which it takes the modal waits and the errors for as long
/// as it lives.
///
/// A modal screen is waited for by playing the lines that follow, until it is hidden or unloaded;
/// when the text ends first, the screen is hidden and whatever is still going on comes to its end
/// by itself.
class Ejecucion {
 public:
  Ejecucion(guion::Mundo& mundo, std::ostream& salida, std::ostream& errores);
  ~Ejecucion();
  Ejecucion(const Ejecucion&) = delete;
  Ejecucion& operator=(const Ejecucion&) = delete;

  /// Plays all commands; the exit status. What was printed is flushed before each is asked for.
  int Correr(Fuente fuente);

  // What the commands are made of.

  [[nodiscard]] guion::Mundo& Mundo() { return mundo_; }
  [[nodiscard]] headless::Entorno& Entorno() { return mundo_.Entorno(); }
  void Escribir(std::string_view linea);
  /// Prints a run-time error that reached the host, and keeps its number for the claims.
  void Error(std::int32_t numero, const std::string& descripcion);
  /// The number of the error last printed since the last command that does something began; looking
  /// and claiming do nothing.
  [[nodiscard]] std::optional<std::int32_t> UltimoError() const { return ultimo_error_; }
  /// Holds a claim's two texts, as they are to be printed, against each other.
  void Comparar(const std::string& esperado, const std::string& obtenido);

  /// Messages shown since they were last printed; those not yet claimed either.
  [[nodiscard]] std::vector<headless::AvisoMostrado> AvisosSinImprimir() const;
  [[nodiscard]] std::vector<headless::AvisoMostrado> AvisosSinReclamar() const;
  void AvisosImpresos();
  void AvisoReclamado() { ++reclamados_; }

  /// A widget by its reference. Throws `NoSeEntiende` when its screen isn't loaded or hasn't it.
  [[nodiscard]] services::Widget& Buscar(const std::string& referencia) const;
  /// The same, of that kind; `clase` is how the reason names it.
  template <class W>
  [[nodiscard]] W& Buscar(const std::string& referencia, const char* clase) const {
    auto* widget = dynamic_cast<W*>(&Buscar(referencia));
    if (!widget) throw NoSeEntiende(referencia + " no es " + clase);
    return *widget;
  }
  [[nodiscard]] services::Form& BuscarPantalla(const std::string& nombre) const;
  /// How a scenario writes the widget.
  [[nodiscard]] static std::string NombreDe(const services::Widget& widget);

 private:
  void Seguir(const std::function<bool()>& hasta);
  void Ejecutar(const Orden& orden);
  void EsperarModal(services::Form& form);
  /// Ends the run: the text can't be understood any further.
  void Romper(int linea, const std::string& motivo);
  [[nodiscard]] const Orden* Siguiente();
  [[nodiscard]] int Estado() const;

  guion::Mundo& mundo_;
  std::ostream& salida_;
  std::ostream& errores_;
  Fuente fuente_;
  int linea_ = 0;
  bool acabada_ = false;  // the source has no more commands
  bool rota_ = false;
  bool dejada_ = false;  // the text ended inside a modal screen
  bool alguna_falla_ = false;
  std::optional<std::int32_t> ultimo_error_;
  std::size_t impresos_ = 0;
  std::size_t reclamados_ = 0;
};

}  // namespace guion
