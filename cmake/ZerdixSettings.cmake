# SPDX-License-Identifier: MIT
# The settings file of a machine: messages and dialogs in the system's language, and an error log of
# each user's own. One lies in the build folder, for the programs that run there; an installation
# puts one in place where there is none yet.
#
# As a script it writes the one that is to be installed:
#     cmake -D settings_file=FILE [-D locale_files=FILE;...] -P cmake/ZerdixSettings.cmake

# The system's locale, as its own files tell it; where they don't, that of the environment.
function(zerdix_system_locale result)
  if(NOT DEFINED locale_files)
    set(locale_files /etc/default/locale /etc/locale.conf)
  endif()
  set(lines "")
  foreach(file ${locale_files})
    if(EXISTS ${file})
      file(STRINGS ${file} in_file REGEX "^(LC_ALL|LC_MESSAGES|LANG)=")
      list(APPEND lines ${in_file})
    endif()
  endforeach()
  if(NOT lines)
    set(lines "LC_ALL=$ENV{LC_ALL}" "LC_MESSAGES=$ENV{LC_MESSAGES}" "LANG=$ENV{LANG}")
  endif()
  foreach(name LANG LC_MESSAGES LC_ALL) # the last that is set counts
    foreach(line ${lines})
      if(line MATCHES "^${name}=[\"']?([^\"']+)")
        set(${result} ${CMAKE_MATCH_1} PARENT_SCOPE)
      endif()
    endforeach()
  endforeach()
endfunction()

# English for every language that there are no words in.
function(zerdix_write_settings file)
  set(locale "")
  zerdix_system_locale(locale)
  set(language "English,zerdix.hlp,english.lng")
  if(locale MATCHES "^de([_.@]|$)")
    set(language "Deutsch,zerdix.hlp,deutsch.lng")
  elseif(locale MATCHES "^fr([_.@]|$)")
    set(language "Francais,zerdix.hlp,francais.lng")
  elseif(locale MATCHES "^en_US([.@]|$)")
    set(language "US,zerdix.hlp,us.lng")
  endif()
  file(WRITE ${file}
    "; Settings of this machine. Those of a user, ~/.config/zerdix/zerdix.ini, go before them, key by\n"
    "; key; zerdix(1) names them all.\n"
    "[Zerdix]\n"
    "Language32=${language}\n"
    "Errorfile=~/.local/state/zerdix/FAXERROR.LOG\n")
endfunction()

if(NOT DEFINED PROJECT_NAME) # a script, or an installation
  if(settings_file)
    zerdix_write_settings(${settings_file})
  endif()
  return()
endif()

set(build_settings ${CMAKE_BINARY_DIR}/etc/zerdix/zerdix.ini)
if(NOT EXISTS ${build_settings})
  zerdix_write_settings(${build_settings})
endif()

# Where settings of the system lie belongs to the prefix: /etc for /usr, which the folder's full name
# says, and etc below every other.
install(CODE "
  set(folder \"${CMAKE_INSTALL_SYSCONFDIR}\")
  if(CMAKE_INSTALL_PREFIX MATCHES \"^/(usr/?)?\\$\")
    set(folder /etc)
  elseif(NOT IS_ABSOLUTE \"\${folder}\")
    set(folder \"\${CMAKE_INSTALL_PREFIX}/\${folder}\")
  endif()
  if(EXISTS \"\$ENV{DESTDIR}\${folder}/zerdix/zerdix.ini\")
    message(STATUS \"Kept: \$ENV{DESTDIR}\${folder}/zerdix/zerdix.ini\")
  else()
    include(\"${CMAKE_CURRENT_LIST_FILE}\")
    zerdix_write_settings(\"${CMAKE_BINARY_DIR}/to-install/zerdix.ini\")
    file(INSTALL DESTINATION \"\${folder}/zerdix\" TYPE FILE
      FILES \"${CMAKE_BINARY_DIR}/to-install/zerdix.ini\")
  endif()")
