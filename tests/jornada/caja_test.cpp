#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "apoyo/componente_en_marcha.h"
#include "apoyo/negocio_de_prueba.h"
#include "forms/entrada.h"
#include "jornada/partida.h"

// Cash entries at random become invoices: what each adds up to is known from whole cents, without
// the component's own arithmetic.

namespace {

using jornada::Partida;

struct Apunte {
  int Concepto;
  int Dia;  ///< of the year 2005, from 0
  int Sucursal;
  std::int64_t Centimos;
  bool Facturado;
};

/// A number as a query prints it.
std::string Euros(std::int64_t centimos) {
  std::string texto = std::to_string(centimos / 100);
  const auto resto = centimos % 100;
  if (resto == 0) return texto;
  texto += (resto < 10 ? ".0" : ".") + std::to_string(resto);
  if (texto.back() == '0') texto.pop_back();
  return texto;
}

/// Halves away from zero; neither is below it.
std::int64_t Redondear(std::int64_t numerador, std::int64_t divisor) {
  return (2 * numerador + divisor) / (2 * divisor);
}

class Cajon {
 public:
  explicit Cajon(unsigned semilla) : azar_(semilla) {
    conceptos_ = Entero(1, 9);
    for (int concepto = 1; concepto <= conceptos_; ++concepto) Llenar(concepto);
  }

  int Entero(int desde, int hasta) { return std::uniform_int_distribution(desde, hasta)(azar_); }
  [[nodiscard]] int Conceptos() const { return conceptos_; }
  [[nodiscard]] const std::vector<Apunte>& Apuntes() const { return apuntes_; }
  [[nodiscard]] const std::string& Datos() const { return datos_; }

