#include "odbc/diagnostico.h"

#include <gmock/gmock.h>

// What servers say in states and numbers of their own, in the system's numbers and the user's
// words.

namespace {

namespace error = services::error;

struct Caso {
  const char* Estado;
  int Nativo;
  const char* Texto;
  std::int32_t Numero;
  const char* Frase;
};

constexpr Caso kCasos[] = {
    {"23505", 1, "", error::RepetidoONoCabe, "Ya existe una fila con la misma clave ("},
    {"23000", 1062, "", error::RepetidoONoCabe, "Ya existe una fila con la misma clave ("},
    {"23502", 1, "", error::RepetidoONoCabe, "Falta un valor que la tabla exige ("},
    {"23000", 1048, "", error::RepetidoONoCabe, "Falta un valor que la tabla exige ("},
    {"23514", 1, "", error::RepetidoONoCabe, "La tabla no admite el valor ("},
    {"P0001", 1, "", error::RepetidoONoCabe, "La tabla no admite el valor ("},
    {"45000", 1644, "", error::RepetidoONoCabe, "La tabla no admite el valor ("},
    {"23000", 4025, "", error::RepetidoONoCabe, "La tabla no admite el valor ("},
    {"22001", 1, "", error::RepetidoONoCabe, "El valor no cabe en su columna ("},
    {"22001", 1406, "", error::RepetidoONoCabe, "El valor no cabe en su columna ("},
    {"42P01", 1, "", error::TablaDesconocida, "No existe la tabla ("},
    {"42S02", 1146, "", error::TablaDesconocida, "No existe la tabla ("},
    {"42703", 1, "", error::ColumnaDesconocida, "No existe la columna ("},
    {"42S22", 1054, "", error::ColumnaDesconocida, "No existe la columna ("},
    {"42601", 1, "", error::SentenciaRechazada, "La base de datos no entiende la sentencia ("},
    {"42000", 1064, "", error::SentenciaRechazada, "La base de datos no entiende la sentencia ("},
    {"42501", 1, "", error::SentenciaRechazada, "El usuario no tiene permiso para hacerlo"},
    {"42000", 1142, "", error::SentenciaRechazada, "El usuario no tiene permiso para hacerlo"},
    {"55P03", 1, "", error::FalloDeConexion, "La base de datos está bloqueada por otro programa ("},
    {"HY000", 1205, "", error::FalloDeConexion,
     "La base de datos está bloqueada por otro programa ("},
    {"40001", 1, "", error::FalloDeConexion, "Otro programa escribía en las mismas filas"},
    {"40001", 1213, "", error::FalloDeConexion, "Otro programa escribía en las mismas filas"},
    {"53100", 1, "", error::FalloDeConexion, "No queda sitio en el servidor"},
    {"HY000", 1021, "", error::FalloDeConexion, "No queda sitio en el servidor"},
    {"25006", 1, "", error::FalloDeConexion, "El servidor de la base de datos es de solo lectura"},
    {"HY000", 1290, "", error::FalloDeConexion,
     "El servidor de la base de datos es de solo lectura"},
    {"57P01", 1, "", error::FalloDeConexion, "Se ha perdido la conexión con el servidor ("},
    {"08S01", 2013, "", error::FalloDeConexion, "Se ha perdido la conexión con el servidor ("},
    {"08S01", 1047, "", error::FalloDeConexion, "Se ha perdido la conexión con el servidor ("},
    {"28000", 1045, "", error::FalloDeConexion, "El servidor no admite el usuario o la contra"},
    {"08001", 101, "FATAL: password authentication failed for user", error::FalloDeConexion,
     "El servidor no admite el usuario o la contraseña ("},
    {"08001", 101, "FATAL: la autentificación por contraseña falló", error::FalloDeConexion,
     "El servidor no admite el usuario o la contraseña ("},
    {"HY000", 9999, "algo", error::FalloDeConexion, "Falla la base de datos ("},
};

TEST(Diagnostico, CadaUnoTieneSuNumeroYSuFrase) {
  for (const Caso& caso : kCasos) {
    const auto fallo = odbc::ErrorDe({caso.Estado, caso.Nativo, caso.Texto}, "Motor");
    EXPECT_EQ(fallo.Numero(), caso.Numero) << caso.Estado << ' ' << caso.Nativo;
    EXPECT_THAT(fallo.Descripcion(), testing::StartsWith(caso.Frase))
        << caso.Estado << ' ' << caso.Nativo;
  }
}

TEST(Diagnostico, DetrasVieneLoQueDiceElMotor) {
  EXPECT_EQ(odbc::ErrorDe({"23000", 1062, "Duplicate entry 'F1'"}, "MariaDB").Descripcion(),
            "Ya existe una fila con la misma clave (MariaDB 23000-1062: Duplicate entry 'F1')");
}

TEST(Diagnostico, AlConectarNoSePierdeLoQueNoHabia) {
  const auto frase = [](const char* texto) {
    return odbc::ErrorDe({"08001", 101, texto, false, true}, "Motor").Descripcion();
  };
  EXPECT_THAT(frase("could not connect to server"), testing::StartsWith("No se llega al servidor"));
  EXPECT_THAT(frase("FATAL: database \"x\" does not exist"),
              testing::StartsWith("El servidor no deja entrar"));
}

}  // namespace
