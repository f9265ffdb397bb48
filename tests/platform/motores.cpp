#include "platform/banco_odbc.h"

namespace pruebas {

std::vector<Motor> Servidores() {
  std::vector<Motor> motores;
  for (const ServidorDePrueba& servidor : ServidoresDePrueba()) {
    motores.push_back({servidor.Nombre, [servidor] { return CrearBancoOdbc(servidor); }});
  }
  return motores;
}

std::vector<Motor> Motores() {
  std::vector<Motor> motores = Servidores();
  motores.insert(motores.begin(), {"sqlite", CrearBancoSqlite});
  return motores;
}

}  // namespace pruebas
