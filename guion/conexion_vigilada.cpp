#include "guion/conexion_vigilada.h"

#include <algorithm>
#include <utility>

#include "valores/error.h"

namespace guion {
namespace {

class CursorVigilado final : public services::Cursor {
 public:
  CursorVigilado(std::unique_ptr<services::Cursor> dentro, std::shared_ptr<Vigia> vigia)
      : dentro_(std::move(dentro)), vigia_(std::move(vigia)) {}

  [[nodiscard]] const std::vector<services::Columna>& Columnas() const override {
    return dentro_->Columnas();
  }
  [[nodiscard]] services::Filas Leer() override {
    vigia_->Llamada();
    return dentro_->Leer();
  }
  void Insertar(std::span<const services::Asignacion> valores) override {
    vigia_->Llamada();
    dentro_->Insertar(valores);
  }
  void InsertarLuego(std::span<const services::Asignacion> valores,
                     const services::AlNoInsertar& alNoInsertar) override {
    try {
      vigia_->Llamada();
    } catch (const services::ErrorEjecucion& fallo) {
      return alNoInsertar(fallo);
    }
    dentro_->InsertarLuego(valores, alNoInsertar);
  }
  [[nodiscard]] services::Filas LeerInsertada() override { return dentro_->LeerInsertada(); }
  void Bloquear(const services::Filas& filas, std::size_t fila) override {
    dentro_->Bloquear(filas, fila);
  }
  void Actualizar(const services::Filas& filas, std::size_t fila,
                  std::span<const services::Asignacion> valores) override {
    vigia_->Llamada();
    dentro_->Actualizar(filas, fila, valores);
  }

 private:
  std::unique_ptr<services::Cursor> dentro_;
  std::shared_ptr<Vigia> vigia_;
};

}  // namespace

void Vigia::Llamada() {
  for (Fallo& fallo : fallos_) --fallo.faltan;
  const auto toca = std::find_if(fallos_.begin(), fallos_.end(),
                                 [](const Fallo& fallo) { return fallo.faltan == 0; });
  if (toca == fallos_.end()) return;
  const std::int32_t numero = toca->numero;
  fallos_.erase(toca);
  throw services::ErrorEjecucion(numero, "Fallo provocado en la conexión " + base_);
}

void Vigia::Anotar(std::string_view sentencia, services::ModoApertura modo) {
  registro_->Sentencias.push_back({base_, modo, std::string(sentencia)});
}

std::unique_ptr<services::Cursor> ConexionVigilada::Abrir(std::string_view sentencia,
                                                          services::ModoApertura modo) {
  vigia_->Anotar(sentencia, modo);
  vigia_->Llamada();
  std::unique_ptr<services::Cursor> cursor = dentro_->Abrir(sentencia, modo);
  if (!cursor) return nullptr;
  return std::make_unique<CursorVigilado>(std::move(cursor), vigia_);
}

void ConexionVigilada::TerminarUnidad() {
  try {
    vigia_->Llamada();
  } catch (const services::ErrorEjecucion&) {
    dentro_->AbandonarUnidad();
    throw;
  }
  dentro_->TerminarUnidad();
}

}  // namespace guion
