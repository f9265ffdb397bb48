#include "print/impresion.h"

#include <algorithm>
#include <cmath>

#include "forms/escritorio.h"
#include "forms/form.h"
#include "print/informe.h"

namespace print {

using services::DestinoInforme;

namespace {

/// From the centimetres of a sheet to the twips of a screen.
int Twips(double centimetros) {
  return static_cast<int>(std::lround(centimetros * services::kTwipsPorCentimetro));
}

/// Year and month of a stored date, as file names have them: 2026-11.
std::string MesDeFichero(const std::string& almacenada) {
  constexpr std::size_t kAnio = 4;
  return almacenada.substr(0, kAnio) + "-" + almacenada.substr(kAnio, 2);
}

}  // namespace

Impresion::Impresion(services::PictureBox& panel, const services::Diseno& diseno,
                     services::Sesion& sesion, list::RejillaPagos& rejilla,
                     list::EdicionPagado& edicion, const list::RangoFechas& rango,
                     const services::Widget& PicNuevo)
    : ImgImpresora(panel, "ImgImpresora", "impresora", diseno),
      sesion_(sesion),
      rejilla_(rejilla),
      edicion_(edicion),
      rango_(rango),
      PicNuevo_(PicNuevo) {
  ImgImpresora.Click = [this] { ImgImpresora_Click(); };
}

void Impresion::Descargar() {
  if (auto* abierta = buscoImpresora_.Si()) abierta->Unload();
  if (auto* abierta = listados_.Si()) abierta->Unload();
}

void Impresion::ImgImpresora_Click() {
  if (PicNuevo_.Visible) return;
  services::Form& pantalla = ImgImpresora.Formulario();
  buscoImpresora_.Pedir(pantalla.Escritorio(), sesion_).ShowModal();
  if (const auto& principal = sesion_.FrmPrincipal()) principal->Refresh();
  pantalla.Refresh();
  if (!pantalla.Cargado()) return;
  edicion_.CerrarEdicionPago();
  const std::string elegida = sesion_.Imprenta().Impresora;
  if (elegida == kNingunDestino) return;
  elegida == kPantalla ? ImprimirEnPantalla() : ImprimirEnPapel(elegida);
}

/// A preview that fails, or that is left, is not kept: the next one starts from one empty page.
void Impresion::ImprimirEnPantalla() {
  frmListados& listados = listados_.Pedir(ImgImpresora.Formulario().Escritorio(), sesion_);
  const services::Ref<services::Form> viva(&listados);
  try {
    listados.Load();
    if (DibujarEn(listados) && listados.Cargado()) {
      listados.ShowP();
    } else {
      listados.Unload();
    }
  } catch (...) {
    listados.Unload();
    throw;
  }
}

bool Impresion::DibujarEn(frmListados& listados) {
  PicHoja& primera = listados.PicList(0);
  primera.Width = Twips(DestinoInforme::kAncho);
  primera.Height = Twips(DestinoInforme::kAlto);
  primera.Left = (sesion_.AnchoPantalla() - primera.Width) / 2;
  primera.Top = 10;
  return Dibujar(primera.Hoja(), &listados);
}

/// Nothing is left half printed where that can be had.
void Impresion::ImprimirEnPapel(const std::string& elegida) {
  services::Form& pantalla = ImgImpresora.Formulario();
  const auto impresora = sesion_.Imprenta().AbrirImpresora(PrepararTrabajo(elegida));
  // The user was waited for: the host may have closed the screen.
  if (!impresora || !pantalla.Cargado()) return;
  bool entero = false;
  try {
    impresora->PaperSize = DestinoInforme::kA4;
    entero = Dibujar(*impresora, nullptr);
  } catch (...) {
    impresora->KillDoc();
    throw;
  }
  pantalla.Escritorio().Esperar([&] { entero ? impresora->EndDoc() : impresora->KillDoc(); });
}

/// Whether the user let it come to its end.
bool Impresion::Dibujar(DestinoInforme& primera, frmListados* listados) {
  const services::Escritorio::Ocupacion ocupacion(ImgImpresora.Formulario().Escritorio());
  Informe informe(sesion_, rejilla_, rango_, listados);
  DestinoInforme* destino = &primera;
  informe.Preparar(*destino);
  sesion_.Imprenta().PaginaInforme = 0;
  return informe.ImprimirInforme(destino);
}

/// Makes the chosen printer the current one. One that is no longer installed is no error: the
/// report goes to whichever is current or, where that is gone too, to the system's own.
services::TrabajoDeImpresion Impresion::PrepararTrabajo(const std::string& elegida) {
  services::Imprenta& imprenta = sesion_.Imprenta();
  const std::vector<std::string> printers = imprenta.Printers();
  const auto esta = [&](const std::string& nombre) {
    return std::find(printers.begin(), printers.end(), nombre) != printers.end();
  };
  if (esta(elegida)) imprenta.Printer = elegida;
  const std::string& desde = rango_.TxtFPrevisionD.Text;
  const std::string& hasta = rango_.TxtFPrevision.Text;
  return {.Impresora = esta(imprenta.Printer) ? imprenta.Printer : "",
          .Ausente = esta(elegida) ? "" : elegida,
          .Titulo = "Tesvara de gastos, del " + desde + " al " + hasta,
          .Fichero = NombreDeFichero()};
}

/// By the months of the range: pagos-2026-11, or pagos-2026-11-a-2027-01.
std::string Impresion::NombreDeFichero() const {
  const store::Intervalo rango = rango_.Intervalo();
  if (rango.Desde.empty() || rango.Hasta.empty()) return "pagos";
  const std::string desde = MesDeFichero(rango.Desde);
  const std::string hasta = MesDeFichero(rango.Hasta);
  return "pagos-" + desde + (desde == hasta ? "" : "-a-" + hasta);
}

}  // namespace print
