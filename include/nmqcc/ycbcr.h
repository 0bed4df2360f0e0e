/* Part of nmqcc.h: include <nmqcc.h>, not this file. */
#ifndef NMQCC_YCBCR_H
#define NMQCC_YCBCR_H
#ifndef NMQCC_H
#error "include <nmqcc.h>"
#endif

#endif
