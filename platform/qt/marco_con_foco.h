#pragma once

#include <QFrame>

namespace qt {

/// A frame that shows the focus of what it holds, for widgets whose style draws none.
class MarcoConFoco final : public QFrame {
 public:
  explicit MarcoConFoco(QWidget* padre = nullptr);

 protected:
  void paintEvent(QPaintEvent* evento) override;

 private:
  [[nodiscard]] bool Contiene(const QWidget* foco) const;
};

}  // namespace qt
