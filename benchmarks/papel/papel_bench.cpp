#include <QApplication>
#include <QFileInfo>
#include <QTemporaryDir>
#include <string>

#include "medida.h"
#include "memoria.h"
#include "papel/lista_impresa.h"
#include "papel/pdf_directo.h"
#include "qt/informe_pdf.h"

// The report of the list saved as PDF, from the click on, against a bare loop that paints the same
// texts at the same places into the same kind of file.

namespace medidas {
namespace {

/// The sheets of the report, to be painted bare.
class Hojas final : public qt::PapelQt {
 public:
  explicit Hojas(std::vector<PaginaDirecta>& paginas) : paginas_(paginas) {}
  void EndDoc() override { PasarHoja(); }
  void KillDoc() override {}

 protected:
  void Entregar(const services::LaminaInforme& hoja) override {
    paginas_.push_back(Preparar(hoja));
  }

 private:
  std::vector<PaginaDirecta>& paginas_;
};

void Pdf(benchmark::State& state) {
  const auto filas = static_cast<int>(state.range(0));
  const QTemporaryDir carpeta;
  const QString delInforme = carpeta.filePath("informe.pdf");
  const QString directo = carpeta.filePath("directo.pdf");
  ListaImpresa lista(filas);
  std::vector<PaginaDirecta> paginas;
  lista.Imprimir([&] { return std::make_unique<Hojas>(paginas); });
  const auto informe = [&] {
    lista.Imprimir([&] { return std::make_unique<qt::InformePdf>(delInforme, "Medida"); });
  };

  Tiempos componente;
  Tiempos bucle;
  const double memoria = MemoriaDe(informe);
  for (auto vuelta : state) {
    (void)vuelta;
    for (int i = 0; i < 9; ++i) {
      componente.Anadir(Segundos(informe));
      bucle.Anadir(Segundos([&] { EscribirPdf(paginas, directo); }));
    }
    state.SetIterationTime(componente.Mediana());
  }
  state.counters["razon"] = componente.Mediana() / bucle.Mediana();
  state.counters["paginas"] = static_cast<double>(paginas.size());
  state.counters["KB"] = static_cast<double>(QFileInfo(delInforme).size()) / 1024;
  state.counters["KB_directo"] = static_cast<double>(QFileInfo(directo).size()) / 1024;
  state.counters["memoria_KB"] = memoria;
  state.counters["directo_ms"] = bucle.Mediana() * 1000;
}
BENCHMARK(Pdf)
    ->ArgName("filas")
    ->Arg(500)
    ->Arg(5'000)
    ->Arg(20'000)
    ->Iterations(1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace medidas

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication aplicacion(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
