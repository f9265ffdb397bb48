#include "platform/banco_odbc.h"

namespace pruebas {

std::vector<Motor> Motores() {
  std::vector<Motor> motores = {{"sqlite", CrearBancoSqlite}};
  for (const ServidorDePrueba& servidor : ServidoresDePrueba()) {
    motores.push_back({servidor.Nombre, [servidor] { return CrearBancoOdbc(servidor); }});
  }
  return motores;
}

}  // namespace pruebas
