#include "dialecto/escritura.h"

namespace dialecto {

std::string EntreComillas(const Motor& motor, std::string_view nombre) {
  std::string texto(1, motor.Comilla);
  return texto.append(nombre) + motor.Comilla;
}

std::string TextoDeInsercion(const Motor& motor, std::string_view tabla,
                             std::span<const std::string_view> columnas, std::size_t filas) {
  std::string texto = "INSERT INTO " + EntreComillas(motor, tabla);
  if (columnas.empty()) return texto.append(motor.FilaPorOmision);
  std::string huecos;
  for (const std::string_view columna : columnas) {
    texto += (huecos.empty() ? " (" : ", ") + EntreComillas(motor, columna);
    huecos += huecos.empty() ? "(?" : ", ?";
  }
  texto += ") VALUES " + huecos + ")";
  for (std::size_t i = 1; i < filas; ++i) texto += ", " + huecos + ")";
  return texto;
}

std::string TextoDeBorrados(const std::string& uno, std::size_t cuantos) {
  constexpr std::string_view kDonde = " WHERE ";
  const std::size_t donde = uno.find(kDonde) + kDonde.size();
  const std::string condicion = "(" + uno.substr(donde) + ")";
  std::string texto = uno.substr(0, donde) + condicion;
  for (std::size_t i = 1; i < cuantos; ++i) texto += " OR " + condicion;
  return texto;
}

std::string TextoDeConsultas(const std::string& una, std::size_t orden, std::size_t cuantas) {
  constexpr std::string_view kSelect = "SELECT ";
  const std::string cuerpo = una.substr(0, orden).substr(kSelect.size());
  std::string texto;
  for (std::size_t i = 0; i < cuantas; ++i) {
    texto.append(i == 0 ? "" : " UNION ALL ").append(kSelect);
    texto += std::to_string(i) + ", " + cuerpo;
  }
  return orden < una.size() ? texto + una.substr(orden) : texto;
}

std::string TextoDeCambio(const Motor& motor, std::string_view tabla,
                          std::span<const std::string_view> columnas) {
  std::string texto = "UPDATE " + EntreComillas(motor, tabla) + " SET ";
  for (const std::string_view& columna : columnas) {
    if (&columna != &columnas.front()) texto += ", ";
    texto += EntreComillas(motor, columna) + " = ?";
  }
  return texto;
}

}  // namespace dialecto
