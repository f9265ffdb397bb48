#include <gtest/gtest.h>
#include <unistd.h>

#include <QApplication>
#include <QDir>

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  // No printers of the machine's. The socket is for a test that brings its own: who talks to a
  // print server keeps the address that it finds first.
  const QString enchufe = QStringLiteral("tesvara-cups-%1").arg(::getpid());
  qputenv("CUPS_SERVER", QDir::temp().filePath(enchufe).toLocal8Bit());
  QApplication aplicacion(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
