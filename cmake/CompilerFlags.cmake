# Warnings are errors for our own code; Qt's and the system's headers are included as system headers.
add_compile_options(
  -Wall -Wextra -Wpedantic -Werror
  -Wold-style-cast -Wnon-virtual-dtor -Wshadow -Wconversion -Wsign-conversion
  -Woverloaded-virtual -Wcast-align -Wnull-dereference
)
add_compile_definitions(
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
  QT_NO_CAST_FROM_BYTEARRAY QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_USE_QSTRINGBUILDER
  QT_DISABLE_DEPRECATED_UP_TO=0x060400
)

if(QUORVEL_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

if(QUORVEL_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
