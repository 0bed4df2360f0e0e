// Adaptive homogeneity-directed demosaicing: the stage kernels.
//
// Every stage works on rows of a window of columns held in "wide" integers
// (int16_t for 8-bit mosaics, int32_t for 16-bit ones), index i of a row
// standing for one image column; the caller keeps a few rows of each stage.
// Per interior row the stages are:
//   A  green candidates: horizontal and vertical, at every pixel;
//   B  full colour for each direction from the mosaic and that direction's
//      green (colour differences to green are interpolated);
//   C  CIELab of each candidate, in integers through a cube-root table;
//   D  homogeneity: how many of the four neighbours lie within an adaptive
//      lightness and chroma distance, per direction;
//   E  choice: the direction whose homogeneity summed over the 3x3
//      neighbourhood is larger, the rounded mean of both when they tie.
// The scalar forms below define the bits; the SSE2 forms
// (ahd_kernels_sse2.cpp) give the same values. All arithmetic is integer:
// right shifts of signed values are arithmetic (they round towards minus
// infinity), so "+ 2 >> 2" rounds half up.
#pragma once

#include <array>
#include <cstdint>

namespace nmq::ahd {

// Wide type of a sample type and the largest sample value.
template <class T> struct Wide;
template <> struct Wide<uint8_t> { using type = int16_t; static constexpr int max = 255; };
template <> struct Wide<uint16_t> { using type = int32_t; static constexpr int max = 65535; };

template <class W>
inline W clampw(int v, int maxv) { return W(v < 0 ? 0 : v > maxv ? maxv : v); }
inline int mn(int a, int b) { return a < b ? a : b; }
inline int mx(int a, int b) { return a > b ? a : b; }

// Where the sites of a mosaic row lie within a stage row: index i is a green
// site when ((i & 1) == 0) == green_even; `red_row` tells whether the other
// sites of the row are red (else blue).
struct RowSites {
    bool green_even;
    bool red_row;
    bool green(int i) const { return ((i & 1) == 0) == green_even; }
};

// ---- A: green candidates -----------------------------------------------------
// At a red or blue site C with same-colour samples two away and green
// neighbours between: (2 (n1 + C + n2) - C[-2] - C[+2] + 2) >> 2, clamped to
// the range of the two green neighbours; along the row for the horizontal
// candidate, along the column for the vertical one. Green sites keep their
// sample in both. Indices [i0, i1); rows m2..p2 are the mosaic rows r-2..r+2.
template <class W>
using GreenFn = void (*)(const W* m2, const W* m1, const W* c, const W* p1, const W* p2, W* gh, W* gv, int i0,
                         int i1, RowSites s);

template <class W>
inline W green_candidate(int n1, int c, int n2, int f1, int f2) {
    const int v = (2 * (n1 + c + n2) - f1 - f2 + 2) >> 2;
    return W(mn(mx(v, mn(n1, n2)), mx(n1, n2)));
}

template <class W>
void green_row_scalar(const W* m2, const W* m1, const W* c, const W* p1, const W* p2, W* gh, W* gv, int i0, int i1,
                      RowSites s) {
    for (int i = i0; i < i1; ++i) {
        if (s.green(i)) {
            gh[i] = gv[i] = c[i];
        } else {
            gh[i] = green_candidate<W>(c[i - 1], c[i], c[i + 1], c[i - 2], c[i + 2]);
            gv[i] = green_candidate<W>(m1[i], c[i], p1[i], m2[i], p2[i]);
        }
    }
}

// ---- B: full colour of one direction -------------------------------------------
// a, c, b: mosaic rows r-1, r, r+1; ga, gc, gb: that direction's green in them.
// Green site: the row's colour X = G + (dX[-1] + dX[+1] + 1) >> 1 and the
// column's colour Y = G + (dY[up] + dY[down] + 1) >> 1, where dX = X - G at
// those neighbours. Red or blue site: own sample, G candidate, and the other
// colour from the four diagonals, G + (sum of the four differences + 2) >> 2.
// Results are clamped to the sample range.
template <class W>
using ColourFn = void (*)(const W* a, const W* c, const W* b, const W* ga, const W* gc, const W* gb, W* r, W* g,
                          W* bl, int i0, int i1, RowSites s, int maxv);

template <class W>
void colour_row_scalar(const W* a, const W* c, const W* b, const W* ga, const W* gc, const W* gb, W* r, W* g, W* bl,
                       int i0, int i1, RowSites s, int maxv) {
    for (int i = i0; i < i1; ++i) {
        const int G = gc[i];
        int x, y;
        if (s.green(i)) {
            x = clampw<W>(G + ((c[i - 1] - gc[i - 1] + c[i + 1] - gc[i + 1] + 1) >> 1), maxv);
            y = clampw<W>(G + ((a[i] - ga[i] + b[i] - gb[i] + 1) >> 1), maxv);
        } else {
            x = c[i];
            const int d = a[i - 1] - ga[i - 1] + a[i + 1] - ga[i + 1] + b[i - 1] - gb[i - 1] + b[i + 1] - gb[i + 1];
            y = clampw<W>(G + ((d + 2) >> 2), maxv);
        }
        r[i] = W(s.red_row ? x : y);
        g[i] = W(G);
        bl[i] = W(s.red_row ? y : x);
    }
}

// ---- C: CIELab --------------------------------------------------------------------
// Samples are taken as linear RGB with the D65 white at full scale, brought
// to 16 bits (8-bit samples times 257). X/Xn, Y/Yn, Z/Zn come from weights
// that sum to 2^14 per row, as an index 0..16384 into kLabF, the CIELab f(t)
// of t = index / 16384 scaled by 4096 (the cube root rounded down above
// t = (6/29)^3, the linear part below it, both exact integer arithmetic).
// L = (116 fy - 16 * 4096) >> 5, a = (500 (fx - fy)) >> 5,
// b = (200 (fy - fz)) >> 5: units of 1/128 of CIELab, all within int16.
constexpr int kLabIndexMax = 16384;
extern const std::array<int16_t, kLabIndexMax + 1> kLabF;

constexpr int kXw[3] = {7110, 6164, 3110};
constexpr int kYw[3] = {3484, 11717, 1183};
constexpr int kZw[3] = {291, 1794, 14299};

inline int lab_index(const int w[3], int r, int g, int b) { return (w[0] * r + w[1] * g + w[2] * b + 32768) >> 16; }

// scale: 257 for 8-bit samples, 1 for 16-bit ones.
template <class W>
void lab_row_scalar(const W* r, const W* g, const W* b, int16_t* L, int16_t* A, int16_t* B, int i0, int i1,
                    int scale) {
    for (int i = i0; i < i1; ++i) {
        const int R = r[i] * scale, G = g[i] * scale, Bl = b[i] * scale;
        const int fx = kLabF[lab_index(kXw, R, G, Bl)];
        const int fy = kLabF[lab_index(kYw, R, G, Bl)];
        const int fz = kLabF[lab_index(kZw, R, G, Bl)];
        L[i] = int16_t((116 * fy - 16 * 4096) >> 5);
        A[i] = int16_t((500 * (fx - fy)) >> 5);
        B[i] = int16_t((200 * (fy - fz)) >> 5);
    }
}

// ---- D: homogeneity -----------------------------------------------------------------
// For each direction and each of the four neighbours (left, right, up, down):
// the lightness distance |dL| and the chroma distance da^2 + db^2 to the pixel.
// The tolerances are the smaller of the two directions' own-axis spreads:
//   eps_L  = min(max(|dL| left, right of the horizontal candidate),
//                max(|dL| up, down of the vertical candidate)),
//   eps_ab likewise with the chroma distances.
// The homogeneity of a direction is the number of neighbours within both.
struct LabRows {
    const int16_t* L[3];  // rows r-1, r, r+1
    const int16_t* a[3];
    const int16_t* b[3];
};

using HomoFn = void (*)(const LabRows& h, const LabRows& v, int16_t* hh, int16_t* hv, int i0, int i1);

struct Dist {
    int l, ab;
};
inline Dist dist(const LabRows& p, int i, int row, int j) {
    const int dl = p.L[1][i] - p.L[row][j];
    const int da = p.a[1][i] - p.a[row][j], db = p.b[1][i] - p.b[row][j];
    return {dl < 0 ? -dl : dl, da * da + db * db};
}

inline void homo_row_scalar(const LabRows& h, const LabRows& v, int16_t* hh, int16_t* hv, int i0, int i1) {
    for (int i = i0; i < i1; ++i) {
        const Dist dh[4] = {dist(h, i, 1, i - 1), dist(h, i, 1, i + 1), dist(h, i, 0, i), dist(h, i, 2, i)};
        const Dist dv[4] = {dist(v, i, 1, i - 1), dist(v, i, 1, i + 1), dist(v, i, 0, i), dist(v, i, 2, i)};
        const int leps = mn(mx(dh[0].l, dh[1].l), mx(dv[2].l, dv[3].l));
        const int abeps = mn(mx(dh[0].ab, dh[1].ab), mx(dv[2].ab, dv[3].ab));
        int ch = 0, cv = 0;
        for (int k = 0; k < 4; ++k) {
            ch += dh[k].l <= leps && dh[k].ab <= abeps;
            cv += dv[k].l <= leps && dv[k].ab <= abeps;
        }
        hh[i] = int16_t(ch);
        hv[i] = int16_t(cv);
    }
}

// ---- E: choice ------------------------------------------------------------------------
// hh, hv: homogeneity rows r-1, r, r+1; rgbh, rgbv: the two candidates of row
// r (R, G, B rows). Writes n pixels R, G, B starting at index i0.
template <class T, class W>
using ChooseFn = void (*)(const int16_t* const hh[3], const int16_t* const hv[3], const W* const rgbh[3],
                          const W* const rgbv[3], T* d, int i0, int n);

template <class T, class W>
void choose_row_scalar(const int16_t* const hh[3], const int16_t* const hv[3], const W* const rgbh[3],
                       const W* const rgbv[3], T* d, int i0, int n) {
    for (int k = 0; k < n; ++k, d += 3) {
        const int i = i0 + k;
        int sh = 0, sv = 0;
        for (int r = 0; r < 3; ++r) {
            sh += hh[r][i - 1] + hh[r][i] + hh[r][i + 1];
            sv += hv[r][i - 1] + hv[r][i] + hv[r][i + 1];
        }
        for (int c = 0; c < 3; ++c) {
            const int x = rgbh[c][i], y = rgbv[c][i];
            d[c] = T(sh > sv ? x : sv > sh ? y : (x + y + 1) >> 1);
        }
    }
}

// SSE2 forms.
void green_row_sse2(const int16_t* m2, const int16_t* m1, const int16_t* c, const int16_t* p1, const int16_t* p2,
                    int16_t* gh, int16_t* gv, int i0, int i1, RowSites s);
void green_row_sse2(const int32_t* m2, const int32_t* m1, const int32_t* c, const int32_t* p1, const int32_t* p2,
                    int32_t* gh, int32_t* gv, int i0, int i1, RowSites s);
void colour_row_sse2(const int16_t* a, const int16_t* c, const int16_t* b, const int16_t* ga, const int16_t* gc,
                     const int16_t* gb, int16_t* r, int16_t* g, int16_t* bl, int i0, int i1, RowSites s, int maxv);
void colour_row_sse2(const int32_t* a, const int32_t* c, const int32_t* b, const int32_t* ga, const int32_t* gc,
                     const int32_t* gb, int32_t* r, int32_t* g, int32_t* bl, int i0, int i1, RowSites s, int maxv);
void homo_row_sse2(const LabRows& h, const LabRows& v, int16_t* hh, int16_t* hv, int i0, int i1);
void choose_row_sse2(const int16_t* const hh[3], const int16_t* const hv[3], const int16_t* const rgbh[3],
                     const int16_t* const rgbv[3], uint8_t* d, int i0, int n);
void choose_row_sse2(const int16_t* const hh[3], const int16_t* const hv[3], const int32_t* const rgbh[3],
                     const int32_t* const rgbv[3], uint16_t* d, int i0, int n);

}  // namespace nmq::ahd
