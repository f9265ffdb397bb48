#pragma once

#include <span>
#include <string_view>
#include <utility>

#include "dialecto/motor.h"

namespace odbc {

/// What tells one server from another.
struct Servidor {
  std::string_view Nombre;
  dialecto::Motor Dialecto;
  /// What goes into a schema, before its name; none where that is a database.
  std::string_view EntrarEnEsquema = {};
  /// The statement that tells the schema in which names are looked for; none where a database has
  /// no schemas.
  std::string_view EsquemaActual = {};
  /// The statement that tells which columns a table has besides those that it shows, and what each
  /// is made of; behind it comes the table's name.
  std::string_view Calculadas = {};
  /// Whether it takes the statements as the system writes them: with its literals in it.
  bool ComoSeEscriben = false;
  /// What its driver is told besides what the connection text says, which it prevails over.
  std::span<const std::pair<std::string_view, std::string_view>> Atributos = {};
  /// What a connection begins with.
  std::span<const std::string_view> AlConectar = {};
  /// And then, where the server knows what that is.
  std::span<const std::string_view> SiSabe = {};
  /// What begins a reading in which all tables are as they were at its first look; nothing where
  /// there is no such thing.
  std::span<const std::string_view> AlLeerDeUnMomento = {};
  /// Whether a statement that fails takes with it what was written before it in its unit, unless
  /// that was said to be kept.
  bool FalloSeLoLlevaTodo = false;
  /// Whether it may undo a unit for another's sake without a word, and go on as if another began.
  bool DeshaceSinDecirlo = false;
  /// Whether a column holds the same text as another, to the letter.
  dialecto::Envoltura MismoTexto = {"", " = ?"};
  /// A SELECT that tells 1 where nothing can be written now.
  std::string_view SoloLectura = {};
  /// What keeps others from changing a row that is read, until the end of the unit.
  std::string_view ParaCambiar = {};
};

/// By what a connection's driver says of itself: the engine, and its own name. Any other engine
/// takes the statements as they are written.
[[nodiscard]] const Servidor& ServidorDe(std::string_view motor);

}  // namespace odbc
