#!/usr/bin/env bash
# The main job of `make run`.
set -euo pipefail
qelstd=$1
here=$(cd "$(dirname "$0")" && pwd)
"$qelstd" --version
"$qelstd" apply "$here/samples/first-standard.edits"
