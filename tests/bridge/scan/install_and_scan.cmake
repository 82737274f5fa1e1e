# Installs the build into a fresh prefix, finds the shared objects under
# <prefix>/lib/vst as a host's scan would (the bridge alone: the core it
# loads is no ".so"), and runs the installed ombro-host.
set(prefix "${BUILD_DIR}/install-scan-check")
file(REMOVE_RECURSE "${prefix}")
execute_process(COMMAND ${CMAKE_COMMAND} --install "${BUILD_DIR}" --prefix "${prefix}"
                RESULT_VARIABLE installed OUTPUT_QUIET)
if(NOT installed EQUAL 0)
  message(FATAL_ERROR "cmake --install failed")
endif()
foreach(expected bin/ombro-host lib/vst/ombro/Ombro.so lib/vst/ombro/ombro.core)
  if(NOT EXISTS "${prefix}/${expected}")
    message(FATAL_ERROR "${expected} is not installed")
  endif()
endforeach()
file(GLOB_RECURSE objects RELATIVE "${prefix}/lib/vst" "${prefix}/lib/vst/*.so")
if(NOT objects STREQUAL "ombro/Ombro.so")
  message(FATAL_ERROR "a scan of ${prefix}/lib/vst would find: ${objects}")
endif()
execute_process(COMMAND "${prefix}/bin/ombro-host" info RESULT_VARIABLE ran OUTPUT_VARIABLE info)
if(NOT ran EQUAL 0 OR NOT info MATCHES "name: +Ombro")
  message(FATAL_ERROR "the installed ombro-host does not run: ${info}")
endif()
file(REMOVE_RECURSE "${prefix}")
