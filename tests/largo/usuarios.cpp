#include <sys/wait.h>

#include <charconv>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <deque>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <set>
#include <sstream>
#include <string>

#include "esquema/esquema_sqlite.h"
#include "guion/carpeta_temporal.h"
#include "largo/negocio.h"
#include "largo/vida.h"

// A user at random over all screens, for a time: a small business at a time, in a folder of its
// own, worked on by one program after the other, most of which end suddenly. Driver calls fail, and
// somebody else writes. The seed replays all of it.

namespace {

namespace fs = std::filesystem;
using Reloj = std::chrono::steady_clock;

struct Opciones {
  std::chrono::seconds Tiempo{20 * 60};
  std::uint64_t Semilla = 0;
  int Negocios = 0;    ///< how many, instead of the time
  bool Traza = false;  ///< print all that is told
};

constexpr int kVidas = 8;
constexpr int kAcciones = 250;
constexpr int kCallado = 120'000;  // milliseconds

class Supervisor {
 public:
  explicit Supervisor(const Opciones& opciones) : opciones_(opciones) {}
  [[nodiscard]] int Correr();

 private:
  void UnNegocio(std::uint64_t semilla);
  [[nodiscard]] largo::Herencia UnaVida(const fs::path& carpeta, std::uint64_t semilla,
                                        const largo::Herencia& herencia);
  void Atender(const std::string& linea, largo::Herencia& herencia);
  void Final(int estado, bool callado);
  void Hallar(const std::string& que);
  void Contar() const;

