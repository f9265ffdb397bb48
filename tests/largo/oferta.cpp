#include "largo/oferta.h"

namespace largo {

std::optional<salvaguarda::Rescate> Oferta::Buscar(sqlite::Conexion& deTrabajo) const {
  return salvaguarda::BuscarRescate(deTrabajo, puesto_.Almacen(), Puesto::FicheroFoto(carpeta_));
}

std::string Oferta::Hacer() {
  reparo_.clear();
  const auto rescate = Buscar();
  if (!rescate) return "";
  const bool sePuedeAbrir = rescate->Copia.Completa && !rescate->DeOtraEmpresa;
  if (azar_.DeCada100(20)) return "sin ella";
  Apartar(*rescate);
  if (!sePuedeAbrir || azar_.DeCada100(20)) return "aparte";
  puesto_.Guardia().AlRetomar(*rescate);
  puesto_.PorRetomar() = rescate->Copia.Rango;
  retomada_ = LeerDeTrabajo(puesto_.Local());
  return rescate->ConFoto ? "como estaba" : "como estaba, sin foto";
}

/// What is kept aside can be offered itself.
void Oferta::Apartar(const salvaguarda::Rescate& rescate) {
  const std::filesystem::path aparte = carpeta_ / "aparte.sqlite";
  std::filesystem::remove(aparte);
  puesto_.Local().CopiarEn(aparte);
  const auto copia = sqlite::AbrirConexion(aparte);
  const std::string distinta = Diferencia(LeerDeTrabajo(puesto_.Local()), LeerDeTrabajo(*copia));
  const auto suyo = Buscar(*copia);
  if (!distinta.empty()) {
    reparo_ = "lo apartado es otra cosa:" + distinta;
  } else if (!suyo || suyo->Filas != rescate.Filas) {
    reparo_ = "lo apartado no se ofrece igual";
  }
}

void Oferta::Terminar() {
  puesto_.PorRetomar().reset();
  retomada_.reset();
}

}  // namespace largo
