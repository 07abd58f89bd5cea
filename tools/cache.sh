# Sourced: where what is built once and kept lives, outside the tree.
cache=${TARVELO_CACHE:-${XDG_CACHE_HOME:-${HOME:-/tmp}/.cache}/tarvelo}
