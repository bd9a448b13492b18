# The elementary functions of the builds as tables of functions, for tests and benchmarks: the library doesn't export
# them.
file(GLOB NOX_VMATH CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/vmath/*.cpp)
foreach(tag IN LISTS NOX_VARIANTS)
  add_library(nox_vmath_${tag} OBJECT EXCLUDE_FROM_ALL ${NOX_VMATH}
              ${PROJECT_SOURCE_DIR}/tests/vmath/functions_build.cpp)
  nox_variant_target(nox_vmath_${tag} ${tag})
  target_include_directories(nox_vmath_${tag} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  list(APPEND NOX_VMATH_OBJECTS $<TARGET_OBJECTS:nox_vmath_${tag}>)
endforeach()
