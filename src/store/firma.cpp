#include "store/firma.h"

#include "valores/error.h"
#include "valores/texto.h"

namespace store {
namespace {

using services::ErrorEjecucion;

constexpr const char* kColumna = "ModificadoPor";

std::vector<services::Columna> ColumnasDe(services::Conexion& CnDatos, const char* tabla) {
  try {
    return CnDatos.ColumnasDe(tabla);
  } catch (const ErrorEjecucion&) {
    return {};
  }
}

}  // namespace

void ExigirFirma(services::Conexion& CnDatos, const std::string& usuario) {
  const auto largo = static_cast<int>(services::Longitud(usuario));
  for (const char* tabla : {"ProvFacturas", "ProvBasesIva", "ProvVencimientos", "CajaPagos"}) {
    for (const services::Columna& columna : ColumnasDe(CnDatos, tabla)) {
      if (!services::MismoTexto(columna.Nombre, kColumna)) continue;
      if (columna.Longitud == 0 || largo <= columna.Longitud) continue;
      throw ErrorEjecucion(services::error::RepetidoONoCabe,
                           "El nombre del usuario, «" + usuario +
                               "», es demasiado largo: " + tabla + " admite " +
                               std::to_string(columna.Longitud) + " caracteres en " + kColumna);
    }
  }
}

}  // namespace store
