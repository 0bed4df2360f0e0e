#include "bayer/ahd_kernels.h"
namespace nmq::ahd {
void green_row_sse2(const int16_t* m2, const int16_t* m1, const int16_t* c, const int16_t* p1, const int16_t* p2,
                    int16_t* gh, int16_t* gv, int i0, int i1, RowSites s) { green_row_scalar(m2, m1, c, p1, p2, gh, gv, i0, i1, s); }
void green_row_sse2(const int32_t* m2, const int32_t* m1, const int32_t* c, const int32_t* p1, const int32_t* p2,
                    int32_t* gh, int32_t* gv, int i0, int i1, RowSites s) { green_row_scalar(m2, m1, c, p1, p2, gh, gv, i0, i1, s); }
void colour_row_sse2(const int16_t* a, const int16_t* c, const int16_t* b, const int16_t* ga, const int16_t* gc,
                     const int16_t* gb, int16_t* r, int16_t* g, int16_t* bl, int i0, int i1, RowSites s, int maxv) { colour_row_scalar(a, c, b, ga, gc, gb, r, g, bl, i0, i1, s, maxv); }
void colour_row_sse2(const int32_t* a, const int32_t* c, const int32_t* b, const int32_t* ga, const int32_t* gc,
                     const int32_t* gb, int32_t* r, int32_t* g, int32_t* bl, int i0, int i1, RowSites s, int maxv) { colour_row_scalar(a, c, b, ga, gc, gb, r, g, bl, i0, i1, s, maxv); }
void homo_row_sse2(const LabRows& h, const LabRows& v, int16_t* hh, int16_t* hv, int i0, int i1) { homo_row_scalar(h, v, hh, hv, i0, i1); }
void choose_row_sse2(const int16_t* const hh[3], const int16_t* const hv[3], const int16_t* const rgbh[3],
                     const int16_t* const rgbv[3], uint8_t* d, int i0, int n) { choose_row_scalar(hh, hv, rgbh, rgbv, d, i0, n); }
void choose_row_sse2(const int16_t* const hh[3], const int16_t* const hv[3], const int32_t* const rgbh[3],
                     const int32_t* const rgbv[3], uint16_t* d, int i0, int n) { choose_row_scalar(hh, hv, rgbh, rgbv, d, i0, n); }
}
