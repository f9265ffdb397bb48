#include "largo/puesto.h"

#include <utility>

#include "salvaguarda/conexion_con_guardia.h"

namespace largo {
namespace {

using services::Ref;

/// A database of which the component gets another connection than whoever plays the host.
class BaseConPuerta final : public guion::Base {
 public:
  BaseConPuerta(guion::Base& detras, Ref<services::Conexion> conexion)
      : detras_(detras), conexion_(std::move(conexion)) {}

  Ref<services::Conexion> Conexion() override { return conexion_; }
  void Agrupar(bool porEvento) override { detras_.Agrupar(porEvento); }
  void Ejecutar(const std::string& sql) override { detras_.Ejecutar(sql); }
  std::vector<Fila> Consultar(const std::string& sql) override { return detras_.Consultar(sql); }

 private:
  guion::Base& detras_;
  Ref<services::Conexion> conexion_;
};

guion::Opciones EnCarpeta(const std::filesystem::path& carpeta) {
  guion::Opciones opciones;
  opciones.Datos = Puesto::FicheroDatos(carpeta);
  opciones.Local = Puesto::FicheroLocal(carpeta);
  return opciones;
}

Ref<sqlite::Conexion> DeFichero(guion::Base& base) {
  return Ref<sqlite::Conexion>(&dynamic_cast<sqlite::Conexion&>(*base.Conexion()));
}

Ref<services::Conexion> SinPuerta(Ref<services::Conexion> detras) {
  return detras;
}

}  // namespace

Puesto::Puesto(const std::filesystem::path& carpeta) : Puesto(carpeta, {SinPuerta, SinPuerta}) {}

Puesto::Puesto(const std::filesystem::path& carpeta, const Puertas& puertas)
    : ficheros_(EnCarpeta(carpeta)),
      datos_(DeFichero(bases_.Datos())),
      local_(DeFichero(bases_.Local())),
      almacen_(std::make_shared<salvaguarda::AlmacenEnFichero>(datos_, FicheroDatos(carpeta))),
      guardia_(std::make_shared<salvaguarda::Guardia>(
          salvaguarda::Guardia::Bases{almacen_, local_, FicheroFoto(carpeta)},
          salvaguarda::Guardia::Lugares{carpeta / "copias", carpeta / "registro.txt"}, "ANA",
          salvaguarda::Trato{
              .Ahora = [this] { return mundo_.Entorno().Ahora(); },
              .Preguntar = [this](const std::string& pregunta) { return Preguntar(pregunta); },
              .Apartar = [this, carpeta] { return ApartarDejada(carpeta); }})),
      deDatos_(std::make_unique<BaseConPuerta>(
          bases_.Datos(), puertas.Datos(Ref<services::Conexion>(
                              services::Crear<salvaguarda::ConexionGuardada>(datos_, guardia_))))),
      deLocal_(std::make_unique<BaseConPuerta>(
          bases_.Local(), puertas.Local(Ref<services::Conexion>(
                              services::Crear<salvaguarda::ConexionDeTrabajo>(local_, guardia_))))),
      mundo_(*deDatos_, *deLocal_,
             [this] {
               return Ref<services::IClassTesvara>(
                   services::Crear<shell::ClassTesvara>(sesion_, pantallas_));
             }),
      plataforma_(mundo_.Plataforma()) {
  mundo_.DatosClase() = contexto_;
  plataforma_.PasadoPorAlto = [this, apuntar = plataforma_.PasadoPorAlto](
                                  services::Sesion& sesion, const services::Omision& omision) {
    guardia_->PasadoPorAlto(omision);
    apuntar(sesion, omision);
  };
}

Ref<sqlite::Conexion> Puesto::AbrirLocal(const std::filesystem::path& carpeta) {
  return sqlite::AbrirConexion(FicheroLocal(carpeta),
                               {.Durabilidad = sqlite::Sincronizacion::Normal, .Exclusiva = true});
}

std::string Puesto::ApartarDejada(const std::filesystem::path& carpeta) {
  const std::filesystem::path aparte = carpeta / "dejada.sqlite";
  std::filesystem::remove(aparte);
  local_->CopiarEn(aparte);
  return aparte;
}

int Puesto::CopiasAMedias(const std::filesystem::path& carpeta) {
  int ficheros = 0;
  std::error_code sinCarpeta;
  for (const auto& entrada : std::filesystem::directory_iterator(carpeta / "copias", sinCarpeta)) {
    const std::string nombre = entrada.path().filename();
    if (nombre.starts_with("filas-") && nombre.ends_with(".sqlite")) ++ficheros;
  }
  return ficheros - static_cast<int>(salvaguarda::Copias(carpeta / "copias").Guardadas().size());
}

}  // namespace largo
