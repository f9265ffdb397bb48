#include <charconv>
#include <chrono>
#include <cmath>
#include <csignal>
#include <filesystem>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <thread>

#include "esquema/esquema_sqlite.h"
#include "guion/carpeta_temporal.h"
#include "guion/ejecucion.h"
#include "largo/proceso_aparte.h"
#include "largo/puesto.h"
#include "largo/tablas.h"
#include "salvaguarda/relacion.h"
#include "salvaguarda/rescate.h"

// A program at work, killed at moments spread over the time of a "Grabar", with the suite's guard
// in place: what it leaves behind is whole, and nothing of the work is lost nor offered twice.

namespace {

namespace fs = std::filesystem;
using largo::ProcesoAparte;
using largo::Puesto;
using Reloj = std::chrono::steady_clock;

struct Opciones {
  int Muertes = 2000;
  int Facturas = 3000;
};

/// Invoices of one receipt each, due in March 2005.
std::string Empresa(int facturas) {
  const std::string filas =
      "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i "
      "< " +
      std::to_string(facturas) + ") INSERT INTO ";
  return "BEGIN;INSERT INTO ProvConceptos VALUES('12','Papelería Núñez');" + filas +
         "ProvFacturas SELECT '12','F'||i,'2005','20050301',116,'1',1,0,0,0,0,0,'x','y' FROM n;" +
         filas + "ProvBasesIva SELECT '12','F'||i,'2005','1',100,16,0,'x','y' FROM n;" + filas +
         "ProvVencimientos SELECT '12','F'||i,'2005','200503'||printf('%02d',1+i%28),116,NULL,"
         "'','x','y' FROM n;COMMIT;PRAGMA wal_checkpoint(TRUNCATE)";
}

/// One invoice entered, another one changed, two receipts marked as paid.
constexpr const char* kTrabajo = R"(
reloj 2005-03-15 10:00:00
cargar
pulsar BotonNuevo
teclear TxtConcepto "12"
teclear TxtFFra "31/03/2005"
teclear TxtNFra "N1"
teclear TxtIFra "223"
foco TxtNFra
pulsar BtnAceptar
celda MSFPagos 2 1
pulsar BotonModificar
pulsar Chk16
pulsar Chk0
pulsar BtnAceptar
celda MSFPagos 1 5
celda MSFPagos 7 5
)";

int Jugar(Puesto& puesto, const std::string& texto) {
  std::ostringstream salida;
  const int estado = guion::Ejecucion(puesto.Mundo(), salida, salida)
                         .Correr(guion::Seguidas(guion::Analizar(texto)));
  if (!salida.str().empty()) throw std::runtime_error(salida.str());
  return estado;
}

/// What the program does that is going to be killed.
int Trabajar(const fs::path& carpeta, const ProcesoAparte::Decir& decir) {
  Puesto puesto(carpeta);
  Jugar(puesto, kTrabajo);
  decir("graba");
  Jugar(puesto, "pulsar BotonAceptar\n");
  decir("grabado");
  return 0;
}

services::Ref<sqlite::Conexion> AbrirDatos(const fs::path& carpeta) {
  return sqlite::AbrirConexion(Puesto::FicheroDatos(carpeta));
}

class Muertes {
 public:
  explicit Muertes(const Opciones& opciones) : opciones_(opciones) {}

  [[nodiscard]] int Correr();

 private:
  void Preparar();
  [[nodiscard]] Reloj::duration UnaSana(const fs::path& carpeta);
  [[nodiscard]] fs::path Copia(const char* nombre) const;
  void Morir(Reloj::duration momento);
  void Mirar(const fs::path& carpeta, bool acabo);
  void MirarCopias(const fs::path& carpeta, bool completa);
  void MirarRescate(const fs::path& carpeta, bool guardado);
  void Hallar(const std::string& que);
  void Contar() const;

