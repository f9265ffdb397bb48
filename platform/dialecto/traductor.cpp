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
  Reescribir({distinct, from, orden}, conOcultas);
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
