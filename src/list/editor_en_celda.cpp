#include "list/editor_en_celda.h"

namespace list {

void AbrirSobreCelda(services::TextBox& editor, const services::MSFlexGrid& rejilla, int sangria) {
  editor.Text = rejilla.Text();
  editor.Top = rejilla.Top + rejilla.CellTop() - 20;
  editor.Left = rejilla.Left + rejilla.CellLeft() - sangria;
  editor.Width = rejilla.CellWidth() + 30;
  editor.Height = rejilla.CellHeight() + 30;
  editor.Visible = true;
  editor.SetFocus();
}

void Cerrar(services::TextBox& editor) {
  editor.Text = "";
  editor.Visible = false;
}

}  // namespace list
