#include <algorithm>
#include <utility>

#include "dialecto/traductor.h"

// What an engine would take long to find, or would give in any order, asked for in another way.

namespace dialecto {

using services::TipoColumna;

void Traductor::Reescribir(const Trozos& trozos, bool conOcultas) {
  const auto reunion = SinRepetidas();
  const auto porNumero = reunion ? PorNumerosDeFila(motor_, *reunion) : std::nullopt;
  const auto porClave = reunion ? PorClavesDeFila(motor_, *reunion) : std::nullopt;
  const bool suya = porNumero || !salida_.Unica.empty() || (motor_.PorClaves && distintas_);
  const bool fuera = suya && OrdenarFuera();
  if (fuera) salida_.Texto.resize(trozos.orden);
  if (porNumero) PorNumeros(*porNumero, trozos, fuera);
  if (porClave && fuera) PorClaves(*porClave, trozos);
  if (motor_.PorClaves && fuera) DesempatarPorTextos();
  if (motor_.PorClaves && !conOcultas && ordenantes_.empty()) OrdenarPorLaClave();
}

/// The rows of a DISTINCT by their numbers, where that gives the same.
std::optional<Reunion> Traductor::SinRepetidas() const {
  Reunion reunion{.Texto = salida_.Texto,
                  .Fuentes = fuentes_,
                  .ConColumnas = orden_.Fuentes,
                  .Juntas = juntas_};
  if (donde_) reunion.Donde = &*donde_;
  for (const Elegida& elegida : elegidas_) {
    if (!elegida.tabla) return std::nullopt;
    if (elegida.columna >= 0) {
      reunion.ConColumnas |= std::uint64_t{1} << static_cast<unsigned>(elegida.fuente);
    } else if (std::exchange(reunion.Elegida, elegida.fuente) >= 0) {
      return std::nullopt;
    }
  }
  const bool llana = distintas_ && internas_ && !agrupa_ && orden_.Calificada;
  if (!llana || reunion.Elegida < 0) return std::nullopt;
  reunion.ConColumnas &= ~(std::uint64_t{1} << static_cast<unsigned>(reunion.Elegida));
  return reunion;
}

/// Rows that are equal in what they are sorted by come in one order even so.
void Traductor::DesempatarPorTextos() {
  auto& textos = salida_.Orden.Textos;
  for (std::size_t i = 0; i < salida_.Columnas.size(); ++i) {
    const bool esTexto = salida_.Columnas[i].Tipo == TipoColumna::Texto;
    if (esTexto && std::ranges::find(textos, i) == textos.end()) textos.push_back(i);
  }
}

/// Rows of one table that are to be read in no order.
void Traductor::OrdenarPorLaClave() {
  if (salida_.Unica.empty() || fuentes_.front().Tabla->Clave.empty()) return;
  salida_.FinSinOrden = salida_.Texto.size();
  Poner(" ORDER BY ");
  for (const int clave : fuentes_.front().Tabla->Clave) {
    if (clave != fuentes_.front().Tabla->Clave.front()) Poner(", ");
    PonerNombre(fuentes_.front().Tabla->Columnas[static_cast<std::size_t>(clave)].Nombre);
  }
}

/// Takes the place of what stands between FROM and ORDER BY, and of the DISTINCT.
void Traductor::PonerFilas(const FilasPorNumero& filas, const Trozos& trozos, bool conLugar) {
  std::string& texto = salida_.Texto;
  texto.replace(trozos.from, trozos.orden - trozos.from, filas.Desde);
  if (conLugar) texto.insert(trozos.from, ", " + filas.Orden);
  texto.erase(trozos.distinct, std::string_view("DISTINCT ").size());
}

void Traductor::PorNumeros(const FilasPorNumero& filas, const Trozos& trozos, bool ordenaQuienLee) {
  if (!ordenaQuienLee) {
    Poner(trozos.orden < salida_.Texto.size() ? ", " : " ORDER BY ");
    Poner(filas.Orden);
  }
  PonerFilas(filas, trozos, ordenaQuienLee);
  if (ordenaQuienLee) salida_.Orden.Puesto = salida_.Columnas.size();
}

/// Whoever fetches the rows sorts them by their places too.
void Traductor::PorClaves(const FilasPorClave& filas, const Trozos& trozos) {
  PonerFilas(filas, trozos, true);
  salida_.Orden.Textos.push_back(salida_.Columnas.size());
  salida_.Detras.push_back(filas.Lugar);
}

/// Rows that are shown are sorted sooner by the texts that they show than within the engine, which
/// knows the Spanish order only by asking for it at each step, and sorts rows whole. There are no
/// parameters in what is then left out: bare columns have none. A column with another name than its
/// table's is left alone, since the engine may mean that one.
bool Traductor::OrdenarFuera() {
  const bool conOtroNombre = std::ranges::any_of(
      elegidas_, [](const Elegida& elegida) { return !elegida.nombre.empty(); });
  if (!motor_.OrdenaQuienLee || conOtroNombre) return false;
  std::vector<std::size_t> textos;
  for (const Operando& ordenante : ordenantes_) {
    const auto posicion = PosicionDe(ordenante);
    if (!posicion || ordenante.tipo != TipoColumna::Texto) return false;
    textos.push_back(*posicion);
  }
  salida_.Orden.Textos = std::move(textos);
  return true;
}

/// Where a column is shown; none for one that isn't, or an expression.
std::optional<std::size_t> Traductor::PosicionDe(const Operando& columna) const {
  std::size_t posicion = 0;
  for (const Elegida& elegida : elegidas_) {
    const bool todas = elegida.tabla && elegida.columna < 0;
    const bool deSuFuente =
        elegida.tabla && columna.columna >= 0 && elegida.fuente == columna.fuente;
    if (deSuFuente && todas) return posicion + static_cast<std::size_t>(columna.columna);
    if (deSuFuente && elegida.columna == columna.columna) return posicion;
    posicion += todas ? elegida.tabla->Columnas.size() : 1;
  }
  return std::nullopt;
}

}  // namespace dialecto
