#include "guion/textos.h"

#include "valores/error.h"

namespace guion {
namespace {

/// A row that can only be read.
class CursorTextos final : public services::Cursor {
 public:
  CursorTextos(std::string pagina, std::string pantalla)
      : pagina_(std::move(pagina)), pantalla_(std::move(pantalla)) {}

  [[nodiscard]] const std::vector<services::Columna>& Columnas() const override {
    return columnas_;
  }
  [[nodiscard]] services::Filas Leer() override {
    services::Filas filas(columnas_.size());
    filas.AnadirTexto(pagina_);
    filas.AnadirTexto(pantalla_);
    return filas;
  }
  void Insertar(std::span<const services::Asignacion>) override { Negarse(); }
  [[nodiscard]] services::Filas LeerInsertada() override { Negarse(); }
  void Actualizar(const services::Filas&, std::size_t,
                  std::span<const services::Asignacion>) override {
    Negarse();
  }

 private:
  [[noreturn]] static void Negarse() {
    throw services::ErrorEjecucion(services::error::NoDisponible,
                                   "Los textos del idioma solo se leen");
  }

  std::string pagina_;
  std::string pantalla_;
  std::vector<services::Columna> columnas_{{"Pagina"}, {"Pantalla"}};
};

}  // namespace

std::unique_ptr<services::Cursor> ConexionTextos::Abrir(std::string_view, services::ModoApertura) {
  return std::make_unique<CursorTextos>(pagina_, pantalla_);
}

}  // namespace guion
