#pragma once

#include <QHash>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <unordered_map>
#include <vector>

namespace services {
class Form;
class Widget;
}  // namespace services

namespace qt {

class Vinculo;

/// The surface of a screen: holds its widgets and what joins them to the model, and keeps the
/// toolkit's focus where the model's is. It may outlive its form: the toolkit still has events of
/// it on the stack when the screen is unloaded by one of them.
class Lienzo final : public QWidget {
 public:
  /// `disponer` lays out the widgets; each is then joined to the model of its name.
  Lienzo(services::Form& form, const std::function<void(QWidget&)>& disponer);
  ~Lienzo() override { Soltar(); }

  /// While it lives, what the toolkit tells comes from the model itself and isn't told back.
  class Turno {
   public:
    explicit Turno(Lienzo& lienzo) : lienzo_(lienzo) { ++lienzo_.mostrando_; }
    ~Turno() { --lienzo_.mostrando_; }
    Turno(const Turno&) = delete;

   private:
    Lienzo& lienzo_;
  };
  [[nodiscard]] bool Mostrando() const { return mostrando_ > 0; }

  /// Lets go of the model for good.
  void Soltar();
  /// The form, null after `Soltar`.
  [[nodiscard]] services::Form* Formulario() const { return form_; }
  /// What shows a widget of the model; null for one that has nothing to show it.
  [[nodiscard]] Vinculo* De(const services::Widget& modelo) const;

  /// A widget on the screen by its name; null for none.
  [[nodiscard]] QWidget* Vista(const QString& nombre) const { return vistas_.value(nombre); }

  /// An element of a control array came at run time: it gets a widget like element 0's, behind the
  /// one before it. Or it is about to go, and its widget with it.
  void Anadir(services::Widget& modelo);
  void Quitar(const services::Widget& modelo);

  /// Fills a widget of the host and follows its size, or is a window of its own when null.
  void Encuadrar(QWidget* marco);
  /// A window of its own that is about to be shown: as large as what is in it, where the desktop
  /// has the room.
  void AjustarVentana();
  /// Gives the toolkit's focus to what has the model's, and to the bare surface when none has.
  void LlevarFoco();
  /// The same unless the user is working outside of this screen.
  void RepararFoco();
  void FinDeEvento();
  /// Brings to sight what a question may be about, where the user can get to it.
  void TraerALaVista();
  /// Takes the user to the first widget when none has the focus.
  void EmpezarFoco();

  bool eventFilter(QObject* objeto, QEvent* evento) override;

 protected:
  void changeEvent(QEvent* evento) override;
  void paintEvent(QPaintEvent* evento) override;
  void resizeEvent(QResizeEvent* evento) override;
  void closeEvent(QCloseEvent* evento) override;
  void keyPressEvent(QKeyEvent* evento) override;
  void wheelEvent(QWheelEvent* evento) override;
  bool focusNextPrevChild(bool siguiente) override;

 private:
  using Suceso = void (Lienzo::*)(services::Form&);
  void Unir();
  Vinculo* Unir(services::Widget& modelo, QWidget& vista);
  QWidget* Copiar(const services::Widget& modelo);
  void Avisar(Suceso suceso, bool& pedido);
  void Medir(services::Form& form);
  [[nodiscard]] bool RecorrerYAcercar(QKeyEvent& evento);
  void Redimensionado(services::Form& form);
  void Pintado(services::Form& form);
  [[nodiscard]] int FinDeLaBarra() const;
  void HacerVentana();
  void PonerTitulo();

  services::Form* form_;
  std::unordered_map<const services::Widget*, Vinculo*> vinculos_;
  std::vector<Vinculo*> alFinal_;  // those that wait for the end of an event
  QHash<QString, QWidget*> vistas_;
  QPointer<QWidget> marco_;
  Qt::FocusReason motivo_ = Qt::OtherFocusReason;
  int giro_ = 0;  // of the wheel with Ctrl, short of a notch
  int mostrando_ = 0;
  bool ajustada_ = false;
  bool pintado_pedido_ = false;
  bool pintado_fallido_ = false;
  bool tamano_pedido_ = false;
};

}  // namespace qt
