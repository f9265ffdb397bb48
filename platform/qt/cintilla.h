#pragma once

#include <QFrame>
#include <functional>

class QLabel;

namespace qt {

/// The title strip of a screen: its caption and a button that asks to close it.
class CintillaQt final : public QFrame {
 public:
  explicit CintillaQt(QWidget* padre = nullptr);

  void PonerTitulo(const QString& titulo);
  std::function<void()> AlCerrar;

 private:
  QLabel* titulo_;
};

}  // namespace qt
