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
