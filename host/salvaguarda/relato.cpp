#include "salvaguarda/relato.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "salvaguarda/tablas.h"

namespace salvaguarda {
namespace {

constexpr const char* kYaNoEstan =
    ". Estas filas ya no están entre lo grabado; lo que había antes está en Archivo, Recuperar una "
    "copia";

void Anadir(std::vector<Noticia>& noticias, const std::string& frase,
            const std::vector<Fila>& filas) {
  if (!filas.empty()) noticias.push_back({frase, filas});
}

/// A table in the user's words: "vencimientos (ProvVencimientos)"
std::string LoSuyo(const Fila& fila) {
  const Tabla* tabla = BuscarTabla(fila.Tabla);
  return tabla ? std::string(tabla->Varias) + " (" + fila.Tabla + ")" : fila.Tabla;
}

/// With the rows of it that are gone.
Noticia DeTablaSinGrabar(const Fila& tabla, const std::vector<Fila>& perdidas) {
  Noticia noticia{"No se ha podido grabar nada de " + LoSuyo(tabla) + ": " + tabla.Motivo};
  std::ranges::copy_if(perdidas, std::back_inserter(noticia.Filas),
                       [&](const Fila& fila) { return fila.Tabla == tabla.Tabla; });
  if (!noticia.Filas.empty()) noticia.Frase += kYaNoEstan;
  return noticia;
}

}  // namespace

std::vector<Noticia> NoticiasDeGrabacion(const Omitidas& omitidas) {
  std::vector<Noticia> noticias;
  for (const Fila& tabla : omitidas.Tablas) {
    noticias.push_back(DeTablaSinGrabar(tabla, omitidas.Perdidas));
  }
  Anadir(noticias,
         "No se han podido grabar estas filas, y ya no están entre lo grabado; lo que había antes "
         "está en Archivo, Recuperar una copia",
         omitidas.Filas);
  Anadir(noticias, "Se han grabado sin alguno de sus valores", omitidas.Incompletas);
  return noticias;
}

std::vector<Noticia> NoticiasDeCarga(const Omitidas& omitidas) {
  std::vector<Noticia> noticias;
  for (const Fila& tabla : omitidas.Tablas) {
    noticias.push_back({"No se ha podido cargar nada de " + LoSuyo(tabla) + ": " + tabla.Motivo +
                        ". La lista no está completa y no se podrá grabar: pulse Cancelar para "
                        "volver a cargarla"});
  }
  Anadir(
      noticias,
      "No se han podido buscar los apuntes de caja de estas facturas, y Grabar fallará con ellas",
      omitidas.SinApuntes);
  Anadir(noticias, "Se han cargado sin alguno de sus valores", omitidas.Incompletas);
  Anadir(noticias, "No se han cargado estos apuntes de caja", omitidas.Apuntes);
  return noticias;
}

Noticia NoticiaDeNoCargadas(const std::vector<Fila>& filas) {
  return {"No se han cargado estas filas, que no se ven en la lista y que Grabar borraría", filas};
}

Noticia NoticiaDeGemelas(const std::vector<Fila>& filas) {
  return {
      "Hay facturas con un mismo número, salvo blancos o mayúsculas: un pago escrito en una puede "
      "quedar grabado en la otra",
      filas};
}

}  // namespace salvaguarda
