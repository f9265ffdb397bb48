#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "guion/ejecucion.h"
#include "largo/desde_la_carga.h"
#include "largo/oferta.h"
#include "largo/proceso_aparte.h"
#include "largo/puerta.h"
#include "largo/puesto.h"
#include "largo/tablas.h"
#include "largo/usuario.h"
#include "salvaguarda/comienzo.h"

namespace largo {

/// What a life must find stored when it begins: the state that the one before left, or the one
/// that it was killed on its way to. None where anything goes, since it passed rows over.
struct Herencia {
  std::optional<std::uint64_t> Antes;
  std::optional<std::uint64_t> Despues;
};

/// A user's program from its start to its end, which may be sudden; over files that stay. All that
/// it does it tells, a line each, by its first word:
///
///     ORDEN        the command that it now carries out, as a scenario has it
///     HAY, ATIENDE a handler that there is, and one that was reached
///     ABRE         how often a statement of that shape was opened
///     DICE         a message, an error, something passed over, or what the guard tells
///     GRABA, QUEDA what is stored before and after a commit that begins; what is stored now
///     MATA         the process kills itself; more words when rows were passed over just before
///     HALLAZGO     what must not be
class Vida {
 public:
  Vida(const std::filesystem::path& carpeta, std::uint64_t semilla, int acciones,
       const ProcesoAparte::Decir& decir);

  /// Its exit status.
  [[nodiscard]] int Vivir(const Herencia& herencia);

 private:
  /// A commit as it begins.
  struct Grabacion {
    Tablas Espera;  ///< what it must leave
    std::vector<Fila> Huerfanas;
    std::vector<Fila> Descuadradas;
    std::vector<Fila> DeOtros;  ///< what others have stored since the load, and it undoes
    bool TrasFallo;
    bool TocaRecibos;
    bool Preguntado = false;
  };

  [[nodiscard]] Puesto::Puertas Puertas();
  void AlAbrir(std::string_view sentencia);
  void AlLlamar();
  void EmpezarGrabacion(const salvaguarda::Rango& rango);
  void Empezar(const Herencia& herencia);
  void EscribirOtros();
  [[nodiscard]] const guion::Orden* Orden();
  /// The first word after the command under way; empty for none.
  [[nodiscard]] std::string SobreQue() const;
  void ContarLoAlcanzado();
  [[nodiscard]] std::string Elegir();
  void OfrecerRescate();
  void Escuchar();
  void Mirar();
  void MirarGrabacion(bool sano);
  void MirarRecibos();
  void MirarLoDeOtros();
  void MirarRetomada(bool sano);
  void MirarCarga();
  void MirarLista();
  void MirarReposo();
  void Hallar(const std::string& que) const { decir_("HALLAZGO " + EnUna(que)); }
  void Dice(const std::string& que);
  [[nodiscard]] static std::string EnUna(std::string texto);
  [[nodiscard]] bool EnModal();

  std::filesystem::path carpeta_;
  ProcesoAparte::Decir decir_;
  std::shared_ptr<Vigilante> vigilante_ = std::make_shared<Vigilante>();
  Puesto puesto_;
  Usuario usuario_;
  Oferta oferta_;
  services::Ref<sqlite::Conexion> grabado_;
  std::ostringstream salida_;
  std::vector<guion::Orden> orden_;
  std::map<std::string, int> formas_;
  int quedan_;
  int enModal_ = 0;
  int preguntas_ = 0;
  int respuestas_ = 0;
  int llamadasHastaMorir_;
  std::size_t avisosVistos_ = 0;
  Tablas reposo_;
  // Of the command under way.
  bool dicho_ = false;
  bool cargado_ = false;
  std::optional<salvaguarda::Rango> rango_;
  std::optional<Grabacion> grabacion_;
  bool retomada_ = false;  // the working copy, until it is saved or loaded anew
  /// Of the working copy, which an earlier program may have loaded.
  DesdeLaCarga desdeLaCarga_;
};

}  // namespace largo
