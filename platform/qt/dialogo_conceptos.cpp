#include "qt/dialogo_conceptos.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "qt/colocacion.h"
#include "qt/tabla_qt.h"
#include "qt/textos_qt.h"
#include "valores/numero.h"

namespace qt {

DialogoConceptos::DialogoConceptos(std::vector<Concepto> conceptos, bool porCodigo,
                                   const QString& texto, QWidget* padre)
    : QDialog(padre),
      lista_(new ListaConceptos(std::move(conceptos), this)),
      busqueda_(new QLineEdit(texto, this)),
      por_codigo_(new QRadioButton("Por código", this)),
      por_nombre_(new QRadioButton("Por nombre", this)),
      tabla_(new TablaQt(this)),
      cuantos_(new QLabel(this)),
      aceptar_(new QPushButton("Aceptar", this)),
      cancelar_(new QPushButton("Cancelar", this)) {
  setWindowTitle("Buscar concepto");
  const bool sinCodigo = !texto.trimmed().isEmpty() && !services::EsNumero(Utf8(texto));
  (porCodigo && !sinCodigo ? por_codigo_ : por_nombre_)->setChecked(true);
  Componer();
  Conectar();
  UnaSolaParada();
  Filtrar();
  busqueda_->selectAll();
  busqueda_->setFocus();
}

void DialogoConceptos::Componer() {
  busqueda_->setAccessibleName("Texto que se busca");
  busqueda_->setPlaceholderText("Código o nombre");
  tabla_->setAccessibleName("Conceptos");
  tabla_->setModel(lista_);
  tabla_->setSelectionBehavior(QTableView::SelectRows);
  tabla_->setSelectionMode(QTableView::SingleSelection);
  tabla_->setTabKeyNavigation(false);
  tabla_->setShowGrid(false);
  tabla_->setAlternatingRowColors(true);
  tabla_->setWordWrap(false);
  tabla_->verticalHeader()->hide();
  tabla_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
  tabla_->horizontalHeader()->setHighlightSections(false);
  tabla_->horizontalHeader()->setSectionsClickable(false);
  tabla_->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
  tabla_->setColumnWidth(0, fontMetrics().horizontalAdvance("0000000000"));

  auto* arriba = new QHBoxLayout;
  arriba->addWidget(busqueda_, 1);
  arriba->addWidget(por_codigo_);
  arriba->addWidget(por_nombre_);
  auto* abajo = new QHBoxLayout;
  abajo->addWidget(cuantos_, 1);
  abajo->addWidget(aceptar_);
  abajo->addWidget(cancelar_);
  auto* todo = new QVBoxLayout(this);
  todo->addLayout(arriba);
  todo->addWidget(tabla_, 1);
  todo->addLayout(abajo);
  aceptar_->setDefault(true);
  cancelar_->setAutoDefault(false);
  // On a small desktop it would hide the field that it is for.
  const int alto =
      std::min(fontMetrics().height() * 26, screen()->availableSize().height() * 3 / 5);
  resize(fontMetrics().averageCharWidth() * 72, alto);
}

void DialogoConceptos::showEvent(QShowEvent* evento) {
  QDialog::showEvent(evento);
  if (!parentWidget()) return;
  QList<QRect> aLaVista = LoTratado(*parentWidget()->window());
  if (descubierto_.isValid()) aLaVista.prepend(descubierto_);
  ColocarSobreSuVentana(*this, aLaVista);
}

void DialogoConceptos::Conectar() {
  busqueda_->installEventFilter(this);
  connect(busqueda_, &QLineEdit::textChanged, this, &DialogoConceptos::Filtrar);
  connect(por_codigo_, &QRadioButton::toggled, this, &DialogoConceptos::Filtrar);
  connect(por_codigo_, &QRadioButton::toggled, this, &DialogoConceptos::UnaSolaParada);
  connect(tabla_, &QTableView::doubleClicked, this, &QDialog::accept);
  connect(aceptar_, &QPushButton::clicked, this, &QDialog::accept);
  connect(cancelar_, &QPushButton::clicked, this, &QDialog::reject);
}

/// The Tab key comes to the way of searching that is set, and the arrows go to the other one.
void DialogoConceptos::UnaSolaParada() {
  for (QRadioButton* modo : {por_codigo_, por_nombre_}) {
    modo->setFocusPolicy(modo->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
  }
}

void DialogoConceptos::Filtrar() {
  if (por_codigo_->isChecked()) {
    lista_->FiltrarPorCodigo(busqueda_->text());
  } else {
    lista_->FiltrarPorNombre(busqueda_->text());
  }
  const int quedan = lista_->rowCount();
  if (quedan > 0) tabla_->selectRow(0);
  aceptar_->setEnabled(quedan > 0);
  cuantos_->setText(QString("%1 de %2 conceptos").arg(quedan).arg(lista_->Todos()));
}

QString DialogoConceptos::Elegido() const {
  const QModelIndex actual = tabla_->currentIndex();
  return actual.isValid() ? lista_->En(actual.row()).Codigo : QString();
}

/// The keys that move in the list do so while one types.
bool DialogoConceptos::eventFilter(QObject* objeto, QEvent* evento) {
  if (objeto == busqueda_ && evento->type() == QEvent::KeyPress) {
    switch (static_cast<QKeyEvent*>(evento)->key()) {
      case Qt::Key_Up:
      case Qt::Key_Down:
      case Qt::Key_PageUp:
      case Qt::Key_PageDown:
        return QCoreApplication::sendEvent(tabla_, evento);
      default:
        break;
    }
  }
  return QDialog::eventFilter(objeto, evento);
}

}  // namespace qt
