#include "salvaguarda/copia_en_curso.h"

#include <utility>

#include "salvaguarda/sql.h"

namespace salvaguarda {
namespace {

using sql::Juntar;
using sql::Texto;

std::string Cabecera(const Copia& copia) {
  return Juntar({"CREATE TABLE copia.Copia AS SELECT ", Texto(services::TextoIso(copia.Momento)),
                 " AS Momento, ", Texto(copia.Usuario), " AS Usuario, ", Texto(copia.Rango.Desde),
                 " AS Desde, ", Texto(copia.Rango.Hasta),
                 " AS Hasta, (SELECT count(*) FROM copia.ProvFacturas) AS Facturas, "
                 "(SELECT count(*) FROM copia.ProvVencimientos) AS Vencimientos;"});
}

}  // namespace

CopiaEnCurso::CopiaEnCurso(Copias& copias, sqlite::Conexion& base, const std::string& filas,
                           Copia copia)
    : copias_(copias),
      copia_(std::move(copia)),
      fichero_(copias.NombreLibre(copia_.Momento), Copias::Propio()) {
  copia_.Fichero = fichero_.Fichero();
  fichero_.Crear();  // the engine attaches what is there
  adjunta_.emplace(base, fichero_.EnCurso().string(), "copia");
  base.Ejecutar("PRAGMA copia.journal_mode = OFF; PRAGMA copia.synchronous = NORMAL");
  sql::Transaccion transaccion(base);
  base.Ejecutar(filas + Cabecera(copia_));
  transaccion.Terminar();
}

Copia CopiaEnCurso::Terminar() {
  adjunta_.reset();
  fichero_.Terminar();
  copias_.Podar(copia_.Fichero.filename());
  return copia_;
}

}  // namespace salvaguarda
