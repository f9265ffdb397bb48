#include "platform/conformidad.h"

namespace pruebas {
namespace {

INSTANTIATE_TEST_SUITE_P(Sqlite, Conformidad, testing::Values(Motor{"sqlite", CrearBancoSqlite}));

}  // namespace
}  // namespace pruebas
