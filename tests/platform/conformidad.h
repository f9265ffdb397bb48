#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "apoyo/errores.h"
#include "platform/banco.h"
#include "valores/texto.h"

namespace pruebas {

/// What every driver must do, run once for each engine.
class Conformidad : public testing::TestWithParam<Motor> {
 protected:
  using Modo = services::ModoApertura;
  using Texto = std::string;

  services::Ref<services::Recordset> Abrir(services::Conexion& con, const Texto& sentencia,
                                           Modo modo = Modo::Lectura) {
    auto rs = services::Crear<services::Recordset>();
    rs->Open(sentencia, con, modo);
    return rs;
  }
  std::int32_t ErrorAlAbrir(const Texto& sentencia, Modo modo = Modo::Lectura) {
    return apoyo::NumeroDeError([&] { Abrir(*conexion, sentencia, modo); });
  }

  /// The first field of each row that a SELECT finds, as texts.
  std::vector<Texto> Primeros(services::Conexion& con, const Texto& sentencia) {
    std::vector<Texto> textos;
    for (auto rs = Abrir(con, sentencia); !rs->Eof(); rs->MoveNext()) {
      textos.push_back(rs->Fields(0).Value.Texto());
    }
    return textos;
  }
  std::vector<Texto> Primeros(const Texto& sentencia) { return Primeros(*conexion, sentencia); }
  std::int64_t Cuantas(services::Conexion& con, const Texto& tabla) {
    return Abrir(con, "SELECT * FROM " + tabla)->RecordCount();
  }

  void NuevoVencimiento(services::Recordset& rs, const Texto& concepto, const Texto& factura,
                        const Texto& fecha = "20050315") {
    rs.AddNew();
    rs.Collect("NConcepto") = concepto;
    rs.Collect("NFactura") = factura;
    rs.Collect("Año") = "2005";
    rs.Collect("FechaVto") = fecha;
    rs.Collect("Importe") = 100.5;
    rs.Update();
  }
  void NuevoVencimiento(const Texto& concepto, const Texto& factura,
                        const Texto& fecha = "20050315") {
    NuevoVencimiento(*Abrir(*conexion, Vencimientos, Modo::Optimista), concepto, factura, fecha);
  }

  static constexpr const char* Vencimientos =
      "SELECT TempProvVencimientos.* FROM TempProvVencimientos";

  std::unique_ptr<Banco> banco = GetParam().CrearBanco();
  services::Ref<services::Conexion> conexion = banco->Conectar();
};

}  // namespace pruebas
