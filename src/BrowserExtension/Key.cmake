# The key that the browser extension is signed with, and what follows from it. Chromium knows an
# extension by its public key; the program and its native-messaging host let only that one speak.
#
# The private half is in no repository: a build folder makes one for itself, once. Who gives packages
# to others names a key of their own, or every version would be another extension to Chromium:
#     openssl genrsa -out my-key.pem 2048 && cmake -DTOLVAR_BROWSER_KEY=/path/to/my-key.pem …

set(TOLVAR_BROWSER_KEY ${CMAKE_BINARY_DIR}/browser-key.pem
    CACHE FILEPATH "The RSA key (PEM) that the browser extension is signed with")
find_program(OPENSSL openssl REQUIRED)

# Runs openssl, or ends the configuration with what it has to say.
function(tolvar_openssl)
    execute_process(COMMAND ${OPENSSL} ${ARGN} RESULT_VARIABLE status ERROR_VARIABLE complaint)
    if(NOT status EQUAL 0)
        message(FATAL_ERROR "openssl ${ARGN}: ${complaint}")
    endif()
endfunction()

# tolvar_extension_id(OUT FILE): Chromium's id of a public key, given as DER: the first 32 digits of
# its SHA-256, written with a to p instead of 0 to f.
function(tolvar_extension_id out der)
    file(SHA256 ${der} digest)
    string(SUBSTRING ${digest} 0 32 digits)
    string(REGEX MATCHALL "." digits ${digits})
    set(id "")
    foreach(digit IN LISTS digits)
        string(FIND "0123456789abcdef" ${digit} at)
        string(SUBSTRING "abcdefghijklmnop" ${at} 1 letter)
        string(APPEND id ${letter})
    endforeach()
    set(${out} ${id} PARENT_SCOPE)
endfunction()

if(NOT EXISTS ${TOLVAR_BROWSER_KEY})
    if(NOT TOLVAR_BROWSER_KEY STREQUAL ${CMAKE_BINARY_DIR}/browser-key.pem)
        message(FATAL_ERROR "TOLVAR_BROWSER_KEY: there is no file ${TOLVAR_BROWSER_KEY}")
    endif()
    tolvar_openssl(genrsa -out ${TOLVAR_BROWSER_KEY} 2048)
endif()
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${TOLVAR_BROWSER_KEY})

set(public_key ${CMAKE_CURRENT_BINARY_DIR}/public-key.der)
tolvar_openssl(rsa -in ${TOLVAR_BROWSER_KEY} -pubout -outform DER -out ${public_key})
tolvar_extension_id(TOLVAR_CHROMIUM_EXTENSION_ID ${public_key})
set(TOLVAR_FIREFOX_EXTENSION_ID browser@tolvar.app)
