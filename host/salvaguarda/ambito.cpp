#include "salvaguarda/ambito.h"

#include "salvaguarda/adjunta.h"
#include "salvaguarda/consultas.h"
#include "salvaguarda/sql.h"

namespace salvaguarda {
namespace {

using sql::Juntar;
using sql::Texto;

std::string Vacio() {
  std::string todo = "DROP TABLE IF EXISTS temp.AmbitoCaja;";
  for (const std::string_view tabla : {"DelRango", "EnLaLista", "SoloConBases", "Ambito"}) {
    todo += Juntar({"DROP TABLE IF EXISTS temp.", tabla, ";"}) + sql::CrearClaves("temp", tabla);
  }
  for (const std::string_view tabla :
       {"PrevisionDelRango", "PrevisionDeTrabajo", "AmbitoPrevision"}) {
    todo += Juntar({"DROP TABLE IF EXISTS temp.", tabla, "; CREATE TEMP TABLE ", tabla,
                    " (NConcepto TEXT COLLATE ES PRIMARY KEY) WITHOUT ROWID;"});
  }
  return todo +
         "CREATE TEMP TABLE AmbitoCaja (idSucursal TEXT COLLATE ES, FechaHora, Tipo INTEGER, "
         "PRIMARY KEY (idSucursal, FechaHora, Tipo)) WITHOUT ROWID;";
}

/// In statements of many rows each.
std::string Insertar(std::string_view tabla, const std::vector<std::string>& filas) {
  constexpr std::size_t kDeUnaVez = 500;
  std::string texto;
  for (std::size_t i = 0; i < filas.size(); ++i) {
    if (i % kDeUnaVez == 0) texto += Juntar({"INSERT OR IGNORE INTO ", tabla, " VALUES "});
    const bool ultima = (i + 1) % kDeUnaVez == 0 || i + 1 == filas.size();
    texto += Juntar({"(", filas[i], ultima ? ");" : "),"});
  }
  return texto;
}

std::string InsertarDe(std::string_view tabla, std::string_view consulta) {
  return Juntar({"INSERT OR IGNORE INTO ", tabla, " ", consulta, ";"});
}

std::string Crear(std::string_view tabla, std::string_view consulta) {
  return Juntar({"CREATE TABLE ", tabla, " AS ", consulta, ";"});
}

std::vector<std::string> Valores(const std::vector<Claves::Factura>& claves) {
  std::vector<std::string> filas;
  filas.reserve(claves.size());
  for (const auto& f : claves) {
    filas.push_back(Juntar({Texto(f.NConcepto), ",trim(", Texto(f.Factura), "),", Texto(f.Anio)}));
  }
  return filas;
}

std::vector<std::string> Valores(const std::vector<std::string>& conceptos) {
  std::vector<std::string> filas;
  filas.reserve(conceptos.size());
  for (const std::string& concepto : conceptos) filas.push_back(Texto(concepto));
  return filas;
}

std::vector<std::string> Valores(const std::vector<Claves::Apunte>& apuntes) {
  std::vector<std::string> filas;
  filas.reserve(apuntes.size());
  for (const auto& a : apuntes) {
    filas.push_back(
        Juntar({Texto(a.idSucursal), ",MOMENTO(", Texto(a.FechaHora), "),", Texto(a.Tipo)}));
  }
  return filas;
}

std::string EnLaCopia(const Tabla& tabla) {
  return Juntar({"copia.", tabla.Nombre});
}

/// The stored rows that bear the keys, and the keys.
std::string PorClaves() {
  std::string todo;
  for (const Tabla& tabla : TablasDeFactura()) {
    todo += Crear(EnLaCopia(tabla), sql::FilasDe(tabla, "temp.Ambito"));
  }
  return todo + Crear(EnLaCopia(Previsiones()), sql::PrevisionesCon("temp.AmbitoPrevision")) +
         Crear(EnLaCopia(Apuntes()), sql::ApuntesCon("temp.AmbitoCaja")) +
         sql::CrearClaves("copia", "Claves") +
         InsertarDe("copia.Claves", "SELECT * FROM temp.Ambito") +
         Crear("copia.ClavesPrevision", "SELECT * FROM temp.AmbitoPrevision");
}

}  // namespace

std::string CopiaDeGrabacion(sqlite::Conexion& base, const Rango& rango, const Claves& claves) {
  return Vacio() + InsertarDe("temp.DelRango", sql::ClavesDelRango(base, rango)) +
         InsertarDe("temp.Ambito", "SELECT * FROM temp.DelRango") +
         InsertarDe("temp.Ambito", "SELECT * FROM foto.Claves") +
         Insertar("temp.EnLaLista", Valores(claves.EnLaLista)) +
         Insertar("temp.SoloConBases", Valores(claves.SoloConBases)) +
         Insertar("temp.PrevisionDeTrabajo", Valores(claves.Previsiones)) +
         InsertarDe("temp.Ambito", "SELECT * FROM temp.EnLaLista") +
         InsertarDe("temp.Ambito", "SELECT * FROM temp.SoloConBases") +
         InsertarDe("temp.PrevisionDelRango",
                    Juntar({"SELECT NConcepto FROM (", sql::PrevisionesDe(rango), ")"})) +
         InsertarDe("temp.AmbitoPrevision", "SELECT * FROM temp.PrevisionDelRango") +
         InsertarDe("temp.AmbitoPrevision", "SELECT * FROM temp.PrevisionDeTrabajo") +
         InsertarDe("temp.AmbitoPrevision", "SELECT NConcepto FROM foto.ProvPrevisionPagos") +
         InsertarDe("temp.AmbitoCaja", sql::ClavesDeApuntes("foto.CajaPagos")) +
         Insertar("temp.AmbitoCaja", Valores(claves.Apuntes)) + PorClaves();
}

std::string CopiaDeFoto(const Claves& nuevas) {
  std::string todo =
      sql::CrearClaves("copia", "Claves") +
      InsertarDe("copia.Claves", "SELECT * FROM foto.Claves") +
      Insertar("copia.Claves", Valores(nuevas.EnLaLista)) +
      Insertar("copia.Claves", Valores(nuevas.SoloConBases)) +
      Crear("copia.ClavesPrevision", "SELECT NConcepto FROM foto.ProvPrevisionPagos") +
      Insertar("copia.ClavesPrevision", Valores(nuevas.Previsiones));
  for (const Tabla& tabla : Tablas()) {
    todo += Crear(EnLaCopia(tabla), Juntar({"SELECT * FROM foto.", tabla.Nombre}));
  }
  return todo;
}

std::string CopiaDeCopia(std::string_view nombre) {
  const auto suya = [&](std::string_view tabla) { return Juntar({nombre, ".", tabla}); };
  return Vacio() + InsertarDe("temp.Ambito", "SELECT * FROM " + suya("Claves")) +
         InsertarDe("temp.AmbitoPrevision", "SELECT * FROM " + suya("ClavesPrevision")) +
         InsertarDe("temp.AmbitoCaja", sql::ClavesDeApuntes(suya("CajaPagos"))) + PorClaves();
}

std::string AmbitoDe(const Claves& claves) {
  return Vacio() + Insertar("temp.Ambito", Valores(claves.EnLaLista)) +
         Insertar("temp.Ambito", Valores(claves.SoloConBases)) +
         Insertar("temp.AmbitoPrevision", Valores(claves.Previsiones)) +
         Insertar("temp.AmbitoCaja", Valores(claves.Apuntes));
}

bool HayGuardadas(sqlite::Conexion& base, const Claves& claves) {
  base.Ejecutar(AmbitoDe(claves));
  std::string consulta = sql::PrevisionesCon("temp.AmbitoPrevision", "1");
  for (const Tabla& tabla : TablasDeFactura()) {
    consulta += " UNION ALL " + sql::FilasDe(tabla, "temp.Ambito", "1");
  }
  return base.Consultar(consulta + " LIMIT 1").Filas.Cuantas() > 0;
}

}  // namespace salvaguarda
