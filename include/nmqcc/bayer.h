/* Part of nmqcc.h: include <nmqcc.h>, not this file. */
#ifndef NMQCC_BAYER_H
#define NMQCC_BAYER_H
#ifndef NMQCC_H
#error "include <nmqcc.h>"
#endif

#endif
