#pragma once

#include "dialecto/motor.h"

namespace sqlite {

/// How statements are written for this engine.
inline constexpr dialecto::Motor DialectoSqlite = {.Comilla = '"',
                                                   .Recorte = {"trim(", ") COLLATE ES"},
                                                   .RecorteIzquierdo = {"ltrim(", ") COLLATE ES"},
                                                   .RecorteDerecho = {"rtrim(", ") COLLATE ES"},
                                                   .Momento = {"MOMENTO(", ")"},
                                                   .NumeroDeFila = "rowid",
                                                   .JuntaEnOrden = " CROSS JOIN "};

}  // namespace sqlite
