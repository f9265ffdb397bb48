#include "salvaguarda/relato.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

#include "salvaguarda/tablas.h"

namespace salvaguarda {
namespace {

std::string YaNoEstan(bool conCopia) {
  const std::string frase = "No están entre lo grabado";
  return conCopia ? frase + "; lo que había antes está en Archivo, Recuperar una copia" : frase;
}

void Anadir(std::vector<Noticia>& noticias, const std::string& frase,
            const std::vector<Fila>& filas) {
  if (!filas.empty()) noticias.push_back({frase, filas});
}

/// A table in the user's words: "vencimientos (ProvVencimientos)"
std::string EnPalabras(const std::string& nombre) {
  const Tabla* tabla = BuscarTabla(nombre);
  return tabla ? std::string(tabla->Varias) + " (" + nombre + ")" : nombre;
}

}  // namespace

std::vector<Noticia> NoticiasDeGrabacion(const Omitidas& omitidas, bool conCopia) {
  std::vector<Noticia> noticias;
  for (const TablaOmitida& tabla : omitidas.Tablas) {
    std::string frase =
        "No se ha podido grabar nada de " + EnPalabras(tabla.Tabla) + ": " + tabla.Motivo;
    if (!tabla.Perdidas.empty()) frase += ". " + YaNoEstan(conCopia);
    noticias.push_back({std::move(frase), tabla.Perdidas});
  }
  for (const TablaOmitida& tabla : omitidas.SinBorrar) {
    noticias.push_back({"No se ha podido borrar nada de " + EnPalabras(tabla.Tabla) + ": " +
                        tabla.Motivo + ". Lo que se ha quitado de la lista sigue grabado"});
  }
  Anadir(noticias, "No se han podido grabar estas filas. " + YaNoEstan(conCopia), omitidas.Filas);
  const auto [previsiones, lasDemas] = SepararPrevisiones(omitidas.Repetidas);
  Anadir(
      noticias,
      "No se han podido grabar estas filas: ya hay otras con su número y su fecha, y siguen como "
      "estaban",
      lasDemas);
  Anadir(
      noticias,
      "No se han podido grabar estas previsiones: su concepto ya tiene otra, que sigue como estaba",
      previsiones);
  Anadir(noticias,
         "No se ha podido poner su factura a estos apuntes de caja, que siguen como estaban",
         omitidas.SinEnlazar);
  Anadir(noticias, "Se han grabado sin alguno de sus valores", omitidas.Incompletas);
  return noticias;
}

std::vector<Noticia> NoticiasDeCarga(const Omitidas& omitidas) {
  std::vector<Noticia> noticias;
  for (const TablaOmitida& tabla : omitidas.Tablas) {
    noticias.push_back({"No se ha podido cargar nada de " + EnPalabras(tabla.Tabla) + ": " +
                        tabla.Motivo +
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
