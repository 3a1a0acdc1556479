# One target carries the flags of all our code: link it and nothing else has to be said.
add_library(cellwright_flags INTERFACE)
target_compile_features(cellwright_flags INTERFACE cxx_std_20)
target_include_directories(cellwright_flags INTERFACE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR})
target_compile_options(cellwright_flags INTERFACE
    -Wall -Wextra -Wshadow -Werror
    -fno-exceptions -fno-rtti -fno-strict-aliasing
    # clang has no -fcheck-new, so no code may rest on it but what g++ builds.
    $<$<CXX_COMPILER_ID:GNU>:-fcheck-new>)
target_link_libraries(cellwright_flags INTERFACE Threads::Threads)

if(CELLWRIGHT_SANITIZE)
    target_compile_options(cellwright_flags INTERFACE
        -fsanitize=${CELLWRIGHT_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(cellwright_flags INTERFACE -fsanitize=${CELLWRIGHT_SANITIZE})
    target_compile_definitions(cellwright_flags INTERFACE CELLWRIGHT_SANITIZED)
endif()

# With wrapping arithmetic the undefined behaviour sanitizer would see no overflow at all.
if(NOT CELLWRIGHT_SANITIZE MATCHES "undefined")
    target_compile_options(cellwright_flags INTERFACE -fwrapv)
endif()
