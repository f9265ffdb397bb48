#pragma once

#include <QApplication>
#include <QFileDialog>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <optional>
#include <string>

namespace pruebas {

/// The kind that a file dialog shows of a file; nothing while it isn't listed.
inline std::optional<std::string> TipoEnLista(const QFileDialog& dialogo, const QString& nombre) {
  constexpr int kTipo = 2;
  const auto* lista = dialogo.findChild<QTreeView*>("treeView");
  const QModelIndex carpeta = lista->rootIndex();
  for (int fila = 0; fila < lista->model()->rowCount(carpeta); ++fila) {
    const QModelIndex uno = lista->model()->index(fila, 0, carpeta);
    if (uno.data().toString() == nombre)
      return uno.siblingAtColumn(kTipo).data().toString().toStdString();
  }
  return std::nullopt;
}

/// Runs what opens a file dialog, looks at it until it lists a file and for a while more, and backs
/// out. The kind that it showed of that file.
template <class Abrir>
std::optional<std::string> VerDialogo(const QString& nombre, const Abrir& abrir) {
  constexpr int kUnRato = 300;
  std::optional<std::string> tipo;
  QTimer::singleShot(0, [&] {
    auto* dialogo = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    static_cast<void>(QTest::qWaitFor([&] { return TipoEnLista(*dialogo, nombre).has_value(); }));
    QTest::qWait(kUnRato);
    tipo = TipoEnLista(*dialogo, nombre);
    dialogo->reject();
  });
  abrir();
  return tipo;
}

}  // namespace pruebas
