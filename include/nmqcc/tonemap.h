/* Part of nmqcc.h: include <nmqcc.h>, not this file. */
#ifndef NMQCC_TONEMAP_H
#define NMQCC_TONEMAP_H
#ifndef NMQCC_H
#error "include <nmqcc.h>"
#endif

#endif
