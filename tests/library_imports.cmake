# cmake -D NM=<nm> -D LIBRARIES=<file;file...> -P library_imports.cmake: fails where a library itself starts threads or
# processes, reads the environment, the locale or the time zone, or uses the network.
set(forbidden
    pthread_create _ZNSt6thread fork vfork posix_spawn system popen exec[lv][a-z]* getenv secure_getenv environ setenv
    setlocale newlocale uselocale localtime localtime_r mktime tzset strftime socket connect getaddrinfo)
foreach(library IN LISTS LIBRARIES)
    execute_process(COMMAND ${NM} -D --undefined-only ${library} OUTPUT_VARIABLE imports COMMAND_ERROR_IS_FATAL ANY)
    if(NOT imports MATCHES " U ")
        message(FATAL_ERROR "${library} shows no imports")
    endif()
    foreach(name IN LISTS forbidden)
        if(imports MATCHES " U ${name}[@A-Z0-9_\n]")
            message(SEND_ERROR "${library} calls ${CMAKE_MATCH_0}")
        endif()
    endforeach()
endforeach()
