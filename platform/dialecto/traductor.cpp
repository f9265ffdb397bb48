#include "dialecto/traductor.h"

#include <utility>

#include "dialecto/rechazo.h"

namespace dialecto {

using services::ErrorEjecucion;
using services::TipoColumna;
namespace error = services::error;

Traduccion Traductor::Traducir(bool conOcultas) {
  if (Tomar(Palabra::Select)) {
    Select(conOcultas);
  } else if (Tomar(Palabra::Delete)) {
    Delete();
  } else {
    Rechazar("no empieza por SELECT ni por DELETE", sentencia_);
  }
  return std::move(salida_);
}

void Traductor::NoEsperado() const {
  const Token& token = Actual();
  if (token.clase == ClaseToken::Fin) Rechazar("está sin terminar", sentencia_);
  const auto desde = static_cast<std::size_t>(token.texto.data() - sentencia_.data());
  Rechazar("no se esperaba esto", sentencia_.substr(desde));
}

std::string_view Traductor::ExigirNombre() {
  if (Actual().clase != ClaseToken::Nombre) NoEsperado();
  return tokens_[i_++].texto;
}

void Traductor::PonerNombre(std::string_view nombre) {
  auto& texto = salida_.Texto;
  texto += motor_.Comilla;
  texto += nombre;
  texto += motor_.Comilla;
}

// The columns of a SELECT come before the tables that tell their types, so the tables are looked
// up first.
void Traductor::BuscarFuentes() {
  std::size_t i = i_;
  while (i < Ultimo() && tokens_[i].palabra != Palabra::From) ++i;
  bool esperaTabla = false;
  for (; i < Ultimo(); ++i) {
    const Token& token = tokens_[i];
    if (token.palabra == Palabra::Where || token.palabra == Palabra::Group ||
        token.palabra == Palabra::Order) {
      break;
    }
    if (token.palabra == Palabra::From || token.palabra == Palabra::Join ||
        token.simbolo == Simbolo::Coma) {
      esperaTabla = true;
    } else if (esperaTabla && token.clase == ClaseToken::Nombre) {
      AnadirFuente(i);
      esperaTabla = false;
    }
  }
  agrupa_ = std::any_of(tokens_.begin(), tokens_.end(),
                        [](const Token& token) { return token.palabra == Palabra::Group; });
}

void Traductor::AnadirFuente(std::size_t token) {
  const Tabla& tabla = catalogo_.Exigir(tokens_[token].texto);
  const Token& alias = tokens_[std::min(token + 2, Ultimo())];
  const bool conAlias =
      tokens_[token + 1].palabra == Palabra::As && alias.clase == ClaseToken::Nombre;
  if (fuentes_.size() == kMasFuentes) Rechazar("demasiadas tablas", sentencia_);
  fuentes_.push_back({conAlias ? alias.texto : std::string_view(tabla.Nombre), &tabla});
}

int Traductor::FuenteDe(std::string_view nombre) const {
  const auto fuente = std::ranges::find_if(
      fuentes_, [&](const Fuente& una) { return MismoNombre(una.Nombre, nombre); });
  if (fuente != fuentes_.end()) return static_cast<int>(fuente - fuentes_.begin());
  throw ErrorEjecucion(error::ColumnaDesconocida,
                       "La sentencia no toma nada de la tabla «" + std::string(nombre) + "»");
}

void Traductor::Select(bool conOcultas) {
  salida_.Que = Verbo::Select;
  Poner("SELECT ");
  const std::size_t distinct = salida_.Texto.size();
  distintas_ = Tomar(Palabra::Distinct);
  if (distintas_) Poner("DISTINCT ");
  BuscarFuentes();
  if (fuentes_.empty()) Rechazar("no dice de qué tabla", sentencia_);
  Elegidas();
  const bool deUna = fuentes_.size() == 1 && !distintas_ && !agrupa_;
  if (deUna) salida_.Unica = fuentes_.front().Tabla->Nombre;
  if (deUna && conOcultas) Ocultas();
  const std::size_t from = salida_.Texto.size();
  From();
  Where();
  GroupBy();
  const std::size_t orden = salida_.Texto.size();
  OrderBy();
  Final();
  Columnas();
  const auto reunion = SinRepetidas();
  const auto porNumero = reunion ? PorNumerosDeFila(motor_, *reunion) : std::nullopt;
  const auto porClave = reunion ? PorClavesDeFila(motor_, *reunion) : std::nullopt;
  const bool suya = porNumero || !salida_.Unica.empty() || (motor_.PorClaves && distintas_);
  const bool fuera = suya && OrdenarFuera();
  if (fuera) salida_.Texto.resize(orden);
  if (porNumero) PorNumeros(*porNumero, {distinct, from, orden}, fuera);
  if (porClave && fuera) PorClaves(*porClave, {distinct, from, orden});
  if (motor_.PorClaves && fuera) DesempatarPorTextos();
  if (motor_.PorClaves && !conOcultas && ordenantes_.empty()) OrdenarPorLaClave();
}

void Traductor::Elegidas() {
  do {
    if (!elegidas_.empty()) Poner(", ");
    UnaElegida();
  } while (Tomar(Simbolo::Coma));
}

void Traductor::ElegidasDe(int fuente) {
  PonerNombre(En(fuente).Nombre);
  Poner(".*");
  elegidas_.push_back({En(fuente).Tabla, fuente, -1, {}, {}});
}

void Traductor::UnaElegida() {
  if (Tomar(Simbolo::Asterisco)) {
    for (int fuente = 0; fuente < static_cast<int>(fuentes_.size()); ++fuente) {
      if (fuente > 0) Poner(", ");
      ElegidasDe(fuente);
    }
    return;
  }
  const bool todas = Actual().clase == ClaseToken::Nombre && Proximo().simbolo == Simbolo::Punto &&
                     tokens_[std::min(i_ + 2, Ultimo())].simbolo == Simbolo::Asterisco;
  if (todas) {
    ElegidasDe(FuenteDe(Actual().texto));
    i_ += 3;
    return;
  }
  const Operando operando = Expresion();
  Elegida elegida{operando.tabla, operando.fuente, operando.columna, operando.tipo, {}};
  if (Tomar(Palabra::As)) {
    elegida.nombre = ExigirNombre();
    Poner(" AS ");
    PonerNombre(elegida.nombre);
  }
  elegidas_.push_back(elegida);
}

void Traductor::Ocultas() {
  for (const std::string& oculta : fuentes_.front().Tabla->Ocultas) {
    Poner(", ");
    PonerNombre(fuentes_.front().Nombre);
    Poner(".");
    Poner(oculta);
  }
}

void Traductor::From() {
  Exigir(Palabra::From);
  Poner(" FROM ");
  Fuentes();
}

void Traductor::Fuentes() {
  UnaFuente();
  Juntas();
  while (Tomar(Simbolo::Coma)) {
    Poner(", ");
    UnaFuente();
    Juntas();
  }
}

void Traductor::UnaFuente() {
  if (Tomar(Simbolo::Abrir)) {
    if (++profundidad_ > 64) NoEsperado();
    Poner("(");
    Fuentes();
    Exigir(Simbolo::Cerrar);
    Poner(")");
    --profundidad_;
    return;
  }
  const Tabla* tabla = catalogo_.Buscar(ExigirNombre());
  if (!tabla) NoEsperado();
  PonerNombre(tabla->Nombre);
  if (Tomar(Palabra::As)) {
    Poner(" AS ");
    PonerNombre(ExigirNombre());
  }
}

void Traductor::Juntas() {
  while (true) {
    if (Tomar(Palabra::Inner)) {
      Poner(" INNER JOIN ");
    } else if (Tomar(Palabra::Left)) {
      Poner(" LEFT JOIN ");
      internas_ = false;
    } else if (Tomar(Palabra::Right)) {
      Poner(" RIGHT JOIN ");
      internas_ = false;
    } else {
      return;
    }
    Exigir(Palabra::Join);
    UnaFuente();
    Exigir(Palabra::On);
    Poner(" ON ");
    Condicion(juntas_.emplace_back());
  }
}

void Traductor::Where() {
  if (!Tomar(Palabra::Where)) return;
  Poner(" WHERE ");
  Condicion(donde_.emplace());
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

void Traductor::GroupBy() {
  if (!Tomar(Palabra::Group)) return;
  Exigir(Palabra::By);
  Poner(" GROUP BY ");
  Expresion();
  while (Tomar(Simbolo::Coma)) {
    Poner(", ");
    Expresion();
  }
}

void Traductor::OrderBy() {
  if (!Tomar(Palabra::Order)) return;
  Exigir(Palabra::By);
  Poner(" ORDER BY ");
  enCurso_ = &orden_;
  bool primera = true;
  do {
    if (!primera) Poner(", ");
    primera = false;
    ordenantes_.push_back(Expresion());
    if (Tomar(Palabra::Desc)) {
      Poner(" DESC");
      ordenantes_.back() = {};
    } else {
      static_cast<void>(Tomar(Palabra::Asc));
    }
  } while (Tomar(Simbolo::Coma));
  enCurso_ = nullptr;
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

void Traductor::Final() {
  static_cast<void>(Tomar(Simbolo::PuntoYComa));
  if (Actual().clase != ClaseToken::Fin) NoEsperado();
}

void Traductor::Delete() {
  salida_.Que = Verbo::Delete;
  BuscarFuentes();
  if (fuentes_.size() != 1) NoEsperado();
  const Fuente fuente = fuentes_.front();
  if (Actual().clase == ClaseToken::Nombre) {
    static_cast<void>(FuenteDe(ExigirNombre()));
    Exigir(Simbolo::Punto);
    Exigir(Simbolo::Asterisco);
  } else {
    static_cast<void>(Tomar(Simbolo::Asterisco));
  }
  Exigir(Palabra::From);
  static_cast<void>(ExigirNombre());
  Poner("DELETE FROM ");
  PonerNombre(fuente.Tabla->Nombre);
  salida_.Borra = fuente.Tabla->Nombre;
  Where();
  Final();
}

void Traductor::UnaColumna(services::Columna columna, std::string origen) {
  salida_.Columnas.push_back(std::move(columna));
  salida_.Origenes.push_back(std::move(origen));
}

void Traductor::Columnas() {
  for (const Elegida& elegida : elegidas_) {
    if (elegida.tabla && elegida.columna < 0) {
      for (const auto& columna : elegida.tabla->Columnas) UnaColumna(columna, columna.Nombre);
      continue;
    }
    services::Columna columna;
    std::string origen;
    if (elegida.tabla) {
      columna = elegida.tabla->Columnas[static_cast<std::size_t>(elegida.columna)];
      origen = columna.Nombre;
    } else {
      columna.Nombre = "Expr" + std::to_string(1000 + salida_.Columnas.size());
      columna.Tipo = elegida.tipo.value_or(TipoColumna::Numero);
    }
    if (!elegida.nombre.empty()) columna.Nombre = elegida.nombre;
    UnaColumna(std::move(columna), std::move(origen));
  }
}

}  // namespace dialecto
