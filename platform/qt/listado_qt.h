#pragma once

#include <QFrame>
#include <vector>

#include "forms/controles.h"

namespace qt {

/// Pages painted on a panel, sharp at any size: only what is on sight of them is ever painted.
class ListadoQt final : public QFrame {
 public:
  explicit ListadoQt(QWidget* padre = nullptr) : QFrame(padre) {}

  void Poner(const std::vector<services::PictureBox::Pintada>& pintadas);
  [[nodiscard]] std::size_t Paginas() const { return pintadas_.size(); }

 protected:
  void paintEvent(QPaintEvent* evento) override;

 private:
  std::vector<services::PictureBox::Pintada> pintadas_;
};

}  // namespace qt
