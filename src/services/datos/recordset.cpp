#include "datos/recordset.h"

#include <utility>

#include "datos/recordset_abierto.h"
#include "valores/error.h"

namespace services {

Recordset::Recordset() = default;
Recordset::~Recordset() = default;

Recordset::Abierto& Recordset::Exigir() const {
  if (!abierto_) throw ErrorEjecucion(error::RecordsetCerrado, "El recordset está cerrado");
  return *abierto_;
}

void Recordset::Open(std::string_view sentencia, Conexion& conexion, ModoApertura modo) {
  if (abierto_) throw ErrorEjecucion(error::RecordsetAbierto, "El recordset ya está abierto");
  auto cursor = conexion.Abrir(sentencia, modo);
  if (!cursor) return;
  auto abierto = std::make_unique<Abierto>(conexion, std::move(cursor), modo);
  const auto filtro = LeerFiltro(std::exchange(filtroAlAbrir_, {}));
  if (!filtro.Vacio()) abierto->Filtrar(filtro);
  abierto_ = std::move(abierto);
}

bool Recordset::State() const noexcept {
  return abierto_ != nullptr;
}

void Recordset::Close() {
  static_cast<void>(Exigir());
  abierto_.reset();
}

bool Recordset::Eof() {
  return Exigir().Eof();
}

void Recordset::MoveNext() {
  Exigir().MoveNext();
}

void Recordset::AddNew() {
  Exigir().AddNew();
}

void Recordset::Update() {
  Exigir().Update();
}

void Recordset::UpdateLuego(const AlNoInsertar& alNoEscribir) {
  Exigir().UpdateLuego(alNoEscribir);
}

void Recordset::EscribirPendientes() {
  Exigir().EscribirPendientes();
}

void Recordset::CancelUpdate() {
  Exigir().CancelUpdate();
}

std::size_t Recordset::CuantosFields() const {
  return Exigir().Columnas().size();
}

Recordset::Campo Recordset::Fields(std::size_t posicion) {
  return {*this, Exigir().Posicion(posicion)};
}

Recordset::Campo Recordset::Fields(std::string_view nombre) {
  return {*this, Exigir().Posicion(nombre)};
}

Recordset::Campo::Acceso Recordset::Collect(std::string_view nombre) {
  return {*this, Exigir().Posicion(nombre)};
}

void Recordset::Filter(std::string_view criterio) {
  const Filtro filtro = LeerFiltro(criterio);
  if (abierto_) {
    abierto_->Filtrar(filtro);
  } else {
    filtroAlAbrir_ = criterio;
  }
}

std::int64_t Recordset::RecordCount() const {
  return Exigir().RecordCount();
}

std::int64_t Recordset::AbsolutePosition() {
  return Exigir().AbsolutePosition();
}

void Recordset::AbsolutePosition(std::int64_t posicion) {
  Exigir().IrA(posicion);
}

const std::string& Recordset::Campo::Name() const {
  return Value.rs_->Exigir().Columnas()[Value.posicion_].Nombre;
}

Valor Recordset::Campo::Acceso::Leer() const {
  auto& abierto = rs_->Exigir();
  return abierto.Leer(abierto.Posicion(posicion_));
}

Recordset::Campo::Acceso& Recordset::Campo::Acceso::operator=(const Valor& valor) {
  auto& abierto = rs_->Exigir();
  abierto.Asignar(abierto.Posicion(posicion_), valor);
  return *this;
}

// A field assigned to itself is assigned all the same: the row has an edit pending then.
// NOLINTNEXTLINE(bugprone-unhandled-self-assignment)
Recordset::Campo::Acceso& Recordset::Campo::Acceso::operator=(const Acceso& otro) {
  return *this = otro.Leer();
}

}  // namespace services
