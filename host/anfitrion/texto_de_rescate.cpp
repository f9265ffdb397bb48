#include "anfitrion/texto_de_rescate.h"

#include "anfitrion/fechas.h"
#include "salvaguarda/noticia.h"
#include "salvaguarda/relacion.h"

namespace anfitrion {
namespace {

using salvaguarda::Conceptos;
using salvaguarda::Rescate;

QString Suya(const Rescate& rescate) {
  const salvaguarda::CopiaAbierta& copia = rescate.Copia;
  return "La copia de trabajo de " + QString::fromStdString(copia.Usuario) + ", del " +
         FechaMostrada(copia.Rango.Desde) + " al " + FechaMostrada(copia.Rango.Hasta);
}

QString DeOtrasTablas(const Rescate& rescate) {
  return ", es de otras tablas, " + QString::fromStdString(rescate.Copia.Almacenados) +
         ", y no se puede abrir aquí";
}

QString LoQueTiene(const Rescate& rescate, const Conceptos& conceptos) {
  const auto relacion = salvaguarda::Relatar(rescate.Filas, conceptos, salvaguarda::kALaVista);
  return ", tiene filas que no están así en las tablas de la empresa (" +
         QString::fromStdString(salvaguarda::Recuento(rescate.Filas)) +
         "):" + QString::fromStdString(relacion.Texto) +
         "\n\nLos pagos que solo estaban escritos en la lista no están en ella.\n\n";
}

}  // namespace

QString TextoDeLaQueQuedo(const Rescate& rescate, const Conceptos& conceptos) {
  const QString suya =
      "Tesvara de Pagos terminó la última vez sin grabar ni cerrar. " + Suya(rescate);
  if (rescate.DeOtraEmpresa) {
    return suya + DeOtrasTablas(rescate) +
           ": puede guardarla aparte en un fichero, o seguir sin ella.";
  }
  return suya + LoQueTiene(rescate, conceptos) +
         (rescate.Copia.Completa
              ? "Puede guardarla aparte en un fichero, seguir sin ella, o abrirla como estaba y "
                "pulsar Grabar."
              : "No se llegó a cargar entera y no se puede abrir: puede guardarla aparte en un "
                "fichero, o seguir sin ella.");
}

QString TextoDeLaDeAparte(const Rescate& rescate, const Conceptos& conceptos) {
  if (rescate.DeOtraEmpresa) return Suya(rescate) + DeOtrasTablas(rescate) + ".";
  return Suya(rescate) + LoQueTiene(rescate, conceptos) +
         (rescate.Copia.Completa ? "Puede abrirla como estaba y pulsar Grabar. ¿Abrirla?"
                                 : "No se llegó a cargar entera y no se puede abrir.");
}

}  // namespace anfitrion
