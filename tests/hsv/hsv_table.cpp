#include "hsv/hsv_table.h"

#include <cstring>
#include <stdexcept>

namespace hsvt {
namespace {

#define ARGS const uint8_t *const *s, int ss, uint8_t *const *d, int ds, ImageSize r
#define PIX(f, T) \
    [](ARGS) { return f(reinterpret_cast<const T*>(s[0]), ss, reinterpret_cast<T*>(d[0]), ds, r); }
#define PIX_PL(f) [](ARGS) { return f(s[0], ss, d, ds, r); }
#define PL_PIX(f) [](ARGS) { return f(s, ss, d[0], ds, r); }
#define PL_PL(f) [](ARGS) { return f(s, ss, d, ds, r); }

constexpr Side C3{1, 3}, C4{1, 4}, P3{3, 1}, P4{4, 1};
constexpr Checks kPS = Checks::PtrSize, kPStS = Checks::PtrStepSize;

}  // namespace

const std::vector<Export>& exports() {
    using C = Conv;
    using T = Type;
    static const std::vector<Export> v = {
        {"nmqiRGBToHSV_8u_C3R", T::u8, C::ToHsv, false, C3, C3, false, kPS, PIX(nmqiRGBToHSV_8u_C3R, Nmq8u)},
        {"nmqiRGBToHSV_8u_AC4R", T::u8, C::ToHsv, false, C4, C4, false, kPS, PIX(nmqiRGBToHSV_8u_AC4R, Nmq8u)},
        {"nmqiRGBToHSV_16u_C3R", T::u16, C::ToHsv, false, C3, C3, false, kPS, PIX(nmqiRGBToHSV_16u_C3R, Nmq16u)},
        {"nmqiRGBToHSV_16u_AC4R", T::u16, C::ToHsv, false, C4, C4, false, kPS, PIX(nmqiRGBToHSV_16u_AC4R, Nmq16u)},
        {"nmqiHSVToRGB_8u_C3R", T::u8, C::FromHsv, false, C3, C3, false, kPS, PIX(nmqiHSVToRGB_8u_C3R, Nmq8u)},
        {"nmqiHSVToRGB_8u_AC4R", T::u8, C::FromHsv, false, C4, C4, false, kPS, PIX(nmqiHSVToRGB_8u_AC4R, Nmq8u)},
        {"nmqiHSVToRGB_16u_C3R", T::u16, C::FromHsv, false, C3, C3, false, kPS, PIX(nmqiHSVToRGB_16u_C3R, Nmq16u)},
        {"nmqiHSVToRGB_16u_AC4R", T::u16, C::FromHsv, false, C4, C4, false, kPS, PIX(nmqiHSVToRGB_16u_AC4R, Nmq16u)},
        {"nmqiRGBToHLS_8u_C3R", T::u8, C::ToHls, false, C3, C3, false, kPS, PIX(nmqiRGBToHLS_8u_C3R, Nmq8u)},
        {"nmqiRGBToHLS_8u_AC4R", T::u8, C::ToHls, false, C4, C4, false, kPS, PIX(nmqiRGBToHLS_8u_AC4R, Nmq8u)},
        {"nmqiRGBToHLS_16u_C3R", T::u16, C::ToHls, false, C3, C3, false, kPS, PIX(nmqiRGBToHLS_16u_C3R, Nmq16u)},
        {"nmqiRGBToHLS_16u_AC4R", T::u16, C::ToHls, false, C4, C4, false, kPS, PIX(nmqiRGBToHLS_16u_AC4R, Nmq16u)},
        {"nmqiRGBToHLS_16s_C3R", T::s16, C::ToHls, false, C3, C3, false, kPS, PIX(nmqiRGBToHLS_16s_C3R, Nmq16s)},
        {"nmqiRGBToHLS_16s_AC4R", T::s16, C::ToHls, false, C4, C4, false, kPS, PIX(nmqiRGBToHLS_16s_AC4R, Nmq16s)},
        {"nmqiRGBToHLS_32f_C3R", T::f32, C::ToHls, false, C3, C3, false, kPS, PIX(nmqiRGBToHLS_32f_C3R, Nmq32f)},
        {"nmqiRGBToHLS_32f_AC4R", T::f32, C::ToHls, false, C4, C4, false, kPS, PIX(nmqiRGBToHLS_32f_AC4R, Nmq32f)},
        {"nmqiHLSToRGB_8u_C3R", T::u8, C::FromHls, false, C3, C3, false, kPS, PIX(nmqiHLSToRGB_8u_C3R, Nmq8u)},
        {"nmqiHLSToRGB_8u_AC4R", T::u8, C::FromHls, false, C4, C4, false, kPS, PIX(nmqiHLSToRGB_8u_AC4R, Nmq8u)},
        {"nmqiHLSToRGB_16u_C3R", T::u16, C::FromHls, false, C3, C3, false, kPS, PIX(nmqiHLSToRGB_16u_C3R, Nmq16u)},
        {"nmqiHLSToRGB_16u_AC4R", T::u16, C::FromHls, false, C4, C4, false, kPS, PIX(nmqiHLSToRGB_16u_AC4R, Nmq16u)},
        {"nmqiHLSToRGB_16s_C3R", T::s16, C::FromHls, false, C3, C3, false, kPS, PIX(nmqiHLSToRGB_16s_C3R, Nmq16s)},
        {"nmqiHLSToRGB_16s_AC4R", T::s16, C::FromHls, false, C4, C4, false, kPS, PIX(nmqiHLSToRGB_16s_AC4R, Nmq16s)},
        {"nmqiHLSToRGB_32f_C3R", T::f32, C::FromHls, false, C3, C3, false, kPS, PIX(nmqiHLSToRGB_32f_C3R, Nmq32f)},
        {"nmqiHLSToRGB_32f_AC4R", T::f32, C::FromHls, false, C4, C4, false, kPS, PIX(nmqiHLSToRGB_32f_AC4R, Nmq32f)},
        {"nmqiBGRToHLS_8u_AC4R", T::u8, C::ToHls, true, C4, C4, false, Checks::PtrSizeStep,
         PIX(nmqiBGRToHLS_8u_AC4R, Nmq8u)},
        {"nmqiBGRToHLS_8u_C3P3R", T::u8, C::ToHls, true, C3, P3, false, kPStS, PIX_PL(nmqiBGRToHLS_8u_C3P3R)},
        {"nmqiBGRToHLS_8u_P3C3R", T::u8, C::ToHls, true, P3, C3, false, kPStS, PL_PIX(nmqiBGRToHLS_8u_P3C3R)},
        {"nmqiBGRToHLS_8u_P3R", T::u8, C::ToHls, true, P3, P3, false, kPStS, PL_PL(nmqiBGRToHLS_8u_P3R)},
        {"nmqiBGRToHLS_8u_AP4R", T::u8, C::ToHls, true, P4, P4, true, kPStS, PL_PL(nmqiBGRToHLS_8u_AP4R)},
        {"nmqiBGRToHLS_8u_AC4P4R", T::u8, C::ToHls, true, C4, P4, true, kPStS, PIX_PL(nmqiBGRToHLS_8u_AC4P4R)},
        {"nmqiBGRToHLS_8u_AP4C4R", T::u8, C::ToHls, true, P4, C4, true, kPStS, PL_PIX(nmqiBGRToHLS_8u_AP4C4R)},
        {"nmqiHLSToBGR_8u_C3P3R", T::u8, C::FromHls, true, C3, P3, false, kPStS, PIX_PL(nmqiHLSToBGR_8u_C3P3R)},
        {"nmqiHLSToBGR_8u_P3C3R", T::u8, C::FromHls, true, P3, C3, false, kPStS, PL_PIX(nmqiHLSToBGR_8u_P3C3R)},
        {"nmqiHLSToBGR_8u_P3R", T::u8, C::FromHls, true, P3, P3, false, kPStS, PL_PL(nmqiHLSToBGR_8u_P3R)},
        {"nmqiHLSToBGR_8u_AP4R", T::u8, C::FromHls, true, P4, P4, true, kPStS, PL_PL(nmqiHLSToBGR_8u_AP4R)},
        {"nmqiHLSToBGR_8u_AC4P4R", T::u8, C::FromHls, true, C4, P4, true, kPStS, PIX_PL(nmqiHLSToBGR_8u_AC4P4R)},
        {"nmqiHLSToBGR_8u_AP4C4R", T::u8, C::FromHls, true, P4, C4, true, kPStS, PL_PIX(nmqiHLSToBGR_8u_AP4C4R)},
    };
    return v;
}

const Export& find(const char* name) {
    for (const Export& e : exports())
        if (std::strcmp(e.name, name) == 0) return e;
    throw std::invalid_argument(name);
}

}  // namespace hsvt
