#pragma once

#include <QEventLoop>
#include <QPointer>
#include <functional>

#include "forms/ventana.h"
#include "qt/lienzo.h"
#include "services/plataforma.h"

namespace services {
class Form;
}  // namespace services

namespace qt {

using CreaAviso = decltype(services::Plataforma::CrearAviso);

/// Shows a form. By the time it is destroyed the widgets of the model are gone already.
class VentanaQt final : public services::Ventana {
 public:
  VentanaQt(services::Form& form, const std::function<void(QWidget&)>& disponer,
            CreaAviso crearAviso);
  ~VentanaQt() override;
  VentanaQt(const VentanaQt&) = delete;

  void Mostrar(bool modal) override;
  void Ocultar() override;
  void EsperarModal() override;
  void Refrescar() override;
  void* Nativa() override;

  void Cambiada(services::Widget& widget, services::Aspecto aspecto) override;
  void Anadido(services::Widget& widget) override;
  void Quitado(services::Widget& widget) override;
  void CeldaCambiada(services::MSFlexGrid& rejilla, int fila, int columna) override;
  void FilasCambiadas(services::MSFlexGrid& rejilla) override;
  void CeldaActual(services::MSFlexGrid& rejilla) override;
  void Foco(services::Widget* widget) override;
  bool Consiente(services::Widget& widget, services::Gesto gesto) override;
  void FinDeEvento() override;
  void AntesDePreguntar() override;

 private:
  [[nodiscard]] bool Preguntar(const std::string& pregunta, services::Widget& widget,
                               services::Gesto gesto);

  services::Form& form_;
  CreaAviso crearAviso_;
  QPointer<Lienzo> lienzo_;
  QPointer<QEventLoop> espera_;
};

}  // namespace qt
