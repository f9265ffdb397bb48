#include <gtest/gtest.h>
#include <unistd.h>

#include <QApplication>

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  // No printers of the machine's. The socket is for a test that brings its own: who talks to a
  // print server keeps the address that it finds first.
  qputenv("CUPS_SERVER", "/tmp/tesvara-cups-" + QByteArray::number(::getpid()));
  QApplication aplicacion(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
