#include "qt/selector_conceptos_qt.h"

#include <QWidget>
#include <algorithm>
#include <vector>

#include "datos/recordset.h"
#include "forms/controles.h"
#include "forms/escritorio.h"
#include "forms/form.h"
#include "qt/colocacion.h"
#include "qt/dialogo_conceptos.h"
#include "qt/textos_qt.h"
#include "valores/texto.h"

namespace qt {
namespace {

std::vector<Concepto> LeerConceptos(services::Conexion& conexion) {
  std::vector<std::pair<std::string, std::string>> leidos;
  services::Recordset rs;
  rs.Open("SELECT ProvConceptos.NConcepto, ProvConceptos.Descripcion FROM ProvConceptos", conexion,
          services::ModoApertura::Lectura);
  for (; !rs.Eof(); rs.MoveNext()) {
    leidos.emplace_back(services::Trim(rs.Fields(0).Value.Texto()),
                        services::Trim(rs.Fields(1).Value.Texto()));
  }
  std::sort(leidos.begin(), leidos.end(), [](const auto& a, const auto& b) {
    return services::CompararTexto(a.second, b.second) < 0;
  });
  std::vector<Concepto> conceptos;
  conceptos.reserve(leidos.size());
  for (const auto& [codigo, nombre] : leidos) conceptos.push_back({Texto(codigo), Texto(nombre)});
  return conceptos;
}

}  // namespace

void SelectorConceptosQt::Buscar(services::Ref<services::IDatosClase>&,
                                 services::Ref<services::Form>& form, std::string_view,
                                 std::string_view clase, const std::string& texto, std::string_view,
                                 bool) {
  QWidget* ventana = VentanaDelUsuario();
  DialogoConceptos dialogo(LeerConceptos(sesion_.CnDatos()), clase == "Codigo", Texto(texto),
                           ventana);
  const auto* campo = ventana ? ventana->findChild<QWidget*>("TxtConcepto") : nullptr;
  if (campo && campo->isVisible()) {
    dialogo.Descubrir({campo->mapToGlobal(QPoint()), campo->size()});
  }
  int resultado = QDialog::Rejected;
  form->Escritorio().Esperar([&] { resultado = dialogo.exec(); });
  if (resultado != QDialog::Accepted) return;
  auto* TxtBusco = dynamic_cast<services::TextBox*>(form->Buscar("TxtBusco"));
  if (TxtBusco) TxtBusco->Text = Utf8(dialogo.Elegido());
}

}  // namespace qt
