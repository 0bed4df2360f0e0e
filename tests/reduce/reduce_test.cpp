// nmqiReduceBits_*: argument checks, pinned values, a reference written from
// the reduction rules, every SIMD level against scalar, guards, scratch failures.
#include <cmath>
#include <cstring>
#include <type_traits>
#include <vector>

#include "frame/helpers.h"
#include "frame/rand.h"
#include "support/sweep.h"

using namespace nmqt;

namespace {

using Fn = NmqStatus (*)(const void*, int, void*, int, ImageSize, int, int, int);
template <class S, class T, NmqStatus (*F)(const S*, int, T*, int, ImageSize, int, int, int)>
NmqStatus thunk(const void* s, int ss, void* d, int ds, ImageSize r, int n, int k, int l) {
    return F(static_cast<const S*>(s), ss, static_cast<T*>(d), ds, r, n, k, l);
}

struct Export {
    const char* name;
    Fn fn;
    int sb, db, mode;  // source and destination element bytes; 1 C1, 3 C3, 4 AC4, 5 C4
    bool sf, s16s, d16s;
    int elems() const { return mode < 4 ? mode : 4; }
    int top() const { return db == 1 ? 255 : 65535; }
};

#define X(t, lay, S, T, m)                                                                              \
    Export{"nmqiReduceBits_" #t "_" #lay, thunk<S, T, nmqiReduceBits_##t##_##lay>, int(sizeof(S)),       \
           int(sizeof(T)), m, std::is_same_v<S, float>, std::is_same_v<S, int16_t>, std::is_same_v<T, int16_t>}
#define X4(t, S, T) X(t, C1R, S, T, 1), X(t, C3R, S, T, 3), X(t, AC4R, S, T, 4), X(t, C4R, S, T, 5)
const Export kExports[] = {X4(8u, uint8_t, uint8_t),   X4(16u, uint16_t, uint16_t), X4(16s, int16_t, int16_t),
                           X4(16u8u, uint16_t, uint8_t), X4(16s8u, int16_t, uint8_t), X4(32f8u, float, uint8_t),
                           X4(32f16u, float, uint16_t), X4(32f16s, float, int16_t)};
const Export& find(const char* n) {
    for (const Export& e : kExports)
        if (!std::strcmp(e.name, n)) return e;
    std::abort();
}

// Source images hold ordinary values: floats mostly in 0..1 with a margin and
// the exact ends, integers over their whole range.
void fill_source(Plane& p, const Export& e, Rng& r) {
    p.randomize(r);
    if (!e.sf) return;
    for (int y = 0; y < p.rows; ++y) {
        float* f = reinterpret_cast<float*>(p.row(y));
        for (int i = 0; i < p.row_bytes / 4; ++i) {
            const int k = r.uniform(0, 19);
            f[i] = k == 0 ? 0.0f : k == 1 ? 1.0f : r.uniformf(-0.05f, 1.05f);
        }
    }
}

}  // namespace

// ---- argument checks ------------------------------------------------------------

