# Warnings and instrumentation of everything that is compiled in this tree.

function(velnor_set_warnings target)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wshadow -Wcast-align -Wformat=2 -Wundef
        $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor -Woverloaded-virtual -Wextra-semi>
        $<$<COMPILE_LANGUAGE:C>:-Wstrict-prototypes -Wmissing-prototypes>
        $<$<BOOL:${VELNOR_WARNINGS_AS_ERRORS}>:-Werror>)
endfunction()

# Qt decodes an implicit QString(const char*) as UTF-8; every conversion names its encoding instead.
function(velnor_use_qt_strictly target)
    target_compile_definitions(${target} PRIVATE
        QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_KEYWORDS
        QT_NO_URL_CAST_FROM_STRING)
endfunction()

if(VELNOR_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

if(VELNOR_SANITIZE_THREADS)
    add_compile_options(-fsanitize=thread -fno-omit-frame-pointer)
    add_link_options(-fsanitize=thread)
endif()

# Counts what libFuzzer goes by; its targets are built by clang alone.
option(VELNOR_FUZZ "Build the fuzz targets with libFuzzer" OFF)
if(VELNOR_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()

if(VELNOR_COVERAGE)
    add_compile_options(--coverage)
    add_link_options(--coverage)
endif()
