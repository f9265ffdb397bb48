#pragma once

#include "dialecto/motor.h"

namespace sqlite {

/// How statements are written for this engine.
inline constexpr dialecto::Motor DialectoSqlite = {
    .Comilla = '"',
    .Recorte = {"trim(", ") COLLATE ES"},
    .RecorteIzquierdo = {"ltrim(", ") COLLATE ES"},
    .RecorteDerecho = {"rtrim(", ") COLLATE ES"},
    .Momento = {"MOMENTO(", ")"},
    .NumeroDeFila = "rowid",
    .Reunidos = {"numerar(", ")"},
    .Numeros = {"\"numeros de filas\"((", "))"},
    .NumerosEnOrden = {"\"numeros de filas en orden\"((", "))"},
    .OrdenaQuienLee = true,
    .JuntaEnOrden = " CROSS JOIN "};

}  // namespace sqlite
