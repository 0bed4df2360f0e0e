/* Part of nmqcc.h: include <nmqcc.h>, not this file. */
#ifndef NMQCC_YUV_H
#define NMQCC_YUV_H
#ifndef NMQCC_H
#error "include <nmqcc.h>"
#endif

#endif
