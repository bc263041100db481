# SPDX-License-Identifier: GPL-3.0-or-later
# Sourced by the scripts with their own arguments: --help prints the head of the script; --no-install, before all others, has
# scripts/setup say what is missing where it would install it.
case ${1:-} in
  -h | --help)
    sed -n '2,/^[^#]/{/^# SPDX/d;s/^# \{0,1\}//p;}' "$0"
    exit 0
    ;;
  --no-install)
    export EDITOREXPORT_NO_INSTALL=1
    shift
    ;;
esac
