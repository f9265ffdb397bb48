#include "shell/datos_comunes.h"

#include <utility>

#include "store/firma.h"
#include "valores/error.h"

namespace shell {
namespace {

using services::ErrorEjecucion;
using services::IForm;
using services::IUnknown;
using services::Ref;
namespace error = services::error;

/// What a failed operation of the host says of itself.
std::string MotivoDe(const Ref<services::IDatosClase>& datos, const char* operacion) {
  std::string motivo;
  if (auto descrito = datos.Como<services::IDescripcionError>()) motivo = descrito->Descripcion();
  return motivo.empty() ? std::string("El anfitrión no ha completado ") + operacion : motivo;
}

Ref<IForm> ComoForm(const Ref<IUnknown>& objeto, const std::string& nombre) {
  Ref<IForm> form = objeto.Como<IForm>();
  if (!form) {
    throw ErrorEjecucion(error::InterfazNoDisponible,
                         "Lo que el anfitrión entrega como " + nombre + " no es un formulario");
  }
  return form;
}

services::Conexion& Exigir(const Ref<services::Conexion>& conexion, const char* nombre,
                           const char* de) {
  if (!conexion) {
    throw ErrorEjecucion(
        error::ObjetoNoEstablecido,
        std::string("El anfitrión no ha entregado la conexión ") + nombre + " (" + de + ")");
  }
  return *conexion;
}

/// A message is a wait for the user: what was written before it is made durable.
class AvisoConEspera final : public services::Aviso {
 public:
  AvisoConEspera(std::unique_ptr<services::Aviso> aviso, services::Escritorio& escritorio)
      : aviso_(std::move(aviso)), escritorio_(escritorio) {}

  int Mostrar(const std::string& texto, int flags, const std::string& titulo) override {
    int respuesta = 0;
    const bool pregunta =
        flags == services::mensaje::SiNo || flags == services::mensaje::SiNoCancelar;
    escritorio_.Esperar([&] { respuesta = aviso_->Mostrar(texto, flags, titulo); }, pregunta);
    return respuesta;
  }

