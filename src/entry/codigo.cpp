#include "entry/codigo.h"

#include "entry/descripcion.h"

namespace entry {

void TomarCodigo(const CamposDeConcepto& c) {
  c.TxtNConcepto.Tag = c.TxtNConcepto.Text();
  c.TxtNConcepto.Text = c.TxtBusco.Text();
}

void TomarElegido(const CamposDeConcepto& c, services::Sesion& sesion) {
  TomarCodigo(c);
  const auto descripcion = DescripcionDe(sesion, c.TxtBusco.Text());
  if (descripcion) c.TxtConcepto.Text = *descripcion;
}

void BuscarTecleado(const CamposDeConcepto& c, const std::function<void()>& buscar) {
  TomarCodigo(c);
  try {
    buscar();
  } catch (...) {
    c.TxtNConcepto.Text = "";
    throw;
  }
}

}  // namespace entry
