#include "dialecto/semirreunion.h"

#include <algorithm>
#include <bit>

namespace dialecto {
namespace {

constexpr std::uint64_t Bit(int fuente) {
  return std::uint64_t{1} << static_cast<unsigned>(fuente);
}

const services::Columna& ColumnaDe(const Tabla& tabla, int columna) {
  return tabla.Columnas[static_cast<std::size_t>(columna)];
}

bool EsDeLaClave(const Tabla& tabla, int columna) {
  return std::ranges::find(tabla.Clave, columna) != tabla.Clave.end();
}

class Semirreunion {
 public:
  Semirreunion(const Motor& motor, const Reunion& reunion) : motor_(motor), reunion_(reunion) {}

  [[nodiscard]] bool Posible() const;
  [[nodiscard]] std::string Texto() const;

 private:
  using Junta = CondicionEscrita;

  [[nodiscard]] const Tabla& TablaDe(int fuente) const { return *En(fuente).Tabla; }
  [[nodiscard]] const Fuente& En(int fuente) const {
    return reunion_.Fuentes[static_cast<std::size_t>(fuente)];
  }
  [[nodiscard]] bool EsArbol() const;
  [[nodiscard]] std::uint64_t Alcanzadas(int fuente, const Junta* sin) const;
  [[nodiscard]] static int LaOtra(const Junta& junta, int fuente) {
    return std::countr_zero(junta.Fuentes & ~Bit(fuente));
  }
  [[nodiscard]] bool EsConsulta(const Junta& junta) const;
  [[nodiscard]] bool TraeUna(const Junta& junta, int fuente) const;

  [[nodiscard]] static std::string Entre(char comilla, std::string_view nombre) {
    return std::string(1, comilla).append(nombre) + comilla;
  }
  [[nodiscard]] std::string TextoDe(int fuente) const;
  [[nodiscard]] std::string NumeroDe(int fuente) const;
  [[nodiscard]] std::string Junto(int fuente, const Junta& junta) const;
  [[nodiscard]] std::string TextoDe(const Junta& junta) const {
    return std::string(reunion_.Texto.substr(junta.Desde, junta.Hasta - junta.Desde));
  }
  /// What stands behind FROM and behind WHERE to have some rows of a table.
  struct Filas {
    std::string De;
    std::string Donde = {};
    /// Whether their numbers are found first.
    bool PorNumeros = false;

    void Anadir(const std::string& condicion) {
      if (!condicion.empty()) Donde.append(Donde.empty() ? "" : " AND ").append(condicion);
    }
    [[nodiscard]] std::string Where() const { return Donde.empty() ? "" : " WHERE " + Donde; }
  };
  [[nodiscard]] Filas FilasDe(int fuente, const Junta* desde) const;
  void Restringir(Filas& filas, int fuente, const Junta& junta) const;