 private:
  std::unique_ptr<services::Aviso> aviso_;
  services::Escritorio& escritorio_;
};

}  // namespace

DatosComunes::DatosComunes(const services::Plataforma& plataforma)
    : plataforma_(plataforma), escritorio_(plataforma), imprenta_(plataforma, escritorio_) {
  escritorio_.AlTerminarEvento = [this] { TerminarUnidades(); };
  escritorio_.AlFallarEvento = [this] { DeshacerAlmacenado(); };
}

DatosComunes::~DatosComunes() = default;

void DatosComunes::RecibirSesion(Ref<services::IDatosClase> datos) {
  if (!datos) {
    throw ErrorEjecucion(error::ObjetoNoEstablecido,
                         "Cargar necesita el objeto de contexto del anfitrión");
  }
  if (!valores_.RsSesion13) valores_.RsSesion13 = services::Crear<services::Recordset>();
  if (!valores_.RsTextos) valores_.RsTextos = services::Crear<services::Recordset>();
  if (!valores_.RsSesion11) valores_.RsSesion11 = services::Crear<services::Recordset>();

  Valores v = valores_;
  Ref<IUnknown> principal = FrmPrincipal_;
  Ref<IUnknown> marco = FrmMarco_;
  const services::HRESULT resultado =
      datos->EntregarSesion(v.CnDatos, v.ObjSesion2, v.CnTemp, v.ObjSesion4, v.ObjSesion5, marco,
                            principal, v.AnchoReferencia, v.AltoReferencia, v.ValorSesion10,
                            v.RsSesion11, v.RsTextos, v.RsSesion13, v.ClaveBorrado, v.Usuario);
  if (services::hr::Fallido(resultado)) {
    throw ErrorEjecucion(resultado, MotivoDe(datos, "EntregarSesion"));
  }
  Ref<IForm> FrmMarco = ComoForm(marco, "FrmMarco");
  Ref<IForm> FrmPrincipal = ComoForm(principal, "FrmPrincipal");
  Exigir(v.CnDatos, "CnDatos", "tablas de la empresa");
  Exigir(v.CnTemp, "CnTemp", "tablas de trabajo");
  store::ExigirFirma(*v.CnDatos, v.Usuario);
  FrmMarco_ = std::move(FrmMarco);
  FrmPrincipal_ = std::move(FrmPrincipal);
  DatosClase_ = std::move(datos);
  valores_ = std::move(v);
}

std::optional<store::Intervalo> DatosComunes::CopiaPorRetomar() const {
  store::Intervalo rango;
  const auto anfitrion = DatosClase_.Como<services::ICopiaPorRetomar>();
  if (!anfitrion || !anfitrion->HayCopiaPorRetomar(rango.Desde, rango.Hasta)) return std::nullopt;
  return rango;
}

void DatosComunes::Repintar(services::Form& pantalla) {
  if (!DatosClase_) return;
  const auto pedir = [this](Ref<IUnknown> form, const std::string& nombre) {
    const services::HRESULT resultado = DatosClase_->RepintarForm(form);
    if (services::hr::Fallido(resultado)) {
      throw ErrorEjecucion(resultado, MotivoDe(DatosClase_, "RepintarForm"));
    }
    return ComoForm(form, nombre);
  };
  const Ref<IForm> devuelta = pedir(static_cast<IForm*>(&pantalla), pantalla.Nombre());
  if (devuelta.get() != &pantalla) {
    throw ErrorEjecucion(error::InterfazNoDisponible,
                         "El anfitrión ha devuelto otro formulario por " + pantalla.Nombre());
  }
  FrmPrincipal_ = pedir(FrmPrincipal_, "FrmPrincipal");
}

services::Conexion& DatosComunes::CnDatos() const {
  if (perdida_) throw ErrorEjecucion(*perdida_);
  return Exigir(valores_.CnDatos, "CnDatos", "tablas de la empresa");
}

services::Conexion& DatosComunes::CnTemp() const {
  return Exigir(valores_.CnTemp, "CnTemp", "tablas de trabajo");
}

void DatosComunes::AnotarBorrado(const std::string& sentencia) {
  Ref<services::Conexion> devuelta = valores_.CnDatos;
  Utiles().AnotarBorrado(valores_.ClaveBorrado, devuelta, sentencia);
  Exigir(devuelta, "CnDatos", "tras anotar un borrado");
  if (devuelta.get() == valores_.CnDatos.get()) return;
  // What the old one wrote holds the new one off, until it is durable.
  try {
    valores_.CnDatos->TerminarUnidad();
  } catch (const ErrorEjecucion& fallo) {
    perdida_ = fallo;
    throw;
  }
  valores_.CnDatos = std::move(devuelta);
}

// Whoever hears of a failure can't bring another one into the stretch that goes on.
void DatosComunes::PasadoPorAlto(const services::Omision& omision) noexcept {
  try {
    if (plataforma_.PasadoPorAlto) plataforma_.PasadoPorAlto(*this, omision);
  } catch (...) {
    return;
  }
}

std::string DatosComunes::TextoDe(const char* columna) const {
  if (!valores_.RsTextos) {
    throw ErrorEjecucion(error::ObjetoNoEstablecido, "El anfitrión no ha entregado los textos");
  }
  return valores_.RsTextos->Collect(columna).Texto();
}

services::Utiles& DatosComunes::Utiles() {
  if (!utiles_) utiles_ = plataforma_.CrearUtiles(*this);
  return *utiles_;
}

services::Aviso& DatosComunes::Aviso() {
  if (!aviso_) aviso_ = std::make_unique<AvisoConEspera>(plataforma_.CrearAviso(), escritorio_);
  return *aviso_;
}

void DatosComunes::TerminarUnidades() {
  if (!valores_.CnDatos || !valores_.CnTemp) return;
  try {
    if (perdida_) throw ErrorEjecucion(*std::exchange(perdida_, {}));
    valores_.CnDatos->TerminarUnidad();
  } catch (...) {
    // What the working tables have since then belongs to rows that the stored ones now lack.
    valores_.CnTemp->AbandonarUnidad();
    throw;
  }
  valores_.CnTemp->TerminarUnidad();
}

// The working tables keep what was written to them: they are what the user goes on with.
void DatosComunes::DeshacerAlmacenado() {
  perdida_.reset();
  if (valores_.CnDatos) valores_.CnDatos->AbandonarUnidad();
  if (valores_.CnTemp) valores_.CnTemp->TerminarUnidad();
}

}  // namespace shell
