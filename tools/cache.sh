# To be sourced: sets the folder, outside the tree, for things that are built once and kept.
cache=${TARVELO_CACHE:-${XDG_CACHE_HOME:-${HOME:-/tmp}/.cache}/tarvelo}
