#include "dialecto/formas.h"

#include <iostream>
#include <string_view>

#include "dialecto/sentencias.h"
#include "valores/error.h"

// Prints in a line each the forms of the statements that it reads, each ended by a zero, and an
// empty line for what can't be taken apart; with --sistema, those of the system's statements behind
// the modes in which they are opened.

namespace {

std::string FormaDe(std::string_view sentencia) {
  try {
    std::vector<dialecto::Token> tokens;
    dialecto::Trocear(sentencia, tokens);
    return dialecto::Forma(sentencia, tokens);
  } catch (const services::ErrorEjecucion&) {
    return {};
  }
}

const char* NombreDe(services::ModoApertura modo) {
  switch (modo) {
    case services::ModoApertura::Lectura:
      return "lectura ";
    case services::ModoApertura::Optimista:
      return "optimista ";
    case services::ModoApertura::Pesimista:
      return "pesimista ";
  }
  return "";
}

}  // namespace

int main(int argc, char** argv) {
  if (argc > 1 && std::string_view(argv[1]) == "--sistema") {
    for (const auto& [modo, texto] : dialecto::Sentencias()) {
      std::cout << NombreDe(modo) << FormaDe(texto) << '\n';
    }
    return 0;
  }
  for (std::string sentencia; std::getline(std::cin, sentencia, '\0');) {
    std::cout << FormaDe(sentencia) << '\n';
  }
}
