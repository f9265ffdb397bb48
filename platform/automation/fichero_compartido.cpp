#include "automation/fichero_compartido.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <thread>
#include <utility>

#include "valores/error.h"

namespace automation {
namespace {

constexpr auto kPausa = std::chrono::milliseconds(5);
constexpr int kEnlaces = 40;
constexpr mode_t kDeOtros = S_IWGRP | S_IWOTH;

class Descriptor {
 public:
  Descriptor(const std::filesystem::path& ruta, int modo, mode_t permisos = 0)
      : numero_(open(ruta.c_str(), modo | O_CLOEXEC | O_NONBLOCK, permisos)) {}
  Descriptor(const Descriptor&) = delete;
  ~Descriptor() { Cerrar(); }

  [[nodiscard]] bool Abierto() const { return numero_ >= 0; }
  [[nodiscard]] int Numero() const { return numero_; }
  bool Cerrar() { return numero_ < 0 || close(std::exchange(numero_, -1)) == 0; }

 private:
  int numero_;
};

/// The system's own texts come in the language of the process, which nobody has set.
std::string Motivo(int numero) {
  switch (numero) {
    case EACCES:
    case EPERM:
    case EROFS:
      return "no hay permiso";
    case ENOSPC:
    case EDQUOT:
      return "no queda sitio en el disco";
    case ELOOP:
      return "sus enlaces no llevan a ningún fichero";
    case EWOULDBLOCK:
      return "otro programa la tiene ocupada";
    case ENOTDIR:
    case EEXIST:
      return "en su ruta hay un fichero donde tenía que haber una carpeta";
    default:
      return "error " + std::to_string(numero) + " del sistema";
  }
}

/// False where the system fails, which `errno` then tells.
bool LeerTodo(int fichero, std::string& texto) {
  std::array<char, 4096> trozo;
  for (;;) {
    const ssize_t leidos = read(fichero, trozo.data(), trozo.size());
    if (leidos == 0) return true;
    if (leidos > 0) {
      texto.append(trozo.data(), static_cast<std::size_t>(leidos));
    } else if (errno != EINTR) {
      return false;
    }
  }
}

bool EscribirTodo(int fichero, std::string_view texto) {
  while (!texto.empty()) {
    const ssize_t escritos = write(fichero, texto.data(), texto.size());
    if (escritos >= 0) {
      texto.remove_prefix(static_cast<std::size_t>(escritos));
    } else if (errno != EINTR) {
      return false;
    }
  }
  return fsync(fichero) == 0;
}

/// Where the symbolic links lead, whether there is a file or not.
std::filesystem::path Destino(std::filesystem::path ruta) {
  std::error_code fallo;
  for (int i = 0; i < kEnlaces && std::filesystem::is_symlink(ruta, fallo); ++i) {
    ruta = ruta.parent_path() / std::filesystem::read_symlink(ruta, fallo);
  }
  return ruta;
}

/// 0, or the number of the failure: `EWOULDBLOCK` where another holds it all the time.
int Bloquear(int cerrojo, std::chrono::milliseconds espera) {
  const auto limite = std::chrono::steady_clock::now() + espera;
  while (flock(cerrojo, LOCK_EX | LOCK_NB) != 0) {
    if (errno != EWOULDBLOCK && errno != EINTR) return errno;
    if (std::chrono::steady_clock::now() > limite) return EWOULDBLOCK;
    std::this_thread::sleep_for(kPausa);
  }
  return 0;
}

}  // namespace

FicheroCompartido::FicheroCompartido(std::filesystem::path ruta, std::string que,
                                     std::chrono::milliseconds espera)
    : ruta_(std::move(ruta)), que_(std::move(que)), espera_(espera) {}

void FicheroCompartido::Fallar(const char* accion, const std::string& motivo) const {
  throw services::ErrorEjecucion(
      services::error::FalloDeConexion,
      std::string("No se puede ") + accion + " " + que_ + " " + ruta_.string() + ": " + motivo);
}

std::string FicheroCompartido::Leer() const {
  const Descriptor fichero(ruta_, O_RDONLY);
  if (!fichero.Abierto()) {
    if (errno == ENOENT) return "";
    Fallar("leer", Motivo(errno));
  }
  struct stat datos {};
  if (fstat(fichero.Numero(), &datos) != 0) Fallar("leer", Motivo(errno));
  if (!S_ISREG(datos.st_mode)) Fallar("leer", "no es un fichero corriente");
  std::string texto;
  if (!LeerTodo(fichero.Numero(), texto)) Fallar("leer", Motivo(errno));
  return texto;
}

void FicheroCompartido::Cambiar(
    const std::function<std::string(const std::string&)>& cambio) const {
  const std::filesystem::path destino = Destino(ruta_);
  std::error_code fallo;
  std::filesystem::create_directories(destino.parent_path(), fallo);
  if (fallo) Fallar("escribir", Motivo(fallo.value()));
  // Beside the file and left there: the file itself is another one after each change.
  const Descriptor cerrojo(destino.string() + ".bloqueo", O_RDWR | O_CREAT | O_NOFOLLOW, 0644);
  if (!cerrojo.Abierto()) Fallar("escribir", Motivo(errno));
  const int motivo = Bloquear(cerrojo.Numero(), espera_);
  if (motivo != 0) Fallar("escribir", Motivo(motivo));
  Sustituir(destino, cambio(Leer()));
}

void FicheroCompartido::Sustituir(const std::filesystem::path& destino,
                                  const std::string& texto) const {
  const std::filesystem::path nuevo = destino.string() + ".nuevo";
  const auto fallar = [&] {
    const int motivo = errno;
    unlink(nuevo.c_str());
    Fallar("escribir", Motivo(motivo));
  };
  // What a program that was killed in the middle may have left.
  unlink(nuevo.c_str());
  Descriptor fichero(nuevo, O_WRONLY | O_CREAT | O_EXCL, 0644);
  if (!fichero.Abierto()) fallar();
  struct stat viejo {};
  const bool estaba = stat(destino.c_str(), &viejo) == 0;
  if (estaba && fchmod(fichero.Numero(), viejo.st_mode & 07777) != 0) fallar();
  if (!EscribirTodo(fichero.Numero(), texto) || !fichero.Cerrar()) fallar();
  if (rename(nuevo.c_str(), destino.c_str()) != 0) fallar();
}

bool FicheroCompartido::LoEscribenOtros() const {
  struct stat datos {};
  if (stat(ruta_.c_str(), &datos) != 0) return false;
  return (datos.st_mode & kDeOtros) != 0 || (datos.st_uid != geteuid() && datos.st_uid != 0);
}

}  // namespace automation
