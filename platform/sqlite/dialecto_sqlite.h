#pragma once

#include "dialecto/motor.h"
#include "sqlite/momento.h"

namespace sqlite {

/// How statements are written for this engine.
inline constexpr dialecto::Motor DialectoSqlite = {.Comilla = '"',
                                                   .Recorte = {"trim(", ") COLLATE ES"},
                                                   .RecorteIzquierdo = {"ltrim(", ") COLLATE ES"},
                                                   .RecorteDerecho = {"rtrim(", ") COLLATE ES"},
                                                   .FormasDeMomento = FormasDeMomento,
                                                   .Momento = {"MOMENTO(", ")"}};

}  // namespace sqlite
