#pragma once

#include <optional>
#include <string>
#include <vector>

#include "salvaguarda/cambio.h"
#include "salvaguarda/comienzo.h"
#include "salvaguarda/fila.h"
#include "sqlite/conexion_sqlite.h"

namespace salvaguarda {

/// The file of the picture that belongs to a working file.
[[nodiscard]] std::string FicheroDeFoto(const std::string& deTrabajo);

/// The sign of the picture in the attached file `foto`; empty where there is no whole one.
[[nodiscard]] std::string SenaDeFoto(sqlite::Conexion& base);

/// The stored rows that a commit of a range would touch, as they were at one moment: its invoices
/// with their bases and due dates, the forecasts, and the cash entries that a load brings. Taken by
/// a connection of its own to the stored file, which sees what is durable, whatever another has
/// under way, and kept in a file, so that it is still there when the program was killed.
class Foto {
 public:
  /// A picture that can't be read makes way for an empty one. Throws what opening the stored file
  /// throws.
  Foto(const std::string& almacenados, std::string fichero);

  /// Takes it now, in place of the one before, as a load begins.
  void Tomar(const Rango& rango);
  /// The same when the load is long over: what the working copy holds may not be in it.
  void TomarTarde(const Rango& rango);
  /// Whether nothing at all was stored since this program took it as its load began; never known of
  /// tables on a server.
  [[nodiscard]] bool SigueIgual();
  /// There is none any more.
  void Olvidar();
  /// Goes on with the one in the file, if it is that of the sign. Whether it is.
  [[nodiscard]] bool Recuperar(const Rango& rango, const std::string& sena);
  /// What tells it from any other; empty when there is none.
  [[nodiscard]] const std::string& Sena() const { return sena_; }
  /// The range that was taken; none before.
  [[nodiscard]] const std::optional<Rango>& De() const { return rango_; }
  [[nodiscard]] sqlite::Conexion& Conexion() { return *conexion_; }

  /// The rows in it that the load left out, and that a commit of the range would therefore delete:
  /// of a concept that isn't there, or written with blanks that the rest of the invoice hasn't.
  [[nodiscard]] std::vector<Fila> Excluidas();
  /// The numbers in it that more than one invoice has, but for blanks around it and its case: the
  /// due dates of those can't be told apart when one is paid.
  [[nodiscard]] std::vector<Fila> Gemelas();

  /// What the attached file `copia`, made for a commit, says otherwise than it.
  [[nodiscard]] std::vector<Cambio> Cambios();
  /// Those of the rows that the attached file `copia` still has, by their keys, and of the
  /// forecasts those that a commit of the range still deletes.
  [[nodiscard]] std::vector<Fila> QueSiguen(std::vector<Fila> filas);

 private:
  void Adjuntar();
  /// Another file in place of one that the engine can't use.
  void Rehacer();
  void TomarAhora(const Rango& rango);

  services::Ref<sqlite::Conexion> conexion_;
  std::string fichero_;
  std::optional<Rango> rango_;
  std::string sena_;
  /// The engine's count of what others have stored, when it was taken.
  std::optional<double> version_;
};

}  // namespace salvaguarda
