#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace anfitrion {

/// What the command line asks for.
struct Opciones {
  /// Connection to the stored tables; empty for the suite's own file.
  QString Datos;
  QString Usuario = "ANA";
  /// Screen for which the screens are laid out, in twips; the real one when there is none.
  struct Medida {
    int Ancho;
    int Alto;
  };
  std::optional<Medida> Referencia;
  /// Where to leave a picture of the screen; without a display, and without waiting for anyone.
  QString Captura;
  /// Folder of the suite's own files; the user's data folder when empty.
  QString Carpeta;
  /// Whether to ask before a "Grabar" that would undo what others have done since the load.
  bool AvisarDeOtros = true;
  /// Whether a server without the stored tables gets them, with the sample business, unasked.
  bool Muestra = false;
  bool Ayuda = false;
  /// The engine for which to write the statements that create the stored tables; empty for none.
  QString Tablas;
};

/// Reads the arguments behind the program's name. Throws `ErrorEjecucion` 0x800A0BB9, with a text
/// for the user, for what isn't understood.
[[nodiscard]] Opciones LeerOpciones(const QStringList& argumentos);

/// What the options are, for the user.
[[nodiscard]] QString TextoDeAyuda();

}  // namespace anfitrion
