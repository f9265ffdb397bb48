#pragma once

#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace pruebas {

/// The locks that this process holds on a file that it has open, as the system tells them of each
/// descriptor: kind, first byte, last. The list of those of all processes isn't read at one moment.
inline std::vector<std::string> CerrojosDe(const std::string& fichero) {
  std::set<std::string> cerrojos;
  for (const auto& abierto : std::filesystem::directory_iterator("/proc/self/fd")) {
    std::error_code cerrado;
    if (!std::filesystem::equivalent(abierto.path(), fichero, cerrado)) continue;
    std::ifstream datos("/proc/self/fdinfo/" + abierto.path().filename().string());
    for (std::string linea; std::getline(datos, linea);) {
      if (!linea.starts_with("lock:")) continue;
      std::istringstream campos(linea);
      std::string rotulo, orden, clase, trato, modo, proceso, nodo, desde, hasta;
      campos >> rotulo >> orden >> clase >> trato >> modo >> proceso >> nodo >> desde >> hasta;
      cerrojos.insert(modo + " " + desde + " " + hasta);
    }
  }
  return {cerrojos.begin(), cerrojos.end()};
}

/// Those on a database file and on the index of its log.
inline std::vector<std::vector<std::string>> CerrojosDeBase(const std::string& fichero) {
  return {CerrojosDe(fichero), CerrojosDe(fichero + "-shm")};
}

/// What any code of this process does to the locks of a file that it reads on its own.
inline void AbrirYCerrar(const std::string& fichero) {
  std::ifstream(fichero).get();
}

}  // namespace pruebas
