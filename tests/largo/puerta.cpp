#include "largo/puerta.h"

#include <utility>

namespace largo {
namespace {

class CursorVigilado final : public services::Cursor {
 public:
  CursorVigilado(std::unique_ptr<services::Cursor> detras, std::shared_ptr<Vigilante> vigilante)
      : detras_(std::move(detras)), vigilante_(std::move(vigilante)) {}

  const std::vector<services::Columna>& Columnas() const override { return detras_->Columnas(); }
  services::Filas Leer() override {
    vigilante_->AlLlamar();
    return detras_->Leer();
  }
  void Insertar(std::span<const services::Asignacion> valores) override {
    vigilante_->AlLlamar();
    detras_->Insertar(valores);
  }
  services::Filas LeerInsertada() override { return detras_->LeerInsertada(); }
  void Actualizar(const services::Filas& filas, std::size_t fila,
                  std::span<const services::Asignacion> valores) override {
    vigilante_->AlLlamar();
    detras_->Actualizar(filas, fila, valores);
  }

 private:
  std::unique_ptr<services::Cursor> detras_;
  std::shared_ptr<Vigilante> vigilante_;
};

class ConexionVigilada final : public services::ObjetoContado<services::Conexion> {
 public:
  ConexionVigilada(services::Ref<services::Conexion> detras, std::shared_ptr<Vigilante> vigilante)
      : detras_(std::move(detras)), vigilante_(std::move(vigilante)) {}

  std::unique_ptr<services::Cursor> Abrir(std::string_view sentencia,
                                          services::ModoApertura modo) override {
    vigilante_->AlAbrir(sentencia);
    vigilante_->AlLlamar();
    auto cursor = detras_->Abrir(sentencia, modo);
    if (!cursor) return nullptr;
    return std::make_unique<CursorVigilado>(std::move(cursor), vigilante_);
  }
  std::vector<services::Columna> ColumnasDe(std::string_view tabla) override {
    return detras_->ColumnasDe(tabla);
  }
  void TerminarUnidad() override {
    vigilante_->AlLlamar();
    detras_->TerminarUnidad();
  }
  void AbandonarUnidad() noexcept override { detras_->AbandonarUnidad(); }
  bool EmpezarLectura() noexcept override { return detras_->EmpezarLectura(); }
  void TerminarLectura() noexcept override { detras_->TerminarLectura(); }

 private:
  services::Ref<services::Conexion> detras_;
  std::shared_ptr<Vigilante> vigilante_;
};

}  // namespace

services::Ref<services::Conexion> Vigilar(services::Ref<services::Conexion> detras,
                                          std::shared_ptr<Vigilante> vigilante) {
  return services::Ref<services::Conexion>(
      services::Crear<ConexionVigilada>(std::move(detras), std::move(vigilante)));
}

}  // namespace largo