TEST(ReduceBits, ChecksInOrderWriteNothing) {
    struct Case {
        const char* what;
        bool nullSrc, nullDst;
        int w, h, noise, kind, levels;  // levels 0 stands for the destination maximum + 1
        NmqStatus want;
    } cases[] = {
        {"null source before size", true, false, 0, 2, 0, 0, 2, nmqStsNullPtr},
        {"null destination", false, true, 4, 2, 0, 1, 2, nmqStsNullPtr},
        {"zero width before noise", false, false, 0, 2, 101, 0, 2, nmqStsSize},
        {"negative height", false, false, 4, -1, 0, 0, 2, nmqStsSize},
        {"noise 101 with kind none", false, false, 4, 2, 101, 0, 2, nmqStsNoiseRange},
        {"negative noise before levels", false, false, 4, 2, -1, 1, 1, nmqStsNoiseRange},
        {"one level", false, false, 4, 2, 0, 4, 1, nmqStsLevelsRange},
        {"levels above the destination", false, false, 4, 2, 0, 2, 0, nmqStsLevelsRange},
        {"levels before the kind", false, false, 4, 2, 0, 9, 1, nmqStsLevelsRange},
        {"kind 5 is a silent success", false, false, 4, 2, 0, 5, 2, nmqStsOk},
        {"kind -1 is a silent success", false, false, 4, 2, 50, -1, 256, nmqStsOk},
    };
    Rng rng(1);
    for (const Export& e : kExports) {
        for (const Case& c : cases) {
            Plane src(4 * e.elems() * e.sb, 2), dst(4 * e.elems() * e.db, 2, 0, 0, 16);
            src.randomize(rng);
            dst.randomize(rng);
            const int levels = c.levels ? c.levels : e.top() + 2;
            const NmqStatus st = e.fn(c.nullSrc ? nullptr : src.ptr(), src.step, c.nullDst ? nullptr : dst.ptr(),
                                      dst.step, {c.w, c.h}, c.noise, c.kind, levels);
            EXPECT_EQ(st, c.want) << e.name << ": " << c.what;
            EXPECT_TRUE(dst.untouched()) << e.name << ": " << c.what;
        }
        // The largest level count of the destination is accepted.
        Plane src(e.elems() * e.sb, 1), dst(e.elems() * e.db, 1);
        EXPECT_EQ(e.fn(src.ptr(), src.step, dst.ptr(), dst.step, {1, 1}, 100, 1, e.top() + 1), nmqStsOk) << e.name;
    }
}

TEST(ReduceBits1u, ChecksInOrderWriteNothing) {
    struct Case {
        const char* what;
        bool nullSrc, nullDst;
        int w, h, offset, kind;
        NmqStatus want;
    } cases[] = {
        {"null source before size", true, false, 0, 1, 0, 0, nmqStsNullPtr},
        {"null destination", false, true, 8, 1, 0, 3, nmqStsNullPtr},
        {"zero height", false, false, 8, 0, 0, 0, nmqStsSize},
        {"negative offset", false, false, 8, 2, -1, 0, nmqStsSize},
        {"negative offset before the kind", false, false, 8, 2, -8, 1, nmqStsSize},
        {"Floyd-Steinberg", false, false, 8, 2, 0, 1, nmqStsDitherKindUnsupported},
        {"Jarvis-Judice-Ninke", false, false, 8, 2, 0, 2, nmqStsDitherKindUnsupported},
        {"Bayer", false, false, 8, 2, 0, 4, nmqStsDitherKindUnsupported},
        {"kind 5", false, false, 8, 2, 0, 5, nmqStsDitherKindUnsupported},
    };
    Rng rng(2);
    for (const Case& c : cases) {
        Plane src(8, 2), dst(2, 2, 0, 0, 8);
        src.randomize(rng);
        dst.randomize(rng);
        EXPECT_EQ(nmqiReduceBits_8u1u_C1R(c.nullSrc ? nullptr : src.ptr(), src.step, c.nullDst ? nullptr : dst.ptr(),
                                          dst.step, c.offset, {c.w, c.h}, 7, 7, c.kind, 100),
                  c.want)
            << c.what;
        EXPECT_TRUE(dst.untouched()) << c.what;
    }
}

// ---- pinned values ----------------------------------------------------------------

