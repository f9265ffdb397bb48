#include "anfitrion/datos.h"

#include <QDateTime>
#include <QStandardPaths>
#include <set>

#include "anfitrion/datos_en_servidor.h"
#include "anfitrion/fechas.h"
#include "esquema/esquema_sqlite.h"
#include "muestra/muestra.h"
#include "salvaguarda/fallo_de_fichero.h"
#include "salvaguarda/fichero_entero.h"
#include "valores/error.h"
#include "valores/fecha.h"

namespace anfitrion {
namespace {

namespace fs = std::filesystem;

/// Makes a file whole or not at all: it gets its name once it is filled.
template <class Preparar>
void CrearFichero(const fs::path& fichero, const Preparar& preparar) {
  salvaguarda::FicheroEntero entero(fichero);
  {
    const auto conexion = sqlite::AbrirConexion(entero.EnCurso().string(),
                                                {.Crear = true, .CualquierSentencia = true});
    preparar(*conexion);
    conexion->TerminarUnidad();
    conexion->Ejecutar("PRAGMA wal_checkpoint(TRUNCATE)");
  }
  entero.Terminar();
}

std::shared_ptr<salvaguarda::Almacen> AbrirEnFichero(const fs::path& fichero, bool propio) {
  if (propio && !fs::exists(fichero)) {
    CrearFichero(fichero, [](sqlite::Conexion& conexion) {
      esquema::CrearAlmacenadas(conexion);
      muestra::Llenar(conexion, {Ahora().Dias, 0});
    });
  }
  return std::make_shared<salvaguarda::AlmacenEnFichero>(sqlite::AbrirConexion(fichero.string()),
                                                         fichero.string());
}

/// Of a folder, whatever it is the name of.
std::string ComoNombre(std::string nombre) {
  for (char& c : nombre) {
    if (c == '/' || c == ':') c = '-';
  }
  return nombre;
}

constexpr const char* kTextos =
    "DROP TABLE IF EXISTS SorvexTextos;"
    "CREATE TABLE SorvexTextos (Pagina VARCHAR(30), Pantalla VARCHAR(30));"
    "INSERT INTO SorvexTextos VALUES ('Página', 'Pantalla')";

/// The working file belongs to one running program, also while its tables are made. They come last:
/// a file that has them is whole.
services::Ref<sqlite::Conexion> AbrirDeTrabajo(const fs::path& fichero) {
  auto conexion =
      sqlite::AbrirConexion(fichero.string(), {.Durabilidad = sqlite::Sincronizacion::Normal,
                                               .Crear = true,
                                               .Exclusiva = true,
                                               .Propias = {kLosTextos}});
  if (!conexion->TieneTabla("TempProvFacturas")) {
    conexion->Ejecutar(kTextos);
    esquema::CrearDeTrabajo(*conexion);
  }
  return conexion;
}

/// A connection text has names and values; a file is named by its path alone.
bool EsDeServidor(const std::string& texto) {
  std::error_code noEsNombre;
  return texto.find('=') != std::string::npos && !fs::exists(texto, noEsNombre);
}

/// Beside the file, with the date and the time, and a number where two are kept in a second.
fs::path NombreLibre(const fs::path& fichero, const std::string& clase = "") {
  const std::string ahora =
      clase + QDateTime::currentDateTime().toString("-yyyy-MM-dd-HHmmss").toStdString();
  const auto con = [&](const std::string& cual) {
    fs::path nombre = fichero;
    return nombre.replace_filename(fichero.stem().string() + ahora + cual +
                                   fichero.extension().string());
  };
  return salvaguarda::EnElDisco("usar " + fichero.parent_path().string(), [&] {
    fs::path libre = con("");
    for (int i = 2; fs::exists(libre); ++i) libre = con("-" + std::to_string(i));
    return libre;
  });
}

// The component keeps its connection to the end of the program, so the file is copied by the
// engine, which leaves nothing behind in a journal.
fs::path ApartarEn(const Datos& datos, fs::path aparte) {
  datos.DeTrabajo->TerminarUnidad();
  try {
    datos.DeTrabajo->CopiarEn(aparte.string());
  } catch (const services::ErrorEjecucion&) {
    std::error_code ignorado;
    fs::remove(aparte, ignorado);
    throw;
  }
  return aparte;
}

constexpr const char* kDejada = "-dejada";

/// Those of the kind of the one just made that are too many. That one stays, and `conservada`.
void QuitarViejas(const fs::path& nueva, const fs::path& conservada) {
  constexpr std::size_t kQuedan = 10;
  const std::string nombre = nueva.filename().string();
  const std::string principio = nombre.substr(0, nombre.find(kDejada)) + kDejada;
  std::set<fs::path> suyas;
  std::error_code ignorado;
  for (const auto& entrada : fs::directory_iterator(nueva.parent_path(), ignorado)) {
    const std::string una = entrada.path().filename().string();
    const bool queda = una == nombre || una == conservada.filename().string();
    // Not what the engine leaves beside one, either.
    const bool copia = entrada.path().extension() == nueva.extension();
    if (una.starts_with(principio) && copia && !queda) suyas.insert(entrada.path());
  }
  for (; suyas.size() >= kQuedan; suyas.erase(suyas.begin())) fs::remove(*suyas.begin(), ignorado);
}

}  // namespace

fs::path CarpetaDeDatos(const Opciones& opciones) {
  if (!opciones.Carpeta.isEmpty()) return opciones.Carpeta.toStdString();
  const QString general = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
  return fs::path(general.toStdString()) / "tesvara";
}

fs::path ApartarDeTrabajo(const Datos& datos) {
  return ApartarEn(datos, NombreLibre(datos.NombreDeTrabajo));
}

fs::path ApartarDejada(const Datos& datos, const fs::path& conservada) {
  fs::path aparte = ApartarEn(datos, NombreLibre(datos.NombreDeTrabajo, kDejada));
  QuitarViejas(aparte, conservada);
  return aparte;
}

Datos AbrirDatos(const Opciones& opciones, const AlAbrir& alAbrir) {
  const fs::path carpeta = CarpetaDeDatos(opciones);
  return salvaguarda::EnElDisco("usar la carpeta de datos " + carpeta.string(), [&]() -> Datos {
    fs::create_directories(carpeta);
    const fs::path trabajo = carpeta / "trabajo.sqlite";
    // First, so that of two programs that start at the same time only one goes on from here.
    auto deTrabajo = AbrirDeTrabajo(trabajo);
    const std::string dados = opciones.Datos.toStdString();
    if (EsDeServidor(dados)) {
      auto almacenados = AbrirEnServidor(dados, carpeta / "espejo.sqlite", alAbrir);
      const fs::path copias = carpeta / "copias" / ComoNombre(almacenados->Nombre());
      return {std::move(almacenados), std::move(deTrabajo), trabajo.string(), copias};
    }
    // However it was written: a working copy says which stored file it belongs to.
    const bool propio = dados.empty();
    const fs::path fichero =
        fs::weakly_canonical(propio ? carpeta / "empresa.sqlite" : fs::path(dados));
    return {AbrirEnFichero(fichero, propio), std::move(deTrabajo), trabajo.string(),
            fichero.parent_path() / "copias" / fichero.filename()};
  });
}

}  // namespace anfitrion
