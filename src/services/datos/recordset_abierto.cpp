#include "datos/recordset_abierto.h"

#include <algorithm>

#include "datos/conversion.h"
#include "valores/error.h"
#include "valores/texto.h"

namespace services {

Recordset::Abierto::Abierto(Conexion& conexion, std::unique_ptr<Cursor> cursor, ModoApertura modo)
    : conexion_(&conexion), cursor_(std::move(cursor)), modo_(modo) {
  if (modo_ == ModoApertura::Lectura) LeerFilas();
}

std::size_t Recordset::Abierto::Posicion(std::size_t posicion) const {
  if (posicion < Columnas().size()) return posicion;
  throw ErrorEjecucion(error::CampoDesconocido,
                       "La fila no tiene el campo " + std::to_string(posicion));
}

// Callers name the columns of each row in the same order, so what was named after the last one is
// named again.
std::size_t Recordset::Abierto::Posicion(std::string_view nombre) {
  const auto& columnas = Columnas();
  if (columnas.empty()) return Buscar(nombre);
  if (siguientes_.empty()) siguientes_.resize(columnas.size());
  std::size_t& siguiente = siguientes_[nombrada_];
  if (columnas[siguiente].Nombre != nombre) siguiente = Buscar(nombre);
  return nombrada_ = siguiente;
}

std::size_t Recordset::Abierto::Buscar(std::string_view nombre) const {
  const auto& columnas = Columnas();
  auto hallada = std::ranges::find(columnas, nombre, &Columna::Nombre);
  if (hallada == columnas.end()) {
    hallada = std::ranges::find_if(
        columnas, [&](const Columna& columna) { return MismoTexto(columna.Nombre, nombre); });
  }
  if (hallada != columnas.end()) return static_cast<std::size_t>(hallada - columnas.begin());
  throw ErrorEjecucion(error::CampoDesconocido,
                       "La fila no tiene el campo «" + std::string(nombre) + "»");
}

void Recordset::Abierto::LeerFilas() {
  filas_ = cursor_->Leer();
  leidas_ = true;
  escritas_ = false;
  IrALaPrimera();
}

void Recordset::Abierto::AsegurarFilas() {
  if (!leidas_) LeerFilas();
}

bool Recordset::Abierto::Pasa(std::size_t fila) const {
  return !textoFiltro_ || Igual(filas_.En(fila, columnaFiltro_), *textoFiltro_).value_or(false);
}

void Recordset::Abierto::SaltarLasQueNoPasan() {
  while (fila_ < filas_.Cuantas() && !Pasa(fila_)) ++fila_;
}

void Recordset::Abierto::IrALaPrimera() {
  lugar_ = Lugar::EnFilas;
  fila_ = 0;
  ordinal_ = 1;
  escrita_.reset();
  SaltarLasQueNoPasan();
}

bool Recordset::Abierto::Eof() {
  if (edicion_ == Edicion::Alta || lugar_ == Lugar::Anadida) return false;
  if (lugar_ == Lugar::AlFinal) return true;
  AsegurarFilas();
  return fila_ >= filas_.Cuantas();
}

void Recordset::Abierto::ExigirFila() {
  if (Eof()) throw ErrorEjecucion(error::SinFilaActual, "No hay una fila actual");
}

void Recordset::Abierto::MoveNext() {
  Update();
  ExigirFila();
  escrita_.reset();
  if (lugar_ == Lugar::Anadida) {
    lugar_ = Lugar::AlFinal;
    return;
  }
  ++fila_;
  ++ordinal_;
  SaltarLasQueNoPasan();
}

void Recordset::Abierto::Filtrar(const Filtro& filtro) {
  const std::size_t columna = filtro.Vacio() ? 0 : Posicion(filtro.Columna);
  OlvidarEdicion();
  columnaFiltro_ = columna;
  textoFiltro_.reset();
  if (!filtro.Vacio()) textoFiltro_ = Valor(filtro.Texto);
  if (leidas_ && !escritas_) {
    IrALaPrimera();
  } else {
    LeerFilas();
  }
}

void Recordset::Abierto::IrA(std::int64_t posicion) {
  if (posicion < 1 || posicion > RecordCount()) {
    throw ErrorEjecucion(error::SinFilaActual, "No hay una fila en esa posición");
  }
  IrALaPrimera();
  while (ordinal_ < posicion) MoveNext();
}

std::int64_t Recordset::Abierto::RecordCount() const {
  if (modo_ != ModoApertura::Lectura) return -1;
  if (!textoFiltro_) return static_cast<std::int64_t>(filas_.Cuantas());
  std::int64_t cuantas = 0;
  for (std::size_t fila = 0; fila < filas_.Cuantas(); ++fila) cuantas += Pasa(fila) ? 1 : 0;
  return cuantas;
}

std::int64_t Recordset::Abierto::AbsolutePosition() {
  if (edicion_ == Edicion::Alta || lugar_ == Lugar::Anadida) return -1;
  return Eof() ? -3 : ordinal_;
}

const Filas& Recordset::Abierto::Origen(std::size_t& fila) {
  ExigirFila();
  if (lugar_ == Lugar::Anadida && !escrita_) escrita_ = cursor_->LeerInsertada();
  fila = escrita_ ? 0 : fila_;
  return escrita_ ? *escrita_ : filas_;
}

Valor Recordset::Abierto::Leer(std::size_t columna) {
  if (edicion_ != Edicion::Ninguna && asignado_[columna]) return nuevos_[columna];
  if (edicion_ == Edicion::Alta) return {};
  std::size_t fila = 0;
  const Filas& origen = Origen(fila);
  return origen.En(fila, columna);
}

void Recordset::Abierto::ExigirEscritura() const {
  if (modo_ == ModoApertura::Lectura) {
    throw ErrorEjecucion(error::NoDisponible, "El recordset se abrió solo para leer");
  }
}

void Recordset::Abierto::Asignar(std::size_t columna, const Valor& valor) {
  ExigirEscritura();
  if (edicion_ == Edicion::Ninguna) {
    ExigirFila();
    PrepararValores();
  }
  nuevos_[columna] = valor;
  asignado_[columna] = 1;
  if (edicion_ == Edicion::Ninguna) EmpezarCambio();
}

void Recordset::Abierto::EmpezarCambio() {
  edicion_ = Edicion::Cambio;
  if (modo_ != ModoApertura::Pesimista) return;
  std::size_t fila = 0;
  const Filas& origen = Origen(fila);
  cursor_->Bloquear(origen, fila);
}

void Recordset::Abierto::PrepararValores() {
  nuevos_.resize(Columnas().size());
  convertidos_.resize(Columnas().size());
  asignado_.assign(Columnas().size(), 0);
}

void Recordset::Abierto::AddNew() {
  ExigirEscritura();
  Update();
  PrepararValores();
  edicion_ = Edicion::Alta;
}

void Recordset::Abierto::ConvertirAsignados() {
  asignaciones_.clear();
  for (std::size_t i = 0; i < nuevos_.size(); ++i) {
    if (!asignado_[i]) continue;
    asignaciones_.push_back({i, &Convertir(nuevos_[i], Columnas()[i], convertidos_[i])});
  }
}

void Recordset::Abierto::UpdateLuego(const AlNoInsertar& alNoEscribir) {
  if (edicion_ != Edicion::Alta) return Update();
  ConvertirAsignados();
  cursor_->InsertarLuego(asignaciones_, alNoEscribir);
  escrita_.reset();
  lugar_ = Lugar::Anadida;
  escritas_ = true;
  OlvidarEdicion();
}

void Recordset::Abierto::Update() {
  if (edicion_ == Edicion::Ninguna) return;
  ConvertirAsignados();
  edicion_ == Edicion::Alta ? EscribirAlta() : EscribirCambio();
  escritas_ = true;
  OlvidarEdicion();
}

void Recordset::Abierto::EscribirAlta() {
  cursor_->Insertar(asignaciones_);
  escrita_.reset();
  lugar_ = Lugar::Anadida;
}

void Recordset::Abierto::EscribirCambio() {
  std::size_t fila = 0;
  const Filas& origen = Origen(fila);
  cursor_->Actualizar(origen, fila, asignaciones_);
  escrita_ = ConLoEscrito(origen, fila);
}

Filas Recordset::Abierto::ConLoEscrito(const Filas& antes, std::size_t fila) const {
  Filas despues(antes.Columnas());
  auto asignacion = asignaciones_.begin();
  for (std::size_t i = 0; i < antes.Columnas(); ++i) {
    const bool nuevo = asignacion != asignaciones_.end() && asignacion->Posicion == i;
    if (nuevo) {
      despues.Anadir(*asignacion++->Nuevo);
    } else {
      despues.AnadirCelda(antes, fila, i);
    }
  }
  return despues;
}

void Recordset::Abierto::OlvidarEdicion() {
  edicion_ = Edicion::Ninguna;
}

void Recordset::Abierto::CancelUpdate() {
  OlvidarEdicion();
}

}  // namespace services
