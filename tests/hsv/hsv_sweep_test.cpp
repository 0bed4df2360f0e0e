// Every export on every sweep shape: the SIMD levels give the scalar bytes,
// nothing outside the ROI (nor a kept alpha sample) is written, sources are
// read only inside their ROI, and each layout gives the same samples as the
// RGB-order pixel form of the same conversion, with alpha copied or kept
// (16s: the 16u form on the values offset by 32768).
#include "hsv/hsv_image.h"

using namespace hsvt;
using nmqt::Shape;

namespace {

const Export& base_of(const Export& e) {
    const Type t = e.type == Type::s16 ? Type::u16 : e.type;
    for (const Export& b : exports())
        if (b.type == t && b.conv == e.conv && !b.bgr && b.src.ch == 3 && b.dst.ch == 3 && b.src.planes == 1 &&
            b.dst.planes == 1)
            return b;
    throw std::logic_error(e.name);
}

NmqStatus run(const Export& e, SideImage& src, SideImage& dst, ImageSize roi) {
    return e.call(src.cptr.data(), src.step(), dst.ptr.data(), dst.step(), roi);
}

// The samples of `from` rearranged into a pixel-order RGB image of 3 samples.
void to_base(const Export& e, SideImage& from, SideImage& to, bool colour_side, double offset) {
    for (int y = 0; y < from.h(); ++y)
        for (int x = 0; x < from.w(); ++x)
            for (int m = 0; m < 3; ++m) to.set(m, x, y, from.get(slot(m, colour_side && e.bgr), x, y) + offset);
}

void check_export(const Export& e, const Shape& sh, int index) {
    SCOPED_TRACE(std::string(e.name) + " " + nmqt::to_string(sh));
    nmqt::Rng rng(uint32_t(index) * 7919u + 1);
    const ImageSize roi{sh.w, sh.h};
    SideImage src(e.src, e.type, sh, 0, index % 3 == 0);
    src.fill(rng);
    SideImage init(e.dst, e.type, sh, 16), ref(e.dst, e.type, sh, 16);
    init.fill(rng);
    ref.copy_from(init);
    {
        nmq::IsaCap cap(nmq::Isa::Scalar);
        ASSERT_EQ(nmqStsOk, run(e, src, ref, roi));
    }
    ASSERT_TRUE(ref.outside_untouched());
    ASSERT_TRUE(src.untouched());
    if (e.keeps_alpha()) {
        const int a = 3 * e.elem(), px = 4 * e.elem();
        ASSERT_TRUE(ref.planes[0].kept([&](int xb, int) { return xb % px >= a; }));
    }
    const std::vector<uint8_t> want = ref.bytes();
    nmqt::for_each_simd_level([&](nmq::Isa lv) {
        SideImage dst(e.dst, e.type, sh, 16);
        dst.copy_from(init);
        ASSERT_EQ(nmqStsOk, run(e, src, dst, roi));
        ASSERT_TRUE(dst.outside_untouched()) << nmqt::isa_name(lv);
        EXPECT_EQ("", nmqt::first_diff(want, dst.bytes(), ref.planes[0].row_bytes)) << nmqt::isa_name(lv);
    });

    const Export& b = base_of(e);
    if (&b == &e) return;
    SideImage bsrc(b.src, b.type, sh, 0), bdst(b.dst, b.type, sh, 0);
    bsrc.fill(rng);
    bdst.fill(rng);
    const double offset = e.type == Type::s16 ? 32768 : 0;
    to_base(e, src, bsrc, e.forward(), offset);
    ASSERT_EQ(nmqStsOk, run(b, bsrc, bdst, roi));
    for (int y = 0; y < sh.h; ++y)
        for (int x = 0; x < sh.w; ++x) {
            for (int m = 0; m < 3; ++m)
                ASSERT_EQ(bdst.get(m, x, y), ref.get(slot(m, !e.forward() && e.bgr), x, y) + offset)
                    << "pixel " << x << "," << y << " sample " << m;
            if (e.writes_alpha) {
                ASSERT_EQ(src.get(3, x, y), ref.get(3, x, y)) << "alpha " << x << "," << y;
            }
        }
}

}  // namespace

TEST(HsvSweep, SimdGuardsLayouts) {
    const std::vector<Shape> shapes = nmqt::sweep_shapes();
    for (const Export& e : exports())
        for (size_t i = 0; i < shapes.size(); ++i) {
            check_export(e, shapes[i], int(i));
            if (HasFatalFailure()) return;
        }
}
