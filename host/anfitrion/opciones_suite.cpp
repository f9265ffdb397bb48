#include "anfitrion/opciones_suite.h"

#include "valores/error.h"

namespace anfitrion {
namespace {

[[noreturn]] void Rechazar(const QString& motivo) {
  throw services::ErrorEjecucion(services::error::ArgumentoNoValido, motivo.toStdString());
}

/// The arguments one by one.
class Lectura {
 public:
  explicit Lectura(const QStringList& argumentos) : argumentos_(argumentos) {}

  [[nodiscard]] bool Hay() const { return actual_ < argumentos_.size(); }
  QString Opcion() { return opcion_ = argumentos_.at(actual_++); }
  QString Valor() {
    if (!Hay()) Rechazar("Falta el valor de " + opcion_);
    return argumentos_.at(actual_++);
  }
  int Medida() {
    bool bien = false;
    const int medida = Valor().toInt(&bien);
    if (!bien || medida <= 0) Rechazar(opcion_ + " lleva dos números: ancho y alto en twips");
    return medida;
  }

 private:
  const QStringList& argumentos_;
  qsizetype actual_ = 0;
  QString opcion_;
};

}  // namespace

Opciones LeerOpciones(const QStringList& argumentos) {
  Opciones opciones;
  Lectura lectura(argumentos);
  while (lectura.Hay()) {
    const QString opcion = lectura.Opcion();
    if (opcion == "--datos") {
      opciones.Datos = lectura.Valor();
    } else if (opcion == "--usuario") {
      opciones.Usuario = lectura.Valor();
    } else if (opcion == "--referencia") {
      const int ancho = lectura.Medida();
      opciones.Referencia = {ancho, lectura.Medida()};
    } else if (opcion == "--captura") {
      opciones.Captura = lectura.Valor();
    } else if (opcion == "--carpeta") {
      opciones.Carpeta = lectura.Valor();
    } else if (opcion == "--sin-avisar-de-otros") {
      opciones.AvisarDeOtros = false;
    } else if (opcion == "--muestra") {
      opciones.Muestra = true;
    } else if (opcion == "--tablas") {
      opciones.Tablas = lectura.Valor();
    } else if (opcion == "--help" || opcion == "--ayuda") {
      opciones.Ayuda = true;
    } else {
      Rechazar("No se entiende " + opcion + "\n\n" + TextoDeAyuda());
    }
  }
  return opciones;
}

QString TextoDeAyuda() {
  return "Uso: tesvara [opciones]\n"
         "  --datos TEXTO        dónde están las tablas de la empresa: un fichero SQLite, o el "
         "texto de\n"
         "                       conexión ODBC de un servidor, sin la contraseña\n"
         "  --muestra            crea allí esas tablas, con un negocio de muestra, si no hay "
         "ninguna\n"
         "  --tablas MOTOR       escribe las sentencias que crean esas tablas en postgresql o en\n"
         "                       mariadb, y termina\n"
         "  --usuario NOMBRE     quién firma los cambios (ANA)\n"
         "  --referencia AN AL   pantalla para la que se disponen los formularios, en twips\n"
         "  --carpeta CARPETA    carpeta de los ficheros de la suite\n"
         "  --sin-avisar-de-otros  graba sin preguntar aunque otro usuario haya cambiado lo mismo\n"
         "  --captura CARPETA    deja una imagen de la pantalla, escribe la lista y termina";
}

}  // namespace anfitrion
