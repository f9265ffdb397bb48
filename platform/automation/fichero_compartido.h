#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>

namespace automation {

/// A small text file that several programs read and rewrite at the same time. Its failures are
/// 0x80004005, with a text that names the file.
class FicheroCompartido {
 public:
  /// `que` names it in the texts of failures, such as "la lista de clases"; `espera` is how long a
  /// change waits for another program's.
  FicheroCompartido(std::filesystem::path ruta, std::string que,
                    std::chrono::milliseconds espera = std::chrono::seconds(10));

  [[nodiscard]] const std::filesystem::path& Ruta() const { return ruta_; }

  /// All that it holds; empty where there is no file. Throws where it can't be read or is anything
  /// but a plain file, and waits for nobody.
  [[nodiscard]] std::string Leer() const;
  /// Writes what `cambio` makes of its text. One change at a time, whatever programs and threads
  /// ask for them; a reader sees the text before or after, never half of it. A symbolic link stays
  /// one, and what it leads to is replaced. Throws where that can't be done, or another program
  /// doesn't let go of the file; the file then is as it was.
  void Cambiar(const std::function<std::string(const std::string&)>& cambio) const;
  /// Whether somebody else than this user and the system's own may write it.
  [[nodiscard]] bool LoEscribenOtros() const;

 private:
  [[noreturn]] void Fallar(const char* accion, const std::string& motivo) const;
  void Sustituir(const std::filesystem::path& destino, const std::string& texto) const;

  std::filesystem::path ruta_;
  std::string que_;
  std::chrono::milliseconds espera_;
};

}  // namespace automation
