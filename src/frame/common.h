// Shared driver helpers: pointer and size checks, row addressing, row walkers.
// Drivers use these so that each one reads like its family's check list.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "nmqcc.h"

// Definitions of exported functions carry this so that they leave the library.
#define NMQ_EXPORT extern "C" NMQ_API

namespace nmq {

// True when any of the pointers is null.
template <class... P>
inline bool any_null(const P*... p) { return ((p == nullptr) || ...); }

// ROI below one pixel in either direction.
inline bool bad_size(ImageSize r) { return r.width < 1 || r.height < 1; }

// Steps are bytes at the interface; 16- and 32-bit drivers work in elements,
// truncating a step that is not a multiple of the element size.
template <class T>
inline ptrdiff_t elem_step(int step_bytes) { return step_bytes / int(sizeof(T)); }

// Row y of a plane given in bytes per step. The pointer arithmetic is done in
// ptrdiff_t so that negative steps (bottom-up images) and large images work.
template <class T>
inline T* row_at(T* base, int step_bytes, ptrdiff_t y) {
    using B = std::conditional_t<std::is_const_v<T>, const uint8_t, uint8_t>;
    return reinterpret_cast<T*>(reinterpret_cast<B*>(base) + y * ptrdiff_t(step_bytes));
}

// Row y of a plane of 16/32-bit elements whose byte step is truncated to elements.
template <class T>
inline T* row_elems(T* base, int step_bytes, ptrdiff_t y) {
    return base + y * elem_step<T>(step_bytes);
}

template <class F>
inline void for_rows(int height, F&& f) {
    for (int y = 0; y < height; ++y) f(y);
}

// Walks a 4:2:0 image two rows at a time; y is the top row of each pair.
template <class F>
inline void for_row_pairs(int height, F&& f) {
    for (int y = 0; y + 1 < height; y += 2) f(y);
}

inline bool odd(ImageSize r) { return (r.width | r.height) & 1; }

inline NmqStatus ok_or_odd(bool is_odd) { return is_odd ? nmqStsOddSize : nmqStsOk; }

}  // namespace nmq
