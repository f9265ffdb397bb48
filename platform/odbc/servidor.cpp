#include "odbc/servidor.h"

#include <algorithm>
#include <array>

namespace odbc {
namespace {

using Par = std::pair<std::string_view, std::string_view>;

// Its driver would undo all that a unit has written when one row of it fails, and go on as if
// nothing had happened, unless it is told to leave that to whoever uses it: `Protocol`.
constexpr auto kAtributosPostgres = std::to_array<Par>({
    {"Protocol", "7.4-0"},
    {"UseServerSidePrepare", "1"},
    {"UseDeclareFetch", "0"},
    {"BoolsAsChar", "0"},
    {"UnknownSizes", "2"},
    {"KeepaliveTime", "20"},
    {"KeepaliveInterval", "5"},
});
constexpr auto kAlConectarPostgres = std::to_array<std::string_view>({
    "SET lock_timeout = 5000",
    "SET standard_conforming_strings = on",
});
// Tables are joined in the order in which they are written, and what a load looks for is written
// with its range first. A server that hasn't counted their rows yet would go through all invoices
// of a supplier for each of them.
constexpr auto kSiSabePostgres = std::to_array<std::string_view>({
    "SET join_collapse_limit = 1",
});
constexpr auto kLeerPostgres = std::to_array<std::string_view>({
    "BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY",
});
constexpr Servidor kPostgres = {
    .Nombre = "PostgreSQL",
    .Dialecto = {.Comilla = '"',
                 .Recorte = {"btrim(", ")"},
                 .RecorteIzquierdo = {"ltrim(", ")"},
                 .RecorteDerecho = {"rtrim(", ")"},
                 .Patron = {"lower(", " COLLATE \"es-x-icu\")"},
                 .TrasPatron = " ESCAPE ''",
                 .OrdenaQuienLee = true,
                 .PorClaves = true},
    .EntrarEnEsquema = "SET search_path TO ",
    .EsquemaActual = "SELECT current_schema()",
    .Atributos = kAtributosPostgres,
    .AlConectar = kAlConectarPostgres,
    .SiSabe = kSiSabePostgres,
    .AlLeerDeUnMomento = kLeerPostgres,
    .FalloSeLoLlevaTodo = true,
    .MismoTexto = {"", " COLLATE \"C\" = ?"},
    .SoloLectura =
        "SELECT CASE WHEN pg_is_in_recovery() OR "
        "current_setting('transaction_read_only') = 'on' THEN 1 ELSE 0 END",
    .ParaCambiar = " FOR UPDATE",
};

// A row that is given what it holds counts as changed, and a text may hold several statements. No
// statement takes a minute: a server that says nothing for so long isn't there.
constexpr auto kAtributosMaria = std::to_array<Par>({{"charset", "utf8mb4"},
                                                     {"Option", "67108866"},
                                                     {"READ_TIMEOUT", "60"},
                                                     {"WRITE_TIMEOUT", "60"}});
// Strict, so that what doesn't fit is refused and not cut.
constexpr auto kAlConectarMaria = std::to_array<std::string_view>({
    "SET SESSION sql_mode = 'STRICT_ALL_TABLES,NO_ENGINE_SUBSTITUTION', "
    "innodb_lock_wait_timeout = 5, lock_wait_timeout = 5, tx_isolation = 'READ-COMMITTED', "
    // What a load joins is found once, and not anew for each supplier.
    "optimizer_switch = 'split_materialized=off'",
});
// On a node of a cluster, what others have ended on another is there before it is looked at.
constexpr auto kSiSabeMaria = std::to_array<std::string_view>({"SET SESSION wsrep_sync_wait = 3"});
constexpr auto kLeerMaria = std::to_array<std::string_view>({
    "SET TRANSACTION ISOLATION LEVEL REPEATABLE READ",
    "START TRANSACTION WITH CONSISTENT SNAPSHOT, READ ONLY",
});
constexpr Servidor kMaria = {
    .Nombre = "MariaDB",
    .Dialecto = {.Comilla = '`',
                 .Recorte = {"trim(", ")"},
                 .RecorteIzquierdo = {"ltrim(", ")"},
                 .RecorteDerecho = {"rtrim(", ")"},
                 .TrasPatron = " ESCAPE ''",
                 .FilaPorOmision = " () VALUES ()",
                 .OrdenaQuienLee = true,
                 .PorClaves = true,
                 .JuntaEnOrden = " STRAIGHT_JOIN "},
    .Calculadas =
        "SELECT COLUMN_NAME, GENERATION_EXPRESSION FROM information_schema.COLUMNS WHERE "
        "GENERATION_EXPRESSION <> '' AND TABLE_SCHEMA = DATABASE() AND TABLE_NAME = ",
    .Atributos = kAtributosMaria,
    .AlConectar = kAlConectarMaria,
    .SiSabe = kSiSabeMaria,
    .AlLeerDeUnMomento = kLeerMaria,
    // A node of a cluster, where another's unit arrives while it prepares a statement.
    .DeshaceSinDecirlo = true,
    .MismoTexto = {"BINARY ", " = BINARY ?"},
    .SoloLectura = "SELECT @@global.read_only",
    .ParaCambiar = " FOR UPDATE",
};

constexpr Servidor kOtro = {.Nombre = "ODBC", .Dialecto = {}, .ComoSeEscriben = true};

constexpr std::array kServidores = {&kPostgres, &kMaria};

}  // namespace

const Servidor& ServidorDe(std::string_view motor) {
  const auto suyo = std::ranges::find_if(
      kServidores, [&](const Servidor* uno) { return motor.find(uno->Nombre) != motor.npos; });
  return suyo == kServidores.end() ? kOtro : **suyo;
}

}  // namespace odbc
