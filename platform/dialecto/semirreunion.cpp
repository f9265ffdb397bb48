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

std::string Envuelto(const Envoltura& envoltura, const std::string& texto) {
  return std::string(envoltura.Antes).append(texto).append(envoltura.Despues);
}

class Semirreunion {
 public:
  Semirreunion(const Motor& motor, const Reunion& reunion) : motor_(motor), reunion_(reunion) {}

  [[nodiscard]] bool Posible() const;
  [[nodiscard]] bool Numerada() const;
  [[nodiscard]] FilasPorNumero Filas() const;
  [[nodiscard]] bool PorValores() const;
  [[nodiscard]] FilasPorClave Claves() const;

 private:
  using Junta = CondicionEscrita;
  using Igualdad = std::pair<ColumnaDeFuente, ColumnaDeFuente>;

  [[nodiscard]] const Tabla& TablaDe(int fuente) const { return *En(fuente).Tabla; }
  [[nodiscard]] const Fuente& En(int fuente) const {
    return reunion_.Fuentes[static_cast<std::size_t>(fuente)];
  }
  [[nodiscard]] bool EsCamino() const;
  [[nodiscard]] bool CadaUnaUnaVez(const Junta& junta) const;
  [[nodiscard]] static int LaOtra(const Junta& junta, int fuente) {
    return std::countr_zero(junta.Fuentes & ~Bit(fuente));
  }
  [[nodiscard]] bool EsConsulta(const Junta& junta) const;
  [[nodiscard]] bool TraeUna(const Junta& junta, int fuente) const;

  [[nodiscard]] static std::string Entre(char comilla, std::string_view nombre) {
    return std::string(1, comilla).append(nombre) + comilla;
  }
  [[nodiscard]] std::string TextoDe(int fuente) const;
  [[nodiscard]] const services::Columna& DelLugar() const {
    const ColumnaDeFuente& primera = reunion_.Donde->Primera;
    return ColumnaDe(TablaDe(primera.Fuente), primera.Columna);
  }
  [[nodiscard]] std::string TextoDe(const ColumnaDeFuente& columna) const;
  [[nodiscard]] std::string NombreDe(const ColumnaDeFuente& columna) const;
  [[nodiscard]] std::string NumeroDe(int fuente) const;
  [[nodiscard]] std::string Junto(int fuente, const Junta& junta) const;
  [[nodiscard]] std::string TextoDe(const Junta& junta) const {
    return std::string(reunion_.Texto.substr(junta.Desde, junta.Hasta - junta.Desde));
  }
  [[nodiscard]] static std::vector<Igualdad> Pares(const Junta& junta, int fuente);
  [[nodiscard]] std::string JuntoAHalladas(int fuente, const Junta& junta) const;
  [[nodiscard]] std::string HalladasPorValores(int fuente, const Junta& junta) const;
  [[nodiscard]] const Junta* Siguiente(int fuente, const Junta* desde) const;
  [[nodiscard]] std::string HalladasDe(int fuente) const;
  [[nodiscard]] std::string FilasDe(int fuente, const Junta* desde, const Envoltura& numeros) const;

  const Motor& motor_;
  const Reunion& reunion_;
};

bool Semirreunion::Numerada() const {
  return !motor_.NumeroDeFila.empty() &&
         std::ranges::all_of(reunion_.Fuentes,
                             [](const Fuente& una) { return una.Tabla->Numerada; });
}

bool Semirreunion::Posible() const {
  if (TablaDe(reunion_.Elegida).Clave.empty()) return false;
  const Junta* donde = reunion_.Donde;
  if (!donde || !donde->Calificada || std::popcount(donde->Fuentes) != 1) return false;
  const bool deDos = std::ranges::all_of(reunion_.Juntas, [](const Junta& junta) {
    return junta.Calificada && !junta.ConLiterales && std::popcount(junta.Fuentes) == 2;
  });
  return deDos && EsCamino();
}

/// Whether all tables but those that are looked up are on the way from the chosen one to that of
/// the condition, each once, and nothing is selected of those on it.
bool Semirreunion::EsCamino() const {
  std::uint64_t vistas = Bit(reunion_.Elegida);
  for (const Junta& junta : reunion_.Juntas) {
    if (EsConsulta(junta)) vistas |= junta.Fuentes;
  }
  if ((reunion_.ConColumnas & ~vistas) != 0) return false;
  int fuente = reunion_.Elegida;
  for (const Junta* junta = Siguiente(fuente, nullptr); junta; junta = Siguiente(fuente, junta)) {
    fuente = LaOtra(*junta, fuente);
    if ((vistas & Bit(fuente)) != 0) return false;
    vistas |= Bit(fuente);
  }
  const auto cuantas = reunion_.Fuentes.size();
  const bool todas = static_cast<std::size_t>(std::popcount(vistas)) == cuantas &&
                     reunion_.Juntas.size() == cuantas - 1;
  return todas && fuente != reunion_.Elegida && reunion_.Donde->Fuentes == Bit(fuente);
}

