#include "anfitrion/dialogo_copias.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>

#include "anfitrion/dialogo_de_texto.h"
#include "anfitrion/fechas.h"
#include "salvaguarda/relacion.h"
#include "valores/error.h"

namespace anfitrion {
namespace {

using salvaguarda::Copia;
using salvaguarda::Reposicion;

enum Columna { kMomento, kUsuario, kDesde, kHasta, kFacturas, kVencimientos, kDistintas };
const QStringList kTitulos{"Momento",  "Usuario",      "Desde",          "Hasta",
                           "Facturas", "Vencimientos", "Filas distintas"};

/// Enough for anyone to see what it is about.
constexpr salvaguarda::Tope kDeCadaClase{200, 80'000};

void Poner(QTableWidget& tabla, int fila, Columna columna, const QString& texto) {
  auto* celda = new QTableWidgetItem(texto);
  celda->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
  if (columna >= kFacturas) celda->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
  tabla.setItem(fila, columna, celda);
}

QString Apartado(const QString& titulo, const std::vector<salvaguarda::Fila>& filas,
                 const salvaguarda::Conceptos& conceptos) {
  if (filas.empty()) return "";
  return titulo + " " + QString::fromStdString(Recuento(filas)) + ":" +
         QString::fromStdString(Relatar(filas, conceptos, kDeCadaClase).Texto) + "\n\n";
}

}  // namespace

QString Resumen(const Reposicion& reposicion) {
  if (reposicion.Cuantas() == 0) return "Lo grabado está como en esta copia.";
  return QString("Filas que vuelven al recuperarla: %1. Que se van: %2. Que cambian: %3.")
      .arg(reposicion.Vuelven.size())
      .arg(reposicion.SeVan.size())
      .arg(reposicion.Cambian.size());
}

DialogoCopias::DialogoCopias(QWidget& ventana, salvaguarda::Guardia& guardia)
    : QDialog(&ventana),
      guardia_(guardia),
      conceptos_(guardia.Conceptos()),
      copias_(guardia.Copias()),
      comparadas_(copias_.size()),
      tabla_(new QTableWidget(static_cast<int>(copias_.size()), static_cast<int>(kTitulos.size()))),
      resumen_(new QLabel),
      cambios_(new QPlainTextEdit),
      recuperar_(new QPushButton("&Recuperar")) {
  Componer();
  Llenar();
  QTimer::singleShot(0, this, [this] { CompararSiguiente(); });
}

void DialogoCopias::Componer() {
  setWindowTitle("Recuperar una copia");
  tabla_->setHorizontalHeaderLabels(kTitulos);
  tabla_->verticalHeader()->hide();
  tabla_->setSelectionBehavior(QAbstractItemView::SelectRows);
  tabla_->setSelectionMode(QAbstractItemView::SingleSelection);
  tabla_->setTabKeyNavigation(false);
  tabla_->setAccessibleName("Copias");
  cambios_->setReadOnly(true);
  cambios_->setTabChangesFocus(true);
  cambios_->setAccessibleName("Qué cambiaría");
  resumen_->setWordWrap(true);

  auto* rotulo = new QLabel("&Copias de lo que había antes de cada «Grabar», la última primero:");
  rotulo->setBuddy(tabla_);
  auto* botones = new QDialogButtonBox;
  botones->addButton(recuperar_, QDialogButtonBox::AcceptRole);
  botones->addButton("Cerrar", QDialogButtonBox::RejectRole);
  auto* columna = new QVBoxLayout(this);
  columna->addWidget(rotulo);
  columna->addWidget(tabla_, 3);
  columna->addWidget(resumen_);
  columna->addWidget(cambios_, 2);
  columna->addWidget(botones);
  const int letra = fontMetrics().averageCharWidth();
  const QSize cabe = screen()->availableSize();
  resize(QSize(letra * 110, fontMetrics().lineSpacing() * 34).boundedTo(cabe * 9 / 10));

  connect(botones, &QDialogButtonBox::accepted, this, [this] { Confirmar(); });
  connect(botones, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(tabla_, &QTableWidget::itemSelectionChanged, this, [this] { MostrarElegida(); });
}

void DialogoCopias::Llenar() {
  for (int i = 0; i < tabla_->rowCount(); ++i) {
    const Copia& copia = copias_[static_cast<std::size_t>(i)];
    Poner(*tabla_, i, kMomento, QString::fromStdString(services::TextoDeFecha(copia.Momento)));
    Poner(*tabla_, i, kUsuario, QString::fromStdString(copia.Usuario));
    const bool deGrabar = !copia.Rango.Desde.empty();
    Poner(*tabla_, i, kDesde, deGrabar ? FechaMostrada(copia.Rango.Desde) : "(al recuperar)");
    Poner(*tabla_, i, kHasta, FechaMostrada(copia.Rango.Hasta));
    Poner(*tabla_, i, kFacturas, QString::number(copia.Facturas));
    Poner(*tabla_, i, kVencimientos, QString::number(copia.Vencimientos));
    Poner(*tabla_, i, kDistintas, "…");
  }
  tabla_->resizeColumnsToContents();
  tabla_->horizontalHeader()->setStretchLastSection(true);
  recuperar_->setEnabled(false);
  if (copias_.empty()) {
    resumen_->setText("Todavía no hay ninguna copia: se guarda una antes de cada «Grabar».");
  } else {
    tabla_->selectRow(0);
    tabla_->setFocus();
  }
}

int DialogoCopias::Fila() const {
  return tabla_->selectedItems().isEmpty() ? -1 : tabla_->currentRow();
}

const Copia& DialogoCopias::Elegida() const {
  return copias_.at(static_cast<std::size_t>(Fila()));
}

/// One at a time, so that the window answers meanwhile.
void DialogoCopias::CompararSiguiente() {
  for (std::size_t i = 0; i < comparadas_.size(); ++i) {
    if (comparadas_[i]) continue;
    Comparada(i);
    QTimer::singleShot(0, this, [this] { CompararSiguiente(); });
    return;
  }
}

const Reposicion& DialogoCopias::Comparada(std::size_t cual) {
  auto& comparada = comparadas_[cual];
  if (comparada) return *comparada;
  QString distintas = "no se puede leer";
  QString motivo;
  comparada.emplace();
  try {
    comparada = guardia_.Comparar(copias_[cual]);
    distintas = QString::number(comparada->Cuantas());
  } catch (const services::ErrorEjecucion& fallo) {
    motivo = QString::fromStdString(fallo.Descripcion());
    guardia_.Anotar("No se puede leer la copia " + copias_[cual].Fichero.string() + ": " +
                    fallo.Descripcion());
  }
  Poner(*tabla_, static_cast<int>(cual), kDistintas, distintas);
  tabla_->item(static_cast<int>(cual), kDistintas)->setToolTip(motivo);
  return *comparada;
}

void DialogoCopias::MostrarElegida() {
  if (Fila() < 0) return;
  const Reposicion& reposicion = Comparada(static_cast<std::size_t>(Fila()));
  const QString motivo = tabla_->item(Fila(), kDistintas)->toolTip();
  resumen_->setText(motivo.isEmpty() ? Resumen(reposicion) : "No se puede leer: " + motivo);
  cambios_->setPlainText((Apartado("Vuelven", reposicion.Vuelven, conceptos_) +
                          Apartado("Se van", reposicion.SeVan, conceptos_) +
                          Apartado("Vuelven a ser como eran", reposicion.Cambian, conceptos_))
                             .trimmed());
  recuperar_->setEnabled(reposicion.Cuantas() > 0);
}

void DialogoCopias::Confirmar() {
  const PreguntaConTexto pregunta{
      resumen_->text() + "\n\nLo que hay ahora se guarda antes en otra copia. ¿Recuperarla?",
      {"Sí", "No"},
      1,
      1};
  if (Preguntar(*this, pregunta) == 0) accept();
}

}  // namespace anfitrion
