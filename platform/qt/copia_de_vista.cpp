#include "qt/copia_de_vista.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVariant>
#include <typeinfo>

#include "qt/destino_qt.h"
#include "qt/imagen.h"
#include "qt/opcion_qt.h"
#include "qt/seleccion_qt.h"

namespace qt {
namespace {

template <class V>
QWidget* Otra(const QWidget& modelo, QWidget* padre) {
  return typeid(modelo) == typeid(V) ? new V(padre) : nullptr;
}

QWidget* DelMismoTipo(const QWidget& modelo, QWidget* padre) {
  using Hacer = QWidget* (*)(const QWidget&, QWidget*);
  static constexpr Hacer kTipos[] = {
      &Otra<SeleccionQt>, &Otra<DestinoQt>, &Otra<ImagenQt>,    &Otra<QLineEdit>, &Otra<QLabel>,
      &Otra<QCheckBox>,   &Otra<OpcionQt>,  &Otra<QPushButton>, &Otra<QComboBox>, &Otra<QFrame>};
  for (const Hacer hacer : kTipos) {
    if (QWidget* otra = hacer(modelo, padre)) return otra;
  }
  return nullptr;
}

/// What the designer gave it, and not what it shows: that is told by its own model.
void CopiarDiseno(const QWidget& modelo, QWidget& otra) {
  otra.setMinimumSize(modelo.minimumSize());
  otra.setMaximumSize(modelo.maximumSize());
  otra.setSizePolicy(modelo.sizePolicy());
  otra.setAutoFillBackground(modelo.autoFillBackground());
  otra.setAccessibleName(modelo.accessibleName());
  otra.setToolTip(modelo.toolTip());
  if (const auto* marco = qobject_cast<const QFrame*>(&modelo)) {
    static_cast<QFrame&>(otra).setFrameStyle(marco->frameStyle());
  }
  if (const auto* caja = qobject_cast<const QLineEdit*>(&modelo)) {
    auto& nueva = static_cast<QLineEdit&>(otra);
    nueva.setAlignment(caja->alignment());
    nueva.setFrame(caja->hasFrame());
    nueva.setReadOnly(caja->isReadOnly());
  }
  if (const auto* rotulo = qobject_cast<const QLabel*>(&modelo)) {
    static_cast<QLabel&>(otra).setAlignment(rotulo->alignment());
  }
  for (const QByteArray& propiedad : modelo.dynamicPropertyNames()) {
    if (!propiedad.startsWith("_q_")) otra.setProperty(propiedad, modelo.property(propiedad));
  }
  otra.setBackgroundRole(modelo.backgroundRole());
}

/// Whether that layout, or one in it, holds `anterior`, and so took `nueva` too.
bool Insertar(QLayout* donde, QWidget& anterior, QWidget& nueva) {
  if (!donde) return false;
  const int lugar = donde->indexOf(&anterior);
  if (auto* fila = qobject_cast<QBoxLayout*>(donde); fila && lugar >= 0) {
    fila->insertWidget(lugar + 1, &nueva);
    return true;
  }
  if (auto* rejilla = qobject_cast<QGridLayout*>(donde); rejilla && lugar >= 0) {
    int fila = 0;
    int columna = 0;
    int filas = 0;
    int columnas = 0;
    rejilla->getItemPosition(lugar, &fila, &columna, &filas, &columnas);
    rejilla->addWidget(&nueva, fila + filas, columna, filas, columnas);
    return true;
  }
  for (int i = 0; i < donde->count(); ++i) {
    if (Insertar(donde->itemAt(i)->layout(), anterior, nueva)) return true;
  }
  return false;
}

}  // namespace

QWidget* CopiarVista(const QWidget& modelo, QWidget& anterior, const QString& nombre) {
  QWidget* nueva = DelMismoTipo(modelo, anterior.parentWidget());
  if (!nueva) return nullptr;
  nueva->setObjectName(nombre);
  CopiarDiseno(modelo, *nueva);
  if (!Insertar(anterior.parentWidget()->layout(), anterior, *nueva)) {
    nueva->setGeometry(anterior.geometry().translated(0, anterior.height()));
  }
  return nueva;
}

}  // namespace qt
