#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <thread>

#include "guion/carpeta_temporal.h"
#include "jornada/partida.h"

// The process killed at any moment of "Grabar".

namespace {

namespace fs = std::filesystem;
using Reloj = std::chrono::steady_clock;

#if defined(TESVARA_SANITIZADO)
constexpr int kMomentos = 20;
#else
constexpr int kMomentos = 200;
#endif

const std::string kMarca = "ninguno";

/// The runner as a process of its own, its output read line by line.
class Proceso {
 public:
  Proceso(const fs::path& carpeta, const fs::path& guion) {
    std::array<int, 2> tubo{};
    if (::pipe(tubo.data()) != 0) throw std::runtime_error("pipe");
    hijo_ = ::fork();
    if (hijo_ < 0) throw std::runtime_error("fork");
    if (hijo_ == 0) {
      ::dup2(tubo[1], STDOUT_FILENO);
      // The look for leaks at its end is a process that shares its files, and outlives its kill for
      // a moment with their locks.
      ::setenv("LSAN_OPTIONS", "detect_leaks=0", 1);
      const std::string datos = (carpeta / "datos.sqlite").string();
      const std::string local = (carpeta / "local.sqlite").string();
      ::execl(TESVARA_GUION, TESVARA_GUION, "--datos", datos.c_str(), "--local", local.c_str(),
              guion.c_str(), nullptr);
      ::_exit(127);
    }
    ::close(tubo[1]);
    lectura_ = tubo[0];
  }
  ~Proceso() {
    ::close(lectura_);
    ::waitpid(hijo_, nullptr, 0);
  }
  Proceso(const Proceso&) = delete;
  Proceso& operator=(const Proceso&) = delete;

  /// The next line; empty at the end.
  std::string Linea() {
    std::string linea;
    char letra = 0;
    while (::read(lectura_, &letra, 1) == 1 && letra != '\n') linea += letra;
    return linea;
  }
  std::string Resto() {
    std::string todo;
    std::array<char, 4096> trozo{};
    for (ssize_t n = 0; (n = ::read(lectura_, trozo.data(), trozo.size())) > 0;) {
      todo.append(trozo.data(), static_cast<std::size_t>(n));
    }
    return todo;
  }
  void Matar() const { ::kill(hijo_, SIGKILL); }

 private:
  pid_t hijo_ = -1;
  int lectura_ = -1;
};

class Muerte : public testing::Test {
 protected:
  void SetUp() override {
    Escribir("empresa.guion", kMuchas);
    Escribir("grabar.guion", "reloj 2005-03-15 10:00:00\ncargar\n" + jornada::kDosEntradas +
                                 "celda MSFPagos 1 5\ncelda MSFPagos 7 5\nocultar\n"
                                 "foco?\ncargar\npulsar BotonAceptar\nocultar\nfoco?\n");
    Escribir("tablas.guion", jornada::kTablas);
    Escribir("seguir.guion",
             "reloj 2005-03-15 10:00:00\ncargar\nespera celda MSFPagos 1 2 \"F1\"\ncerrar\n");
    fs::create_directory(Base());
    ASSERT_EQ(Correr(Base(), "empresa.guion"), "");
    antes = Correr(Copia("antes"), "tablas.guion");
    const fs::path despuesDe = Copia("despues");
    EXPECT_EQ(Correr(despuesDe, "grabar.guion"), kMarca + "\n" + kMarca + "\n");
    despues = Correr(despuesDe, "tablas.guion");
    ASSERT_NE(antes, despues);
    ASSERT_NE(despues.find("12|N1|2005"), std::string::npos);
  }

  void Escribir(const std::string& nombre, const std::string& texto) {
    std::ofstream(carpeta.Ruta() / nombre) << texto;
  }
  [[nodiscard]] fs::path Base() const { return carpeta.Ruta() / "base"; }
  [[nodiscard]] fs::path Copia(const std::string& nombre) const {
    const fs::path copia = carpeta.Ruta() / nombre;
    fs::remove_all(copia);
    fs::copy(Base(), copia);
    return copia;
  }
  [[nodiscard]] std::string Correr(const fs::path& donde, const std::string& guion) const {
    return Proceso(donde, carpeta.Ruta() / guion).Resto();
  }

  /// From the mark before "Grabar" to the one after it, undisturbed.
  [[nodiscard]] Reloj::duration Duracion() const {
    Proceso proceso(Copia("medida"), carpeta.Ruta() / "grabar.guion");
    EXPECT_EQ(proceso.Linea(), kMarca);
    const auto desde = Reloj::now();
    EXPECT_EQ(proceso.Linea(), kMarca);
    return Reloj::now() - desde;
  }

  inline static const std::string kMuchas = R"(
datos INSERT INTO ProvConceptos VALUES('12','Papelería Núñez')
datos WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i < 300) INSERT INTO ProvFacturas SELECT '12','F'||i,'2005','20050301',116,'1',1,0,0,0,0,0,'x','y' FROM n
datos WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i < 300) INSERT INTO ProvBasesIva SELECT '12','F'||i,'2005','1',100,16,0,'x','y' FROM n
datos WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i < 300) INSERT INTO ProvVencimientos SELECT '12','F'||i,'2005','200503'||printf('%02d',1+i%28),116,NULL,'','x','y' FROM n
datos UPDATE ProvVencimientos SET FechaVto = '20050301' WHERE NFactura = 'F1'
datos UPDATE ProvVencimientos SET FechaVto = '20050302' WHERE NFactura <> 'F1' AND FechaVto = '20050301'
)";

  guion::CarpetaTemporal carpeta{false};
  std::string antes;
  std::string despues;
};

TEST_F(Muerte, EnCualquierMomentoDeGrabarQuedaTodoComoAntesOComoDespues) {
  const auto duracion = Duracion();
  int comoAntes = 0;
  int comoDespues = 0;
  for (int i = 0; i < kMomentos; ++i) {
    const fs::path donde = Copia("intento");
    {
      Proceso proceso(donde, carpeta.Ruta() / "grabar.guion");
      ASSERT_EQ(proceso.Linea(), kMarca);
      std::this_thread::sleep_for(duracion * i / kMomentos);
      proceso.Matar();
    }
    const std::string tablas = Correr(donde, "tablas.guion");
    ASSERT_TRUE(tablas == antes || tablas == despues) << "momento " << i << "\n" << tablas;
    (tablas == antes ? comoAntes : comoDespues) += 1;
    ASSERT_EQ(Correr(donde, "seguir.guion"), "") << "momento " << i;
  }
  RecordProperty("como_antes", comoAntes);
  RecordProperty("como_despues", comoDespues);
  EXPECT_GT(comoAntes, 0);
}

}  // namespace