namespace {

void put(Plane& p, const Export& e, int i, int y, double v) {
    uint8_t* r = p.row(y) + i * e.sb;
    if (e.sf) { const float f = float(v); std::memcpy(r, &f, 4); }
    else if (e.sb == 1) *r = uint8_t(v);
    else { const uint16_t u = uint16_t(int(v)); std::memcpy(r, &u, 2); }
}
int read_dst(const Plane& p, const Export& e, int i, int y);

// Hand-worked cases; -1 in `want` is an element not pinned.
struct Pin {
    const char* why;
    const char* fn;
    int w, h, kind, levels;
    std::vector<double> src;
    std::vector<int> want;
};
const Pin kPins[] = {
    {"two levels: 127/255 is below one half, 128/255 above", "nmqiReduceBits_8u_C1R", 4, 1, 0, 2,
     {0, 127, 128, 255}, {0, 0, 255, 255}},
    {"an exact half goes down", "nmqiReduceBits_32f8u_C1R", 2, 1, 0, 2, {0.5, 0.50000006}, {0, 255}},
    {"three levels: a quarter less one goes down, a quarter up", "nmqiReduceBits_16u_C1R", 3, 1, 0, 3,
     {16383, 16384, 65535}, {0, 32767, 65535}},
    // Float input is taken as 0..1 without clamping: beyond it the output saturates.
    {"float beyond the range saturates", "nmqiReduceBits_32f8u_C1R", 4, 1, 0, 256, {-0.5, 2, 1, 1e-8}, {0, 255, 255, 0}},
    {"float beyond the range saturates", "nmqiReduceBits_32f16u_C1R", 4, 1, 1, 65536, {-0.5, 2, 1, 1e-8},
     {0, 65535, 65535, 0}},
    {"float beyond the range saturates", "nmqiReduceBits_32f16s_C1R", 4, 1, 4, 7, {-0.5, 2, 1, 1e-8},
     {-32768, 32767, 32767, -32768}},
    // Three levels (step 127.5): 60 keeps 60 as error, lifting 255 beyond the top;
    // with 60 * 7/16 passed on the last 60 would have reached the middle level.
    {"a saturated element passes no error", "nmqiReduceBits_8u_C1R", 3, 1, 1, 3, {60, 255, 60}, {0, 255, 0}},
    // 60 + 60 * 5/16 = 78.75 is past the half step 63.75: 127.5 truncated.
    {"a single column gathers from above only", "nmqiReduceBits_8u_C1R", 1, 2, 1, 3, {60, 60}, {0, 127}},
    // Channels are separate passes over the same error rows: the error channel 0
    // leaves in the bottom row reaches the top row of channel 1.
    {"error carries from one channel pass to the next", "nmqiReduceBits_8u_C3R", 1, 2, 1, 3, {0, 60, 0, 60, 0, 0},
     {0, 127, -1, 0, -1, -1}},
    {"error carries from one channel pass to the next", "nmqiReduceBits_8u_C3R", 1, 2, 2, 3, {0, 60, 0, 60, 0, 0},
     {0, 127, -1, 0, -1, -1}},
    {"error carries from one channel pass to the next", "nmqiReduceBits_8u_C3R", 1, 2, 3, 3, {0, 60, 0, 60, 0, 0},
     {0, 127, -1, 0, -1, -1}},
    {"alone, 60 stays at the bottom", "nmqiReduceBits_8u_C3R", 1, 2, 3, 3, {0, 60, 0, 0, 0, 0}, {0, 0, -1, 0, -1, -1}},
    // Float Floyd-Steinberg gathers the row above as (3*e[x+1] + 5*e[x]) + e[x-1]:
    // the second row's pixel 1 is placed so that only this order of the sum
    // carries it past the half step (two levels).
    {"float Floyd-Steinberg sums the centre first", "nmqiReduceBits_32f8u_C1R", 3, 2, 1, 2,
     {0x1.e6b46p-4, 0x1.24b4ep-5, 0x1.71e99cp-3, -1, 0x1.b2474ep-2, -1}, {-1, -1, -1, -1, 255, -1}},
    // The remainder 128 against M * 8.5 (255/15): the cells with M <= 7 go up.
    {"Bayer pattern of flat 128", "nmqiReduceBits_8u_C1R", 4, 4, 4, 2, std::vector<double>(16, 128),
     {255, 0, 255, 0, 0, 255, 0, 255, 255, 0, 255, 0, 0, 255, 0, 255}},
    {"Bayer threshold 0 at (0, 0), a whole step at (0, 3)", "nmqiReduceBits_16u_C1R", 1, 4, 4, 2, {1, 1, 1, 65534},
     {65535, -1, -1, 0}},
};

}  // namespace

