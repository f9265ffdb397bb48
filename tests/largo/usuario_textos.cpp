#include "largo/usuario.h"

// What the user types: mostly what is asked for, sometimes what nobody should.

namespace largo {

std::string Usuario::Uno(Textos textos) {
  return *(textos.begin() + azar_.Entre(0, static_cast<int>(textos.size()) - 1));
}

std::string Usuario::Fecha() {
  if (azar_.DeCada100(12)) {
    return Uno({"31/02/2005", "1/4/05", "290204", "00/00/0000", "", "31/12/9999", "15-3-2005",
                "29/02/1900", "01/01/0100"});
  }
  const int dia = azar_.Entre(1, 28);
  return (dia < 10 ? "0" : "") + std::to_string(dia) + "/0" + std::to_string(azar_.Entre(2, 5)) +
         "/2005";
}

std::string Usuario::Importe() {
  if (azar_.DeCada100(12)) {
    return Uno({"", "0", "-3", "1.234,50", "99999999999", "0,01", "1,005", "12,", ","});
  }
  return std::to_string(azar_.Entre(1, 900)) + Uno({"", ",5", ",25", ",99", ",00"});
}

std::string Usuario::Numero() {
  if (azar_.DeCada100(15)) {
    return Uno({"", "O'Brien", "%", "_", "Ñ-1", "  F1 ", "12345678901234567890", "a\"b", "f2"});
  }
  return Uno({"N", "F"}) + std::to_string(azar_.Entre(1, 40));
}

std::string Usuario::Concepto() {
  return azar_.DeCada100(15) ? Uno({"99", "Papelería Núñez", "Alqui", "O'x", "", "ñandú, s.a."})
                             : Uno({"12", "20", "31", "44"});
}

std::string Usuario::Raro() {
  switch (azar_.Entre(0, 5)) {
    case 0:
      return Fecha();
    case 1:
      return Importe();
    case 2:
      return Numero();
    case 3:
      return Concepto();
    default:
      return Uno({"abc", "'", "1e5", "  ", "ÁÉÍ", "\n", "12/", "--", "日本"});
  }
}

}  // namespace largo
