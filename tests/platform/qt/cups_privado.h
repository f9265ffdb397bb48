#pragma once

#include <unistd.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QThread>
#include <filesystem>
#include <string>

#include "guion/carpeta_temporal.h"
#include "qt/textos_qt.h"

namespace pruebas {

/// A print server of its own, in a folder of its own, listening to nothing but the socket that the
/// program's environment names. What is printed on it is kept as a file.
class CupsPrivado {
 public:
  CupsPrivado() {
    if (Programa("cupsd").isEmpty() || Programa("lpadmin").isEmpty()) return;
    for (const char* parte : {"etc", "spool", "cache", "run", "tmp", "bin/backend", "papel"}) {
      std::filesystem::create_directories(carpeta_.Ruta() / parte);
    }
    // Work goes through a helper of the server's before it gets to a printer.
    std::filesystem::create_symlink("/usr/lib/cups/daemon", carpeta_.Ruta() / "bin" / "daemon");
    Escribir("etc/cups-files.conf", Ficheros());
    Escribir("etc/cupsd.conf", Servidor());
    Escribir("bin/backend/papel", Aparato());
    QFile::setPermissions(Ruta("bin/backend/papel"), QFile::ReadOwner | QFile::ExeOwner);
    proceso_.setStandardOutputFile(QProcess::nullDevice());
    proceso_.setStandardErrorFile(Ruta("salida"));
    preparado_ = true;
  }
  ~CupsPrivado() {
    Parar();
    QFile::remove(direccion_);
  }
  CupsPrivado(const CupsPrivado&) = delete;

  /// Without printers or works, however it was left. False where it isn't to be had.
  [[nodiscard]] bool Empezar() {
    Parar();
    if (!preparado_) return false;
    QFile::remove(direccion_);
    QFile::remove(Ruta("etc/printers.conf"));
    for (const char* resto : {"papel", "spool", "cache"}) {
      std::filesystem::remove_all(carpeta_.Ruta() / resto);
      std::filesystem::create_directory(carpeta_.Ruta() / resto);
    }
    proceso_.start(Programa("cupsd"),
                   {"-f", "-c", Ruta("etc/cupsd.conf"), "-s", Ruta("etc/cups-files.conf")});
    return Esperar([this] { return QFile::exists(direccion_); });
  }
  void Parar() {
    if (proceso_.state() == QProcess::NotRunning) return;
    proceso_.terminate();
    if (!proceso_.waitForFinished(5'000)) proceso_.kill();
    proceso_.waitForFinished(5'000);
  }
  /// With a description of the printer it knows its paper; without one it takes what comes.
  [[nodiscard]] bool Anadir(const QString& nombre, const QByteArray& descripcion = {}) {
    QStringList orden{"-p", nombre, "-E", "-v", "papel:/", "-m", "raw"};
    if (!descripcion.isEmpty()) {
      Escribir("aparato.ppd", descripcion);
      orden = {"-p", nombre, "-E", "-v", "papel:/", "-P", Ruta("aparato.ppd")};
    }
    return Mandar("lpadmin", orden);
  }
  [[nodiscard]] bool Quitar(const QString& nombre) { return Mandar("lpadmin", {"-x", nombre}); }
  [[nodiscard]] bool Preferir(const QString& nombre) { return Mandar("lpadmin", {"-d", nombre}); }

  /// What came out of the printers, once there are so many works.
  [[nodiscard]] QStringList Papeles(int trabajos) const {
    const QDir papel(Ruta("papel"));
    static_cast<void>(Esperar([&] { return papel.entryList({"*.pdf"}).size() >= trabajos; }));
    QStringList rutas;
    for (const QString& nombre : papel.entryList({"*.pdf"}, QDir::Files, QDir::Time)) {
      rutas << papel.filePath(nombre);
    }
    return rutas;
  }

 private:
  static QString Programa(const char* nombre) {
    return QStandardPaths::findExecutable(
        nombre, {"/usr/sbin", "/usr/bin", "/usr/local/sbin", "/usr/local/bin"});
  }
  template <class Condicion>
  static bool Esperar(const Condicion& condicion) {
    QElapsedTimer reloj;
    for (reloj.start(); reloj.elapsed() < 10'000; QThread::msleep(20)) {
      if (condicion()) return true;
    }
    return false;
  }
  [[nodiscard]] QString Ruta(const char* parte) const {
    return qt::Texto((carpeta_.Ruta() / parte).string());
  }
  void Escribir(const char* parte, const QByteArray& texto) const {
    QFile fichero(Ruta(parte));
    if (fichero.open(QIODevice::WriteOnly)) fichero.write(texto);
  }
  static bool Mandar(const char* orden, const QStringList& argumentos) {
    return QProcess::execute(Programa(orden), argumentos) == 0;
  }

  [[nodiscard]] QByteArray Ficheros() const {
    const QByteArray raiz = Ruta(".").toUtf8();
    return "ServerRoot " + raiz + "/etc\nRequestRoot " + raiz + "/spool\nCacheDir " + raiz +
           "/cache\nStateDir " + raiz + "/run\nTempDir " + raiz + "/tmp\nServerBin " + raiz +
           "/bin\nErrorLog stderr\nAccessLog " + raiz + "/acceso\nPageLog " + raiz +
           "/paginas\nSandboxing relaxed\n" +
           (::geteuid() == 0 ? "SystemGroup root\n" : QByteArray());
  }
  [[nodiscard]] QByteArray Servidor() const {
    return "Listen " + direccion_.toUtf8() +
           "\nBrowsing Off\nDefaultAuthType None\n"
           "<Location />\nOrder allow,deny\nAllow all\n</Location>\n"
           "<Policy default>\n<Limit All>\nOrder allow,deny\nAllow all\n</Limit>\n</Policy>\n";
  }
  /// The printer: keeps the sixth of what it is given, under the number of the work.
  [[nodiscard]] QByteArray Aparato() const {
    const QByteArray papel = Ruta("papel").toUtf8();
    return "#!/bin/sh\n[ $# -lt 5 ] && exit 0\ncat ${6:+\"$6\"} > '" + papel +
           "'/\"$1\".parte && mv '" + papel + "'/\"$1\".parte '" + papel + "'/\"$1\".pdf\n";
  }

  guion::CarpetaTemporal carpeta_{false};
  const QString direccion_ = qEnvironmentVariable("CUPS_SERVER");
  QProcess proceso_;
  bool preparado_ = false;
};

}  // namespace pruebas
