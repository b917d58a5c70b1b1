# korvane_add_texts(<target> <name> PREFIX <prefix> CATALOGUES <file.ts>...)
# Compiles translations and puts them into the target as the resource <name>, which the target itself
# initialises: as objects of a static library they would be left out by the linker. Without Qt's
# translation tools the resource is empty, and the texts are English.
function(korvane_add_texts target name)
    cmake_parse_arguments(ARG "" "PREFIX" "CATALOGUES" ${ARGN})
    set(compiled)
    if(TARGET Qt6::lrelease)
        qt_add_lrelease(${target} TS_FILES ${ARG_CATALOGUES} QM_FILES_OUTPUT_VARIABLE compiled)
    endif()
    list(TRANSFORM compiled REPLACE "(.*/)?([^/]+)" "<file alias=\"\\2\">\\0</file>"
        OUTPUT_VARIABLE entries)
    list(JOIN entries "\n" entries)
    file(CONFIGURE OUTPUT "${CMAKE_CURRENT_BINARY_DIR}/${name}.qrc" CONTENT
"<RCC><qresource prefix=\"${ARG_PREFIX}\">
${entries}
</qresource></RCC>
")
    qt_add_resources(sources "${CMAKE_CURRENT_BINARY_DIR}/${name}.qrc")
    target_sources(${target} PRIVATE ${sources})
endfunction()
