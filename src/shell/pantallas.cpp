#include "shell/pantallas.h"

#include "shell/datos_comunes.h"

namespace shell {

FrmTesvaraGastos& Pantallas::Principal() {
  FrmTesvaraGastos& pantalla = principal_.Pedir(datos_);
  pantalla.Load();
  return pantalla;
}

void Pantallas::MostrarPrincipal() {
  FrmTesvaraGastos& pantalla = Principal();
  pantalla.Marco = datos_.FrmMarco();
  pantalla.Show();
}

std::string Pantallas::MotivoParaNoCerrar() {
  const FrmTesvaraGastos* pantalla = principal_.Si();
  return pantalla ? pantalla->MotivoParaNoCerrar() : "";
}

}  // namespace shell
