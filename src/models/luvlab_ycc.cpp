// Photographic YCC exports (C3 and AC4).
#include "models/luvlab_driver.h"

constexpr bool kFwd = true, kInv = false;

NMQ_LUVLAB_EXPORT(nmqiRGBToYCC_8u_C3R, Nmq8u, Ycc, kFwd, 3, 0)
NMQ_LUVLAB_EXPORT(nmqiRGBToYCC_8u_AC4R, Nmq8u, Ycc, kFwd, 4, 0)
NMQ_LUVLAB_EXPORT(nmqiRGBToYCC_16u_C3R, Nmq16u, Ycc, kFwd, 3, 0)
NMQ_LUVLAB_EXPORT(nmqiRGBToYCC_16u_AC4R, Nmq16u, Ycc, kFwd, 4, 0)
NMQ_LUVLAB_EXPORT(nmqiRGBToYCC_16s_C3R, Nmq16s, Ycc, kFwd, 3, 0)
NMQ_LUVLAB_EXPORT(nmqiRGBToYCC_16s_AC4R, Nmq16s, Ycc, kFwd, 4, 0)
NMQ_LUVLAB_EXPORT(nmqiRGBToYCC_32f_C3R, Nmq32f, Ycc, kFwd, 3, 0)
NMQ_LUVLAB_EXPORT(nmqiRGBToYCC_32f_AC4R, Nmq32f, Ycc, kFwd, 4, 0)
NMQ_LUVLAB_EXPORT(nmqiYCCToRGB_8u_C3R, Nmq8u, Ycc, kInv, 3, 0)
NMQ_LUVLAB_EXPORT(nmqiYCCToRGB_8u_AC4R, Nmq8u, Ycc, kInv, 4, 0)
NMQ_LUVLAB_EXPORT(nmqiYCCToRGB_16u_C3R, Nmq16u, Ycc, kInv, 3, 0)
NMQ_LUVLAB_EXPORT(nmqiYCCToRGB_16u_AC4R, Nmq16u, Ycc, kInv, 4, 0)
NMQ_LUVLAB_EXPORT(nmqiYCCToRGB_16s_C3R, Nmq16s, Ycc, kInv, 3, 0)
NMQ_LUVLAB_EXPORT(nmqiYCCToRGB_16s_AC4R, Nmq16s, Ycc, kInv, 4, 0)
NMQ_LUVLAB_EXPORT(nmqiYCCToRGB_32f_C3R, Nmq32f, Ycc, kInv, 3, 0)
NMQ_LUVLAB_EXPORT(nmqiYCCToRGB_32f_AC4R, Nmq32f, Ycc, kInv, 4, 0)
