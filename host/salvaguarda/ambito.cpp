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

std::vector<std::string> Valores(const std::vector<ClavesDeTrabajo::Factura>& claves) {
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

std::vector<std::string> Valores(const std::vector<ClavesDeTrabajo::Apunte>& apuntes) {
  std::vector<std::string> filas;
  filas.reserve(apuntes.size());
  for (const auto& a : apuntes) {
    filas.push_back(
        Juntar({Texto(a.idSucursal), ",MOMENTO(", Texto(a.FechaHora), "),", Texto(a.Tipo)}));
  }
  return filas;
}

/// The keys of a table of cash entries, as they are compared.
std::string ClavesDeApuntes(std::string_view tabla) {
  return Juntar({"SELECT idSucursal, MOMENTO(FechaHora), Tipo FROM ", tabla});
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

/// The keys of the rows of a working table, as `t`, that meet a condition.
std::string DeTrabajo(const Tabla& tabla, std::string_view cuales) {
  return Juntar({"SELECT t.NConcepto, t.", tabla.Numero, ", t.Año FROM main.Temp", tabla.Nombre,
                 " t WHERE ", cuales});
}

/// That a working table has no row of the invoice of the base `t`.
std::string SinNingunaEn(const Tabla& tabla) {
  return Juntar({"NOT EXISTS (SELECT 1 FROM main.Temp", tabla.Nombre,
                 " s WHERE s.NConcepto = t.NConcepto AND s.", tabla.Numero,
                 " = t.NFactura AND s.Año = t.Año)"});
}

std::vector<ClavesDeTrabajo::Factura> LeerFacturas(sqlite::Conexion& deTrabajo,
                                                   const std::string& consulta) {
  std::vector<ClavesDeTrabajo::Factura> claves;
  const auto filas = deTrabajo.Consultar(consulta).Filas;
  for (std::size_t i = 0; i < filas.Cuantas(); ++i) {
    claves.push_back({filas.En(i, 0).Texto(), filas.En(i, 1).Texto(), filas.En(i, 2).Texto()});
  }
  return claves;
}

/// `cuales`: a condition on the rows of each table.
template <class Condicion>
ClavesDeTrabajo LeerClaves(sqlite::Conexion& deTrabajo, const Condicion& cuales,
                           std::string_view previsiones) {
  const Tabla& facturas = *BuscarTabla("ProvFacturas");
  const Tabla& bases = *BuscarTabla("ProvBasesIva");
  const Tabla& vencimientos = *BuscarTabla("ProvVencimientos");
  ClavesDeTrabajo claves;
  claves.EnLaLista = LeerFacturas(deTrabajo, DeTrabajo(facturas, cuales(facturas)) + " UNION " +
                                                 DeTrabajo(vencimientos, cuales(vencimientos)));
  claves.SoloConBases = LeerFacturas(
      deTrabajo, DeTrabajo(bases, Juntar({cuales(bases), " AND ", SinNingunaEn(facturas), " AND ",
                                          SinNingunaEn(vencimientos)})));
  const auto conceptos = deTrabajo.Consultar(previsiones).Filas;
  for (std::size_t i = 0; i < conceptos.Cuantas(); ++i) {
    claves.Previsiones.push_back(conceptos.En(i, 0).Texto());
  }
  return claves;
}

}  // namespace

ClavesDeTrabajo ClavesDeTrabajo::Leer(sqlite::Conexion& deTrabajo) {
  const auto todas = [](const Tabla&) { return std::string("1"); };
  ClavesDeTrabajo claves =
      LeerClaves(deTrabajo, todas, "SELECT NConcepto FROM TempProvPrevisionPagos");
  const auto apuntes = deTrabajo.Consultar(ClavesDeApuntes("TempCajaPagos")).Filas;
  for (std::size_t i = 0; i < apuntes.Cuantas(); ++i) {
    claves.Apuntes.push_back(
        {apuntes.En(i, 0).Texto(), apuntes.En(i, 1).Texto(), apuntes.En(i, 2).Texto()});
  }
  return claves;
}

ClavesDeTrabajo ClavesDeTrabajo::Nuevas(sqlite::Conexion& deTrabajo, const std::string& foto) {
  const sql::Adjunta adjunta(deTrabajo, foto, "foto");
  const auto nuevas = [](const Tabla& tabla) {
    return Juntar(
        {"NOT EXISTS (SELECT 1 FROM foto.Claves c WHERE c.NConcepto = t.NConcepto AND "
         "c.Factura = ",
         sql::Numero(tabla, "t"), " AND c.Año = t.Año)"});
  };
  return LeerClaves(
      deTrabajo, nuevas,
      "SELECT NConcepto FROM main.TempProvPrevisionPagos EXCEPT SELECT NConcepto FROM "
      "foto.ProvPrevisionPagos");
}

std::string CopiaDeGrabacion(sqlite::Conexion& base, const Rango& rango,
                             const ClavesDeTrabajo& claves) {
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
         InsertarDe("temp.AmbitoCaja", ClavesDeApuntes("foto.CajaPagos")) +
         Insertar("temp.AmbitoCaja", Valores(claves.Apuntes)) + PorClaves();
}

std::string CopiaDeFoto(const ClavesDeTrabajo& nuevas) {
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
         InsertarDe("temp.AmbitoCaja", ClavesDeApuntes(suya("CajaPagos"))) + PorClaves();
}

bool HayGuardadas(sqlite::Conexion& base, const ClavesDeTrabajo& claves) {
  base.Ejecutar(Vacio() + Insertar("temp.Ambito", Valores(claves.EnLaLista)) +
                Insertar("temp.Ambito", Valores(claves.SoloConBases)) +
                Insertar("temp.AmbitoPrevision", Valores(claves.Previsiones)));
  std::string consulta = sql::PrevisionesCon("temp.AmbitoPrevision", "1");
  for (const Tabla& tabla : TablasDeFactura()) {
    consulta += " UNION ALL " + sql::FilasDe(tabla, "temp.Ambito", "1");
  }
  return base.Consultar(consulta + " LIMIT 1").Filas.Cuantas() > 0;
}

}  // namespace salvaguarda
