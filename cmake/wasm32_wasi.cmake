# WebAssembly for a page, from Debian's packages. There is neither a loader nor a thread nor a file: static libraries,
# linked as one module.
set(CMAKE_SYSTEM_NAME Generic)
set(CMAKE_SYSTEM_PROCESSOR wasm32)
set(CMAKE_C_COMPILER clang-19)
set(CMAKE_CXX_COMPILER clang++-19)
set(CMAKE_C_COMPILER_TARGET wasm32-wasi)
set(CMAKE_CXX_COMPILER_TARGET wasm32-wasi)
set(CMAKE_AR llvm-ar-19)
set(CMAKE_RANLIB llvm-ranlib-19)
# A test of the compiler as an archive: a program would need the functions that only a page brings.
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
# Not optimised while it is linked, where the compiler would run whatever wasm-opt it finds: the module is made smaller in
# a step of its own (see wasm/CMakeLists.txt).
set(CMAKE_EXE_LINKER_FLAGS_INIT "-mexec-model=reactor")
# nlohmann/json is header only, so the host's copy serves.
set(CMAKE_PREFIX_PATH /usr)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