  Opciones opciones_;
  std::uint64_t negocio_ = 0;
  bool muerta_ = false;
  int hallazgos_ = 0;
  std::deque<std::string> ultimas_;
  std::map<std::string, int> cuentas_;
  std::map<std::string, int> manejadores_;
  std::map<std::string, int> ordenes_;
  /// How often something was said, and where first: business and command.
  struct Dicho {
    int Veces = 0;
    std::string Donde;
  };
  std::map<std::string, Dicho> dichos_;
  std::map<std::string, int> sentencias_;
};

void Supervisor::Hallar(const std::string& que) {
  ++hallazgos_;
  std::cout << "HALLAZGO negocio " << negocio_ << ": " << que << "\n";
  for (const std::string& orden : ultimas_) std::cout << "    " << orden << "\n";
  std::cout << std::flush;
}

/// A message without the figures that tell it from others of its kind.
std::string SinCifras(const std::string& texto) {
  std::string forma;
  for (const char c : texto) {
    const bool cifra = c >= '0' && c <= '9';
    if (!cifra || forma.empty() || forma.back() != '#') forma += cifra ? '#' : c;
  }
  return forma.substr(0, 110);
}

/// The errors that a user at work may see: an impossible date, a value that is no number, a copy
/// that isn't whole, a list that has grown past its snapshot, no printer, a quote in a number, the
/// misspelt column of a last due date, a commit that was refused, and the failures asked for.
bool EsConocido(const std::string& error) {
  static const std::set<std::int64_t> conocidos{5,           13,          91,          381,
                                                482,         -2147217900, -2147217904, -2147217864,
                                                -2147217887, -2146824576, -2147467259};
  return conocidos.contains(
      std::strtoll(error.c_str() + std::string("error ").size(), nullptr, 10));
}

void Supervisor::Atender(const std::string& linea, largo::Herencia& herencia) {
  const std::size_t blanco = linea.find(' ');
  const std::string que = linea.substr(0, blanco);
  const std::string resto = blanco == std::string::npos ? "" : linea.substr(blanco + 1);
  if (opciones_.Traza && que != "HAY" && que != "ATIENDE") std::cout << linea << "\n";
  std::istringstream numeros(resto);
  std::uint64_t antes = 0;
  std::uint64_t despues = 0;
  if (que == "ORDEN") {
    ++ordenes_[resto.substr(0, resto.find(' '))];
    ultimas_.push_back(resto);
    if (ultimas_.size() > 40) ultimas_.pop_front();
  } else if (que == "HAY") {
    manejadores_.try_emplace(resto, 0);
  } else if (que == "ATIENDE") {
    ++manejadores_[resto];
  } else if (que == "ABRE") {
    int veces = 0;
    numeros >> veces >> std::ws;
    std::string forma;
    std::getline(numeros, forma);
    sentencias_[forma] += veces;
  } else if (que == "DICE") {
    Dicho& dicho = dichos_[SinCifras(resto)];
    if (++dicho.Veces == 1) {
      dicho.Donde = std::to_string(negocio_) + " " + (ultimas_.empty() ? "" : ultimas_.back());
    }
    if (resto.starts_with("error ") && !EsConocido(resto)) Hallar("error nuevo: " + resto);
    if (resto.starts_with("omitido") && herencia.Despues) herencia = {};
  } else if (que == "GRABA" && numeros >> antes >> despues) {
    ++cuentas_["comienzos de Grabar"];
    herencia = {antes, despues};
  } else if (que == "QUEDA" && numeros >> antes) {
    herencia = {antes, std::nullopt};
  } else if (que == "MATA") {
    muerta_ = true;
    ++cuentas_["muertes"];
    if (herencia.Despues) ++cuentas_["muertes dentro de Grabar"];
    if (!resto.empty()) herencia = {};
  } else {
    Hallar(linea);
  }
}

void Supervisor::Final(int estado, bool callado) {
  if (callado) return Hallar("no acaba de hacer su orden");
  if (WIFSIGNALED(estado) && WTERMSIG(estado) == SIGKILL && muerta_) return;
  if (WIFSIGNALED(estado)) return Hallar("acaba por la señal " + std::to_string(WTERMSIG(estado)));
  if (WEXITSTATUS(estado) != 0) Hallar("acaba con " + std::to_string(WEXITSTATUS(estado)));
}

largo::Herencia Supervisor::UnaVida(const fs::path& carpeta, std::uint64_t semilla,
                                    const largo::Herencia& antes) {
  largo::Herencia herencia = antes;
  muerta_ = false;
  ultimas_.push_back("# vida " + std::to_string(semilla));
  largo::ProcesoAparte proceso([&](const auto& decir) {
    return largo::Vida(carpeta, semilla, kAcciones, decir).Vivir(antes);
  });
  while (const auto linea = proceso.Linea(kCallado)) Atender(*linea, herencia);
  const bool callado = proceso.Callado();
  if (callado) proceso.Matar(SIGKILL);
  Final(proceso.Esperar(), callado);
  ++cuentas_["vidas"];
  return herencia;
}

void Supervisor::UnNegocio(std::uint64_t semilla) {
  const guion::CarpetaTemporal carpeta(false);
  negocio_ = semilla;
  ultimas_.clear();
  {
    const auto datos =
        sqlite::AbrirConexion(largo::Puesto::FicheroDatos(carpeta.Ruta()), {.Crear = true});
    esquema::CrearAlmacenadas(*datos);
    datos->Ejecutar(largo::Negocio(semilla));
  }
  largo::Herencia herencia;
  for (int vida = 0; vida < kVidas; ++vida) {
    herencia = UnaVida(carpeta.Ruta(), semilla * 100 + static_cast<std::uint64_t>(vida), herencia);
  }
  ++cuentas_["negocios"];
}

int Supervisor::Correr() {
  std::cout << "semilla " << opciones_.Semilla << std::endl;
  const auto hasta = Reloj::now() + opciones_.Tiempo;
  for (std::uint64_t i = 0;
       opciones_.Negocios > 0 ? i < static_cast<std::uint64_t>(opciones_.Negocios)
                              : Reloj::now() < hasta;
       ++i) {
    UnNegocio(opciones_.Semilla + i);
    if (i % 20 == 19)
      std::cout << i + 1 << " negocios, " << hallazgos_ << " hallazgos" << std::endl;
  }
  Contar();
  return hallazgos_ == 0 ? 0 : 1;
}

void Supervisor::Contar() const {
  for (const auto& [que, veces] : cuentas_) std::cout << que << ": " << veces << "\n";
  int ordenes = 0;
  for (const auto& [orden, veces] : ordenes_) ordenes += veces;
  std::cout << "órdenes: " << ordenes << "\n";
  for (const auto& [orden, veces] : ordenes_) std::cout << "  " << veces << " " << orden << "\n";
  std::cout << "formas de sentencia: " << sentencias_.size() << "\n";
  for (const auto& [forma, veces] : sentencias_) std::cout << "  " << veces << " " << forma << "\n";
  std::cout << "dichos:\n";
  for (const auto& [que, dicho] : dichos_) {
    std::cout << "  " << dicho.Veces << " " << que << " [" << dicho.Donde << "]\n";
  }
  int alcanzados = 0;
  for (const auto& [nombre, veces] : manejadores_) alcanzados += veces > 0 ? 1 : 0;
  std::cout << "manejadores: " << alcanzados << " de " << manejadores_.size() << "\n";
  for (const auto& [nombre, veces] : manejadores_)
    std::cout << "  " << veces << " " << nombre << "\n";
  std::cout << "hallazgos: " << hallazgos_ << std::endl;
}

std::uint64_t Numero(std::string_view texto) {
  std::uint64_t numero = 0;
  const auto leido = std::from_chars(texto.data(), texto.data() + texto.size(), numero);
  if (leido.ec != std::errc()) throw std::runtime_error("no es un número: " + std::string(texto));
  return numero;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    Opciones opciones;
    opciones.Semilla =
        static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count()) %
        1'000'000'000;
    for (int i = 1; i + 1 < argc; i += 2) {
      const std::string_view nombre = argv[i];
      const std::uint64_t numero = Numero(argv[i + 1]);
      if (nombre == "--segundos") opciones.Tiempo = std::chrono::seconds(numero);
      if (nombre == "--semilla") opciones.Semilla = numero;
      if (nombre == "--traza") opciones.Traza = numero != 0;
      if (nombre == "--negocios") opciones.Negocios = static_cast<int>(numero);
    }
    return Supervisor(opciones).Correr();
  } catch (const std::exception& fallo) {
    std::cerr << fallo.what() << '\n';
    return 2;
  }
}
