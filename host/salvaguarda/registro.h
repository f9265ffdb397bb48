#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>
#include <utility>

namespace salvaguarda {

/// The suite's log: a line for each thing that happened, with its moment. When one would make it
/// grow beyond its bound it takes the place of the one before, so that both together stay within
/// twice that.
class Registro {
 public:
  static constexpr std::uintmax_t kTope = 1U << 20U;  ///< bytes
  static constexpr std::size_t kLinea = 24'000;       ///< bytes of a line

  explicit Registro(std::filesystem::path fichero, std::uintmax_t tope = kTope)
      : fichero_(std::move(fichero)), tope_(tope) {}

  /// Never fails: what can't be written is left out, and so is the end of a line that is too long.
  /// Line breaks in it become blanks.
  void Anotar(std::string_view momento, std::string_view texto) noexcept;
  [[nodiscard]] const std::filesystem::path& Fichero() const { return fichero_; }

 private:
  std::filesystem::path fichero_;
  std::uintmax_t tope_;
};

}  // namespace salvaguarda
