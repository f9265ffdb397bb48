#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "salvaguarda/comienzo.h"
#include "sqlite/conexion_sqlite.h"
#include "valores/fecha.h"

namespace salvaguarda {

/// What a copy of rows tells of itself.
struct Copia {
  services::FechaHora Momento;
  std::string Usuario;
  /// What was to be written; both empty for one that was made before putting another back.
  salvaguarda::Rango Rango;
  std::filesystem::path Fichero = {};
  std::int64_t Facturas = 0;
  std::int64_t Vencimientos = 0;
};

/// The folder of the copies: of the rows that each commit may touch, as they are before it, and of
/// the whole stored file, once a day.
class Copias {
 public:
  /// How many stay: of the rows the last ones, and the first one of each of the last days on which
  /// there was any; of the whole file the last ones.
  static constexpr std::size_t kUltimas = 50;
  static constexpr std::size_t kDias = 60;
  static constexpr std::size_t kEnteras = 10;

  explicit Copias(std::filesystem::path carpeta) : carpeta_(std::move(carpeta)) {}

  /// This one isn't let go of, however many there come to be.
  void Reservar(const Copia& copia) { reservada_ = copia.Fichero.filename(); }
  /// Those of rows, the last one first. What is no copy is passed over. Throws where the folder is
  /// something else.
  [[nodiscard]] std::vector<Copia> Guardadas() const;

  /// Copies the whole stored file, unless there is one of that day. Whether it did. Throws
  /// what the engine throws, with no file left.
  bool GuardarEntera(const std::filesystem::path& almacenados, services::FechaHora momento);

  /// What tells the files of this program from those of another that copies to the same folder.
  [[nodiscard]] static const std::string& Propio();
  /// A name in the folder that no copy of rows has yet, for those made in one second too. Throws
  /// 0x80004005.
  [[nodiscard]] std::filesystem::path NombreLibre(services::FechaHora momento) const;
  /// Lets go of those of rows that are too many; never of `nueva`, whatever the clocks of others
  /// say.
  void Podar(const std::string& nueva) const;

 private:
  std::filesystem::path carpeta_;
  std::string reservada_;
};

}  // namespace salvaguarda
