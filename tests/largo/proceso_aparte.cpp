#include "largo/proceso_aparte.h"

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <exception>
#include <system_error>
#include <utility>

namespace largo {
namespace {

int Vivir(const ProcesoAparte::Vida& vida, int escritura) {
  const auto decir = [escritura](const std::string& linea) {
    const std::string texto = linea + "\n";
    for (std::size_t hecho = 0; hecho < texto.size();) {
      const ssize_t n = ::write(escritura, texto.data() + hecho, texto.size() - hecho);
      if (n <= 0) return;
      hecho += static_cast<std::size_t>(n);
    }
  };
  try {
    return vida(decir);
  } catch (const std::exception& fallo) {
    decir(std::string("HALLAZGO excepción: ") + fallo.what());
  } catch (...) {
    decir("HALLAZGO excepción de otro tipo");
  }
  return 3;
}

}  // namespace

ProcesoAparte::ProcesoAparte(const Vida& vida) {
  std::array<int, 2> tubo{};
  if (::pipe(tubo.data()) != 0) throw std::system_error(errno, std::generic_category());
  std::fflush(nullptr);
  pid_ = ::fork();
  if (pid_ < 0) throw std::system_error(errno, std::generic_category());
  if (pid_ == 0) {
    ::close(tubo[0]);
    ::_exit(Vivir(vida, tubo[1]));
  }
  ::close(tubo[1]);
  lectura_ = tubo[0];
}

ProcesoAparte::~ProcesoAparte() {
  Matar(SIGKILL);
  Esperar();
  ::close(lectura_);
}

std::optional<std::string> ProcesoAparte::Linea(int espera) {
  callado_ = false;
  for (;;) {
    if (const auto fin = leido_.find('\n'); fin != std::string::npos) {
      std::string linea = leido_.substr(0, fin);
      leido_.erase(0, fin + 1);
      return linea;
    }
    pollfd mirada{lectura_, POLLIN, 0};
    if (::poll(&mirada, 1, espera) == 0) {
      callado_ = true;
      return std::nullopt;
    }
    std::array<char, 65536> trozo{};
    const ssize_t n = ::read(lectura_, trozo.data(), trozo.size());
    if (n <= 0) return std::nullopt;
    leido_.append(trozo.data(), static_cast<std::size_t>(n));
  }
}

void ProcesoAparte::Matar(int senal) const {
  if (pid_ > 0) ::kill(pid_, senal);
}

int ProcesoAparte::Esperar() {
  int estado = 0;
  if (pid_ > 0) ::waitpid(std::exchange(pid_, -1), &estado, 0);
  return estado;
}

}  // namespace largo
