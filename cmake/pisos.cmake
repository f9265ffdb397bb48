# One folder, one target. A target sees its own folder and those it links, and no other: each gets
# an include root that holds nothing but a link to its folder, so an include that climbs a floor
# does not build.

add_library(tesvara_avisos INTERFACE)
target_compile_options(tesvara_avisos INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
  -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
# GCC 12 reports these falsely inside the standard library's own inlined strings.
target_compile_options(tesvara_avisos INTERFACE
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict;-Wno-array-bounds;-Wno-maybe-uninitialized;-Wno-stringop-overread>)
if(TESVARA_SANITIZADORES)
  add_compile_options(-fsanitize=${TESVARA_SANITIZADORES} -fno-omit-frame-pointer
    -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${TESVARA_SANITIZADORES})
  # The sources of a target are joined, which takes half the time. The release build, which isn't
  # joined, shows that no source leans on its neighbours; the linter's, which reads no header
  # beforehand, that none leans on those.
  set(CMAKE_UNITY_BUILD ON)
endif()

# What nearly every source includes of the standard library is read once for all of them.
set(tesvara_comunes <algorithm> <cstdint> <functional> <memory> <optional> <string> <string_view>
  <utility> <vector>)
file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/comunes.cpp CONTENT "// Empty.\n")
add_library(tesvara_comunes STATIC ${CMAKE_BINARY_DIR}/comunes.cpp)
target_link_libraries(tesvara_comunes PRIVATE tesvara_avisos)
target_precompile_headers(tesvara_comunes PRIVATE ${tesvara_comunes})

# tesvara_piso(NAME ENLAZA target... [PRIVADO target...] [CABECERAS header...]): the static library
# of the current folder, included as "<folder name>/<file>". CABECERAS are those of a toolkit, read
# once too.
function(tesvara_piso nombre)
  cmake_parse_arguments(P "" "" "ENLAZA;PRIVADO;CABECERAS" ${ARGN})
  file(GLOB fuentes CONFIGURE_DEPENDS *.cpp *.h)
  get_filename_component(carpeta ${CMAKE_CURRENT_SOURCE_DIR} NAME)
  set(raiz ${CMAKE_BINARY_DIR}/pisos/${nombre})
  file(MAKE_DIRECTORY ${raiz})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${raiz}/${carpeta} SYMBOLIC)
  add_library(${nombre} STATIC ${fuentes})
  set_target_properties(${nombre} PROPERTIES LINKER_LANGUAGE CXX)
  target_include_directories(${nombre} PUBLIC ${raiz})
  target_link_libraries(${nombre} PUBLIC ${P_ENLAZA} PRIVATE tesvara_avisos ${P_PRIVADO})
  if(NOT P_CABECERAS)
    target_precompile_headers(${nombre} REUSE_FROM tesvara_comunes)
  else()
    target_precompile_headers(${nombre} PRIVATE ${tesvara_comunes} ${P_CABECERAS})
  endif()
endfunction()

# tesvara_prueba(NAME ENLAZA target... [CARPETAS folder...] [CABECERAS header...]): one test program
# out of the sources of the current folder and of those folders of it. The time of a test is the
# compiler's: its headers are read once for all programs, and it isn't optimised.
function(tesvara_prueba nombre)
  cmake_parse_arguments(P "" "" "ENLAZA;CARPETAS;CABECERAS" ${ARGN})
  set(patrones *.cpp *.h)
  foreach(carpeta ${P_CARPETAS})
    list(APPEND patrones ${carpeta}/*.cpp ${carpeta}/*.h)
  endforeach()
  file(GLOB fuentes CONFIGURE_DEPENDS ${patrones})
  add_executable(${nombre} ${fuentes})
  target_include_directories(${nombre} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${nombre} PRIVATE ${P_ENLAZA} tesvara_avisos GTest::gmock GTest::gtest_main)
  target_compile_options(${nombre} PRIVATE -O0)
  # Joined in every build: what is tested isn't, and shows where a source leans on its neighbours.
  set_target_properties(${nombre} PROPERTIES UNITY_BUILD ON)
  if(NOT P_CABECERAS)
    target_precompile_headers(${nombre} REUSE_FROM tesvara_comunes_de_pruebas)
  else()
    target_precompile_headers(${nombre} PRIVATE ${tesvara_comunes} <gmock/gmock.h> ${P_CABECERAS})
  endif()
  target_compile_definitions(${nombre} PRIVATE TESVARA_TESTS="${PROJECT_SOURCE_DIR}/tests")
  if(TESVARA_SANITIZADORES)
    # A process costs more than a test here: each program runs its tests in one.
    target_compile_definitions(${nombre} PRIVATE TESVARA_SANITIZADO)
    add_test(NAME ${nombre} COMMAND ${nombre})
    set_tests_properties(${nombre} PROPERTIES TIMEOUT 600)
  else()
    gtest_discover_tests(${nombre} DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 300)
  endif()
endfunction()
if(TESVARA_PRUEBAS)
  include(GoogleTest)
  find_package(GTest REQUIRED)
  file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/comunes_de_pruebas.cpp CONTENT "int main() {}\n")
  add_executable(tesvara_comunes_de_pruebas EXCLUDE_FROM_ALL
    ${CMAKE_BINARY_DIR}/comunes_de_pruebas.cpp)
  target_link_libraries(tesvara_comunes_de_pruebas PRIVATE tesvara_avisos GTest::gmock)
  target_compile_options(tesvara_comunes_de_pruebas PRIVATE -O0)
  target_precompile_headers(tesvara_comunes_de_pruebas PRIVATE ${tesvara_comunes} <filesystem>
    <gmock/gmock.h>)
endif()

# tesvara_servidor(TARGET): the library exports the four entry points of an in-process server and
# nothing else. Without it the tables of the standard library's headers are exported as unique
# symbols, and the loader then never lets go of the library.
function(tesvara_servidor nombre)
  set(mapa ${PROJECT_SOURCE_DIR}/cmake/servidor.map)
  target_link_options(${nombre} PRIVATE -Wl,--version-script=${mapa})
  set_property(TARGET ${nombre} APPEND PROPERTY LINK_DEPENDS ${mapa})
endfunction()
