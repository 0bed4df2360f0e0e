// Shared by the gamma and colour-twist tests: the six forms of an operation on
// three colour channels (C3, AC4, P3, each also in place) behind one face, the
// table-driven argument checks, and a sweep that runs every form at every
// SIMD level over sweep_shapes() with exact-size sources and guarded
// destinations, comparing with expected values computed by the caller.
#pragma once

#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "support/harness.h"

namespace nmqt {

template <class T>
struct Forms {
    std::string name;
    std::function<NmqStatus(const T*, int, T*, int, ImageSize)> c3, ac4;
    std::function<NmqStatus(T*, int, ImageSize)> c3i, ac4i;
    std::function<NmqStatus(const T* const*, int, T* const*, int, ImageSize)> p3;
    std::function<NmqStatus(T* const*, int, ImageSize)> ip3;
};

// P: name prefix without the layout; then, after an empty argument, the extra
// arguments that follow the ROI: NMQT_FORMS(nmqiGammaFwd_32f, Nmq32f, , lo, hi).
#define NMQT_FORMS(P, T, ...)                                                                                           \
    nmqt::Forms<T> {                                                                                                    \
        #P, [](const T* s, int ss, T* d, int ds, ImageSize r) { return P##_C3R(s, ss, d, ds, r __VA_ARGS__); },       \
            [](const T* s, int ss, T* d, int ds, ImageSize r) { return P##_AC4R(s, ss, d, ds, r __VA_ARGS__); },      \
            [](T* p, int st, ImageSize r) { return P##_C3IR(p, st, r __VA_ARGS__); },                                  \
            [](T* p, int st, ImageSize r) { return P##_AC4IR(p, st, r __VA_ARGS__); },                                 \
            [](const T* const* s, int ss, T* const* d, int ds, ImageSize r) { return P##_P3R(s, ss, d, ds, r __VA_ARGS__); }, \
            [](T* const* p, int st, ImageSize r) { return P##_IP3R(p, st, r __VA_ARGS__); }                            \
    }

struct ArgCase {
    const char* what;
    bool null_src, null_dst, null_plane;
    ImageSize roi;
    int ss, ds;
    NmqStatus want;
};

// Runs every case against all six forms (in place: the source pointer and the
// smaller of the steps); nothing may be written.
template <class T>
void check_args(const Forms<T>& f, const std::vector<ArgCase>& cases) {
    for (const ArgCase& c : cases) {
        Rng rng;
        Plane img(512, 2), pl[3] = {Plane(256, 2), Plane(256, 2), Plane(256, 2)};
        img.randomize(rng);
        for (auto& p : pl) p.randomize(rng);
        SCOPED_TRACE(f.name + ": " + c.what);
        T* s = c.null_src ? nullptr : img.as<T>();
        T* d = c.null_dst ? nullptr : img.as<T>();
        T* one_img = c.null_src || c.null_dst ? nullptr : img.as<T>();
        const int one = std::min(c.ss, c.ds);
        T* planes[3] = {pl[0].as<T>(), c.null_plane ? nullptr : pl[1].as<T>(), pl[2].as<T>()};
        T* const* ps = c.null_src ? nullptr : planes;
        T* const* pd = c.null_dst ? nullptr : planes;
        T* const* pio = c.null_src || c.null_dst ? nullptr : planes;
        if (!c.null_plane) {
            EXPECT_EQ(c.want, f.c3(s, c.ss, d, c.ds, c.roi));
            EXPECT_EQ(c.want, f.ac4(s, c.ss, d, c.ds, c.roi));
            EXPECT_EQ(c.want, f.c3i(one_img, one, c.roi));
            EXPECT_EQ(c.want, f.ac4i(one_img, one, c.roi));
        }
        EXPECT_EQ(c.want, f.p3(ps, c.ss, pd, c.ds, c.roi));
        EXPECT_EQ(c.want, f.ip3(pio, one, c.roi));
        EXPECT_TRUE(img.untouched());
        for (auto& p : pl) EXPECT_TRUE(p.untouched());
    }
}

// Per shape, `make` fills the packed three-channel samples (and may change the
// operation's parameters) and returns the expected packed result; around each
// call `call` may set up the thread (e.g. a rounding mode).
template <class T>
void sweep_layouts(const Forms<T>& f, size_t stride,
                   const std::function<std::vector<T>(Rng&, std::vector<T>&)>& make,
                   const std::function<NmqStatus(const std::function<NmqStatus()>&)>& call =
                       [](const std::function<NmqStatus()>& g) { return g(); }) {
    const auto shapes = sweep_shapes();
    const int E = int(sizeof(T));
    for (size_t k = 0; k < shapes.size(); k += stride) {
        const Shape sh = shapes[k];
        const int w = sh.w, h = sh.h, pad = sh.pad * E, mis = (sh.misalign * E) % 64;
        Rng rng(uint32_t(k * 31 + 7));
        std::vector<T> in(size_t(w) * h * 3);
        const std::vector<T> want = make(rng, in);
        auto idx = [&](int x, int y, int c) { return (size_t(y) * w + x) * 3 + c; };
        // plane < 0: interleaved with ch channels (the fourth random); else one plane.
        auto fill = [&](Plane& p, int ch, int plane) {
            p.randomize(rng);
            for (int y = 0; y < h; ++y)
                for (int x = 0; x < w; ++x) {
                    T* r = reinterpret_cast<T*>(p.row(y));
                    if (plane >= 0) r[x] = in[idx(x, y, plane)];
                    else for (int c = 0; c < 3; ++c) r[x * ch + c] = in[idx(x, y, c)];
                }
            p.snapshot();
        };
        auto same = [&](const Plane& p, int ch, int plane) {
            for (int y = 0; y < h; ++y)
                for (int x = 0; x < w; ++x)
                    for (int c = 0; c < 3; ++c) {
                        if (plane >= 0 && c != plane) continue;
                        const T* r = reinterpret_cast<const T*>(p.row(y));
                        const T got = plane >= 0 ? r[x] : r[x * ch + c];
                        if (std::memcmp(&got, &want[idx(x, y, c)], sizeof(T)) != 0) {
                            ADD_FAILURE() << "x " << x << " y " << y << " c " << c << ": " << double(got) << " want "
                                          << double(want[idx(x, y, c)]);
                            return false;
                        }
                    }
            return p.outside_untouched();
        };
        auto alpha = [&](int xb, int) { return (xb / E) % 4 == 3; };
        for (nmq::Isa lv : isa_levels()) {
            nmq::IsaCap cap(lv);
            SCOPED_TRACE(f.name + " " + to_string(sh) + " " + isa_name(lv));
            for (int ch : {3, 4}) {
                Plane src(w * ch * E, h, pad, mis, 0, ch == 4), dst(w * ch * E, h, pad + E, mis ^ (4 * E), 16),
                    io(w * ch * E, h, pad, mis, 16);
                fill(src, ch, -1);
                fill(io, ch, -1);
                dst.randomize(rng);
                auto& op = ch == 3 ? f.c3 : f.ac4;
                auto& opi = ch == 3 ? f.c3i : f.ac4i;
                ASSERT_EQ(nmqStsOk, call([&] { return op(src.as<T>(), src.step, dst.as<T>(), dst.step, {w, h}); }));
                ASSERT_EQ(nmqStsOk, call([&] { return opi(io.as<T>(), io.step, {w, h}); }));
                EXPECT_TRUE(same(dst, ch, -1)) << "C" << ch;
                EXPECT_TRUE(same(io, ch, -1)) << "C" << ch << " in place";
                if (ch == 4) {
                    EXPECT_TRUE(dst.kept(alpha) && io.kept(alpha)) << "alpha written";
                }
            }
            std::vector<Plane> src, dst, io;
            for (int c = 0; c < 3; ++c) {
                src.emplace_back(w * E, h, pad, mis + c * E, 0, c == 1);
                dst.emplace_back(w * E, h, pad, mis, 16);
                io.emplace_back(w * E, h, pad, mis, 16);
                fill(src[c], 1, c);
                fill(io[c], 1, c);
                dst[c].randomize(rng);
            }
            const T* s3[3] = {src[0].as<T>(), src[1].as<T>(), src[2].as<T>()};
            T* d3[3] = {dst[0].as<T>(), dst[1].as<T>(), dst[2].as<T>()};
            T* i3[3] = {io[0].as<T>(), io[1].as<T>(), io[2].as<T>()};
            ASSERT_EQ(nmqStsOk, call([&] { return f.p3(s3, src[0].step, d3, dst[0].step, {w, h}); }));
            ASSERT_EQ(nmqStsOk, call([&] { return f.ip3(i3, io[0].step, {w, h}); }));
            for (int c = 0; c < 3; ++c) EXPECT_TRUE(same(dst[c], 1, c) && same(io[c], 1, c)) << "P3 plane " << c;
        }
    }
}

}  // namespace nmqt
