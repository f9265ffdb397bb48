#pragma once

#include <cstdint>
#include <filesystem>
#include <set>
#include <vector>

#include "largo/tablas.h"

namespace largo {

/// What is known of a working copy since its load: the stored rows that were there then, and what
/// was done to it that lets more be otherwise. Kept in a file beside it, since the program that
/// goes on with the copy need not be the one that loaded it.
class DesdeLaCarga {
 public:
  /// Goes on with what the file says.
  explicit DesdeLaCarga(const std::filesystem::path& carpeta);

  /// A load begins, over these rows.
  void Empezar(const Tablas& almacenadas);
  void ApuntarFallo();
  void ApuntarRecibos();

  [[nodiscard]] bool HaFallado() const { return fallo_; }
  /// Whether the user may have made receipts that don't add up.
  [[nodiscard]] bool TocaRecibos() const { return tocaRecibos_; }
  /// The rows of `unas` that are neither in `otras` nor were stored at the load, each with its
  /// table before it. Of what is stored, beside what a commit leaves, they are those of others that
  /// it undoes; of a working copy, beside what is stored, those of its user.
  [[nodiscard]] std::vector<Fila> Nuevas(const Tablas& unas, const Tablas& otras) const;

 private:
  void Escribir() const;

  std::filesystem::path fichero_;
  std::set<std::uint64_t> filas_;
  bool fallo_ = false;
  bool tocaRecibos_ = false;
};

}  // namespace largo
