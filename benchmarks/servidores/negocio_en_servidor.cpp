#include "negocio_en_servidor.h"

#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "datos/recordset.h"
#include "medida.h"
#include "odbc/texto_de_conexion.h"

namespace medidas {
namespace {

std::string NombreNuevo() {
  static int cuantos = 0;
  return "medida_" + std::to_string(getpid()) + "_" + std::to_string(++cuantos);
}

std::string Con(std::string texto, const std::string& nombre) {
  return texto.replace(texto.find('#'), 1, nombre);
}

}  // namespace

Servidor ServidorDe(const std::string& nombre, const std::string& texto) {
  const odbc::TextoDeConexion partes(texto);
  const std::string puerto(partes.Valor("Port"));
  if (nombre == "postgresql") {
    return {nombre, texto,
            "psql -X -q -v ON_ERROR_STOP=1 -h 127.0.0.1 -p " + puerto + " -U " +
                std::string(partes.Valor("Username")) + " -d " +
                std::string(partes.Valor("Database")) + " -f ",
            "SET search_path TO #;\n", "ANALYZE "};
  }
  return {nombre, texto,
          "mariadb --no-defaults -h127.0.0.1 -P" + puerto + " -u" +
              std::string(partes.Valor("User")) + " < ",
          "USE #;\n", "ANALYZE TABLE "};
}

NegocioEnServidor::NegocioEnServidor(Servidor servidor, apoyo::Tamano tamano)
    : servidor_(std::move(servidor)), local_(tamano), esquema_(servidor_.Texto, NombreNuevo()) {
  const auto destino = odbc::AbrirConexion(
      servidor_.Texto, {.Esquema = esquema_.Nombre(), .CualquierSentencia = true});
  esquema::CrearAlmacenadas(*destino);
  const auto origen = sqlite::AbrirConexion(local_.FicheroDatos(), {.CualquierSentencia = true});
  for (const esquema::Tabla& tabla : esquema::Almacenadas()) {
    const std::string nombre(tabla.Nombre);
    if (nombre != "SorvexBorrados") Volcar(nombre, *origen, *destino);
    destino->Ejecutar(servidor_.Analizar + nombre);
  }
}

void NegocioEnServidor::Volcar(const std::string& tabla, services::Conexion& origen,
                               services::Conexion& destino) {
  const std::string sentencia = "SELECT " + tabla + ".* FROM " + tabla;
  services::Recordset de;
  services::Recordset a;
  de.Open(sentencia, origen, services::ModoApertura::Lectura);
  a.Open(sentencia, destino, services::ModoApertura::Optimista);
  for (; !de.Eof(); de.MoveNext()) {
    a.AddNew();
    for (std::size_t i = 0; i < de.CuantosFields(); ++i) {
      a.Fields(i).Value = services::Valor(de.Fields(i).Value);
    }
    a.UpdateLuego([](const auto& fallo) { throw services::ErrorEjecucion(fallo); });
  }
  destino.TerminarUnidad();
}

double NegocioEnServidor::CorrerCliente(const std::string& sql) const {
  const std::string fichero = carpeta_.Fichero("guion.sql");
  const std::string dicho = carpeta_.Fichero("dicho.txt");
  std::ofstream(fichero) << Con(servidor_.Entrar, esquema_.Nombre()) << sql;
  const std::string orden = servidor_.Cliente + fichero + " >/dev/null 2>" + dicho;
  int estado = 0;
  const double segundos = Segundos([&] { estado = std::system(orden.c_str()); });
  if (estado == 0) return segundos;
  std::ostringstream texto;
  texto << std::ifstream(dicho).rdbuf();
  throw std::runtime_error(texto.str());
}

std::string NegocioEnServidor::Resumen() const {
  const auto filas =
      Abrir()
          ->Consultar(
              "SELECT (SELECT count(*) FROM ProvFacturas), (SELECT sum(Total) FROM ProvFacturas), "
              "(SELECT count(*) FROM ProvBasesIva), (SELECT sum(Base) FROM ProvBasesIva), "
              "(SELECT count(*) FROM ProvVencimientos), (SELECT sum(Pagado) FROM "
              "ProvVencimientos), (SELECT count(*) FROM CajaPagos WHERE Factura <> '')")
          .Filas;
  std::string resumen;
  for (std::size_t i = 0; i < filas.Columnas(); ++i) resumen += filas.En(0, i).Texto() + " ";
  return resumen;
}

}  // namespace medidas
