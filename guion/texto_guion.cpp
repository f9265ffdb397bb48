#include "guion/texto_guion.h"

#include <cstdint>

namespace guion {
namespace {

bool EsBlanco(char c) {
  return c == ' ' || c == '\t';
}

/// The character at `donde` and the bytes that it takes; 0 bytes where they are not well formed.
struct Leido {
  char32_t caracter;
  std::size_t bytes;
};

Leido LeerCaracter(std::string_view texto, std::size_t donde) {
  const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(texto[i]); };
  const std::uint8_t primero = byte(donde);
  if (primero < 0x80) return {primero, 1};
  const std::size_t cuantos = primero >= 0xF0 ? 4 : primero >= 0xE0 ? 3 : 2;
  if (primero < 0xC2 || primero > 0xF4 || donde + cuantos > texto.size()) return {0, 0};
  char32_t caracter = primero & (0x7F >> cuantos);
  for (std::size_t i = donde + 1; i < donde + cuantos; ++i) {
    if ((byte(i) & 0xC0) != 0x80) return {0, 0};
    caracter = caracter << 6 | (byte(i) & 0x3F);
  }
  const bool largo = (cuantos == 3 && caracter < 0x800) || (cuantos == 4 && caracter < 0x10000);
  const bool sustituto = caracter >= 0xD800 && caracter <= 0xDFFF;
  if (largo || sustituto || caracter > 0x10FFFF) return {0, 0};
  return {caracter, cuantos};
}

}  // namespace

std::vector<std::string_view> Lineas(std::string_view texto) {
  std::vector<std::string_view> lineas;
  if (texto.starts_with("\xEF\xBB\xBF")) texto.remove_prefix(3);
  while (!texto.empty()) {
    const std::size_t fin = texto.find('\n');
    std::string_view linea = texto.substr(0, fin);
    if (linea.ends_with('\r')) linea.remove_suffix(1);
    lineas.push_back(linea);
    if (fin == std::string_view::npos) break;
    texto.remove_prefix(fin + 1);
  }
  return lineas;
}

void Lector::SaltarBlancos() {
  while (donde_ < linea_.size() && EsBlanco(linea_[donde_])) ++donde_;
}

bool Lector::Quedan() {
  SaltarBlancos();
  return donde_ < linea_.size() && linea_[donde_] != '#';
}

std::string Lector::Siguiente() {
  SaltarBlancos();
  return linea_[donde_] == '"' ? Entrecomillada() : Suelta();
}

std::string Lector::Resto() {
  SaltarBlancos();
  std::string_view resto = linea_.substr(donde_);
  while (!resto.empty() && EsBlanco(resto.back())) resto.remove_suffix(1);
  donde_ = linea_.size();
  return std::string(resto);
}

std::string Lector::Entrecomillada() {
  std::string palabra;
  for (++donde_; donde_ < linea_.size(); ++donde_) {
    const char c = linea_[donde_];
    if (c == '"') {
      ++donde_;
      if (donde_ < linea_.size() && !EsBlanco(linea_[donde_])) {
        throw NoSeEntiende("falta un blanco tras las comillas");
      }
      return palabra;
    }
    palabra += c == '\\' ? Escapado() : c;
  }
  throw NoSeEntiende("comillas sin cerrar");
}

char Lector::Escapado() {
  if (++donde_ >= linea_.size()) throw NoSeEntiende("comillas sin cerrar");
  switch (linea_[donde_]) {
    case '"':
      return '"';
    case '\\':
      return '\\';
    case 'n':
      return '\n';
    default:
      throw NoSeEntiende("solo se admiten \\\", \\\\ y \\n entre comillas");
  }
}

std::string Lector::Suelta() {
  const std::size_t desde = donde_;
  while (donde_ < linea_.size() && !EsBlanco(linea_[donde_])) {
    if (linea_[donde_] == '"') throw NoSeEntiende("comillas dentro de una palabra");
    ++donde_;
  }
  return std::string(linea_.substr(desde, donde_ - desde));
}

bool EsUtf8(std::string_view texto) {
  for (std::size_t i = 0; i < texto.size();) {
    const std::size_t bytes = LeerCaracter(texto, i).bytes;
    if (bytes == 0) return false;
    i += bytes;
  }
  return true;
}

std::u32string Caracteres(std::string_view texto) {
  std::u32string caracteres;
  for (std::size_t i = 0; i < texto.size();) {
    const Leido leido = LeerCaracter(texto, i);
    caracteres += leido.caracter;
    i += leido.bytes;
  }
  return caracteres;
}

}  // namespace guion
