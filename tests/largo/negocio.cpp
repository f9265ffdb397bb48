#include "largo/negocio.h"

#include <sstream>

#include "muestra/azar.h"

namespace largo {

std::string Negocio(std::uint64_t semilla) {
  muestra::Azar azar(semilla);
  std::ostringstream sql;
  sql << "BEGIN;INSERT INTO ProvConceptos VALUES('12','Papelería Núñez'),('20','Alquiler'),('31',"
         "'Ñandú, S.A.'),('44','O''Higgins');";
  for (int i = 1; i <= 14; ++i) {
    const int concepto = azar.DeCada100(50) ? 12 : azar.DeCada100(50) ? 20 : 31;
    const std::string clave =
        "'" + std::to_string(concepto) + "','F" + std::to_string(i) + "','2005',";
    const int recibos = azar.Entre(1, 3);
    const int base = 100 * azar.Entre(1, 20);
    sql << "INSERT INTO ProvFacturas VALUES(" << clave << "'200502" << azar.Entre(10, 28) << "',"
        << base * 1.16 << ",'" << (recibos > 1 ? 2 : 1) << "'," << recibos
        << ",9,0,0,0,10,'x','y');"
        << "INSERT INTO ProvBasesIva VALUES(" << clave << "'1'," << base << "," << base * 0.16
        << ",NULL,'x','y');";
    for (int r = 0; r < recibos; ++r) {
      const double importe = r == 0 ? base * 1.16 - base / 2.0 * (recibos - 1) / 2 : base / 4.0;
      sql << "INSERT INTO ProvVencimientos VALUES(" << clave << "'20050" << 2 + r + azar.Entre(0, 1)
          << azar.Entre(10, 28) << "'," << importe << ","
          << (azar.DeCada100(30) ? std::to_string(importe) : "NULL") << ",'','x','y') ON CONFLICT "
          << "DO UPDATE SET Importe = Importe + excluded.Importe;";
    }
  }
  sql << "INSERT INTO ProvPrevisionPagos VALUES('20','20050105',7,1,600,'x','y'),('12','20050401',"
         "1,2,10.5,'x','y'),('31','20050131',1,2,75.25,'x','y');";
  for (int i = 0; i < 10; ++i) {
    sql << "INSERT INTO CajaPagos VALUES('" << 1 + i % 2 << "','2005-03-0" << 1 + i % 9
        << " 09:" << 10 + i << ":00'," << (i % 3 == 0 ? 31 : 12) << "," << azar.Entre(1, 99)
        << ".5,'sobres'," << (i % 4 == 0 ? "''" : "NULL") << ",NULL,'EVA','x','y');";
  }
  sql << "COMMIT";
  return sql.str();
}

}  // namespace largo
