# Makes one executable of each source file in `folder`, named with the prefix and the file's name.
function(cellwright_find_programs folder prefix)
    file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.cpp)
    foreach(source IN LISTS sources)
        get_filename_component(name ${source} NAME_WE)
        add_executable(${prefix}${name} ${source})
        target_link_libraries(${prefix}${name} PRIVATE ${ARGN})
    endforeach()
endfunction()
