#include "qt/colocacion.h"

#include <QApplication>
#include <QScreen>
#include <QStyle>
#include <QTableView>
#include <QVariant>
#include <algorithm>
#include <optional>

#include "qt/lienzo.h"
#include "qt/rejilla_qt.h"

namespace qt {
namespace {

constexpr int kAire = 6;  // around what is left on sight

bool Tapa(const QWidget& panel, const QWidget& rama) {
  return &panel != &rama && panel.isVisible() && panel.property("centrado").toBool() &&
         panel.geometry().intersects(rama.geometry());
}

QRect EnElEscritorio(const QWidget& vista, const QRect& parte) {
  return {vista.mapToGlobal(parte.topLeft()), parte.size()};
}

/// Of a grid, its current row.
QRect LoQueSeMira(const QWidget& vista) {
  const auto* rejilla = dynamic_cast<const RejillaQt*>(&vista);
  if (!rejilla) return EnElEscritorio(vista, vista.rect());
  return EnElEscritorio(*rejilla->viewport(), rejilla->FilaMarcada());
}

bool Descubre(const QRect& caja, const QList<QRect>& aLaVista) {
  return std::none_of(aLaVista.begin(), aLaVista.end(),
                      [&](const QRect& parte) { return parte.intersects(caja); });
}

QRect Dentro(QRect caja, const QRect& escritorio) {
  caja.moveRight(std::min(caja.right(), escritorio.right()));
  caja.moveBottom(std::min(caja.bottom(), escritorio.bottom()));
  caja.moveLeft(std::max(caja.left(), escritorio.left()));
  caja.moveTop(std::max(caja.top(), escritorio.top()));
  return caja;
}

/// The middle, and the places at the four sides of each part.
QList<QRect> Lugares(const QRect& medio, const QList<QRect>& aLaVista) {
  QList<QRect> lugares{medio};
  const auto anadir = [&](void (QRect::*mover)(int), int donde) {
    lugares.append(medio);
    (lugares.back().*mover)(donde);
  };
  for (const QRect& parte : aLaVista) {
    anadir(&QRect::moveTop, parte.bottom() + kAire);
    anadir(&QRect::moveBottom, parte.top() - kAire);
    anadir(&QRect::moveLeft, parte.right() + kAire);
    anadir(&QRect::moveRight, parte.left() - kAire);
  }
  return lugares;
}

std::optional<QRect> LugarQueDescubre(const QRect& medio, const QRect& escritorio,
                                      const QList<QRect>& aLaVista) {
  std::optional<QRect> mejor;
  int distancia = 0;
  for (const QRect& lugar : Lugares(medio, aLaVista)) {
    const QRect caja = Dentro(lugar, escritorio);
    const int esta = (caja.topLeft() - medio.topLeft()).manhattanLength();
    if (!Descubre(caja, aLaVista) || (mejor && esta >= distancia)) continue;
    mejor = caja;
    distancia = esta;
  }
  return mejor;
}

}  // namespace

QWidget* VentanaDelUsuario() {
  if (QWidget* activa = QApplication::activeWindow()) return activa;
  for (QWidget* vista : QApplication::allWidgets()) {
    if (dynamic_cast<Lienzo*>(vista) && vista->isVisible()) return vista->window();
  }
  return nullptr;
}

bool AlAlcance(const QWidget& vista) {
  if (!vista.isVisible() || !vista.isEnabled()) return false;
  for (const QWidget* rama = &vista; rama->parentWidget(); rama = rama->parentWidget()) {
    const auto hermanos =
        rama->parentWidget()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    if (std::any_of(hermanos.begin(), hermanos.end(),
                    [&](const QWidget* panel) { return Tapa(*panel, *rama); })) {
      return false;
    }
  }
  return true;
}

QList<QRect> LoTratado(const QWidget& ventana) {
  QList<QRect> partes;
  // The bare surface of a screen has the focus when nothing in it has.
  const QWidget* foco = ventana.focusWidget();
  if (foco && foco->isVisible() && foco->focusPolicy() != Qt::NoFocus) {
    partes.append(LoQueSeMira(*foco));
  }
  for (const QTableView* tabla : ventana.findChildren<QTableView*>()) {
    if (tabla != foco && AlAlcance(*tabla)) partes.append(LoQueSeMira(*tabla));
  }
  return partes;
}

QPoint Colocar(const QSize& caja, const QRect& ventana, const QRect& escritorio,
               const QList<QRect>& aLaVista) {
  QRect medio(QPoint(), caja);
  medio.moveCenter(ventana.center());
  for (qsizetype cuantas = aLaVista.size(); cuantas > 0; --cuantas) {
    const auto lugar = LugarQueDescubre(medio, escritorio, aLaVista.first(cuantas));
    if (lugar) return lugar->topLeft();
  }
  return Dentro(medio, escritorio).topLeft();
}

/// Where the desktop puts its frame around the box only once it is shown, the place told is that of
/// the box without it.
void ColocarSobreSuVentana(QWidget& caja, const QList<QRect>& aLaVista) {
  const QWidget* ventana = caja.parentWidget() ? caja.parentWidget()->window() : nullptr;
  if (!ventana) return;
  const int titulo = caja.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &caja) + kAire;
  const QSize entera = caja.size() + QSize(kAire, titulo);
  const QPoint esquina =
      Colocar(entera, ventana->frameGeometry(), ventana->screen()->availableGeometry(), aLaVista);
  const bool sinMarco = caja.frameGeometry() == caja.geometry();
  caja.move(sinMarco ? esquina + QPoint(kAire / 2, titulo) : esquina);
}

}  // namespace qt
