#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>

#include "esquema/esquema_sqlite.h"
#include "platform/carpeta_temporal.h"
#include "sqlite/conexion_sqlite.h"
#include "valores/error.h"

// A file that belongs to one running program, with other programs about.

namespace {

using testing::AllOf;
using testing::HasSubstr;

class Exclusiva : public testing::Test {
 protected:
  [[nodiscard]] services::Ref<sqlite::Conexion> Abrir() const {
    return sqlite::AbrirConexion(fichero, {.Crear = true, .Exclusiva = true});
  }
  /// Why it can't be opened; empty when it can.
  [[nodiscard]] std::string Motivo(const sqlite::Opciones& opciones) const {
    try {
      (void)sqlite::AbrirConexion(fichero, opciones);
    } catch (const services::ErrorEjecucion& fallo) {
      EXPECT_EQ(fallo.Numero(), services::error::FalloDeConexion);
      return fallo.Descripcion();
    }
    return "";
  }
  [[nodiscard]] std::string MotivoDeOtra() const { return Motivo({.Exclusiva = true}); }

  static int Conceptos(sqlite::Conexion& conexion) {
    const auto resultado = conexion.Consultar("SELECT count(*) FROM ProvConceptos");
    return static_cast<int>(resultado.Filas.En(0, 0).Numero());
  }

  pruebas::CarpetaTemporal carpeta;
  std::string fichero = carpeta.Fichero("trabajo.db");
};

/// Another program: runs `accion` in a process of its own, tells that it is done, and stays.
class OtroPrograma {
 public:
  template <class Accion>
  explicit OtroPrograma(const Accion& accion) {
    std::array<int, 2> tubo{};
    if (::pipe(tubo.data()) != 0) throw std::runtime_error("pipe");
    hijo_ = ::fork();
    if (hijo_ == 0) {
      const auto queda = accion();
      (void)!::write(tubo[1], "x", 1);
      while (true) ::pause();
    }
    ::close(tubo[1]);
    char letra = 0;
    avisado_ = ::read(tubo[0], &letra, 1) == 1;
    ::close(tubo[0]);
  }
  ~OtroPrograma() { Matar(); }
  OtroPrograma(const OtroPrograma&) = delete;
  OtroPrograma& operator=(const OtroPrograma&) = delete;

  [[nodiscard]] bool Avisado() const { return avisado_; }
  void Matar() {
    if (hijo_ <= 0) return;
    ::kill(hijo_, SIGKILL);
    ::waitpid(hijo_, nullptr, 0);
    hijo_ = -1;
  }

 private:
  pid_t hijo_ = -1;
  bool avisado_ = false;
};

TEST_F(Exclusiva, OtroProgramaNoLoAbreYLoSabeAlMomento) {
  esquema::CrearAlmacenadas(*Abrir());
  OtroPrograma otro([this] { return Abrir(); });
  ASSERT_TRUE(otro.Avisado());
  const auto antes = std::chrono::steady_clock::now();
  EXPECT_THAT(MotivoDeOtra(),
              AllOf(HasSubstr("El fichero " + fichero), HasSubstr("en uso por otro programa")));
  EXPECT_LT(std::chrono::steady_clock::now() - antes, std::chrono::seconds(2));
  EXPECT_NE(Motivo({.EsperaMs = 50}), "");
  otro.Matar();
  EXPECT_EQ(MotivoDeOtra(), "");
}

TEST_F(Exclusiva, TampocoElMismoPrograma) {
  auto una = Abrir();
  EXPECT_THAT(MotivoDeOtra(), HasSubstr("en uso por otro programa"));
  una = nullptr;
  EXPECT_EQ(MotivoDeOtra(), "");
}

TEST_F(Exclusiva, NoSeQuitaDeLasManosALosQueYaLoTienen) {
  esquema::CrearAlmacenadas(*Abrir());
  OtroPrograma otro([this] {
    auto conexion = sqlite::AbrirConexion(fichero);
    conexion->Ejecutar("BEGIN IMMEDIATE");
    return conexion;
  });
  ASSERT_TRUE(otro.Avisado());
  EXPECT_THAT(MotivoDeOtra(), HasSubstr("en uso por otro programa"));
}

TEST_F(Exclusiva, MuertoElProgramaQuedaLoTerminadoYNadaMas) {
  esquema::CrearAlmacenadas(*Abrir());
  OtroPrograma otro([this] {
    auto conexion = Abrir();
    conexion->Ejecutar("INSERT INTO ProvConceptos VALUES ('1', 'Luz')");
    conexion->Ejecutar("BEGIN; INSERT INTO ProvConceptos VALUES ('2', 'Agua')");
    return conexion;
  });
  ASSERT_TRUE(otro.Avisado());
  otro.Matar();
  EXPECT_EQ(Conceptos(*Abrir()), 1);
}

TEST_F(Exclusiva, SeTrabajaEnElComoEnCualquiera) {
  auto conexion = Abrir();
  esquema::CrearAlmacenadas(*conexion);
  conexion->Ejecutar("INSERT INTO ProvConceptos VALUES ('1', 'Luz')");
  EXPECT_EQ(Conceptos(*conexion), 1);
  conexion = nullptr;
  EXPECT_EQ(Conceptos(*Abrir()), 1);
}

}  // namespace
