#pragma once

#include <QScrollArea>

namespace qt {

/// A panel that lies over its screen. Nothing in it is ever squeezed: where the room is narrow its
/// rows marked `partible` in the design are broken, one part below the other, and where that is not
/// enough it scrolls, with what gets the focus always on sight.
class PanelQt final : public QScrollArea {
 public:
  explicit PanelQt(QWidget* padre = nullptr);

  /// Breaks its rows or not, as fits in so much room, and tells what it takes of it.
  [[nodiscard]] QSize Caber(const QSize& hueco);
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  /// The toolkit's own would bring what gets the focus to sight a second time, by its middle.
  bool focusNextPrevChild(bool siguiente) override {
    return QAbstractScrollArea::focusNextPrevChild(siguiente);
  }

 private:
  void TraerALaVista(QWidget& vista);
  void Partir(bool partido);
};

}  // namespace qt
