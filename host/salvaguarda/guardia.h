#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "salvaguarda/almacen.h"
#include "salvaguarda/comienzo.h"
#include "salvaguarda/conceptos.h"
#include "salvaguarda/copias.h"
#include "salvaguarda/cotejo.h"
#include "salvaguarda/fila.h"
#include "salvaguarda/lo_sin_grabar.h"
#include "salvaguarda/noticia.h"
#include "salvaguarda/pasadas_por_alto.h"
#include "salvaguarda/registro.h"
#include "salvaguarda/relato.h"
#include "salvaguarda/reparos.h"
#include "salvaguarda/reposicion.h"
#include "salvaguarda/rescate.h"
#include "salvaguarda/trato.h"
#include "services/omision.h"
#include "sqlite/conexion_sqlite.h"

namespace salvaguarda {

/// Stands beside a component that works on a copy of the stored tables: it sees its loads and its
/// commits begin, by the statements that they run, and hears of what they pass over. Before a
/// commit it copies the rows that may be touched, and asks when the user would undo what others
/// did, or delete what wasn't loaded. The component doesn't know of it.
class Guardia {
 public:
  struct Bases {
    std::shared_ptr<salvaguarda::Almacen> Almacen;
    services::Ref<sqlite::Conexion> DeTrabajo;
    /// Where the picture of the stored rows is kept, beside the working file that it belongs to.
    std::string FicheroFoto;
  };
  struct Lugares {
    std::filesystem::path Copias;    ///< a folder
    std::filesystem::path Registro;  ///< a file
  };

  /// Throws what opening the file of the stored tables once more throws.
  Guardia(Bases bases, const Lugares& lugares, std::string usuario, Trato trato);

  /// A load or a commit begins. Throws 0x800A0E80, with nothing written, when the user doesn't want
  /// the commit.
  void AlComenzar(const Comienzo& comienzo);
  /// A working copy that was there before is gone on with, instead of a load.
  void AlRetomar(const Rescate& rescate);
  void PasadoPorAlto(const services::Omision& omision);
  /// The working tables are about to be emptied: what is in them and isn't stored is kept aside
  /// first. The component asks before that for some of it alone. Throws when that can't be done, so
  /// that they stay as they are.
  void AlVaciar();
  /// The unit of the stored tables is durable, or was given up.
  void AlTerminarUnidad();
  void AlAbandonarUnidad() noexcept;
  /// The unit of the working tables is over.
  void AlTerminarUnidadDeTrabajo();
  /// What is in the working tables is kept elsewhere.
  void DarPorVisto();
  /// Whether the working tables hold anything that isn't stored. Throws what the engine throws.
  [[nodiscard]] bool HayAlgoSinGrabar();

  /// What there is to be told since the last time; empty paragraphs for nothing. What was passed
  /// over and is stored all the same isn't told.
  [[nodiscard]] Relato Contar();
  void Anotar(std::string_view texto);
  /// What the concepts are called now.
  [[nodiscard]] salvaguarda::Conceptos Conceptos() {
    return salvaguarda::Conceptos::Leer(cotejo_.Conexion());
  }

  /// The copies of rows, the last one first.
  [[nodiscard]] std::vector<Copia> Copias() const { return copias_.Guardadas(); }
  /// What putting one back would do. Throws what the engine throws.
  [[nodiscard]] Reposicion Comparar(const Copia& copia);
  /// This one isn't let go of, however many there come to be.
  void Reservar(const Copia& copia) { copias_.Reservar(copia); }
  /// Puts it back, the present state copied first. Nothing is under way. Throws what the engine
  /// throws, with all as it was.
  void Reponer(const Copia& copia);
  /// Copies the whole stored file, unless that was done today, or they are on a server, which has
  /// copies of its own. Throws what the engine and the file system throw.
  void CopiarElDia();

 private:
  void AlCargar(const Rango& rango);
  void AlGrabar(const Rango& rango);
  /// Whether the user wants to go on in spite of that.
  [[nodiscard]] bool Confirmar(const Reparos& reparos);
  /// What the user should know of the rows that the working copy has, and of those that it hasn't.
  void DecirLoQueVino();
  /// What is about to be let go of without being stored, a sentence; none for nothing.
  [[nodiscard]] std::optional<std::string> LoQueSeDeja();
  void Dejar(const std::string& que);
  /// Notes that the working copy misses a table.
  void DarPorIncompleta();
  /// Of a table that could not be saved, as the working copy has it.
  [[nodiscard]] std::vector<Fila> LoQueHabiaQueGrabar(const services::Omision& omision);
  /// Has what was passed over where it is looked for.
  void TraerLasPasadas();
  void Decir(const Noticia& noticia, const salvaguarda::Conceptos& conceptos);

  Bases bases_;
  Cotejo cotejo_;
  LoSinGrabar sinGrabar_;
  /// Of the last load or commit.
  std::optional<Rango> rango_;
  /// Whether one has begun in the unit under way.
  bool cargando_ = false;
  bool grabando_ = false;
  /// Whether what the last commit could not store is still in the working tables alone.
  bool grabadoAMedias_ = false;
  salvaguarda::Copias copias_;
  Registro registro_;
  std::string usuario_;
  Trato trato_;
  PasadasPorAlto pasadas_;
  std::vector<Fila> yaDichas_;
  std::vector<Fila> gemelasDichas_;
  Relato relato_;
};

}  // namespace salvaguarda
