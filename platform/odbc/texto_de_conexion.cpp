#include "odbc/texto_de_conexion.h"

#include <algorithm>

#include "valores/error.h"
#include "valores/texto.h"

namespace odbc {
namespace {

using services::MismoTexto;

/// `nombre`: the last one that was read. No value is told: it may be a password, or part of one.
[[noreturn]] void NoSeEntiende(std::string_view nombre) {
  const std::string donde =
      nombre.empty() ? "desde el principio" : "a partir del valor de " + std::string(nombre);
  throw services::ErrorEjecucion(services::error::FalloDeConexion,
                                 "El texto de conexión no se entiende " + donde);
}

std::string_view SinBlancos(std::string_view texto) {
  while (texto.starts_with(' ')) texto.remove_prefix(1);
  while (texto.ends_with(' ')) texto.remove_suffix(1);
  return texto;
}

/// What stands between braces, in which a closing one is written twice; moves on behind it.
std::string EntreLlaves(std::string_view& texto, std::string_view nombre) {
  std::string valor;
  for (std::size_t i = 1; i < texto.size(); ++i) {
    if (texto[i] != '}') {
      valor += texto[i];
    } else if (i + 1 < texto.size() && texto[i + 1] == '}') {
      valor += texto[i++];
    } else {
      texto.remove_prefix(i + 1);
      return valor;
    }
  }
  NoSeEntiende(nombre);
}

std::string UnValor(std::string_view& texto, std::string_view nombre) {
  texto = SinBlancos(texto);
  if (texto.starts_with('{')) return EntreLlaves(texto, nombre);
  const std::string_view valor = texto.substr(0, texto.find(';'));
  texto.remove_prefix(valor.size());
  return std::string(SinBlancos(valor));
}

std::string ConLlaves(const std::string& valor) {
  if (valor.find_first_of("[]{}(),;?*=!@ ") == std::string::npos) return valor;
  std::string texto = "{";
  for (const char c : valor) texto += c == '}' ? std::string("}}") : std::string(1, c);
  return texto + "}";
}

std::vector<std::string> Lista(std::string_view valor) {
  std::vector<std::string> lista;
  while (true) {
    const auto coma = valor.find(',');
    lista.emplace_back(SinBlancos(valor.substr(0, coma)));
    if (coma == std::string_view::npos) return lista;
    valor.remove_prefix(coma + 1);
  }
}

}  // namespace

TextoDeConexion::TextoDeConexion(std::string_view texto) {
  while (!(texto = SinBlancos(texto)).empty()) {
    if (texto.starts_with(';')) {
      texto.remove_prefix(1);
      continue;
    }
    const auto igual = texto.find('=');
    const std::string_view nombre = SinBlancos(texto.substr(0, igual));
    if (igual == std::string_view::npos || nombre.empty()) {
      NoSeEntiende(pares_.empty() ? std::string_view() : pares_.back().first);
    }
    texto.remove_prefix(igual + 1);
    pares_.emplace_back(nombre, UnValor(texto, nombre));
    if (!(texto = SinBlancos(texto)).empty() && !texto.starts_with(';')) NoSeEntiende(nombre);
  }
}

/// As many as there are for one that it doesn't have.
std::size_t TextoDeConexion::Buscar(std::string_view nombre) const {
  const auto par =
      std::ranges::find_if(pares_, [&](const Par& uno) { return MismoTexto(uno.first, nombre); });
  return static_cast<std::size_t>(par - pares_.begin());
}

std::string_view TextoDeConexion::Valor(std::string_view nombre) const {
  const std::size_t cual = Buscar(nombre);
  return cual < pares_.size() ? std::string_view(pares_[cual].second) : std::string_view();
}

/// The name that it has for where the server is; empty where it doesn't tell.
std::string_view TextoDeConexion::Servidor() const {
  for (const std::string_view nombre : {"Servername", "Server"}) {
    if (!Valor(nombre).empty()) return nombre;
  }
  return {};
}

void TextoDeConexion::Poner(std::string_view nombre, std::string_view valor) {
  std::erase_if(pares_, [&](const Par& uno) { return MismoTexto(uno.first, nombre); });
  pares_.emplace(pares_.begin(), nombre, valor);
}

std::vector<TextoDeConexion> TextoDeConexion::PorServidor() const {
  const std::string_view nombre = Servidor();
  if (nombre.empty()) return {*this};
  const auto puertos = Lista(Valor("Port"));
  std::vector<TextoDeConexion> textos;
  for (const std::string& servidor : Lista(Valor(nombre))) {
    TextoDeConexion uno = *this;
    const std::string& puerto = puertos[std::min(textos.size(), puertos.size() - 1)];
    if (!puerto.empty()) uno.pares_[Buscar("Port")].second = puerto;
    uno.pares_[Buscar(nombre)].second = servidor;
    textos.push_back(std::move(uno));
  }
  return textos;
}

std::string TextoDeConexion::Texto() const {
  std::string texto;
  for (const auto& [nombre, valor] : pares_) {
    if (!texto.empty()) texto += ';';
    texto += nombre + "=" + ConLlaves(valor);
  }
  return texto;
}

std::string TextoDeConexion::Nombre() const {
  const std::string_view servidor = Servidor();
  std::string texto(Valor(servidor.empty() ? "DSN" : servidor));
  if (texto.empty()) texto = Valor("Driver");
  if (const auto puerto = Valor("Port"); !puerto.empty()) texto.append(":").append(puerto);
  const std::string_view base = Valor("Database");
  if (!base.empty()) texto.append("/").append(base);
  return texto;
}

}  // namespace odbc
