#pragma once

#include <string>

#include "apoyo/plataforma_de_prueba.h"
#include "forms/controles.h"
#include "forms/msflexgrid.h"

namespace apoyo {

/// Has every event of a widget write `W.Event` into a register.
inline void Apuntar(services::Widget& w, Registro& sucesos) {
  const auto apuntar = [&sucesos, nombre = w.NombreCompleto()](const char* evento) {
    return [&sucesos, linea = nombre + "." + evento] { sucesos(linea); };
  };
  w.Click = apuntar("Click");
  w.DblClick = apuntar("DblClick");
  w.GotFocus = apuntar("GotFocus");
  w.LostFocus = apuntar("LostFocus");
  w.MouseDown = apuntar("MouseDown");
  w.MouseUp = apuntar("MouseUp");
  if (auto* caja = dynamic_cast<services::TextBox*>(&w)) caja->Change = apuntar("Change");
  if (auto* barra = dynamic_cast<services::VScrollBar*>(&w)) barra->Change = apuntar("Change");
  if (auto* cinta = dynamic_cast<services::Cintilla*>(&w)) cinta->Cerrar = apuntar("Cerrar");
}

/// The same with the two events of keys, whose lines tell the key.
inline void ApuntarTeclas(services::Widget& w, Registro& sucesos) {
  w.KeyDown = [&w, &sucesos](int& tecla) {
    sucesos(w.NombreCompleto() + ".KeyDown " + std::to_string(tecla));
  };
  w.KeyPress = [&w, &sucesos](int& tecla) {
    sucesos(w.NombreCompleto() + ".KeyPress " + std::to_string(tecla));
  };
}

/// The same with a grid's own events, whose lines tell the cell that is current then.
inline void ApuntarCeldas(services::MSFlexGrid& rejilla, Registro& sucesos) {
  const auto apuntar = [&](const char* evento) {
    return [&rejilla, &sucesos, linea = rejilla.Nombre() + "." + evento] {
      sucesos(linea + " " + std::to_string(rejilla.Row) + " " + std::to_string(rejilla.Col));
    };
  };
  rejilla.LeaveCell = apuntar("LeaveCell");
  rejilla.RowColChange = apuntar("RowColChange");
}

}  // namespace apoyo
