#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "salvaguarda/comienzo.h"
#include "salvaguarda/copias.h"
#include "salvaguarda/fila.h"
#include "salvaguarda/foto.h"
#include "salvaguarda/registro.h"
#include "salvaguarda/rescate.h"
#include "services/omision.h"
#include "sqlite/conexion_sqlite.h"

namespace salvaguarda {

/// What the user is to be told when an event is over.
struct Relato {
  /// Sentences, each a paragraph.
  std::vector<std::string> Parrafos;
  /// Whether a "Grabar" would now delete rows that the user hasn't seen.
  bool BorrariaFilas = false;
};

/// Stands beside a component that works on a copy of the stored tables: it sees its loads and its
/// commits begin, by the statements that they run, and hears of what they pass over. Before a
/// commit it copies the rows that may be touched, and asks when the user would undo what others
/// did, or delete what wasn't loaded. The component doesn't know of it.
class Guardia {
 public:
  struct Bases {
    services::Ref<sqlite::Conexion> Almacenados;
    services::Ref<sqlite::Conexion> DeTrabajo;
    std::string FicheroAlmacenados;
    /// Where the picture of the stored rows is kept, beside the working file that it belongs to.
    std::string FicheroFoto;
  };
  struct Lugares {
    std::filesystem::path Copias;    ///< a folder
    std::filesystem::path Registro;  ///< a file
  };

  /// Throws what opening the stored file once more throws.
  Guardia(Bases bases, const Lugares& lugares, std::string usuario);

  std::function<services::FechaHora()> Ahora;
  /// Whether to save all the same.
  std::function<bool(const std::string& pregunta)> Preguntar;
  /// There is something to be told, when the event is over.
  std::function<void()> AlHaberQueContar = [] {};
  /// Whether to ask when others have changed what is to be written.
  bool AvisarDeOtros = true;

  /// A load or a commit begins. Throws 0x800A0E80, with nothing written, when the user doesn't want
  /// the commit.
  void AlComenzar(const Comienzo& comienzo);
  /// A working copy that was there before is gone on with, instead of a load.
  void AlRetomar(const Rescate& rescate);
  void PasadoPorAlto(const services::Omision& omision);

  /// What there is to be told since the last time; empty paragraphs for nothing. What was passed
  /// over and is stored all the same isn't told.
  [[nodiscard]] Relato Contar();

  [[nodiscard]] Copias& LasCopias() { return copias_; }
  [[nodiscard]] Foto& LaFoto() { return foto_; }
  [[nodiscard]] const std::string& Usuario() const { return usuario_; }
  void Anotar(std::string_view texto);

 private:
  void AlCargar(const Rango& rango);
  void AlGrabar(const Rango& rango);
  /// Copies what is to be written, and sees what others have changed of it since it was last looked
  /// at. Empty, or why that can't be done.
  [[nodiscard]] std::string Copiar(const Rango& rango);
  [[nodiscard]] std::string FilasDeLaCopia(const Rango& rango);
  void Comparar();
  void DarPorIncompleta();
  /// What is to be asked before what is there is written over, with up to so many rows of each
  /// kind; empty for nothing.
  [[nodiscard]] std::string Reparos(const std::string& sinCopia, std::size_t hasta) const;
  void Decir(const std::string& texto, const std::vector<Fila>& filas);

  Bases bases_;
  Foto foto_;
  Copias copias_;
  Registro registro_;
  std::string usuario_;
  /// The last one made: not needed when nothing was written after it.
  Copia copia_;
  std::vector<services::Omision> omisiones_;
  /// Stored rows of the range that the working copy hasn't, and that a commit would delete.
  std::vector<Fila> noCargadas_;
  /// Whether nothing was stored since the picture.
  bool sinCambios_ = false;
  /// Whether nobody knows what was there at the load.
  bool sinFoto_ = false;
  /// What others have changed of it since the load, until the user agrees to write over it.
  std::vector<Fila> deOtros_;
  std::vector<Fila> yaDichas_;
  Relato relato_;
};

}  // namespace salvaguarda
