#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <filesystem>

#include "datos/recordset.h"
#include "esquema/esquema_sqlite.h"
#include "platform/carpeta_temporal.h"
#include "platform/cerrojos.h"
#include "sqlite/conexion_sqlite.h"
#include "valores/error.h"

// The log of a stored file, with other programs that come and go.

namespace {

namespace fs = std::filesystem;

using Abierta = services::Ref<sqlite::Conexion>;

void Anadir(sqlite::Conexion& conexion, int base) {
  services::Recordset rs;
  rs.Open("SELECT ProvBasesIva.* FROM ProvBasesIva", conexion, services::ModoApertura::Optimista);
  rs.AddNew();
  for (const char* columna : {"NConcepto", "NFactura", "Año"}) rs.Collect(columna) = "1";
  rs.Collect("Tipo") = std::to_string(base);
  rs.Update();
}

int Bases(sqlite::Conexion& conexion) {
  const auto resultado = conexion.Consultar("SELECT count(*) FROM ProvBasesIva");
  return static_cast<int>(resultado.Filas.En(0, 0).Numero());
}

/// Another program, which opens the file, writes a row, and closes it each time it is told to. It
/// begins before this one has anything open, and so shares nothing with it.
class Visitante {
 public:
  Visitante(const std::string& fichero, int fila) {
    if (::pipe(ida_.data()) != 0 || ::pipe(vuelta_.data()) != 0) throw std::runtime_error("pipe");
    hijo_ = ::fork();
    if (hijo_ == 0) Vivir(fichero, fila);
    ::close(ida_[0]);
    ::close(vuelta_[1]);
  }
  ~Visitante() {
    ::close(ida_[1]);
    ::close(vuelta_[0]);
    ::waitpid(hijo_, nullptr, 0);
  }
  Visitante(const Visitante&) = delete;
  Visitante& operator=(const Visitante&) = delete;

  /// Whether it has come and gone.
  [[nodiscard]] bool Pasar() const { return Entrar() && Salir(); }
  [[nodiscard]] bool Entrar() const { return Mandar(); }
  [[nodiscard]] bool Salir() const { return Mandar(); }

 private:
  [[nodiscard]] bool Mandar() const {
    char letra = 'x';
    return ::write(ida_[1], &letra, 1) == 1 && ::read(vuelta_[0], &letra, 1) == 1 && letra == 'b';
  }
  [[noreturn]] void Vivir(const std::string& fichero, int fila) const {
    ::close(ida_[1]);
    ::close(vuelta_[0]);
    Abierta conexion;
    for (char letra = 0; ::read(ida_[0], &letra, 1) == 1;) {
      letra = Turno(conexion, fichero, fila++) ? 'b' : 'm';
      if (::write(vuelta_[1], &letra, 1) != 1) break;
    }
    ::_exit(0);
  }
  static bool Turno(Abierta& conexion, const std::string& fichero, int fila) try {
    if (conexion) {
      conexion = nullptr;
      return true;
    }
    conexion = sqlite::AbrirConexion(fichero);
    Anadir(*conexion, fila);
    conexion->TerminarUnidad();
    return true;
  } catch (const services::ErrorEjecucion&) {
    return false;
  }

  std::array<int, 2> ida_{};
  std::array<int, 2> vuelta_{};
  pid_t hijo_ = -1;
};

class DiarioBorrado : public testing::Test {
 protected:
  DiarioBorrado() { esquema::CrearAlmacenadas(*sqlite::AbrirConexion(fichero, {.Crear = true})); }

  /// Why a unit of one row fails; empty when it doesn't.
  std::string Motivo(sqlite::Conexion& conexion) {
    try {
      Anadir(conexion, ++filas);
      conexion.TerminarUnidad();
    } catch (const services::ErrorEjecucion& fallo) {
      conexion.AbandonarUnidad();
      EXPECT_EQ(fallo.Numero(), services::error::FalloDeConexion);
      return fallo.Descripcion();
    }
    return "";
  }
  /// The locks of this process on the stored file go, and another program takes itself for the
  /// last.
  void BorrarElDiario() const {
    pruebas::AbrirYCerrar(fichero);
    pruebas::AbrirYCerrar(fichero + "-shm");
    ASSERT_TRUE(otro.Pasar());
    ASSERT_FALSE(fs::exists(diario));
  }