TEST(ReduceBits, HandWorkedValues) {
    for (const Pin& c : kPins) {
        const Export& e = find(c.fn);
        const int n = c.w * e.elems();
        Plane src(n * e.sb, c.h), dst(n * e.db, c.h);
        for (size_t k = 0; k < c.src.size(); ++k) put(src, e, int(k) % n, int(k) / n, c.src[k]);
        ASSERT_EQ(e.fn(src.ptr(), src.step, dst.ptr(), dst.step, {c.w, c.h}, 0, c.kind, c.levels), nmqStsOk) << c.why;
        for (size_t k = 0; k < c.want.size(); ++k) {
            if (c.want[k] == -1) continue;
            EXPECT_EQ(read_dst(dst, e, int(k) % n, int(k) / n), c.want[k]) << c.why << " kind " << c.kind << " element " << k;
        }
    }
}

// ---- reference ---------------------------------------------------------------------

namespace {

// The reduction rules written out per element, on whole images held as doubles.
struct Ref {
    const Export& e;
    int L, noise;
    float s, inv;
    std::vector<float> N;
    std::vector<int16_t> R;
    Ref(const Export& e_, int levels, int n, bool bayerNoise) : e(e_), L(levels - 1), noise(n), N(1024), R(1024) {
        s = e.sf ? 1.0f / L : e.sb == 1 ? (65280.0f / L) * 0.00390625f : 65535.0f / L;
        inv = e.sf ? float(L) : e.sb == 1 ? L / 255.0f : L / 65535.0f;
        RandUniState_16s* g16;
        RandUniState_32f* g32;
        nmqsRandUniformInitAlloc_16s(&g16, 0, 1024, 0);
        nmqsRandUniform_16s(R.data(), 1024, g16);
        nmqsRandUniformFree_16s(g16);
        const float lo = bayerNoise ? -n / 100.0f : (50 - n) * s / 100, hi = bayerNoise ? n / 100.0f : (50 + n) * s / 100;
        nmqsRandUniformInitAlloc_32f(&g32, lo, hi, 0);
        nmqsRandUniform_32f(N.data(), 1024, g32);
        nmqsRandUniformFree_32f(g32);
    }
    float src(const Plane& p, int x, int y) const {
        const uint8_t* r = p.row(y) + x * e.sb;
        if (e.sf) return *reinterpret_cast<const float*>(r);
        if (e.sb == 1) return *r;
        return e.s16s ? float(*reinterpret_cast<const int16_t*>(r) + 32768) : *reinterpret_cast<const uint16_t*>(r);
    }
    int out(int v) const { return std::min(std::max(v, 0), e.top()) - (e.d16s ? 32768 : 0); }
    int level(float r, float add) const {  // output of a level in the dithered domains
        return e.sf ? out(int(r * e.top() + add)) : out(int(r) >> (e.sb == 2 && e.db == 1 ? 8 : 0));
    }
    float noiseAt(int x, int y) const { return N[(R[x % 1024] + 2 * y + x) % 1024]; }

