#include "qt/accesibles.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QFrame>

#include "qt/imagen.h"
#include "qt/lienzo.h"
#include "qt/panel_qt.h"
#include "qt/pulsable_qt.h"

namespace qt {
namespace {

/// A list that opens, with its items in it. Its own name alone would leave out the value, which
/// some desktops tell by nothing else.
class ListaAccesible final : public QAccessibleWidget {
 public:
  explicit ListaAccesible(QComboBox* lista) : QAccessibleWidget(lista, QAccessible::ComboBox) {}

  QString text(QAccessible::Text que) const override {
    QString nombre = QAccessibleWidget::text(que);
    QString valor = Lista().currentText();
    if (que == QAccessible::Value) return valor;
    if (que != QAccessible::Name || valor.isEmpty()) return nombre;
    return nombre.isEmpty() ? valor : nombre + QLatin1String(": ") + valor;
  }
  QAccessible::State state() const override {
    QAccessible::State estado = QAccessibleWidget::state();
    estado.expandable = true;
    estado.expanded = Lista().view()->isVisible();
    return estado;
  }
  int childCount() const override { return 1; }
  QAccessibleInterface* child(int cual) const override {
    return cual == 0 ? QAccessible::queryAccessibleInterface(Lista().view()) : nullptr;
  }
  int indexOfChild(const QAccessibleInterface* hijo) const override {
    return hijo && hijo->object() == Lista().view() ? 0 : -1;
  }
  QStringList actionNames() const override { return {showMenuAction(), pressAction()}; }
  void doAction(const QString& accion) override {
    if (!Lista().isEnabled() || !actionNames().contains(accion)) return;
    Lista().view()->isVisible() ? Lista().hidePopup() : Lista().showPopup();
  }

 private:
  [[nodiscard]] QComboBox& Lista() const { return *static_cast<QComboBox*>(widget()); }
};

/// The box that a text stands for, by what it marks.
class PulsableAccesible final : public QAccessibleWidget {
 public:
  explicit PulsableAccesible(PulsableQt* caja) : QAccessibleWidget(caja, caja->Papel()) {}

  QString text(QAccessible::Text que) const override {
    return que == QAccessible::Name ? Caja().Nombre() : QAccessibleWidget::text(que);
  }
  QAccessible::State state() const override {
    QAccessible::State estado = QAccessibleWidget::state();
    estado.checkable = true;
    estado.checked = Caja().Marcada();
    return estado;
  }
  QStringList actionNames() const override { return {toggleAction(), setFocusAction()}; }
  void doAction(const QString& accion) override {
    if (accion == toggleAction() && Caja().isEnabled()) Caja().Pulsar();
    if (accion == setFocusAction()) Caja().Enfocar();
  }

 private:
  [[nodiscard]] PulsableQt& Caja() const { return *static_cast<PulsableQt*>(widget()); }
};

/// A drawing with a name is a button.
class ImagenAccesible final : public QAccessibleWidget {
 public:
  explicit ImagenAccesible(ImagenQt* imagen) : QAccessibleWidget(imagen, QAccessible::Button) {}

  QStringList actionNames() const override { return {pressAction()}; }
  void doAction(const QString& accion) override {
    auto& imagen = *static_cast<ImagenQt*>(widget());
    if (accion == pressAction() && imagen.isEnabled() && imagen.AlPulsar) imagen.AlPulsar();
  }
};

/// A screen in a window of its own.
class DialogoAccesible final : public QAccessibleWidget {
 public:
  explicit DialogoAccesible(QWidget* ventana) : QAccessibleWidget(ventana, QAccessible::Dialog) {}

  QString text(QAccessible::Text que) const override {
    return que == QAccessible::Name ? widget()->windowTitle() : QAccessibleWidget::text(que);
  }
};

class LineaAccesible final : public QAccessibleWidget {
 public:
  explicit LineaAccesible(QWidget* linea) : QAccessibleWidget(linea, QAccessible::Separator) {}

  QString text(QAccessible::Text) const override { return {}; }
  QVector<QPair<QAccessibleInterface*, QAccessible::Relation>> relations(
      QAccessible::Relation) const override {
    return {};
  }
};

bool EsDeUnaPantalla(const QWidget& vista) {
  for (const QWidget* rama = &vista; rama; rama = rama->parentWidget()) {
    if (dynamic_cast<const Lienzo*>(rama)) return true;
  }
  return false;
}

bool EsLinea(const QWidget& vista) {
  const auto* marco = dynamic_cast<const QFrame*>(&vista);
  return marco && (marco->frameShape() == QFrame::HLine || marco->frameShape() == QFrame::VLine);
}

/// Null leaves it to the toolkit.
QAccessibleInterface* Accesible(const QString&, QObject* objeto) {
  auto* vista = qobject_cast<QWidget*>(objeto);
  if (!vista || !EsDeUnaPantalla(*vista)) return nullptr;
  if (auto* lista = qobject_cast<QComboBox*>(vista)) return new ListaAccesible(lista);
  if (auto* caja = dynamic_cast<PulsableQt*>(vista)) return new PulsableAccesible(caja);
  auto* imagen = dynamic_cast<ImagenQt*>(vista);
  if (imagen && !imagen->accessibleName().isEmpty()) return new ImagenAccesible(imagen);
  if (dynamic_cast<Lienzo*>(vista) && vista->isWindow()) return new DialogoAccesible(vista);
  if (dynamic_cast<PanelQt*>(vista)) return new QAccessibleWidget(vista, QAccessible::Grouping);
  return EsLinea(*vista) ? new LineaAccesible(vista) : nullptr;
}

/// The library of this function may go before the program.
class Instalacion {
 public:
  Instalacion() { QAccessible::installFactory(&Accesible); }
  ~Instalacion() { QAccessible::removeFactory(&Accesible); }
  Instalacion(const Instalacion&) = delete;
};

}  // namespace

void HacerAccesibles() {
  static const Instalacion unica;
}

}  // namespace qt
