#include "anfitrion/custodia.h"

#include <QWidget>

#include "anfitrion/dialogo_copias.h"
#include "anfitrion/fechas.h"
#include "salvaguarda/conexion_guardada.h"
#include "valores/error.h"

namespace anfitrion {
namespace {

namespace fs = std::filesystem;

}  // namespace

Custodia::Custodia(QWidget& ventana, const Datos& datos, const Opciones& opciones)
    : ventana_(ventana), datos_(datos) {
  const fs::path almacenados = datos.NombreAlmacenados;
  const fs::path deTrabajo = datos.NombreDeTrabajo;
  guardia_ = std::make_shared<salvaguarda::Guardia>(
      salvaguarda::Guardia::Bases{datos.Almacenados, datos.DeTrabajo, datos.NombreAlmacenados},
      salvaguarda::Guardia::Lugares{almacenados.parent_path() / "copias",
                                    deTrabajo.parent_path() / "registro.txt"},
      opciones.Usuario.toStdString());
  guardia_->Ahora = &Ahora;
  guardia_->AvisarDeOtros = opciones.AvisarDeOtros;
  guardia_->Preguntar = [this](const std::string& pregunta) {
    return Elegir({QString::fromStdString(pregunta), {"Sí", "No"}, 1, 1}) == 0;
  };
  guardia_->AlHaberQueContar = [this] { ContarDespues(); };
  almacenados_ = services::Crear<salvaguarda::ConexionGuardada>(datos.Almacenados, guardia_);
  Elegir = [this](const PreguntaConTexto& pregunta) { return Preguntar(ventana_, pregunta); };
}

void Custodia::Decir(const QString& texto) {
  Elegir({texto, {"Aceptar"}});
}

/// Once the event that it came up in is over.
void Custodia::ContarDespues() {
  if (porContar_) return;
  porContar_ = true;
  QMetaObject::invokeMethod(
      this, [this] { Contar(); }, Qt::QueuedConnection);
}

void Custodia::Contar() {
  porContar_ = false;
  const salvaguarda::Relato relato = guardia_->Contar();
  if (relato.Parrafos.empty()) return;
  QStringList parrafos;
  for (const std::string& parrafo : relato.Parrafos) parrafos << QString::fromStdString(parrafo);
  const QString texto = parrafos.join("\n\n");
  if (!relato.BorrariaFilas) return Decir(texto);
  if (Elegir({texto, {"Seguir", "Cerrar sin grabar"}}) == 1) CerrarSinGrabar();
}

void Custodia::CopiarElDia() {
  try {
    guardia_->LasCopias().GuardarEntera(datos_.NombreAlmacenados, Ahora());
  } catch (const std::exception& fallo) {
    guardia_->Anotar(std::string("No se ha podido copiar el fichero entero: ") + fallo.what());
    Decir("No se ha podido guardar la copia de hoy de las tablas de la empresa: " +
          QString::fromUtf8(fallo.what()));
  }
}

QString Custodia::TextoDe(const salvaguarda::Rescate& rescate) const {
  const salvaguarda::CopiaAbierta& copia = rescate.Copia;
  return "Tesvara de Pagos terminó la última vez sin grabar ni cerrar. La copia de trabajo de " +
         QString::fromStdString(copia.Usuario) + ", del " + FechaMostrada(copia.Rango.Desde) +
         " al " + FechaMostrada(copia.Rango.Hasta) +
         ", tiene filas que no están así en las tablas de la empresa (" +
         QString::fromStdString(salvaguarda::Recuento(rescate.Filas)) +
         "):" + QString::fromStdString(salvaguarda::Relacion(rescate.Filas, 12)) +
         "\n\nLos pagos que solo estaban escritos en la lista no están en ella."
         "\n\nPuede abrirla como estaba, guardarla aparte en un fichero, o seguir sin ella.";
}

void Custodia::OfrecerRescate() {
  try {
    const auto rescate = salvaguarda::BuscarRescate(*datos_.DeTrabajo, datos_.NombreAlmacenados);
    if (!rescate) return;
    guardia_->Anotar("Quedó una copia de trabajo sin grabar:" +
                     salvaguarda::Relacion(rescate->Filas, rescate->Filas.size()));
    const int respuesta = Elegir(
        {TextoDe(*rescate), {"Abrirla como estaba", "Guardarla aparte", "Seguir sin ella"}, 0, 1});
    if (respuesta == 2) return guardia_->Anotar("Se sigue sin la copia de trabajo que quedó");
    // Also when it is opened: what is closed without saving is then still there.
    const fs::path aparte = ApartarDeTrabajo(datos_);
    guardia_->Anotar("La copia de trabajo que quedó se guarda en " + aparte.string());
    if (respuesta == 1) {
      return Decir("La copia de trabajo queda guardada en " + QString::fromStdString(aparte));
    }
    guardia_->AlRetomar(rescate->Copia.Rango);
    porRetomar_ = rescate->Copia.Rango;
  } catch (const services::ErrorEjecucion& fallo) {
    Decir("No se ha podido mirar si quedó algo sin grabar: " +
          QString::fromStdString(fallo.Descripcion()));
  }
}

void Custodia::Recuperar(const std::function<bool()>& cerrar) {
  DialogoCopias dialogo(ventana_, *guardia_);
  if (dialogo.exec() != QDialog::Accepted || !cerrar()) return;
  try {
    salvaguarda::Reponer(*datos_.Almacenados, guardia_->LaFoto().Conexion(), dialogo.Elegida(),
                         guardia_->LasCopias(), Ahora(), guardia_->Usuario());
    guardia_->Anotar("Recuperada la copia " + dialogo.Elegida().Fichero.string());
  } catch (const std::exception& fallo) {
    Decir("No se ha podido recuperar la copia, y todo queda como estaba: " +
          QString::fromUtf8(fallo.what()));
  }
}

}  // namespace anfitrion
