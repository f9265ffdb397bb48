#pragma once

#include <QFileIconProvider>
#include <QObject>

namespace ficheros {

/// What is shown of a file without opening it, which would drop the locks that this process holds
/// on it: by its name and by what the system tells of it.
class Iconos final : public QObject, public QFileIconProvider {
 public:
  using QFileIconProvider::icon;
  using QObject::QObject;

  [[nodiscard]] QIcon icon(const QFileInfo& fichero) const override;
  [[nodiscard]] QString type(const QFileInfo& fichero) const override;
};

}  // namespace ficheros
