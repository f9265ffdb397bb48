#include "odbc/anticipadas.h"

#include <algorithm>
#include <utility>

#include "datos/orden_filas.h"
#include "dialecto/escritura.h"
#include "odbc/juntas.h"
#include "valores/error.h"

namespace odbc {

using services::Filas;

void Anticipadas::Poner(std::vector<std::string> sentencias, services::ModoApertura modo) {
  Olvidar();
  sentencias_.assign(std::make_move_iterator(sentencias.begin()),
                     std::make_move_iterator(sentencias.end()));
  modo_ = modo;
}

void Anticipadas::Olvidar() noexcept {
  sentencias_.clear();
  halladas_.clear();
}

std::optional<Filas> Anticipadas::Tomar(std::string_view sentencia,
                                        const dialecto::Sentencia& leida,
                                        services::ModoApertura modo) {
  if (sentencias_.empty() || sentencias_.front() != sentencia || modo != modo_) return std::nullopt;
  if (halladas_.empty()) {
    try {
      Preguntar(leida);
    } catch (const services::ErrorEjecucion&) {
      Olvidar();  // each by itself says what is the matter with it
      return std::nullopt;
    }
  }
  Filas filas = std::move(halladas_.front());
  halladas_.pop_front();
  sentencias_.pop_front();
  return filas;
}

/// As many of one form as go together, the one that is being opened among them.
std::vector<dialecto::Sentencia> Anticipadas::Siguientes(const dialecto::Sentencia& primera) {
  std::vector<dialecto::Sentencia> siguientes = {primera};
  while (siguientes.size() < std::min(kJuntas, sentencias_.size())) {
    auto leida = interprete_.Leer(sentencias_[siguientes.size()], modo_);
    if (leida.Traducida != primera.Traducida) break;
    siguientes.push_back(std::move(leida));
  }
  siguientes.erase(
      siguientes.begin() + static_cast<std::ptrdiff_t>(odbc::Siguientes(siguientes.size())),
      siguientes.end());
  return siguientes;
}

void Anticipadas::Preguntar(const dialecto::Sentencia& primera) {
  const auto siguientes = Siguientes(primera);
  const dialecto::Traduccion& traducida = *primera.Traducida;
  Parametros parametros;
  for (const auto& una : siguientes) parametros.Anadir(ParametrosDe(una));
  std::vector<services::Columna> columnas = {{"", services::TipoColumna::Entero}};
  columnas.insert(columnas.end(), traducida.Columnas.begin(), traducida.Columnas.end());
  const Filas todas = unidad_.Leer(
      dialecto::TextoDeConsultas(traducida.Texto, traducida.FinSinOrden, siguientes.size()),
      parametros, columnas);
  halladas_.assign(siguientes.size(), Filas(traducida.Columnas.size()));
  for (std::size_t fila = 0; fila < todas.Cuantas(); ++fila) {
    Filas& suyas = halladas_[static_cast<std::size_t>(todas.Entero(fila, 0))];
    for (std::size_t i = 1; i < columnas.size(); ++i) suyas.AnadirCelda(todas, fila, i);
  }
  for (Filas& filas : halladas_) services::Ordenar(filas, traducida.Orden);
}

}  // namespace odbc