  const Motor& motor_;
  const Reunion& reunion_;
};

bool Semirreunion::Posible() const {
  if (motor_.NumeroDeFila.empty() || TablaDe(reunion_.Elegida).Clave.empty()) return false;
  const Junta* donde = reunion_.Donde;
  if (donde && (!donde->Calificada || std::popcount(donde->Fuentes) != 1)) return false;
  if (!EsArbol()) return false;
  std::uint64_t consultas = 0;
  for (const Junta& junta : reunion_.Juntas) {
    if (EsConsulta(junta)) consultas |= Bit(LaOtra(junta, reunion_.Elegida));
  }
  return (reunion_.ConColumnas & ~consultas) == 0;
}

/// Whether each join is of two tables, and each table is reached from the chosen one by one way.
bool Semirreunion::EsArbol() const {
  const auto cuantas = static_cast<int>(reunion_.Fuentes.size());
  if (static_cast<int>(reunion_.Juntas.size()) != cuantas - 1) return false;
  const bool deDos = std::ranges::all_of(reunion_.Juntas, [](const Junta& junta) {
    return junta.Calificada && !junta.ConLiterales && std::popcount(junta.Fuentes) == 2;
  });
  return deDos && std::popcount(Alcanzadas(reunion_.Elegida, nullptr)) == cuantas;
}

/// The tables that one is joined to, directly or not, by all joins but `sin`.
std::uint64_t Semirreunion::Alcanzadas(int fuente, const Junta* sin) const {
  std::uint64_t todas = Bit(fuente);
  for (std::uint64_t antes = 0; antes != todas;) {
    antes = todas;
    for (const Junta& junta : reunion_.Juntas) {
      if (&junta != sin && (junta.Fuentes & todas) != 0) todas |= junta.Fuentes;
    }
  }
  return todas;
}

/// Whether a join does no more than look up a row for each one of the chosen table: its columns are
/// then selected beside those.
bool Semirreunion::EsConsulta(const Junta& junta) const {
  if ((junta.Fuentes & Bit(reunion_.Elegida)) == 0) return false;
  const int fuente = LaOtra(junta, reunion_.Elegida);
  const bool esHoja = std::popcount(Alcanzadas(fuente, &junta)) == 1;
  const bool conDonde = reunion_.Donde && reunion_.Donde->Fuentes == Bit(fuente);
  return esHoja && !conDonde && (reunion_.ConColumnas & Bit(fuente)) != 0 && TraeUna(junta, fuente);
}

/// Whether a row of the chosen table meets one of the other at most: all columns of that one's key
/// are equal to columns that are compared in the same way.
bool Semirreunion::TraeUna(const Junta& junta, int fuente) const {
  const Tabla& suya = TablaDe(fuente);
  const Tabla& elegida = TablaDe(reunion_.Elegida);
  const auto iguala = [&](const ColumnaDeFuente& una, const ColumnaDeFuente& otra, int clave) {
    return una.Fuente == fuente && una.Columna == clave && otra.Fuente == reunion_.Elegida &&
           EsDeLaClave(elegida, otra.Columna) &&
           ColumnaDe(elegida, otra.Columna).Tipo == ColumnaDe(suya, clave).Tipo;
  };
  return junta.SoloY && !suya.Clave.empty() && std::ranges::all_of(suya.Clave, [&](int clave) {
           return std::ranges::any_of(junta.Igualdades, [&](const auto& par) {
             return iguala(par.first, par.second, clave) || iguala(par.second, par.first, clave);
           });
         });
}

std::string Semirreunion::TextoDe(int fuente) const {
  std::string tabla = Entre(motor_.Comilla, TablaDe(fuente).Nombre);
  if (En(fuente).Nombre == TablaDe(fuente).Nombre) return tabla;
  return tabla + " AS " + Entre(motor_.Comilla, En(fuente).Nombre);
}

std::string Semirreunion::NumeroDe(int fuente) const {
  return Entre(motor_.Comilla, En(fuente).Nombre).append(".").append(motor_.NumeroDeFila);
}

std::string Semirreunion::Junto(int fuente, const Junta& junta) const {
  return std::string(motor_.JuntaEnOrden) + TextoDe(fuente) + " ON " + TextoDe(junta);
}

/// The rows of a table that meet the statement's condition, if it looks at that table, and for
/// which there are rows of the tables joined to it, but for the one that it is looked at from.
Semirreunion::Filas Semirreunion::FilasDe(int fuente, const Junta* desde) const {
  Filas filas{.De = TextoDe(fuente)};
  if (reunion_.Donde && reunion_.Donde->Fuentes == Bit(fuente)) {
    filas.Anadir("(" + TextoDe(*reunion_.Donde) + ")");
  }
  for (const Junta& junta : reunion_.Juntas) {
    const bool suya = (junta.Fuentes & Bit(fuente)) != 0;
    if (suya && &junta != desde && !EsConsulta(junta)) Restringir(filas, fuente, junta);
  }
  return filas;
}

/// The first table joined to it is gone through first, and finds the rows in the order in which the
/// plain joins come upon them. Others are only asked whether they have any.
void Semirreunion::Restringir(Filas& filas, int fuente, const Junta& junta) const {
  Filas suyas = FilasDe(LaOtra(junta, fuente), &junta);
  const std::string numero = NumeroDe(fuente);
  const std::string numeros = suyas.De + Junto(fuente, junta);
  if (filas.PorNumeros) {
    return filas.Anadir(numero + " IN (SELECT " + numero + " FROM " + numeros + suyas.Where() +
                        ")");
  }
  suyas.Anadir(std::exchange(filas.Donde, ""));
  const std::string halladas = Entre(motor_.Comilla, "filas de " + std::string(En(fuente).Nombre));
  filas.De = "(SELECT DISTINCT " + numero + " AS fila FROM " + numeros + suyas.Where() + ") AS " +
             halladas + std::string(motor_.JuntaEnOrden) + TextoDe(fuente) + " ON " + numero +
             " = " + halladas + ".fila";
  filas.PorNumeros = true;
}

std::string Semirreunion::Texto() const {
  const Filas filas = FilasDe(reunion_.Elegida, nullptr);
  std::string texto = " FROM " + filas.De;
  for (const Junta& junta : reunion_.Juntas) {
    if (EsConsulta(junta)) texto += Junto(LaOtra(junta, reunion_.Elegida), junta);
  }
  return texto + filas.Where();
}

}  // namespace

std::optional<std::string> PorNumerosDeFila(const Motor& motor, const Reunion& reunion) {
  const Semirreunion semirreunion(motor, reunion);
  if (!semirreunion.Posible()) return std::nullopt;
  return semirreunion.Texto();
}

}  // namespace dialecto
