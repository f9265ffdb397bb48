#pragma once

#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <private/qguiapplication_p.h>
#include <QAccessible>
#include <string>
#include <vector>

namespace pruebas {

/// A screen reader while it lives: what it was told, in the names of what each event was about.
class Oido {
 public:
  Oido() { Escuchar(true); }
  ~Oido() { Escuchar(false); }
  Oido(const Oido&) = delete;

  /// The names in the events of one sort.
  [[nodiscard]] std::vector<std::string> Nombres(QAccessible::Event suceso) const {
    std::vector<std::string> nombres;
    for (const Dicho& dicho : dichos_) {
      if (dicho.Suceso == suceso) nombres.push_back(dicho.Nombre);
    }
    return nombres;
  }
  static void Olvidar() { dichos_.clear(); }

 private:
  struct Dicho {
    QAccessible::Event Suceso;
    std::string Nombre;
  };

  static void Escuchar(bool escucha) {
    dichos_.clear();
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(escucha);
    QAccessible::installUpdateHandler(escucha ? &Oir : nullptr);
  }
  static void Oir(QAccessibleEvent* suceso) {
    const QAccessibleInterface* que = suceso->accessibleInterface();
    if (que) dichos_.push_back({suceso->type(), que->text(QAccessible::Name).toStdString()});
  }

  inline static std::vector<Dicho> dichos_;
};

}  // namespace pruebas
