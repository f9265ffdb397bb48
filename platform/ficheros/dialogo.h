#pragma once

#include <QFileDialog>
#include <memory>

namespace ficheros {

/// A dialog for a file in a folder, which opens none of those that it shows. The toolkit's own way
/// opens them to tell their type, and a desktop's does too, in this process; and a file that is
/// closed loses all the locks that the process holds on it.
[[nodiscard]] std::unique_ptr<QFileDialog> CrearDialogo(QWidget* ventana, const QString& titulo,
                                                        const QString& carpeta,
                                                        const QString& tipos);

}  // namespace ficheros
