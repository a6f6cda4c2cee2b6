# Fails when a source file of the core includes a Qt header: the core is what the command line
# and the tests link without Qt. LIST names a file that lists the core's sources, one a line.
file(STRINGS "${LIST}" files)
set(offenders "")
foreach(file IN LISTS files)
  file(STRINGS "${file}" lines REGEX "^[ \t]*#[ \t]*include[ \t]*[<\"](Q[A-Za-z]|qt)")
  if(lines)
    list(APPEND offenders "${file}: ${lines}")
  endif()
endforeach()
if(offenders)
  list(JOIN offenders "\n  " text)
  message(FATAL_ERROR "The core must not include Qt:\n  ${text}")
endif()
