# Debian packages that the two commands need; sourced by them.

paquetes_construir="g++ cmake ninja-build qt6-base-dev libsqlite3-dev fonts-dejavu-core"
paquetes_probar="libgtest-dev libgmock-dev clang-format"
paquetes_medir="libbenchmark-dev"

# instalar PACKAGE...: installs those that are missing, and asks for rights only then.
instalar() {
  local faltan=() paquete como=()
  for paquete in "$@"; do
    dpkg-query -W -f '${Status}' "$paquete" 2>/dev/null | grep -q 'ok installed' || faltan+=("$paquete")
  done
  [ ${#faltan[@]} -eq 0 ] && return 0
  echo "Se instalan: ${faltan[*]}"
  [ "$(id -u)" -eq 0 ] || como=(sudo)
  "${como[@]}" apt-get update -qq
  "${como[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "${faltan[@]}" >/dev/null
}
