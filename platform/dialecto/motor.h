#pragma once

#include <string_view>

namespace dialecto {

/// What is written before and after an expression.
struct Envoltura {
  std::string_view Antes;
  std::string_view Despues;
};

/// What tells one database engine from another, as far as a statement's text goes. Literals are
/// always `?`, equality of texts is always `=`, a pattern is always `LIKE`: an engine whose columns
/// don't compare without regard to case by themselves declares them so in its schema.
struct Motor {
  /// The quote around names; the same on both sides.
  char Comilla = '"';
  /// A text without the blanks on both sides. The same text for every way of writing it, so that
  /// one expression index serves them all, and with the collation that the column had.
  Envoltura Recorte;
  /// The two halves of that, for a statement that asks for one side alone.
  Envoltura RecorteIzquierdo;
  Envoltura RecorteDerecho;
  /// What a pattern is looked for in, and the pattern, where texts as they are stored can't be.
  Envoltura Patron = {};
  /// What follows a pattern, so that no sign but `%` and `_` means another in it.
  std::string_view TrasPatron = {};
  /// A stored moment as it compares; nothing where the engine compares moments by itself.
  Envoltura Momento = {};
  /// What adds a row of its defaults alone, behind its table.
  std::string_view FilaPorOmision = " DEFAULT VALUES";
  /// A row's number, which no other row of its table has; empty where the engine has none, or can't
  /// gather them.
  std::string_view NumeroDeFila = {};
  /// The numbers of a SELECT's rows, each once, as one value.
  Envoltura Reunidos = {};
  /// A table of what a SELECT has so gathered: `numero`, in the order in which they first came.
  Envoltura Numeros = {};
  /// The same sorted by number, with the place where it first came as `orden`.
  Envoltura NumerosEnOrden = {};
  /// Whether whoever fetches rows sorts them by the texts that they show, and puts those found by
  /// number in their places: `Traduccion::Orden`.
  bool OrdenaQuienLee = false;
  /// Whether an engine gives rows in whatever order it likes, so that they are put in that of their
  /// key where a statement leaves it open; and repeated ones are found by that key.
  bool PorClaves = false;
  /// A join whose left side is gone through first.
  std::string_view JuntaEnOrden = " INNER JOIN ";
};

}  // namespace dialecto
