#include "list/editor_en_celda.h"

namespace list {

void AbrirSobreCelda(services::TextBox& editor, const services::MSFlexGrid& rejilla,
                     const Sangria& sangria) {
  editor.Text = rejilla.Text();
  editor.Top = rejilla.Top + rejilla.CellTop() - sangria.Arriba;
  editor.Left = rejilla.Left + rejilla.CellLeft() - sangria.Izquierda;
  editor.Width = rejilla.CellWidth() + 30;
  editor.Height = rejilla.CellHeight() + 30;
  editor.Visible = true;
  editor.SetFocus();
}

void Cerrar(services::TextBox& editor) {
  editor.Text = "";
  editor.Visible = false;
}

int DistanciaHasta(const services::MSFlexGrid& rejilla, std::string_view direccion,
                   const std::function<bool(int fila)>& vale) {
  const int paso = direccion == "Arr" ? -1 : 1;
  const int desde = rejilla.Row;
  for (int fila = desde + paso; fila >= 1 && fila < rejilla.Rows; fila += paso) {
    if (vale(fila)) return fila - desde;
  }
  return 0;
}

}  // namespace list
