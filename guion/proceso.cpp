#include "guion/proceso.h"

#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <system_error>

namespace guion {
namespace {

[[noreturn]] void Lanzar() {
  throw std::system_error(errno, std::generic_category(), "no se puede abrir otra sesión");
}

}  // namespace

Canal& Canal::operator=(Canal&& otro) noexcept {
  std::swap(descriptor_, otro.descriptor_);
  return *this;
}

void Canal::Mandar(int numero) const {
  static_cast<void>(send(descriptor_, &numero, sizeof numero, MSG_NOSIGNAL));
}

std::optional<int> Canal::Recibir() const {
  int numero = 0;
  if (recv(descriptor_, &numero, sizeof numero, 0) != sizeof numero) return std::nullopt;
  return numero;
}

void Canal::Cortar() const {
  shutdown(descriptor_, SHUT_RDWR);
}

void Canal::Cerrar() {
  if (descriptor_ >= 0) close(descriptor_);
  descriptor_ = -1;
}

Proceso::Proceso(const Vida& vida) {
  std::array<int, 2> extremos{};
  if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, extremos.data()) != 0) Lanzar();
  linea_ = Canal(extremos[0]);
  const Canal otro(extremos[1]);
  // What isn't written yet would be written twice.
  std::fflush(nullptr);
  pid_ = fork();
  if (pid_ < 0) Lanzar();
  if (pid_ > 0) return;
  linea_.Cerrar();
  std::exit(vida(otro));
}

Proceso::~Proceso() {
  if (pid_ > 0) Terminar();
}

Final Proceso::Terminar() {
  linea_.Cortar();
  int estado = 0;
  waitpid(std::exchange(pid_, 0), &estado, 0);
  if (WIFSIGNALED(estado)) return {.Senal = WTERMSIG(estado)};
  return {.Estado = WEXITSTATUS(estado)};
}

}  // namespace guion
