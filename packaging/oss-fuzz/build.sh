#!/usr/bin/env bash
# Builds all fuzzing targets as OSS-Fuzz runs them: with its compilers, flags and engine, and with all
# that they need in $OUT, which is moved to machines that have neither this tree nor its libraries.
#
# Takes CC, CXX, CFLAGS, CXXFLAGS, LIB_FUZZING_ENGINE, OUT and WORK from the environment. The machine
# needs what debian/control builds with.
set -euo pipefail
cd "$(dirname "$0")/../.."

readonly build=$WORK/analytics-settings

# libc++ reads numbers otherwise than the library promises. Of the C library's own parts the machine
# has its own, whose versions belong together.
export CXXFLAGS=${CXXFLAGS//-stdlib=libc++/}
readonly parts_of_libc='lib(c|m|dl|rt|pthread|resolv)\.so|ld-linux'

# The older kind of search path holds for what libraries need in turn.
build_programs() {
  cmake -S . -B "$build" -G Ninja -DANALYTICS_BUILD_FUZZERS=ON \
    -DANALYTICS_FUZZING_ENGINE="$LIB_FUZZING_ENGINE" -DANALYTICS_INSTALL_HOST=ON \
    -DANALYTICS_BUILD_TOOLS=OFF -DANALYTICS_BUILD_EXAMPLES=OFF \
    -DCMAKE_INSTALL_PREFIX="$OUT" -DCMAKE_INSTALL_LIBDIR=lib \
    -DCMAKE_EXE_LINKER_FLAGS=-Wl,--disable-new-dtags
  cmake --build "$build" --target fuzzers
  local component
  for component in fuzzers runtime host; do
    cmake --install "$build" --component "$component"
  done
}

copy_libraries() {
  ldd "$OUT"/fuzz-* | sed -n 's/.* => \(\/.*\) (0x.*/\1/p' | sort -u | grep -v "^$OUT/" |
    grep -vE "$parts_of_libc" | xargs cp -L -t "$OUT/lib"
}

# What OSS-Fuzz looks for beside a program, under the program's name.
add_inputs() {
  local program target
  for program in "$OUT"/fuzz-*; do
    target=${program##*/fuzz-}
    cp fuzz/xml.dict "$program.dict"
    cp "fuzz/seeds/${target%-without-memory}_seed_corpus.zip" "${program}_seed_corpus.zip"
    { echo '[libfuzzer]'; scripts/fuzz-options "$target" | sed 's/^-//'; } >"$program.options"
  done
}

build_programs
copy_libraries
add_inputs
