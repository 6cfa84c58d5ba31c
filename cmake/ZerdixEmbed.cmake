# SPDX-License-Identifier: MIT
# zerdix_embed(TARGET SYMBOL FILE)
# Adds to a target the bytes of a file, as they are when it is built: a `std::string_view` of that
# name in namespace zerdix. Run as a script, it writes the source.

if(CMAKE_SCRIPT_MODE_FILE)
  file(READ ${FILE} bytes HEX)
  string(REGEX REPLACE "(..)" "\\\\x\\1" bytes "${bytes}")
  string(REGEX REPLACE "((\\\\x..)(\\\\x..)?(\\\\x..)?(\\\\x..)?(\\\\x..)?(\\\\x..)?(\\\\x..)?(\\\\x..)?)"
    "    \"\\1\"\n" bytes "${bytes}")
  file(WRITE ${OUTPUT} "#include <string_view>\nnamespace zerdix {\n"
    "extern const std::string_view ${SYMBOL};\n"
    "constinit const std::string_view ${SYMBOL}(\n${bytes}    \"\");\n}\n")
  return()
endif()

set(ZERDIX_EMBED_SCRIPT ${CMAKE_CURRENT_LIST_FILE})

function(zerdix_embed target symbol file)
  set(output ${CMAKE_CURRENT_BINARY_DIR}/${symbol}.cpp)
  add_custom_command(OUTPUT ${output}
    COMMAND ${CMAKE_COMMAND} -DFILE=${file} -DSYMBOL=${symbol} -DOUTPUT=${output}
            -P ${ZERDIX_EMBED_SCRIPT}
    DEPENDS ${file} ${ZERDIX_EMBED_SCRIPT} VERBATIM)
  target_sources(${target} PRIVATE ${output})
endfunction()
