#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "sqlite/fichero.h"

namespace sqlite {

/// A text that was prepared, and its statements that nobody is using.
struct Entrada {
  std::string Texto;
  std::vector<Preparada> Libres;
};

/// A prepared statement on loan: it goes back to its entry, reset, when the loan ends.
class Prestada {
 public:
  Prestada() = default;
  Prestada(std::shared_ptr<Entrada> entrada, Preparada sentencia)
      : entrada_(std::move(entrada)), sentencia_(std::move(sentencia)) {}
  Prestada(Prestada&&) noexcept = default;
  Prestada& operator=(Prestada&& otra) noexcept {
    Devolver();
    entrada_ = std::move(otra.entrada_);
    sentencia_ = std::move(otra.sentencia_);
    return *this;
  }
  ~Prestada() { Devolver(); }

  [[nodiscard]] sqlite3_stmt* get() const { return sentencia_.get(); }
  explicit operator bool() const { return sentencia_ != nullptr; }

 private:
  void Devolver() noexcept;

  std::shared_ptr<Entrada> entrada_;
  Preparada sentencia_;
};

/// The prepared statements of a connection by their text. The same text may be on loan more than
/// once.
class Almacen {
 public:
  explicit Almacen(Base& base) : base_(base) {}

  /// The entry of a text, prepared now if it never was.
  [[nodiscard]] std::shared_ptr<Entrada> EntradaDe(std::string_view texto);
  [[nodiscard]] Prestada Tomar(const std::shared_ptr<Entrada>& entrada);
  [[nodiscard]] Prestada Tomar(std::string_view texto);
  void Olvidar() { entradas_.clear(); }

 private:
  struct Picadillo : std::hash<std::string_view> {
    using is_transparent = void;
  };

  Base& base_;
  std::unordered_map<std::string, std::shared_ptr<Entrada>, Picadillo, std::equal_to<>> entradas_;
};

}  // namespace sqlite
