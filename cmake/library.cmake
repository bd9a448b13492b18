# The shared library: generated files, the sources compiled once, and the five builds of the bodies.

find_package(Python3 REQUIRED COMPONENTS Interpreter)
include(GNUInstallDirs)

# ---- what follows from the declarations
set(NOX_GENERATED ${PROJECT_BINARY_DIR}/generated)
file(GLOB_RECURSE NOX_HEADERS CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/include/nox/*.h)
set(NOX_GENERATED_FILES
    ${NOX_GENERATED}/dispatch.S ${NOX_GENERATED}/index_forms.cpp ${NOX_GENERATED}/bodies.hpp
    ${NOX_GENERATED}/plain.hpp ${NOX_GENERATED}/exports.map ${NOX_GENERATED}/status_rows.inc
    ${NOX_GENERATED}/declarations.inc ${NOX_GENERATED}/array_bodies.hpp ${NOX_GENERATED}/array_entries.cpp
    ${NOX_GENERATED}/include/nox/index.h)
add_custom_command(
  OUTPUT ${NOX_GENERATED}/stamp
  BYPRODUCTS ${NOX_GENERATED_FILES}
  COMMAND ${Python3_EXECUTABLE} -B ${PROJECT_SOURCE_DIR}/tools/generate.py --headers ${PROJECT_SOURCE_DIR}/include
          --internal ${PROJECT_SOURCE_DIR}/core/internal.h --out ${NOX_GENERATED}
  COMMAND ${CMAKE_COMMAND} -E touch ${NOX_GENERATED}/stamp
  DEPENDS ${NOX_HEADERS} ${PROJECT_SOURCE_DIR}/core/internal.h ${PROJECT_SOURCE_DIR}/tools/generate.py
          ${PROJECT_SOURCE_DIR}/tools/declarations.py
  COMMENT "Generating dispatch table, index forms and export list"
  VERBATIM)
add_custom_target(nox_generated DEPENDS ${NOX_GENERATED}/stamp)

# ---- flags
set(NOX_WARNINGS -Wall -Wextra -Wpedantic -Wconversion)
# The last word on the instruction set is ours: a -march in CXXFLAGS would put its instructions into every build.
set(NOX_BASE -mfpmath=sse -march=pentium4 -mtune=generic)
# Callers may keep the stack aligned to 4 bytes only; no out-of-line library code may be pulled into a build.
set(NOX_CODE -O2 -ffp-contract=off -fno-math-errno -fvisibility=hidden -fno-exceptions -fno-rtti
             -mincoming-stack-boundary=2 -fno-semantic-interposition)
if(CMAKE_BUILD_TYPE STREQUAL "Debug")
  list(APPEND NOX_CODE -g)
endif()
# The address sanitizer marks memory by eight bytes, so its frames must be aligned.
if(NOT NOX_SANITIZE)
  set(NOX_SHORT_FRAMES -mpreferred-stack-boundary=2)
endif()
set(NOX_VARIANTS w7 s8 p8 g9 h9)
set(NOX_FLAGS_w7 -msse2)
set(NOX_FLAGS_s8 -mssse3 -mtune=bonnell -mno-movbe)
set(NOX_FLAGS_p8 -msse4.2 -mno-popcnt)
set(NOX_FLAGS_g9 -mavx -mno-f16c)
set(NOX_FLAGS_h9 -mavx2 -mfma -mbmi -mbmi2 -mno-lzcnt -mno-movbe -mno-f16c)
# The array layer's builds, and the ones at whose level they are.
set(NOX_ARRAY_BUILDS array arrayavx arrayavx2)
set(NOX_FLAGS_array ${NOX_FLAGS_w7})
set(NOX_FLAGS_arrayavx ${NOX_FLAGS_g9})
set(NOX_FLAGS_arrayavx2 ${NOX_FLAGS_h9})
set(NOX_LEVEL_OF_array w7)
set(NOX_LEVEL_OF_arrayavx g9)
set(NOX_LEVEL_OF_arrayavx2 h9)

function(nox_internal_target target)
  add_dependencies(${target} nox_generated)
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/include
                             ${NOX_GENERATED} ${NOX_GENERATED}/include)
  set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE ON INTERPROCEDURAL_OPTIMIZATION OFF)
endfunction()

# Makes a target part of one build: its tag, its level, which is a column of the dispatch table, its flags.
function(nox_variant_target target tag)
  nox_internal_target(${target})
  if(DEFINED NOX_LEVEL_OF_${tag})
    list(FIND NOX_VARIANTS ${NOX_LEVEL_OF_${tag}} level)
  else()
    list(FIND NOX_VARIANTS ${tag} level)
  endif()
  target_compile_definitions(${target} PRIVATE NOX_VARIANT=${tag} NOX_LEVEL=${level})
  # Bodies and kernels call only their own kind, which take any stack: not to align it for them keeps entries short and
  # lets a body end in a jump to its kernel.
  target_compile_options(${target} PRIVATE ${NOX_WARNINGS} ${NOX_CODE} ${NOX_SHORT_FRAMES}
                         -fno-tree-loop-distribute-patterns ${NOX_BASE} ${NOX_FLAGS_${tag}})
endfunction()

# ---- the bodies, five times
file(GLOB NOX_BODIES CONFIGURE_DEPENDS
     ${PROJECT_SOURCE_DIR}/core/bodies/*.cpp ${PROJECT_SOURCE_DIR}/vmath/*.cpp ${PROJECT_SOURCE_DIR}/vector/*.cpp
     ${PROJECT_SOURCE_DIR}/stats/*.cpp ${PROJECT_SOURCE_DIR}/transform/*.cpp ${PROJECT_SOURCE_DIR}/filter/*.cpp
     ${PROJECT_SOURCE_DIR}/generate/*.cpp ${PROJECT_SOURCE_DIR}/image/*.cpp)
# Short entries make short fills and copies fast. These files keep no vector on the stack, so that it needn't be aligned
# (tools/check_objects.py tells when one does); they refer to no data, so that none is addressed by a register; and their
# loops leave the pointers that follow, so that those needn't be computed again.
if(NOT NOX_SANITIZE AND NOX_TEXT_RELOCATIONS)
  set_source_files_properties(${PROJECT_SOURCE_DIR}/vector/block_copy.cpp ${PROJECT_SOURCE_DIR}/vector/block_fill.cpp
                              ${PROJECT_SOURCE_DIR}/vector/move.cpp
                              PROPERTIES COMPILE_OPTIONS "-mincoming-stack-boundary=5;-fno-tree-scev-cprop;-fno-pic")
endif()
foreach(tag IN LISTS NOX_VARIANTS)
  add_library(nox_${tag} OBJECT ${NOX_BODIES})
  nox_variant_target(nox_${tag} ${tag})
  list(APPEND NOX_OBJECTS $<TARGET_OBJECTS:nox_${tag}>)
endforeach()

# ---- the rest, once
file(GLOB NOX_ONCE CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/core/*.cpp ${PROJECT_SOURCE_DIR}/core/*.S
     ${PROJECT_SOURCE_DIR}/adapters/*.cpp)
# The array layer has three builds, which are written with the lanes and drivers of the others: at the levels of SSE2,
# AVX and AVX2.
file(GLOB NOX_ARRAY CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/array/*.cpp)
foreach(tag IN LISTS NOX_ARRAY_BUILDS)
  add_library(nox_${tag} OBJECT ${NOX_ARRAY})
  nox_variant_target(nox_${tag} ${tag})
  list(APPEND NOX_OBJECTS $<TARGET_OBJECTS:nox_${tag}>)
endforeach()
add_library(nox SHARED ${NOX_ONCE} ${NOX_GENERATED}/dispatch.S ${NOX_GENERATED}/index_forms.cpp
            ${NOX_GENERATED}/array_entries.cpp ${NOX_OBJECTS})
nox_internal_target(nox)
target_compile_options(nox PRIVATE $<$<COMPILE_LANGUAGE:CXX>:${NOX_WARNINGS} ${NOX_CODE} ${NOX_BASE} -msse2>)
# Forwarders call stubs and bodies alone, which take any stack: no need to align it for them. Nor do they need the
# address of a table to call what is linked beside them: they end in a jump.
set_source_files_properties(${PROJECT_SOURCE_DIR}/adapters/move_index.cpp
                            PROPERTIES COMPILE_OPTIONS "${NOX_SHORT_FRAMES}")
set_source_files_properties(${NOX_GENERATED}/index_forms.cpp ${NOX_GENERATED}/array_entries.cpp
                            PROPERTIES COMPILE_OPTIONS "-fno-pic;${NOX_SHORT_FRAMES}")
target_include_directories(nox INTERFACE
  $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include> $<BUILD_INTERFACE:${NOX_GENERATED}/include>
  $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
set_target_properties(nox PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}
                      LINK_DEPENDS ${NOX_GENERATED}/exports.map)
target_link_options(nox PRIVATE -Wl,--version-script=${NOX_GENERATED}/exports.map -Wl,-Bsymbolic-functions)
if(NOT NOX_SANITIZE)
  # A declaration without a body in some build ends here, with the name of the missing body.
  target_link_options(nox PRIVATE -Wl,--no-undefined)
endif()
if(NOX_TEXT_RELOCATIONS)
  target_compile_definitions(nox PRIVATE NOX_TEXT_RELOCATIONS)
  target_link_options(nox PRIVATE -Wl,-z,notext)
endif()
add_library(nox::nox ALIAS nox)
