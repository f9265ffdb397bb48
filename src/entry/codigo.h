#pragma once

#include <functional>

#include "forms/controles.h"
#include "services/sesion.h"

namespace entry {

/// The fields of a screen that hold a concept: what is typed and then its description, the code
/// that decides, and where the concept chooser writes the one that was chosen.
struct CamposDeConcepto {
  services::TextBox& TxtConcepto;
  services::TextBox& TxtNConcepto;
  services::TextBox& TxtBusco;
};

/// The code that was last chosen becomes the concept's; its `Tag` keeps the one before.
void TomarCodigo(const CamposDeConcepto& campos);
/// Another one was chosen: it is taken, with its description where there is such a concept.
void TomarElegido(const CamposDeConcepto& campos, services::Sesion& sesion);
/// Looks for what is typed. A search that fails leaves no code: that of an earlier one is not that
/// of what is typed now.
void BuscarTecleado(const CamposDeConcepto& campos, const std::function<void()>& buscar);

}  // namespace entry
