#pragma once

#include <gmock/gmock.h>

#include <QWidget>
#include <filesystem>
#include <string>
#include <vector>

#include "anfitrion/custodia.h"
#include "platform/carpeta_temporal.h"

namespace pruebas {

/// A business with its keeper, whose questions the test answers.
class CustodiaTest : public testing::Test {
 protected:
  CustodiaTest() {
    custodia.Elegir = [this](const anfitrion::PreguntaConTexto& pregunta) {
      dicho.push_back(pregunta.Texto.toStdString());
      ofrecido = pregunta.Respuestas;
      return respuesta;
    };
    const auto rango = datos.Almacenados->Base().Consultar(
        "SELECT min(FechaVto), max(FechaVto) FROM ProvVencimientos");
    todo = {rango.Filas.En(0, 0).Texto(), rango.Filas.En(0, 1).Texto()};
  }
  static anfitrion::Opciones En(const std::string& carpeta) {
    anfitrion::Opciones opciones;
    opciones.Carpeta = QString::fromStdString(carpeta);
    return opciones;
  }
  void Comenzar(salvaguarda::Comienzo::Tarea tarea) {
    custodia.Guardia().AlComenzar({tarea, todo});
  }
  /// A working copy with one row that isn't stored.
  void DejarUnaCopia() {
    Comenzar(salvaguarda::Comienzo::Tarea::Carga);
    datos.DeTrabajo->Ejecutar(
        "INSERT INTO TempProvFacturas (NConcepto, Factura, Año) VALUES ('1', 'SIN-GRABAR', "
        "'2005')");
  }
  [[nodiscard]] int Apartados() const {
    int cuantos = 0;
    for (const auto& entrada : std::filesystem::directory_iterator(carpeta.Camino())) {
      if (entrada.path().filename().string().starts_with("trabajo-")) ++cuantos;
    }
    return cuantos;
  }
  int EnTrabajo() {
    return static_cast<int>(datos.DeTrabajo->Consultar("SELECT count(*) FROM TempProvFacturas")
                                .Filas.En(0, 0)
                                .Numero());
  }

  pruebas::CarpetaTemporal carpeta;
  anfitrion::Opciones opciones = En(carpeta.Camino());
  anfitrion::Datos datos = anfitrion::AbrirDatos(opciones);
  QWidget ventana;
  anfitrion::Custodia custodia{ventana, datos, opciones};
  salvaguarda::Rango todo;
  std::vector<std::string> dicho;
  QStringList ofrecido;
  int respuesta = 0;
};

}  // namespace pruebas
