#include "guion/ficheros.h"

#include <unistd.h>

#include <filesystem>

namespace guion {

Ficheros::Ficheros(const Opciones& opciones)
    : datos_(Fichero(opciones.Datos, "datos.sqlite", opciones.Mantener)),
      local_(Fichero(opciones.Local, "local.sqlite", opciones.Mantener)) {
  if (opciones.Servidor.empty()) return;
  const bool deSiempre = !opciones.Esquema.empty();
  esquema_.emplace(opciones.Servidor,
                   deSiempre ? opciones.Esquema : "guion_" + std::to_string(getpid()), deSiempre);
  if (opciones.Mantener) esquema_->Conservar();
}

std::string Ficheros::Local(int sesion) const {
  if (sesion == 1) return local_;
  const std::filesystem::path primera(local_);
  const std::string nombre = primera.stem().string() + "-" + std::to_string(sesion);
  return primera.parent_path() / (nombre + primera.extension().string());
}

std::string Ficheros::Fichero(const std::string& dado, const char* nombre, bool conservar) {
  if (!dado.empty()) return dado;
  if (!carpeta_) carpeta_.emplace(conservar);
  return carpeta_->Ruta() / nombre;
}

}  // namespace guion