/// Whether a join does no more than look up a row for each one of the chosen table: its columns are
/// then selected beside those.
bool Semirreunion::EsConsulta(const Junta& junta) const {
  if ((junta.Fuentes & Bit(reunion_.Elegida)) == 0) return false;
  const int fuente = LaOtra(junta, reunion_.Elegida);
  const bool esHoja = std::ranges::count_if(reunion_.Juntas, [&](const Junta& una) {
                        return (una.Fuentes & Bit(fuente)) != 0;
                      }) == 1;
  const bool conDonde = reunion_.Donde->Fuentes == Bit(fuente);
  return esHoja && !conDonde && (reunion_.ConColumnas & Bit(fuente)) != 0 && TraeUna(junta, fuente);
}

/// Whether a row of the chosen table meets one of the other at most: all columns of that one's key
/// are equal to columns that are compared in the same way.
bool Semirreunion::TraeUna(const Junta& junta, int fuente) const {
  const Tabla& suya = TablaDe(fuente);
  const Tabla& elegida = TablaDe(reunion_.Elegida);
  const auto iguala = [&](const ColumnaDeFuente& una, const ColumnaDeFuente& otra, int clave) {
    const bool recortadas = una.SinBlancos || otra.SinBlancos;
    return !recortadas && una.Fuente == fuente && una.Columna == clave &&
           otra.Fuente == reunion_.Elegida && EsDeLaClave(elegida, otra.Columna) &&
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

/// The join by which a table is reached, from the side of the table that the condition looks at.
const CondicionEscrita* Semirreunion::Siguiente(int fuente, const Junta* desde) const {
  const auto siguiente = std::ranges::find_if(reunion_.Juntas, [&](const Junta& junta) {
    return &junta != desde && (junta.Fuentes & Bit(fuente)) != 0 && !EsConsulta(junta);
  });
  return siguiente == reunion_.Juntas.end() ? nullptr : &*siguiente;
}

/// The numbers of a table's rows, under a name that no table has.
std::string Semirreunion::HalladasDe(int fuente) const {
  return Entre(motor_.Comilla, "filas de " + std::string(En(fuente).Nombre));
}

/// What stands behind FROM to have the rows of a table that are joined to some that meet the
/// condition, their numbers sorted as `numeros` does.
std::string Semirreunion::FilasDe(int fuente, const Junta* desde, const Envoltura& numeros) const {
  const Junta* junta = Siguiente(fuente, desde);
  if (!junta) return TextoDe(fuente);
  const int otra = LaOtra(*junta, fuente);
  const std::string numero = NumeroDe(fuente);
  const std::string halladas = HalladasDe(fuente);
  std::string texto(numeros.Antes);
  texto += "SELECT " + Envuelto(motor_.Reunidos, numero) + " FROM " +
           FilasDe(otra, junta, motor_.Numeros) + Junto(fuente, *junta);
  if (reunion_.Donde->Fuentes == Bit(otra)) texto += " WHERE " + TextoDe(*reunion_.Donde);
  return texto.append(numeros.Despues) + " AS " + halladas + std::string(motor_.JuntaEnOrden) +
         TextoDe(fuente) + " ON " + numero + " = " + halladas + ".numero";
}

/// Fetched as they lie in the file, and sorted as the plain joins come upon them.
FilasPorNumero Semirreunion::Filas() const {
  FilasPorNumero filas{" FROM " + FilasDe(reunion_.Elegida, nullptr, motor_.NumerosEnOrden),
                       HalladasDe(reunion_.Elegida) + ".orden"};
  for (const Junta& junta : reunion_.Juntas) {
    if (EsConsulta(junta)) filas.Desde += Junto(LaOtra(junta, reunion_.Elegida), junta);
  }
  return filas;
}

std::string Semirreunion::TextoDe(const ColumnaDeFuente& columna) const {
  const Tabla& tabla = TablaDe(columna.Fuente);
  const auto conNombre = [&](std::string_view nombre) {
    return Entre(motor_.Comilla, En(columna.Fuente).Nombre) + "." + Entre(motor_.Comilla, nombre);
  };
  std::string texto = conNombre(ColumnaDe(tabla, columna.Columna).Nombre);
  if (!columna.SinBlancos) return texto;
  const auto recortada =
      std::ranges::find(tabla.Recortadas, columna.Columna, &Tabla::Recortada::Columna);
  return recortada == tabla.Recortadas.end() ? Envuelto(motor_.Recorte, texto)
                                             : conNombre(recortada->Nombre);
}

/// What it is called among what was found.
std::string Semirreunion::NombreDe(const ColumnaDeFuente& columna) const {
  const std::string& nombre = ColumnaDe(TablaDe(columna.Fuente), columna.Columna).Nombre;
  return Entre(motor_.Comilla, columna.SinBlancos ? nombre + " sin blancos" : nombre);
}

/// The pairs of a join, the column of that source first.
std::vector<Semirreunion::Igualdad> Semirreunion::Pares(const Junta& junta, int fuente) {
  std::vector<Igualdad> pares = junta.Igualdades;
  for (auto& [suya, deOtra] : pares) {
    if (suya.Fuente != fuente) std::swap(suya, deOtra);
  }
  return pares;
}

/// What joins a table by `junta` to those rows of the other that were found, each of their values
/// there once.
std::string Semirreunion::JuntoAHalladas(int fuente, const Junta& junta) const {
  const int otra = LaOtra(junta, fuente);
  std::string texto =
      HalladasPorValores(otra, junta) + std::string(motor_.JuntaEnOrden) + TextoDe(fuente) + " ON ";
  bool primera = true;
  for (const auto& [suya, deOtra] : Pares(junta, fuente)) {
    if (!std::exchange(primera, false)) texto += " AND ";
    texto += TextoDe(suya) + " = " + HalladasDe(otra) + "." + NombreDe(deOtra);
  }
  return texto;
}

/// What the rows of a table that lead to some that meet the condition have in the columns of
/// `junta`, each once, with the place of the first.
std::string Semirreunion::HalladasPorValores(int fuente, const Junta& junta) const {
  std::string columnas;
  std::string valores;
  for (const auto& [suya, deOtra] : Pares(junta, fuente)) {
    columnas += TextoDe(suya) + " AS " + NombreDe(suya) + ", ";
    valores += (valores.empty() ? "" : ", ") + TextoDe(suya);
  }
  const bool esLaDelDonde = reunion_.Donde->Fuentes == Bit(fuente);
  const Junta* siguiente = esLaDelDonde ? nullptr : Siguiente(fuente, &junta);
  std::string lugar;
  std::string desde;
  if (esLaDelDonde) {
    lugar = TextoDe(reunion_.Donde->Primera);
    desde = TextoDe(fuente) + " WHERE " + TextoDe(*reunion_.Donde);
  } else {
    lugar = HalladasDe(LaOtra(*siguiente, fuente)) + ".orden";
    desde = JuntoAHalladas(fuente, *siguiente);
  }
  return "(SELECT " + columnas + "MIN(" + lugar + ") AS orden FROM " + desde + " GROUP BY " +
         valores + ") AS " + HalladasDe(fuente);
}

/// Whether no column is compared twice: it would be found twice under one name.
bool Semirreunion::CadaUnaUnaVez(const Junta& junta) const {
  std::vector<std::string> columnas;
  for (const auto& [una, otra] : junta.Igualdades) {
    columnas.push_back(TextoDe(una));
    columnas.push_back(TextoDe(otra));
  }
  std::ranges::sort(columnas);
  return std::ranges::adjacent_find(columnas) == columnas.end();
}

bool Semirreunion::PorValores() const {
  const bool iguales = std::ranges::all_of(reunion_.Juntas, [&](const Junta& junta) {
    return EsConsulta(junta) || (junta.SoloY && junta.SoloIgualdades && !junta.Igualdades.empty() &&
                                 CadaUnaUnaVez(junta));
  });
  return iguales && DelLugar().Tipo == services::TipoColumna::Texto;
}

FilasPorClave Semirreunion::Claves() const {
  const Junta& primera = *Siguiente(reunion_.Elegida, nullptr);
  FilasPorClave filas{{" FROM " + JuntoAHalladas(reunion_.Elegida, primera),
                       HalladasDe(LaOtra(primera, reunion_.Elegida)) + ".orden"},
                      DelLugar()};
  for (const Junta& junta : reunion_.Juntas) {
    if (EsConsulta(junta)) filas.Desde += Junto(LaOtra(junta, reunion_.Elegida), junta);
  }
  return filas;
}

}  // namespace

std::optional<FilasPorNumero> PorNumerosDeFila(const Motor& motor, const Reunion& reunion) {
  const Semirreunion semirreunion(motor, reunion);
  if (!semirreunion.Numerada() || !semirreunion.Posible()) return std::nullopt;
  return semirreunion.Filas();
}

std::optional<FilasPorClave> PorClavesDeFila(const Motor& motor, const Reunion& reunion) {
  const Semirreunion semirreunion(motor, reunion);
  const bool posible = motor.PorClaves && semirreunion.Posible() && semirreunion.PorValores();
  if (!posible) return std::nullopt;
  return semirreunion.Claves();
}

}  // namespace dialecto
