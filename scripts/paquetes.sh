# Debian packages that the two commands need; sourced by them.

paquetes_construir="g++ cmake ninja-build qt6-base-dev libsqlite3-dev unixodbc-dev libqpdf-dev fonts-dejavu-core fonts-urw-base35 qt6-translations-l10n"
paquetes_probar="git libgtest-dev libgmock-dev clang libclang-rt-dev clang-format python3 qt6-base-private-dev poppler-utils cups-daemon cups-client locales"
paquetes_odbc="odbc-postgresql odbc-mariadb"
paquetes_servidores="openssl postgresql-15 mariadb-server-core mariadb-client-core $paquetes_odbc libsqliteodbc"
paquetes_cluster="galera-4 mariadb-server rsync lsof iproute2 procps"
paquetes_medir="libbenchmark-dev"

# instalar PACKAGE...: installs those that are missing, and asks for rights only then.
instalar() {
  local faltan=() paquete como=()
  for paquete in "$@"; do
    dpkg-query -W -f '${Status}' "$paquete" 2>/dev/null | grep -q 'ok installed' || faltan+=("$paquete")
  done
  [ ${#faltan[@]} -eq 0 ] && return 0
  echo "Se instalan: ${faltan[*]}"
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "Hace falta ser root para instalarlas." >&2; return 1; }
    como=(sudo)
  fi
  "${como[@]}" apt-get update -qq
  "${como[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "${faltan[@]}" >/dev/null
}
