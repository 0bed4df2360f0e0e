// Colour-filter-array interpolation: the row kernels.
//
// A row of a Bayer mosaic alternates green with one other colour: red on a
// "red row", blue on a "blue row". For a pixel of such a row, the row's own
// colour is called X and the colour of the rows above and below is called Y:
//   X site:  X copied, G from the neighbours, Y from the four diagonals;
//   G site:  X from the left and right pair, G copied, Y from the pair above
//            and below.
// The scalar kernels below define the bits; the SSE2 and AVX2 interior kernels
// give the same bytes.
#pragma once

#include <cstdint>

namespace nmq::cfa {

// Rounded-up mean of two samples.
template <class T>
inline T mean2(T a, T b) {
    return T((uint32_t(a) + b + 1) >> 1);
}

// Mean of four samples, summed in 32 bits so that 16-bit samples cannot wrap.
template <class T>
inline T mean4(T a, T b, T c, T d) {
    return T((uint32_t(a) + b + c + d + 2) >> 2);
}

// Green at a red or blue site away from the edges: interpolate along the
// direction with the smaller difference, or over all four neighbours when the
// two differences are equal (flat areas).
template <class T>
inline T green_directed(T n, T s, T w, T e) {
    const uint32_t dv = n > s ? n - s : s - n;
    const uint32_t dh = w > e ? w - e : e - w;
    if (dv > dh) return mean2(w, e);
    if (dh > dv) return mean2(n, s);
    return mean4(n, s, w, e);
}

// Stores one RGB pixel from the row colour x, green g and the other colour y.
template <class T>
inline void put_rgb(T* d, bool red_row, T x, T g, T y) {
    d[0] = red_row ? x : y;
    d[1] = g;
    d[2] = red_row ? y : x;
}

// One interior run of n pixels: a, c and b point at the first pixel in the
// rows above, at and below it, and every pixel has its eight neighbours in the
// image. green_first: the first pixel is a green site.
template <class T>
using InteriorRowFn = void (*)(const T* a, const T* c, const T* b, T* d, int n, bool red_row, bool green_first);

template <class T>
void ownBayerInteriorRow(const T* a, const T* c, const T* b, T* d, int n, bool red_row, bool green_first) {
    for (int i = 0; i < n; ++i, d += 3) {
        const bool green = ((i & 1) == 0) == green_first;
        if (green)
            put_rgb(d, red_row, mean2(c[i - 1], c[i + 1]), c[i], mean2(a[i], b[i]));
        else
            put_rgb(d, red_row, c[i], green_directed(a[i], b[i], c[i - 1], c[i + 1]),
                    mean4(a[i - 1], a[i + 1], b[i - 1], b[i + 1]));
    }
}

// Pixels x0..x1 of a row within two pixels of an image edge, w pixels wide.
// a, c and b point at column 0 of the rows above, at and below (the caller
// passes the mirrored row where one is outside the image); d points at the
// output pixel of column x0. A column outside the image is replaced by its
// mirror image about the current pixel. Green at a red or blue site is always
// the four-neighbour mean here: near the edge the differences would compare a
// neighbour with its own mirror image.
template <class T>
void ownBayerBorderRow(const T* a, const T* c, const T* b, T* d, int x0, int x1, int w, bool red_row,
                       bool even_green) {
    for (int x = x0; x <= x1; ++x, d += 3) {
        const int l = x == 0 ? 1 : x - 1;
        const int r = x == w - 1 ? w - 2 : x + 1;
        const bool green = ((x & 1) == 0) == even_green;
        if (green)
            put_rgb(d, red_row, mean2(c[l], c[r]), c[x], mean2(a[x], b[x]));
        else
            put_rgb(d, red_row, c[x], mean4(a[x], b[x], c[l], c[r]), mean4(a[l], a[r], b[l], b[r]));
    }
}

// SSE2 interior kernels: the same bytes as ownBayerInteriorRow.
void ownBayerInteriorRow_sse2(const uint8_t* a, const uint8_t* c, const uint8_t* b, uint8_t* d, int n, bool red_row,
                              bool green_first);
void ownBayerInteriorRow_sse2(const uint16_t* a, const uint16_t* c, const uint16_t* b, uint16_t* d, int n,
                              bool red_row, bool green_first);

// AVX2 interior kernels (run only on CPUs that have AVX2): the same bytes again.
void ownBayerInteriorRow_avx2(const uint8_t* a, const uint8_t* c, const uint8_t* b, uint8_t* d, int n, bool red_row,
                              bool green_first);
void ownBayerInteriorRow_avx2(const uint16_t* a, const uint16_t* c, const uint16_t* b, uint16_t* d, int n,
                              bool red_row, bool green_first);

// AVX-512 (F, BW, VL) interior kernels: the same bytes again.
void ownBayerInteriorRow_avx512(const uint8_t* a, const uint8_t* c, const uint8_t* b, uint8_t* d, int n, bool red_row,
                                bool green_first);
void ownBayerInteriorRow_avx512(const uint16_t* a, const uint16_t* c, const uint16_t* b, uint16_t* d, int n,
                                bool red_row, bool green_first);

}  // namespace nmq::cfa
