#include "qt/nombres.h"

#include <QWidget>
#include <set>

#include "forms/form.h"
#include "qt/textos_qt.h"

namespace qt {

QString NombreDeVista(const services::Widget& modelo) {
  return NombreDeVista(modelo, modelo.Indice());
}

QString NombreDeVista(const services::Widget& modelo, int indice) {
  return NombreDeVista(Texto(modelo.Nombre()), indice);
}

QString NombreDeVista(const QString& nombre, int indice) {
  return indice < 0 ? nombre : nombre + QLatin1Char('_') + QString::number(indice);
}

std::vector<std::string> NombresSinPareja(const services::Form& form, const QWidget& pantalla) {
  std::set<QString> modelos;
  for (const services::Widget* modelo : form.Widgets()) modelos.insert(NombreDeVista(*modelo));
  std::set<QString> vistas;
  for (const QWidget* vista : pantalla.findChildren<QWidget*>()) {
    const QString nombre = vista->objectName();
    const bool cuenta = !nombre.isEmpty() && (nombre.front().isUpper() || modelos.count(nombre));
    if (cuenta) vistas.insert(nombre);
  }
  std::vector<std::string> solas;
  for (const QString& nombre : modelos) {
    if (!vistas.count(nombre)) solas.push_back(Utf8(nombre) + ": no está en la pantalla");
  }
  for (const QString& nombre : vistas) {
    if (!modelos.count(nombre)) solas.push_back(Utf8(nombre) + ": no está en el modelo");
  }
  return solas;
}

}  // namespace qt
