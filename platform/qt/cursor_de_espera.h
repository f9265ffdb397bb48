#pragma once

#include <QCursor>
#include <QGuiApplication>

namespace qt {

/// The user has to wait for as long as it lives.
class CursorDeEspera {
 public:
  CursorDeEspera() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
  ~CursorDeEspera() { QGuiApplication::restoreOverrideCursor(); }
  CursorDeEspera(const CursorDeEspera&) = delete;
  CursorDeEspera& operator=(const CursorDeEspera&) = delete;
};

}  // namespace qt
