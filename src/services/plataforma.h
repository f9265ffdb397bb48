#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "forms/plataforma_forms.h"
#include "services/automatizacion.h"
#include "valores/error.h"
#include "valores/fecha.h"

namespace services {

class Aviso;
class Avance;
class DestinoInforme;
class HojaInforme;
class SelectorConceptos;
class Sesion;
class Utiles;
struct Omision;
struct TrabajoDeImpresion;

/// From which threads the objects of a class may be used: the one that loaded its library, or any.
enum class ModeloDeHilos { Unico, Libre };

/// A class that an in-process server offers, as the automation runtime keeps it.
struct ClaseRegistrada {
  GUID Clsid;
  std::string ProgId;
  ModeloDeHilos Hilos = ModeloDeHilos::Unico;
};

/// Size of the screen, twips.
struct MedidaPantalla {
  int Ancho = 0;
  int Alto = 0;
};

/// What is made for the component by whoever links it. Every member that doesn't say so must be set
/// before the first screen loads.
struct Plataforma : PlataformaDeForms {
  std::function<std::unique_ptr<Aviso>()> CrearAviso;
  std::function<std::unique_ptr<Utiles>(Sesion&)> CrearUtiles;
  std::function<std::unique_ptr<SelectorConceptos>(Sesion&)> CrearSelectorConceptos;
  std::function<FechaHora()> Ahora;
  std::function<MedidaPantalla()> Pantalla;
  /// Device names of the printers, in order, and what reports are drawn on: as `Imprenta` tells.
  std::function<std::vector<std::string>()> Printers;
  std::function<std::unique_ptr<DestinoInforme>(const TrabajoDeImpresion&)> AbrirImpresora;
  std::function<std::unique_ptr<HojaInforme>(int pagina)> CrearHoja;
  /// May be left out.
  std::function<std::unique_ptr<Avance>(const std::string& titulo)> CrearAvance;
  /// Hears of each failure that a load or a commit passed over. May be left out.
  std::function<void(Sesion&, const Omision&)> PasadoPorAlto;
  /// The automation runtime: puts a class of this library on its list, or takes it off.
  std::function<HRESULT(const ClaseRegistrada&)> Registrar;
  std::function<HRESULT(const ClaseRegistrada&)> Anular;
};

/// Puts the platform in place, once, before the component is used.
void InstalarPlataforma(Plataforma plataforma);
/// The one in place; throws 91 when there is none.
[[nodiscard]] const Plataforma& PlataformaInstalada();

}  // namespace services
