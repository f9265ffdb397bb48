#include "qt/rollo.h"

#include <string>

namespace qt {
namespace {

using services::Trazo;

QDataStream& operator<<(QDataStream& datos, const std::string& texto) {
  return datos << QByteArray::fromStdString(texto);
}

QDataStream& operator>>(QDataStream& datos, std::string& texto) {
  QByteArray leido;
  datos >> leido;
  texto = leido.toStdString();
  return datos;
}

QDataStream& operator<<(QDataStream& datos, const Trazo& trazo) {
  return datos << trazo.Que << trazo.X1 << trazo.Y1 << trazo.X2 << trazo.Y2 << trazo.Texto
               << trazo.Letra.Nombre << trazo.Letra.Puntos << trazo.Letra.Negrita << trazo.Color
               << trazo.Llena << trazo.Opaco;
}

QDataStream& operator>>(QDataStream& datos, Trazo& trazo) {
  return datos >> trazo.Que >> trazo.X1 >> trazo.Y1 >> trazo.X2 >> trazo.Y2 >> trazo.Texto >>
         trazo.Letra.Nombre >> trazo.Letra.Puntos >> trazo.Letra.Negrita >> trazo.Color >>
         trazo.Llena >> trazo.Opaco;
}

}  // namespace

bool Rollo::Abrir() {
  if (!fichero_.open()) return false;
  datos_.setDevice(&fichero_);
  return true;
}

bool Rollo::Guardar(const services::LaminaInforme& hoja) {
  datos_ << static_cast<quint32>(hoja.Trazos.size());
  for (const Trazo& trazo : hoja.Trazos) datos_ << trazo;
  return datos_.status() == QDataStream::Ok && fichero_.error() == QFileDevice::NoError;
}

bool Rollo::Rebobinar() {
  return fichero_.flush() && fichero_.seek(0);
}

bool Rollo::Sacar(services::LaminaInforme& hoja) {
  quint32 cuantos = 0;
  datos_ >> cuantos;
  hoja.Trazos.clear();
  for (; cuantos > 0 && datos_.status() == QDataStream::Ok; --cuantos) {
    datos_ >> hoja.Trazos.emplace_back();
  }
  return datos_.status() == QDataStream::Ok;
}

}  // namespace qt