 private:
  /// All entries of a concept alike: Null and empty would be invoices of their own.
  void Llenar(int concepto) {
    const std::string c = std::to_string(concepto);
    datos_ += "datos INSERT INTO ProvConceptos VALUES ('" + c + "','Concepto " + c + "')\n";
    const std::string vacia = Entero(0, 1) == 1 ? "NULL" : "''";
    const int cuantos = Entero(0, 12);
    for (int i = 0; i < cuantos; ++i) {
      apuntes_.push_back({concepto, Entero(0, 89), i, Entero(0, 30'000), Entero(0, 4) == 0});
      Escribir(apuntes_.back(), apuntes_.back().Facturado ? "'VIEJA'" : vacia);
    }
  }
  void Escribir(const Apunte& a, const std::string& factura) {
    datos_ +=
        "datos INSERT INTO CajaPagos (idSucursal,FechaHora,Tipo,Importe,Factura,Año) VALUES ('" +
        std::to_string(a.Sucursal) + "',datetime('2005-01-01 23:59:59','+" + std::to_string(a.Dia) +
        " days')," + std::to_string(a.Concepto) + "," + std::to_string(a.Centimos) + "/100.0," +
        factura + "," + (a.Facturado ? "'2005'" : "NULL") + ")\n";
  }

  std::mt19937 azar_;
  int conceptos_ = 0;
  std::vector<Apunte> apuntes_;
  std::string datos_;
};

/// What is asked of a run: one concept or, with 0, all of them; from one day to another.
struct Pedido {
  int Concepto;
  int Desde;
  int Hasta;

  [[nodiscard]] bool Toma(const Apunte& apunte) const {
    return !apunte.Facturado && (Concepto == 0 || apunte.Concepto == Concepto) &&
           apunte.Dia >= Desde && apunte.Dia <= Hasta;
  }
};

std::string Fecha(int dia) {
  return services::TextoDeFecha({services::HacerFecha(2005, 1, 1).Dias + dia, 0});
}

std::string Teclas(const Pedido& pedido, const std::string& tipo) {
  std::string texto = "pulsar BtnAutCaja\n";
  if (pedido.Concepto > 0) {
    texto += "pulsar FrmFraAutomaticas.OptConcepto\nteclear FrmFraAutomaticas.TxtConcepto \"" +
             std::to_string(pedido.Concepto) + "\"\n";
  }
  return texto + "pulsar FrmFraAutomaticas.lblFecha\nteclear FrmFraAutomaticas.CbxFDesde \"" +
         Fecha(pedido.Desde) + "\"\nteclear FrmFraAutomaticas.CbxFHasta \"" + Fecha(pedido.Hasta) +
         "\"\nelegir FrmFraAutomaticas.CboIVA \"" + tipo +
         "\"\npulsar FrmFraAutomaticas.BtnAceptar\nespera sin avisos\nespera foco BtnAutCaja\n";
}

/// The claim that a query gives these rows.
std::string Espera(const std::string& consulta, const std::vector<std::string>& filas) {
  std::string texto = "espera consulta local \"" + consulta + "\"";
  for (const std::string& fila : filas) texto += " \"" + fila + "\"";
  return texto + "\n";
}

class CajaAlAzar : public testing::TestWithParam<unsigned> {};

TEST_P(CajaAlAzar, CadaApunteSeSellaUnaVezYCadaFacturaEsLoQueSuman) {
  Cajon caja(GetParam());
  const std::int64_t tantos[] = {0, 16, 7, 4};
  const auto tipo = static_cast<std::size_t>(caja.Entero(0, 3));
  const std::string rotulos[] = {"Exento", "16%", "7%", "4%"};
  const int desde = caja.Entero(0, 60);
  const Pedido pedido{caja.Entero(0, 2) > 0 ? 0 : caja.Entero(1, caja.Conceptos()), desde,
                      caja.Entero(desde, 89)};

  std::map<std::string, std::int64_t> totales;
  std::vector<std::string> apuntes;
  for (const Apunte& apunte : caja.Apuntes()) {
    if (apunte.Facturado) continue;
    const std::string concepto = std::to_string(apunte.Concepto);
    const bool toma = pedido.Toma(apunte);
    if (toma) totales[concepto] += apunte.Centimos;
    apuntes.push_back(concepto + "|" + std::to_string(apunte.Sucursal) + "|" +
                      (toma ? "02/2005|2005" : "|"));
  }
  std::vector<std::string> facturas;
  std::vector<std::string> bases;
  std::vector<std::string> recibos;
  for (const auto& [concepto, total] : totales) {
    facturas.push_back(concepto + "|02/2005|2005|" + Euros(total));
    recibos.push_back(concepto + "|20050315|" + Euros(total) + "|" + Euros(total));
    const std::int64_t tanto = tantos[tipo];
    const std::int64_t base = Redondear(total * 100, 100 + tanto);
    bases.push_back(tanto == 0 ? concepto + "|0|NULL|NULL|" + Euros(total)
                               : concepto + "|" + std::to_string(tipo) + "|" + Euros(base) + "|" +
                                     Euros(Redondear(base * tanto, 100)) + "|NULL");
  }
  std::sort(apuntes.begin(), apuntes.end());

  Partida partida;
  const Partida::Jugada jugada = partida.Jugar(
      "reloj 2005-03-15 10:00:00\n" + caja.Datos() + "cargar\n" + Teclas(pedido, rotulos[tipo]) +
      Espera("SELECT NConcepto, Factura, Año, Total FROM TempProvFacturas ORDER BY 1", facturas) +
      Espera("SELECT NConcepto, Tipo, Base, Importe, Exento FROM TempProvBasesIva ORDER BY 1",
             bases) +
      Espera("SELECT NConcepto, FechaVto, Importe, Pagado FROM TempProvVencimientos ORDER BY 1",
             recibos) +
      Espera("SELECT Tipo, idSucursal, coalesce(Factura, '') AS f, coalesce(Año, '') FROM "
             "TempCajaPagos ORDER BY Tipo || '|' || idSucursal || '|' || f",
             apuntes) +
      "pulsar BotonAceptar\nespera consulta datos \"SELECT count(*) FROM CajaPagos WHERE Factura = "
      "'02/2005'\" \"" +
      std::to_string(std::count_if(caja.Apuntes().begin(), caja.Apuntes().end(),
                                   [&](const Apunte& a) { return pedido.Toma(a); })) +
      "\"\n");
  EXPECT_EQ(jugada.Estado, 0) << jugada.Errores;
  EXPECT_EQ(jugada.Salida, "");
}

INSTANTIATE_TEST_SUITE_P(Semillas, CajaAlAzar, testing::Range(1U, 41U));

/// The automatic invoices of all concepts of a till, over the component's own connections.
class Generacion {
 public:
  Generacion(int apuntes, int conceptos) {
    EXPECT_EQ(enMarcha_.Cargar(), "");
    temp_->Ejecutar(
        "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i + 1 < " +
        std::to_string(apuntes) +
        ") INSERT INTO TempCajaPagos (idSucursal, FechaHora, Tipo, Importe) SELECT '01', "
        "datetime('2005-01-01', '+' || i || ' minutes'), i % " +
        std::to_string(conceptos) + " + 1, 1 + i % 7 FROM n");
  }
  /// Statements prepared on both connections by the click on "Generar".
  std::size_t Generar() {
    const auto pantalla = services::Crear<cash::FrmFraAutomaticas>(
        enMarcha_.Sesion().Escritorio(), enMarcha_.Sesion(), enMarcha_.Pantalla().Lista);
    pantalla->Show();
    const std::size_t antes = Preparadas();
    services::entrada::Pulsar(pantalla->Campos.BtnAceptar);
    EXPECT_TRUE(pantalla->Descargado());
    return Preparadas() - antes;
  }
  [[nodiscard]] std::string Consultar(const char* sql) {
    return temp_->Consultar(sql).Filas.En(0, 0).Texto();
  }

 private:
  [[nodiscard]] std::size_t Preparadas() const {
    return datos_->Cuenta().Preparadas + temp_->Cuenta().Preparadas;
  }

  apoyo::NegocioDePrueba negocio_{apoyo::Tamano{1, 0}};
  services::Ref<sqlite::Conexion> datos_ = negocio_.AbrirDatos();
  services::Ref<sqlite::Conexion> temp_ = negocio_.AbrirTemp();
  apoyo::ComponenteEnMarcha enMarcha_{services::Ref<services::Conexion>(datos_),
                                      services::Ref<services::Conexion>(temp_), apoyo::kMarzo};
};

TEST(FacturasAutomaticas, DeDoscientosConceptosSonDoscientas) {
  Generacion generacion(1'000, 200);
  generacion.Generar();
  EXPECT_EQ(generacion.Consultar("SELECT count(*) FROM TempProvFacturas WHERE Factura = '02/2005'"),
            "200");
  EXPECT_EQ(generacion.Consultar("SELECT count(*) FROM TempProvBasesIva WHERE NFactura = '02/2005' "
                                 "AND Exento > 0 AND Base IS NULL"),
            "200");
  EXPECT_EQ(generacion.Consultar("SELECT count(*) FROM TempProvVencimientos WHERE NFactura = "
                                 "'02/2005' AND Importe = Pagado"),
            "200");
  EXPECT_EQ(generacion.Consultar("SELECT count(*) FROM TempCajaPagos WHERE Factura = '02/2005'"),
            "1000");
  EXPECT_EQ(generacion.Consultar("SELECT count(*) FROM TempProvFacturas f WHERE Total <> (SELECT "
                                 "sum(Importe) FROM TempCajaPagos WHERE Tipo = f.NConcepto)"),
            "1");  // the one invoice that the business has already
}

TEST(FacturasAutomaticas, CadaSentenciaSePreparaUnaVezSeanLosGruposQueSean) {
  const std::size_t pocos = Generacion(20, 2).Generar();
  EXPECT_GT(pocos, 0U);
  EXPECT_EQ(Generacion(2'000, 200).Generar(), pocos);
}

}  // namespace
