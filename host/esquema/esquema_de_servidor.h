#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "esquema/definiciones.h"
#include "odbc/conexion_odbc.h"

namespace esquema {

/// The statements that create the stored tables and their indexes in an engine, PostgreSQL or
/// MariaDB, in their order; 0x80040E14 for any other.
[[nodiscard]] std::vector<std::string> SentenciasDeCreacion(std::string_view motor);
/// Creates the stored tables and their indexes in the database that the connection is in: one of
/// PostgreSQL or MariaDB; 0x80040E14 for any other engine. It fails where one of them is there
/// already.
void CrearAlmacenadas(odbc::Conexion& conexion);
/// The same, but for the row that tells that they can be worked with: `PonerTurno` adds it, in the
/// unit of what is to be in them from the beginning.
void CrearTablas(odbc::Conexion& conexion);
void PonerTurno(odbc::Conexion& conexion);
/// Whether that row is there.
[[nodiscard]] bool TieneTurno(odbc::Conexion& conexion);
/// Those that are there, whether they can be worked with or not.
[[nodiscard]] std::vector<std::string> TablasQueHay(odbc::Conexion& conexion);
/// What each unit of a connection to them begins with: whoever writes waits for the end of who came
/// before, as with a file, so that two who save one range don't do so invoice by invoice in turns.
/// On a cluster, of two that begin at once on two nodes one fails at its end.
inline constexpr const char* kTurno = "UPDATE SorvexTurno SET Vez = Vez + 1";
/// The same for the working tables, which the component keeps on its own machine: for what is tried
/// on every engine.
void CrearDeTrabajo(odbc::Conexion& conexion);

/// A schema of one's own on a server, or a database where it has no schemas in one: made at once,
/// and dropped at the end with all that is in it unless it is kept. One `deSiempre` may be there
/// before, and is kept.
class EsquemaPropio {
 public:
  /// Throws `ErrorEjecucion`, also where it is there already and isn't one of those.
  EsquemaPropio(std::string conexion, std::string nombre, bool deSiempre = false);
  ~EsquemaPropio();
  EsquemaPropio(const EsquemaPropio&) = delete;
  EsquemaPropio& operator=(const EsquemaPropio&) = delete;

  [[nodiscard]] const std::string& Conexion() const { return conexion_; }
  [[nodiscard]] const std::string& Nombre() const { return nombre_; }
  void Conservar() { conserva_ = true; }

 private:
  std::string conexion_;
  std::string nombre_;
  bool conserva_ = false;
};

}  // namespace esquema