  Opciones opciones_;
  guion::CarpetaTemporal carpeta_{false};
  largo::Tablas antes_;
  largo::Tablas despues_;
  int momento_ = 0;
  int hallazgos_ = 0;
  std::map<std::string, int> cuentas_;
};

void Muertes::Hallar(const std::string& que) {
  ++hallazgos_;
  std::cout << "HALLAZGO momento " << momento_ << ": " << que << std::endl;
}

fs::path Muertes::Copia(const char* nombre) const {
  const fs::path copia = carpeta_.Ruta() / nombre;
  fs::remove_all(copia);
  fs::copy(carpeta_.Ruta() / "base", copia);
  return copia;
}

void Muertes::Preparar() {
  const fs::path base = carpeta_.Ruta() / "base";
  fs::create_directory(base);
  {
    const auto datos = sqlite::AbrirConexion(Puesto::FicheroDatos(base), {.Crear = true});
    esquema::CrearAlmacenadas(*datos);
    datos->Ejecutar(Empresa(opciones_.Facturas));
    const auto local = sqlite::AbrirConexion(Puesto::FicheroLocal(base), {.Crear = true});
    esquema::CrearDeTrabajo(*local);
    local->Ejecutar("PRAGMA wal_checkpoint(TRUNCATE)");
  }
  antes_ = largo::LeerAlmacenadas(*AbrirDatos(Copia("antes")));
}

Reloj::duration Muertes::UnaSana(const fs::path& carpeta) {
  ProcesoAparte proceso([&](const auto& decir) { return Trabajar(carpeta, decir); });
  if (proceso.Linea() != "graba") throw std::runtime_error("no llega a grabar");
  const auto desde = Reloj::now();
  if (proceso.Linea() != "grabado") throw std::runtime_error("no graba");
  const auto duracion = Reloj::now() - desde;
  proceso.Esperar();
  return duracion;
}

int Muertes::Correr() {
  Preparar();
  const fs::path sana = Copia("sana");
  Reloj::duration duracion = UnaSana(sana);
  despues_ = largo::LeerAlmacenadas(*AbrirDatos(sana));
  for (int i = 0; i < 3; ++i) duracion = std::max(duracion, UnaSana(Copia("sana")));
  if (largo::Huella(antes_) == largo::Huella(despues_)) Hallar("no se graba nada");
  using Milis = std::chrono::milliseconds;
  std::cout << "Grabar dura " << std::chrono::duration_cast<Milis>(duracion).count() << " ms"
            << std::endl;
  for (momento_ = 0; momento_ < opciones_.Muertes; ++momento_) {
    // Evenly spread, however few they have been by then.
    constexpr double kAureo = 0.6180339887498949;
    const double parte = std::fmod(momento_ * kAureo, 1.0);
    Morir(std::chrono::duration_cast<Reloj::duration>(duracion * parte));
    if (momento_ % 100 == 99) Contar();
  }
  Contar();
  return hallazgos_ == 0 ? 0 : 1;
}

void Muertes::Morir(Reloj::duration momento) {
  const fs::path carpeta = Copia("intento");
  bool acabo = false;
  {
    ProcesoAparte proceso([&](const auto& decir) { return Trabajar(carpeta, decir); });
    if (const auto linea = proceso.Linea(); linea != "graba") {
      return Hallar("no llega a grabar: " + linea.value_or(""));
    }
    std::this_thread::sleep_for(momento);
    proceso.Matar(SIGKILL);
    acabo = proceso.Linea().has_value();
  }
  Mirar(carpeta, acabo);
}

