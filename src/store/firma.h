#pragma once

#include <string>

#include "datos/conexion.h"

namespace store {

/// Throws 0x80040E21, with a text for the user, when a stored table that "Grabar" signs can't hold
/// the user's name: its rows would be dropped one by one, without a word. A table that can't be
/// looked at is passed over: the load tells what is wrong with it.
void ExigirFirma(services::Conexion& CnDatos, const std::string& usuario);

}  // namespace store
