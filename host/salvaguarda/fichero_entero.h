#pragma once

#include <filesystem>
#include <string_view>

namespace salvaguarda {

/// How the name of a file ends that isn't whole yet.
inline constexpr std::string_view kSinAcabar = ".nuevo";

/// A file that is made under another name and gets its own once it is whole. It is gone again when
/// that doesn't come about.
class FicheroEntero {
 public:
  /// `propio` keeps it apart from one that another program makes of the same name.
  explicit FicheroEntero(std::filesystem::path fichero, std::string_view propio = "");
  ~FicheroEntero();
  FicheroEntero(const FicheroEntero&) = delete;
  FicheroEntero& operator=(const FicheroEntero&) = delete;

  /// Where it is to be made; nothing is there.
  [[nodiscard]] const std::filesystem::path& EnCurso() const { return enCurso_; }
  [[nodiscard]] const std::filesystem::path& Fichero() const { return fichero_; }
  /// Makes it, empty. Throws 0x80004005.
  void Crear() const;
  /// Throws 0x80004005.
  void Terminar();

 private:
  void Quitar() noexcept;

  std::filesystem::path fichero_;
  std::filesystem::path enCurso_;
};

}  // namespace salvaguarda
