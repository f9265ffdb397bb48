#pragma once

#include <vector>

#include "salvaguarda/noticia.h"
#include "salvaguarda/omitidas.h"
#include "services/omision.h"
#include "sqlite/conexion_sqlite.h"

namespace salvaguarda {

/// What a component has passed over and nobody was told of yet.
class PasadasPorAlto {
 public:
  /// `porGrabar`: of a table that could not be saved, the rows that were to be.
  void Anadir(const services::Omision& omision, std::vector<Fila> porGrabar);
  /// A load begins: what the one before passed over is of no use any more.
  void OlvidarCarga();
  /// A commit was given up, and with it all that it wrote.
  void OlvidarGrabacion() noexcept;
  /// A commit begins. `conCopia`: whether what was there has been copied.
  void EmpezarGrabacion(bool conCopia) { conCopia_ = conCopia; }
  [[nodiscard]] bool Ninguna() const { return oidas_.empty(); }
  /// Those of the rows that were passed over.
  [[nodiscard]] salvaguarda::Claves Claves() const { return ClavesDe(oidas_); }
  /// A commit is durable: what of it `almacenados` hasn't is known now, and looked for once.
  /// Whether there is any.
  [[nodiscard]] bool CerrarGrabacion(sqlite::Conexion& almacenados);

  struct Todas {
    /// Of commits, and then of loads.
    std::vector<Noticia> Noticias;
    /// Those of the load that a commit would delete.
    std::vector<Fila> NoCargadas;
  };
  /// All that there is to be told, once.
  [[nodiscard]] Todas Tomar(sqlite::Conexion& almacenados);

 private:
  std::vector<Oida> oidas_;
  std::vector<Noticia> deGrabacion_;
  bool conCopia_ = false;
};

}  // namespace salvaguarda