void Muertes::Mirar(const fs::path& carpeta, bool acabo) {
  const bool copiando = fs::exists(carpeta / "copias");
  bool guardado = false;
  {
    const auto datos = AbrirDatos(carpeta);
    const largo::Tablas ahora = largo::LeerAlmacenadas(*datos);
    guardado = ahora == despues_;
    if (!guardado && ahora != antes_) {
      Hallar("a medias:" + largo::Diferencia(antes_, ahora));
    }
    if (momento_ % 10 == 0 && largo::Uno(*datos, "PRAGMA integrity_check") != "ok") {
      Hallar("integrity_check de lo grabado");
    }
  }
  const char* cuando = acabo ? "después" : copiando ? "dentro" : "antes";
  ++cuentas_[std::string("muertes ") + cuando];
  ++cuentas_[guardado ? "como después" : "como antes"];
  if (acabo && !guardado) Hallar("se dijo grabado y no lo está");
  MirarCopias(carpeta, guardado);
  MirarRescate(carpeta, guardado);
  if (momento_ % 20 == 0) {
    Puesto puesto(carpeta);
    Jugar(puesto, "reloj 2005-03-15 10:00:00\ncargar\ncerrar\n");
  }
}

/// What bears a copy's name is one, and whole. There is one when the stored rows were written.
void Muertes::MirarCopias(const fs::path& carpeta, bool completa) {
  if (Puesto::CopiasAMedias(carpeta) != 0) Hallar("una copia a medias con su nombre");
  std::error_code sinCarpeta;
  for (const auto& entrada : fs::directory_iterator(carpeta / "copias", sinCarpeta)) {
    if (entrada.path().extension() == ".nuevo") ++cuentas_["copias sin acabar"];
  }
  const auto guardadas = salvaguarda::Copias(carpeta / "copias").Guardadas();
  if (completa && guardadas.empty()) Hallar("se ha grabado sin copia");
  for (const auto& copia : guardadas) {
    ++cuentas_["copias enteras"];
    const auto base = sqlite::AbrirConexion(copia.Fichero);
    if (largo::LeerAlmacenadas(*base) != antes_) Hallar("la copia no es lo que había");
  }
}

void Muertes::MirarRescate(const fs::path& carpeta, bool guardado) {
  const auto local = Puesto::AbrirLocal(carpeta);
  if (momento_ % 10 == 0 && largo::Uno(*local, "PRAGMA integrity_check") != "ok") {
    Hallar("integrity_check de lo de trabajo");
  }
  const std::string datos = Puesto::FicheroDatos(carpeta);
  salvaguarda::AlmacenEnFichero almacen(sqlite::AbrirConexion(datos), datos);
  const auto rescate = salvaguarda::BuscarRescate(*local, almacen, Puesto::FicheroFoto(carpeta));
  ++cuentas_[rescate ? "rescates" : "sin rescate"];
  const std::string filas =
      rescate ? salvaguarda::Recuento(rescate->Filas) +
                    salvaguarda::Relatar(rescate->Filas, {}, salvaguarda::kALaVista).Texto
              : "";
  if (guardado && rescate) return Hallar("ofrece lo que ya se grabó: " + filas);
  if (!guardado && !rescate) return Hallar("no ofrece lo que no se grabó");
  if (!guardado && filas.find("N1") == std::string::npos) Hallar("falta lo entrado: " + filas);
}

void Muertes::Contar() const {
  for (const auto& [que, cuantas] : cuentas_) std::cout << que << " " << cuantas << "; ";
  std::cout << "hallazgos " << hallazgos_ << std::endl;
}

int Numero(const char* texto) {
  int numero = 0;
  const std::string_view todo(texto);
  const auto leido = std::from_chars(todo.data(), todo.data() + todo.size(), numero);
  if (leido.ec != std::errc() || numero < 1)
    throw std::runtime_error("no es un número: " + std::string(todo));
  return numero;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    Opciones opciones;
    for (int i = 1; i + 1 < argc; i += 2) {
      const std::string_view nombre = argv[i];
      if (nombre == "--muertes") opciones.Muertes = Numero(argv[i + 1]);
      if (nombre == "--facturas") opciones.Facturas = Numero(argv[i + 1]);
    }
    return Muertes(opciones).Correr();
  } catch (const std::exception& fallo) {
    std::cerr << fallo.what() << '\n';
    return 2;
  }
}
