#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <iostream>

#include "abrir_pagos.h"
#include "esquema/esquema_sqlite.h"
#include "sqlite/conexion_sqlite.h"

// The least that a host is: a window, two empty databases, and the component in it.
// Usage: ejemplo LIBRARY FOLDER [--salir], which ends as soon as the screen is open.

namespace {

class Marco final : public services::ObjetoContado<services::IForm> {
 public:
  explicit Marco(QWidget& ventana) : ventana_(ventana) {}

  services::Rectangulo Geometria() noexcept override {
    return {0, 0, ventana_.width() * services::kTwips, ventana_.height() * services::kTwips};
  }
  std::int32_t WindowState() noexcept override { return ventana_.isMinimized() ? 1 : 0; }
  void PonerWindowState(std::int32_t estado) noexcept override {
    if (estado == 0) ventana_.showNormal();
  }
  void Refresh() noexcept override { ventana_.update(); }
  void* VentanaNativa() noexcept override { return &ventana_; }

 private:
  QWidget& ventana_;
};

Ref<services::Conexion> Abrir(const std::filesystem::path& fichero,
                              void (*crearTablas)(sqlite::Conexion&)) {
  const bool nuevo = !std::filesystem::exists(fichero);
  auto conexion = sqlite::AbrirConexion(fichero.string(), {.Crear = nuevo});
  if (nuevo) crearTablas(*conexion);
  return conexion;
}

int Trabajar(QWidget& ventana, const std::filesystem::path& biblioteca,
             const std::filesystem::path& carpeta, bool salir) {
  const auto contexto = services::Crear<Contexto>();
  contexto->Empresa = Abrir(carpeta / "empresa.sqlite", &esquema::CrearAlmacenadas);
  contexto->Trabajo = Abrir(carpeta / "trabajo.sqlite", &esquema::CrearDeTrabajo);
  contexto->Ventana = services::Crear<Marco>(ventana);
  ventana.resize(1024, 700);
  ventana.show();
  const auto pagos = AbrirPagos(biblioteca, contexto);
  std::cout << "Abierto" << std::endl;
  if (salir) QTimer::singleShot(0, qApp, &QApplication::quit);
  const int estado = QApplication::exec();
  pagos->Cerrar();
  return estado;
}

}  // namespace

int main(int argc, char** argv) {
  QApplication aplicacion(argc, argv);
  const QStringList argumentos = QApplication::arguments();
  if (argumentos.size() < 3) return EXIT_FAILURE;
  QWidget ventana;
  try {
    return Trabajar(ventana, argumentos[1].toStdString(), argumentos[2].toStdString(),
                    argumentos.contains("--salir"));
  } catch (const services::ErrorEjecucion& fallo) {
    std::cerr << fallo.Descripcion() << std::endl;
    return EXIT_FAILURE;
  }
}