    int none(float v) const {
        const float x = e.sf ? v : e.sb == 1 ? v * 0.003921569f : v * 1.5259022e-5f;
        float yv = int(L * x) * (1.0f / L);
        if (x - yv > 0.5f / L) yv += 1.0f / L;
        return out(int(yv * e.top()));
    }
    int bayer(float v, int x, int y) const {
        static const int M[4][4] = {{0, 8, 2, 10}, {12, 4, 14, 6}, {3, 11, 1, 9}, {15, 7, 13, 5}};
        const float m = M[y & 3][x & 3] / 15.0f;
        const float t = noise ? (noiseAt(x, y) + m) * s : m * s;
        const float q = int(v * inv) * s;
        return level(t < v - q ? q + s : q, 0.0f);
    }
    // Error diffusion over every channel pass; `above(k)` is the error row k rows
    // before the current one in the order rows are processed (across channels).
    std::vector<int> diffuse(const Plane& p, int w, int h, int kind) const {
        const int ne = e.elems(), nc = e.mode == 4 ? 3 : ne;
        std::vector<int> res(size_t(w) * h * ne, INT32_MIN);
        std::vector<std::vector<float>> rows;
        auto above = [&](int k, int x) {
            return int(rows.size()) >= k && x >= 0 && x < w ? rows[rows.size() - k][x] : 0.0f;
        };
        const float upper = e.sf ? 1.0f : e.sb == 1 ? 255.0f : 65535.0f, lower = e.sf ? 1.1920929e-7f : 0.0f;
        const bool centreFirst = e.sf || (e.s16s && e.db == 1);
        for (int c = 0; c < nc; ++c) {
            for (int y = 0; y < h; ++y) {
                std::vector<float> cur(w);
                auto e0 = [&](int x) { return x >= 0 ? cur[x] : 0.0f; };
                for (int x = 0; x < w; ++x) {
                    float sum;
                    if (kind == 1) {
                        sum = centreFirst ? (3 * above(1, x + 1) + 5 * above(1, x)) + above(1, x - 1)
                                          : (3 * above(1, x + 1) + above(1, x - 1)) + 5 * above(1, x);
                        sum = (sum + 7 * e0(x - 1)) * 0.0625f;
                    } else {
                        const bool st = kind == 3;
                        const float w2[3] = {1, st ? 2.0f : 3.0f, st ? 4.0f : 5.0f};
                        const float w1[3] = {st ? 2.0f : 3.0f, st ? 4.0f : 5.0f, st ? 8.0f : 7.0f};
                        auto part = [&](int k, const float* wt) {
                            return ((above(k, x - 2) + above(k, x + 2)) * wt[0] +
                                    (above(k, x - 1) + above(k, x + 1)) * wt[1]) +
                                   above(k, x) * wt[2];
                        };
                        sum = part(2, w2) + part(1, w1);
                        sum = ((sum + (st ? 4.0f : 5.0f) * e0(x - 2)) + (st ? 8.0f : 7.0f) * e0(x - 1)) *
                              (st ? 0.023809524f : 0.020833334f);
                    }
                    const float v = src(p, x * ne + c, y) + sum;
                    int& o = res[(size_t(y) * w + x) * ne + c];
                    if (v >= upper || v < lower) {
                        o = out(v >= upper ? e.top() : 0);
                        cur[x] = 0;
                        continue;
                    }
                    const float q = int(v * inv) * s;
                    const float t = noise ? noiseAt(x, y) : 0.5f * s;
                    const float r = t < v - q ? q + s : q;
                    cur[x] = v - r;
                    o = level(r, 0.5f);
                }
                rows.push_back(cur);
            }
        }
        return res;
    }
};

int read_dst(const Plane& p, const Export& e, int i, int y) {
    const uint8_t* r = p.row(y) + i * e.db;
    if (e.db == 1) return *r;
    return e.d16s ? *reinterpret_cast<const int16_t*>(r) : *reinterpret_cast<const uint16_t*>(r);
}

}  // namespace

