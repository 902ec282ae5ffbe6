# One INTERFACE target that carries the language level, the warnings and the sanitizers of every
# target of this project.
add_library(k4_options INTERFACE)
target_compile_features(k4_options INTERFACE cxx_std_20)
target_compile_options(k4_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
# This compiler's optimiser sees overlaps in std::string that can't happen.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(k4_options INTERFACE -Wno-restrict)
endif()
if(K4_WERROR)
    target_compile_options(k4_options INTERFACE -Werror)
endif()
if(K4_SANITIZE)
    target_compile_options(k4_options INTERFACE -fsanitize=${K4_SANITIZE} -fno-omit-frame-pointer
                                                -fno-sanitize-recover=all -O1 -g1)
    # A test program's own code (the property K4_TEST) isn't looked at for undefined behaviour, nor
    # optimised: what is tested is. Both would make most of the time that the tests take to compile.
    target_compile_options(
        k4_options INTERFACE "$<$<BOOL:$<TARGET_PROPERTY:K4_TEST>>:-fno-sanitize=undefined;-O0>")
    target_link_options(k4_options INTERFACE -fsanitize=${K4_SANITIZE})
endif()
if(K4_WHOLE_BUILD)
    # Programs read the precompiled headers of a library only if they are compiled for the same kind
    # of code.
    target_compile_options(k4_options INTERFACE $<$<BOOL:$<TARGET_PROPERTY:K4_TEST>>:-fPIC>)
endif()

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")

# What every target that uses Qt is compiled with.
add_library(k4_qt_options INTERFACE)
target_link_libraries(k4_qt_options INTERFACE k4_options)
target_compile_definitions(k4_qt_options INTERFACE QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII
                                                   QT_NO_NARROWING_CONVERSIONS_IN_CONNECT)
