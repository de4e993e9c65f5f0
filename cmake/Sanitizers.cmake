# TARNBRIDGE_SANITIZE names the sanitizers of a build as -fsanitize= takes them, such as "address,undefined".
set(TARNBRIDGE_SANITIZE "" CACHE STRING "Sanitizers that the whole build runs under")

if(TARNBRIDGE_SANITIZE)
    add_compile_options(-fsanitize=${TARNBRIDGE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${TARNBRIDGE_SANITIZE})
endif()
