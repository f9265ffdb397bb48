#pragma once

#include <optional>
#include <string>
#include <vector>

#include "salvaguarda/almacen.h"
#include "salvaguarda/copias.h"
#include "salvaguarda/fila.h"
#include "salvaguarda/foto.h"
#include "salvaguarda/preguntado.h"
#include "salvaguarda/reparos.h"
#include "salvaguarda/rescate.h"
#include "sqlite/conexion_sqlite.h"

namespace salvaguarda {

/// Holds what stands there when a commit begins against what stood there at the load, and keeps
/// what speaks against the commit until the user agrees to it.
class Cotejo {
 public:
  /// `avisarDeOtros`: whether what others have changed speaks against it. Throws what opening the
  /// file of the stored tables once more throws.
  Cotejo(Almacen& almacen, std::string foto, services::Ref<sqlite::Conexion> deTrabajo,
         bool avisarDeOtros);

  /// Nothing is known of what stands there.
  void Olvidar();
  /// A load begins. Throws what the engine throws.
  void Cargar(const Rango& rango);
  /// A working copy that was there before is gone on with.
  void Retomar(const Rescate& rescate);
  /// A commit begins, before its lock is taken: the user hasn't agreed to anything.
  void Preparar(const Rango& rango);
  /// With the lock: copies what is to be written, and sees what others have changed of it since the
  /// load. The copy stays only when nothing speaks against the commit, but for what
  /// the user has agreed to.
  [[nodiscard]] Reparos Copiar(Copias& copias, const Copia& copia);
  /// The user agrees to what spoke against it, for this commit.
  void Aceptar() { aceptados_ = reparos_; }

  /// The rows of the range that the load left out, and that a commit would delete.
  [[nodiscard]] const std::vector<Fila>& NoCargadas() const { return deLaCarga_.NoCargadas; }
  /// The numbers of more than one invoice that the load brought.
  [[nodiscard]] std::vector<Fila> Gemelas() { return foto_.Gemelas(); }
  void AnadirNoCargadas(const std::vector<Fila>& filas);
  [[nodiscard]] const std::string& Sena() const { return foto_.Sena(); }
  /// One to the file of the stored tables, with nothing under way.
  [[nodiscard]] sqlite::Conexion& Conexion() { return foto_.Conexion(); }

 private:
  [[nodiscard]] std::string FilasDeLaCopia(const Rango& rango);
  [[nodiscard]] Claves Pedidas();
  void Retratar(const Rango& rango);
  void DecirTodoLoDistinto();
  void Comparar();
  void CompararConLaFoto();

  Almacen& almacen_;
  std::string ficheroFoto_;
  services::Ref<sqlite::Conexion> deTrabajo_;
  bool avisarDeOtros_;
  Foto foto_;
  /// What speaks against any commit of what was loaded.
  Reparos deLaCarga_;
  /// What speaks against the one under way, and what of it the user has agreed to.
  Reparos reparos_;
  Reparos aceptados_;
  /// What stood there when he was asked.
  std::optional<Preguntado> preguntado_;
  /// Whether nothing was stored since the picture.
  bool sinCambios_ = false;
};

}  // namespace salvaguarda
