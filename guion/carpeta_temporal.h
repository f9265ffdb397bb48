#pragma once

#include <filesystem>

namespace guion {

/// A fresh folder of its own, removed with all that is in it at the end, unless it is to be kept.
class CarpetaTemporal {
 public:
  /// Throws `std::filesystem::filesystem_error` when it can't be made.
  explicit CarpetaTemporal(bool conservar);
  ~CarpetaTemporal();
  CarpetaTemporal(const CarpetaTemporal&) = delete;
  CarpetaTemporal& operator=(const CarpetaTemporal&) = delete;

  [[nodiscard]] const std::filesystem::path& Ruta() const { return ruta_; }

 private:
  std::filesystem::path ruta_;
  bool conservar_;
};

}  // namespace guion
