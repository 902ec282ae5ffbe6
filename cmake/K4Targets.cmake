# k4_library_folder(): adds a folder's sources to the two libraries. The folder sets the list `core`
# (standard library only) and the list `windows` (Qt) before the call; nothing else decides on which
# side of the wall a file lies.
function(k4_library_folder)
    foreach(file IN LISTS core)
        target_sources(k4cmncore PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}/${file}")
    endforeach()
    if(TARGET k4cmndlg)
        foreach(file IN LISTS windows)
            target_sources(k4cmndlg PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}/${file}")
        endforeach()
    endif()
endfunction()

# k4_whole_headers(TARGET header...): in a whole build these headers are compiled once for the sources
# of a target, and of those that k4_whole_headers_of(TARGET OWNER) names. The other builds compile
# each source as it is, which finds an include that is missing.
function(k4_whole_headers target)
    if(K4_WHOLE_BUILD)
        target_precompile_headers(${target} PRIVATE ${ARGN})
    endif()
endfunction()
function(k4_whole_headers_of target owner)
    if(K4_WHOLE_BUILD)
        target_precompile_headers(${target} REUSE_FROM ${owner})
    endif()
endfunction()

# k4_core_test(NAME source...): a test executable over the core alone.
function(k4_core_test name)
    add_executable(${name} ${ARGN})
    set_target_properties(${name} PROPERTIES K4_TEST ON)
    k4_whole_headers_of(${name} k4test_core)
    target_link_libraries(${name} PRIVATE k4_options k4test_core k4cmncore GTest::gmock GTest::gtest
                                          GTest::gtest_main)
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT 300)
endfunction()

# k4_suite_test(NAME source...): a test executable over the core and the suite, without windows.
function(k4_suite_test name)
    add_executable(${name} ${ARGN})
    set_target_properties(${name} PROPERTIES K4_TEST ON)
    k4_whole_headers_of(${name} k4test_core)
    target_link_libraries(${name} PRIVATE k4_qt_options k4test_suite k4suite k4cmncore GTest::gmock
                                          GTest::gtest)
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT 300)
endfunction()

# k4_window_test(NAME source...): a test executable that shows windows, offscreen.
function(k4_window_test name)
    add_executable(${name} ${ARGN})
    set_target_properties(${name} PROPERTIES K4_TEST ON)
    k4_whole_headers_of(${name} k4test_windows)
    target_link_libraries(${name} PRIVATE k4_qt_options k4test_windows k4suiteui k4suite k4cmndlg
                                          k4cmncore Qt6::Widgets Qt6::Test GTest::gmock GTest::gtest)
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT 300 ENVIRONMENT
                                            "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8")
endfunction()

# k4_uses_threads(NAME...): these tests start threads, and run under the thread sanitizer too. The
# target k4_thread_tests builds them alone.
function(k4_uses_threads)
    foreach(name IN LISTS ARGN)
        set_tests_properties(${name} PROPERTIES LABELS threads)
        if(NOT TARGET k4_thread_tests)
            add_custom_target(k4_thread_tests)
        endif()
        add_dependencies(k4_thread_tests ${name})
    endforeach()
endfunction()
