#pragma once

#include <string>
#include <string_view>

#include "valores/error.h"

namespace dialecto {

[[noreturn]] inline void Rechazar(std::string_view motivo, std::string_view cerca) {
  throw services::ErrorEjecucion(
      services::error::SentenciaRechazada,
      "No se entiende la sentencia: " + std::string(motivo) +
          (cerca.empty() ? std::string() : ", en «" + std::string(cerca.substr(0, 60)) + "»"));
}

}  // namespace dialecto
