#pragma once

#include <filesystem>

namespace apoyo {

/// Works in a folder for as long as it lives.
class EnCarpeta {
 public:
  explicit EnCarpeta(const std::filesystem::path& carpeta)
      : antes_(std::filesystem::current_path()) {
    std::filesystem::current_path(carpeta);
  }
  ~EnCarpeta() { std::filesystem::current_path(antes_); }
  EnCarpeta(const EnCarpeta&) = delete;
  EnCarpeta& operator=(const EnCarpeta&) = delete;

 private:
  std::filesystem::path antes_;
};

}  // namespace apoyo
