# SPDX-License-Identifier: GPL-3.0-or-later
# Run by cpack behind the making of packages: packs each once more, without the dates and the order of this build, so that the
# same sources make the same package. SOURCE_DATE_EPOCH says how old everything in it is.
set(settle [=[
  # cpack's own call of ldconfig, in place of which there is a trigger.
  rm -f DEBIAN/postinst DEBIAN/postrm
  [ ! -d usr/share/man ] || find usr/share/man -type f ! -name '*.gz' -exec gzip -9n {} +
  find . -path ./DEBIAN -prune -o -type f -printf '%P\0' | LC_ALL=C sort -z | xargs -0 md5sum > DEBIAN/md5sums
]=])
foreach(package IN LISTS CPACK_PACKAGE_FILES)
  set(tree "${package}.tree")
  file(REMOVE_RECURSE "${tree}")
  execute_process(COMMAND dpkg-deb --raw-extract "${package}" "${tree}" COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND sh -ec "${settle}" WORKING_DIRECTORY "${tree}" COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND dpkg-deb --root-owner-group -Zxz --build "${tree}" "${package}"
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
  file(REMOVE_RECURSE "${tree}")
endforeach()