  pruebas::CarpetaTemporal carpeta;
  std::string fichero = carpeta.Fichero("datos.db");
  std::string copia = carpeta.Fichero("copia.db");
  std::string diario = fichero + "-wal";
  int filas = 0;
  Visitante otro{fichero, 100};
  Visitante otroMas{fichero, 200};
  std::string motivo =
      "Alguien ha borrado el fichero de la base de datos o lo ha sustituido por otro, y no se ha "
      "guardado nada: " +
      fichero + " (SQLite 1032)";
};

TEST_F(DiarioBorrado, NoSeEscribeEnElQueYaNoTieneNombre) {
  const auto conexion = sqlite::AbrirConexion(fichero);
  ASSERT_EQ(Motivo(*conexion), "");
  BorrarElDiario();
  EXPECT_EQ(Motivo(*conexion), motivo);
  EXPECT_EQ(Motivo(*conexion), motivo);
  fs::copy_file(fichero, copia);
  EXPECT_EQ(Bases(*sqlite::AbrirConexion(copia)), 2);
}

TEST_F(DiarioBorrado, NiEnElQueTieneOtroEnSuLugar) {
  const auto conexion = sqlite::AbrirConexion(fichero);
  ASSERT_EQ(Motivo(*conexion), "");
  BorrarElDiario();
  ASSERT_TRUE(otro.Entrar());
  ASSERT_TRUE(fs::exists(diario));
  EXPECT_EQ(Motivo(*conexion), motivo);
  EXPECT_TRUE(otro.Salir());
}

TEST_F(DiarioBorrado, SinHaberEscritoAunTampoco) {
  const auto conexion = sqlite::AbrirConexion(fichero);
  BorrarElDiario();
  EXPECT_EQ(Motivo(*conexion), motivo);
}

TEST_F(DiarioBorrado, EnMitadDeUnaUnidadNoSeGuardaNada) {
  const auto conexion = sqlite::AbrirConexion(fichero);
  Anadir(*conexion, 50);
  fs::remove(diario);
  EXPECT_EQ(Motivo(*conexion), motivo);
  EXPECT_EQ(Bases(*conexion), 0);
}

TEST_F(DiarioBorrado, CadaSentenciaPorSuCuentaTampoco) {
  const auto conexion = sqlite::AbrirConexion(fichero, {.UnidadDeTrabajo = false});
  ASSERT_EQ(Motivo(*conexion), "");
  BorrarElDiario();
  EXPECT_EQ(Motivo(*conexion), motivo);
}

TEST_F(DiarioBorrado, LosQueVienenYSeVanConSusCerrojosNoLoQuitan) {
  const auto conexion = sqlite::AbrirConexion(fichero);
  for (int vez = 0; vez < 3; ++vez) {
    ASSERT_TRUE(otro.Pasar());
    EXPECT_EQ(Motivo(*conexion), "");
    ASSERT_TRUE(otro.Entrar());
    ASSERT_TRUE(otroMas.Pasar());
    EXPECT_EQ(Motivo(*conexion), "");
    ASSERT_TRUE(otro.Salir());
    EXPECT_EQ(Motivo(*conexion), "");
  }
  EXPECT_EQ(Bases(*conexion), 3 * (3 + 3));
}

TEST_F(DiarioBorrado, UnaSegundaConexionTampoco) {
  const auto conexion = sqlite::AbrirConexion(fichero);
  auto segunda = sqlite::AbrirConexion(fichero);
  EXPECT_EQ(Motivo(*segunda), "");
  EXPECT_EQ(Motivo(*conexion), "");
  segunda = nullptr;
  EXPECT_EQ(Motivo(*conexion), "");
  segunda = sqlite::AbrirConexion(fichero, {.UnidadDeTrabajo = false});
  EXPECT_EQ(Motivo(*segunda), "");
  EXPECT_EQ(Motivo(*conexion), "");
}

TEST_F(DiarioBorrado, VaciadoSigueSiendoElMismo) {
  const auto conexion = sqlite::AbrirConexion(fichero);
  ASSERT_EQ(Motivo(*conexion), "");
  conexion->Ejecutar("PRAGMA wal_checkpoint(TRUNCATE)");
  ASSERT_EQ(fs::file_size(diario), 0U);
  EXPECT_EQ(Motivo(*conexion), "");
  sqlite::AbrirConexion(fichero)->Ejecutar("PRAGMA wal_checkpoint(TRUNCATE); VACUUM");
  EXPECT_EQ(Motivo(*conexion), "");
  EXPECT_EQ(Bases(*conexion), 3);
}

TEST_F(DiarioBorrado, AbiertaAntesVisitanteLoVacia) {
  ASSERT_TRUE(otro.Entrar());
  const auto conexion = sqlite::AbrirConexion(fichero);
  ASSERT_TRUE(otro.Salir());
  EXPECT_EQ(Motivo(*conexion), "");
  EXPECT_EQ(Bases(*conexion), 2);
}

TEST_F(DiarioBorrado, AUnaQueSoloLeeNoLeHaceFalta) {
  const auto conexion = sqlite::AbrirConexion(fichero, {.SoloLectura = true});
  ASSERT_TRUE(otro.Pasar());
  EXPECT_EQ(Bases(*conexion), 1);
  EXPECT_NE(Motivo(*conexion), motivo);
}

TEST_F(DiarioBorrado, UnaEnMemoriaNoTieneNinguno) {
  const auto conexion = sqlite::AbrirConexion(":memory:", {.Crear = true});
  esquema::CrearAlmacenadas(*conexion);
  EXPECT_EQ(Motivo(*conexion), "");
}

}  // namespace
