#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QProcess>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "guion/carpeta_temporal.h"
#include "jornada/partida.h"
#include "qt/imprenta_qt.h"
#include "qt/informe_pdf.h"
#include "qt/textos_qt.h"

namespace pruebas {

/// What a program of the system prints. It has to be there, and to go well.
inline QString Correr(const QString& programa, const QStringList& argumentos) {
  QProcess proceso;
  proceso.start(programa, argumentos);
  EXPECT_TRUE(proceso.waitForFinished(60'000)) << qt::Utf8(programa + ": " + proceso.errorString());
  EXPECT_EQ(proceso.exitCode(), 0) << proceso.readAllStandardError().toStdString();
  return QString::fromUtf8(proceso.readAllStandardOutput());
}

/// The sheets of a report as they are handed over.
class HojasEnMemoria final : public qt::PapelQt {
 public:
  explicit HojasEnMemoria(std::vector<services::LaminaInforme>& hojas) : hojas_(hojas) {}
  void EndDoc() override { PasarHoja(); }
  void KillDoc() override { hojas_.clear(); }

 protected:
  void Entregar(const services::LaminaInforme& hoja) override { hojas_.push_back(hoja); }

 private:
  std::vector<services::LaminaInforme>& hojas_;
};

/// The report of the component itself, played without a window and drawn on a target of the
/// toolkit.
class InformeEnPapel : public testing::Test {
 protected:
  using Abrir =
      std::function<std::unique_ptr<services::DestinoInforme>(const services::TrabajoDeImpresion&)>;

  InformeEnPapel() {
    partida.Plataforma().AbrirImpresora = [this](const services::TrabajoDeImpresion& trabajo) {
      return AlAbrir(trabajo);
    };
    Jugar("reloj 2005-03-15 10:00:00\nimpresora \"Papel\"\n");
  }

  /// So many receipts along March 2005, a third of them paid, of as many invoices.
  void Recibos(int cuantos) {
    const std::string n = std::to_string(cuantos);
    const auto llenar = [&](const std::string& tabla, const std::string& valores) {
      return "datos WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " + n +
             ") INSERT INTO " + tabla + " SELECT 1 + i % 3, printf('F%05d', i), '2005', " +
             valores + ", 'x', 'y' FROM n\n";
    };
    Jugar(
        "datos INSERT INTO ProvConceptos VALUES('1','Papelería Núñez'),('2','Ñandú, S.A.'),"
        "('3','Güell (oficina fija y calefacción)')\n" +
        llenar("ProvFacturas", "'20050301', 10.5 + i * 37.25, '1', 1, 0, 0, 0, 0, 0") +
        llenar("ProvVencimientos",
               "printf('200503%02d', 1 + i % 28), 10.5 + i * 37.25, "
               "CASE i % 3 WHEN 0 THEN 10.5 + i * 37.25 END, "
               "CASE i % 3 WHEN 0 THEN '20050310' ELSE '' END"));
  }
  /// Prints the list on what `abrir` gives.
  void Imprimir(Abrir abrir) {
    AlAbrir = std::move(abrir);
    const bool cargada = std::exchange(cargada_, true);
    Jugar(std::string(cargada ? "" : "cargar\n") +
          "pulsar ImgImpresora\n"
          "pulsar frmBuscoImpresora.LblImpre(1)\npulsar frmBuscoImpresora.Boton1\n");
  }
  void GuardarPdf(const QString& fichero) {
    Imprimir([fichero](const services::TrabajoDeImpresion& trabajo) {
      return std::make_unique<qt::InformePdf>(fichero, qt::Texto(trabajo.Titulo));
    });
  }
  [[nodiscard]] std::vector<services::LaminaInforme> Hojas() {
    std::vector<services::LaminaInforme> hojas;
    Imprimir([&hojas](const services::TrabajoDeImpresion&) {
      return std::make_unique<HojasEnMemoria>(hojas);
    });
    return hojas;
  }
  void Jugar(const std::string& texto) {
    const jornada::Partida::Jugada jugada = partida.Jugar(texto);
    EXPECT_EQ(jugada.Estado, 0) << jugada.Errores << jugada.Salida;
    salida = jugada.Salida;
  }

  [[nodiscard]] QString Ruta(const char* nombre) const {
    return qt::Texto((carpeta.Ruta() / nombre).string());
  }
  [[nodiscard]] QStringList EnLaCarpeta() const {
    return QDir(qt::Texto(carpeta.Ruta().string()))
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
  }

  guion::CarpetaTemporal carpeta{false};
  jornada::Partida partida;
  Abrir AlAbrir;
  std::string salida;  // of what was last played

 private:
  bool cargada_ = false;
};

}  // namespace pruebas