// Every export, every kind, with and without noise, against the rules above
// (C4's fourth channel included, AC4's alpha skipped).
TEST(ReduceBits, MatchesTheRulesElementByElement) {
    Rng rng(3);
    const int w = 1030, h = 5;  // wider than the 1024 noise offsets
    for (const Export& e : kExports) {
        for (int kind = 0; kind <= 4; ++kind) {
            for (int noise : {0, 45}) {
                const int levels = e.db == 1 ? 3 + 17 * kind : 5 + 1000 * kind;
                const int ne = e.elems();
                Plane src(w * ne * e.sb, h), dst(w * ne * e.db, h);
                fill_source(src, e, rng);
                dst.randomize(rng);
                ASSERT_EQ(e.fn(src.ptr(), src.step, dst.ptr(), dst.step, {w, h}, noise, kind, levels), nmqStsOk);
                const Ref ref(e, levels, noise, kind == 4);
                std::vector<int> want;
                if (kind >= 1 && kind <= 3) want = ref.diffuse(src, w, h, kind);
                int bad = 0;
                for (int y = 0; y < h && bad < 3; ++y) {
                    for (int i = 0; i < w * ne && bad < 3; ++i) {
                        if (e.mode == 4 && i % 4 == 3) continue;
                        const float v = ref.src(src, i, y);
                        const int expect = kind == 0 ? ref.none(v) : kind == 4 ? ref.bayer(v, i / ne, y)
                                                                               : want[size_t(y) * w * ne + i];
                        const int got = read_dst(dst, e, i, y);
                        if (got != expect) {
                            ++bad;
                            ADD_FAILURE() << e.name << " kind " << kind << " noise " << noise << " element " << i
                                          << " row " << y << ": got " << got << ", want " << expect;
                        }
                    }
                }
            }
        }
    }
}

// ---- every SIMD level, guards, exact sources ----------------------------------------

TEST(ReduceBits, SimdLevelsMatchScalarAndStayInside) {
    Rng rng(4);
    const auto shapes = sweep_shapes(1, 1, 1031);
    int k = 0;
    for (const Export& e : kExports)
        for (const Shape& sh : shapes) {
            const int kind = k % 5, noise = (k / 5) % 2 ? 0 : 20 + k % 81;
            const int levels = (k % 3 == 0) ? e.top() + 1 : 2 + k % 40;
            ++k;
            const int ne = e.elems();
            Plane src = shaped(sh, sh.w * ne * e.sb, sh.h, e.sb, 0, k % 2);
            Plane dst = shaped(sh, sh.w * ne * e.db, sh.h, e.db, 16);
            fill_source(src, e, rng);
            dst.randomize(rng);
            ASSERT_EQ(run_every_level({&dst}, [&] {
                          return e.fn(src.ptr(), src.step, dst.ptr(), dst.step, {sh.w, sh.h}, noise, kind, levels);
                      }),
                      "")
                << e.name << " kind " << kind << " " << to_string(sh);
            if (e.mode == 4) {
                ASSERT_TRUE(dst.kept([&](int xb, int) { return (xb / e.db) % 4 == 3; })) << e.name << to_string(sh);
            }
        }
}

// Every scratch allocation may fail: the call reports it and keeps nothing
// (LeakSanitizer checks the latter in the sanitizer build).
TEST(ReduceBits, ScratchFailuresReturnNoMemory) {
    const Export& e = find("nmqiReduceBits_16s8u_C3R");
    Plane src(5 * 3 * 2, 3), dst(5 * 3, 3);
    for (int kind : {1, 2, 3, 4}) {
        for (int noise : {0, 10}) {
            int n = 1;
            for (;; ++n) {
                nmq::test_fail_alloc_after(n);
                const NmqStatus st = e.fn(src.ptr(), src.step, dst.ptr(), dst.step, {5, 3}, noise, kind, 4);
                if (st == nmqStsOk) break;
                ASSERT_EQ(st, nmqStsNoMemory) << kind << " " << noise << " " << n;
            }
            nmq::test_fail_alloc_after(0);
            // Error rows, plus two tables and two generators with noise.
            EXPECT_EQ(n - 1, (kind == 4 ? 0 : 1) + (noise ? 4 : 0)) << kind << " " << noise;
        }
    }
    nmq::test_fail_alloc_after(1);
    uint8_t s[4] = {}, d[1] = {};
    EXPECT_EQ(nmqiReduceBits_8u1u_C1R(s, 4, d, 1, 0, {4, 1}, 0, 0, DitherKindStucki, 9), nmqStsNoMemory);
    nmq::test_fail_alloc_after(0);
}
