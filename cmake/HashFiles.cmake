# SPDX-License-Identifier: GPL-3.0-or-later
# A script: cmake -D ROOT=folder -D LIST=file -D NAME=macro -D VERSION=version -D OUTPUT=header -P HashFiles.cmake
# Writes a header that defines NAME as VERSION and a hash of the files that LIST names below ROOT, of their names and contents alone.
file(STRINGS "${LIST}" files)
set(told "")
foreach(file IN LISTS files)
  file(SHA256 "${ROOT}/${file}" hash)
  string(APPEND told "${file} ${hash}\n")
endforeach()
string(SHA256 hash "${told}")
file(WRITE "${OUTPUT}" "#define ${NAME} \"${VERSION} ${hash}\"\n")
