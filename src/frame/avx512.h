// <immintrin.h> for the files built for AVX-512. GCC 12's AVX-512 intrinsics
// fill their unused merge operand from a self-initialised variable
// (_mm512_undefined_*), which its uninitialised warnings then report inside
// the header at every call; they are silenced for the header's lines only.
#pragma once

#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wuninitialized"
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#include <immintrin.h>
#pragma GCC diagnostic pop
#else
#include <immintrin.h>
#endif
