#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/fichero_compartido.h"
#include "services/automatizacion.h"
#include "services/plataforma.h"

// The list of classes that in-process servers offer on this account: one text file, a line a class:
// CLSID, ProgId, the library's path, and `unico` or `libre` for its threads, split by tabs. A line
// of three columns is `unico`, as is one with another word there. Lines that tell no class, such as
// comments, stay where they are.

namespace automation {

/// `{C3D2A871-1B6E-47F9-95D8-7A3F22E180BC}`
[[nodiscard]] std::string TextoDeGuid(const services::GUID& guid);
/// No value for a text that isn't of that form; letters may be small.
[[nodiscard]] std::optional<services::GUID> LeerGuid(std::string_view texto);

struct Clase {
  services::GUID Clsid;
  std::string ProgId;
  std::string Biblioteca;
  services::ModeloDeHilos Hilos = services::ModeloDeHilos::Unico;
};

/// The file under the user's data folder: `$XDG_DATA_HOME`, or `~/.local/share`. Throws
/// 0x80004005 where the environment tells neither.
[[nodiscard]] std::filesystem::path FicheroDeClases();

/// The list as a file holds it. Each operation reads the file anew, since other programs write it.
/// A file that isn't there is an empty list, and a line that isn't understood is no class. All
/// throw 0x80004005, with a text that names the file, where it can't be read.
class Registro {
 public:
  explicit Registro(const std::filesystem::path& fichero = FicheroDeClases());

  [[nodiscard]] std::vector<Clase> Clases() const;
  /// Without regard to case. Whoever may write the list chooses what is loaded here: when others
  /// may, the standard error says so.
  [[nodiscard]] std::optional<Clase> Buscar(std::string_view progId) const;
  /// Adds a class, in the place of those of the same CLSID or ProgId; all other lines stay. Throws
  /// 0x80004005 where the file can't be written, a text has a tab or a line end in it, or the CLSID
  /// is all zeros; the file then is as it was.
  void Poner(const Clase& clase) const;
  /// Takes a class off the list; nothing when it isn't on it.
  void Quitar(const services::GUID& clsid) const;

 private:
  FicheroCompartido fichero_;
};

/// What a library gives its `Plataforma` to be put on the user's list and taken off it. Both answer
/// with 0x80004005 where the list can't be written.
struct FuncionesDeRegistro {
  std::function<services::HRESULT(const services::ClaseRegistrada&)> Registrar;
  std::function<services::HRESULT(const services::ClaseRegistrada&)> Anular;
};
[[nodiscard]] FuncionesDeRegistro CrearRegistro(const std::filesystem::path& biblioteca);

/// The full path of the library or program that holds that address; throws 0x80004005 where none
/// does.
[[nodiscard]] std::filesystem::path RutaDeBiblioteca(const void* direccion);

}  // namespace automation
